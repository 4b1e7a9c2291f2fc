#include "Canvas.h"

namespace
{

constexpr COLORREF KEY = RGB(255, 0, 255);

using TransparentBltTest = HandleTest;

} // namespace

TEST_F(TransparentBltTest, EverythingButTheKeyArrives)
{
    Dice dice;
    for (int iRound = 0; iRound < 300; ++iRound)
    {
        Picture picture = dice.Pixels(16 * 16);
        for (std::uint32_t& uPixel : picture)
            uPixel = dice.Roll(0, 1) ? uPixel : (uPixel & 0xFF000000) | 0xFF00FF; // Top bytes do not count.
        Canvas source(16, picture);
        Canvas other(16, dice.Pixels(16 * 16));
        Canvas& dest = iRound % 2 == 0 ? source : other;
        const Picture before = dest.Pixels();
        const winlite::Region rgnClip = dice.Region(16);
        dest.pDC->SetClip(rgnClip);
        const POINT ptDest = {dice.Roll(-4, 14), dice.Roll(-4, 14)};
        const POINT ptSource = {dice.Roll(0, 8), dice.Roll(0, 8)};
        const SIZE szSource = {dice.Roll(1, 8), dice.Roll(1, 8)};
        const bool bScaled = iRound % 3 == 0;
        const SIZE szDest = bScaled ? SIZE{dice.Roll(1, 12), dice.Roll(1, 12)} : szSource;
        ASSERT_TRUE(TransparentBlt(dest.hDC, ptDest.x, ptDest.y, szDest.cx, szDest.cy, source.hDC, ptSource.x,
                                   ptSource.y, szSource.cx, szSource.cy, KEY));
        const winlite::Region rgnDamage = winlite::Region::FromRects(dest.vDamage);
        for (int i = 0; i < 16 * 16; ++i)
        {
            const POINT pt = {i % 16 - ptDest.x, i / 16 - ptDest.y};
            const int iColumn = ptSource.x + (2 * pt.x + 1) * szSource.cx / (2 * szDest.cx);
            const int iRow = ptSource.y + (2 * pt.y + 1) * szSource.cy / (2 * szDest.cy);
            const bool bDrawn =
                rgnClip.Contains({i % 16, i / 16}) && pt.x >= 0 && pt.y >= 0 && pt.x < szDest.cx && pt.y < szDest.cy;
            const std::uint32_t uSource = bDrawn ? picture[static_cast<std::size_t>(16 * iRow + iColumn)] : 0xFF00FF;
            const auto iPixel = static_cast<std::size_t>(i);
            const bool bKept = (uSource & 0xFFFFFF) == 0xFF00FF;
            ASSERT_EQ(dest.Pixels()[iPixel], bKept ? before[iPixel] : uSource) << iRound << ": " << i;
            ASSERT_TRUE(bKept || rgnDamage.Contains({i % 16, i / 16}));
        }
    }
}

TEST_F(TransparentBltTest, NegativeSizesAndOutsideSourcesCopyNothing)
{
    const struct
    {
        int cx, cxSource, xSource;
        BOOL bResult;
    } vCases[] = {{-2, 2, 0, FALSE}, {2, -2, 3, FALSE}, {2, 2, 3, FALSE}, {2, 2, -1, FALSE},
                  {0, 2, 0, TRUE},   {2, 0, 9, TRUE},   {2, 2, 2, TRUE}};
    for (const auto& test : vCases)
    {
        Canvas source(4, Picture(16, 7));
        Canvas dest(4, 4);
        EXPECT_EQ(TransparentBlt(dest.hDC, 1, 1, test.cx, 2, source.hDC, test.xSource, 0, test.cxSource, 2, KEY),
                  test.bResult);
        EXPECT_EQ(dest.Pixels()[5], test.xSource == 2 ? 7u : 0u);
    }
}
