#include "Canvas.h"

#include <limits>

using winlite::Region;

namespace
{

/// A brush that ends with the test.
struct ScopedBrush
{
    explicit ScopedBrush(COLORREF cr) : h(CreateSolidBrush(cr)) {}
    explicit ScopedBrush(const Canvas& tile)
    {
        auto pBitmap = std::make_shared<winlite::BitmapObject>();
        pBitmap->pSurface = tile.pSurface;
        const auto hBitmap = winlite::OpenTyped<HBITMAP>(pBitmap);
        h = CreatePatternBrush(hBitmap);
        DeleteObject(hBitmap);
    }
    ~ScopedBrush() { DeleteObject(h); }
    HBRUSH h;
};

} // namespace

using FillTest = HandleTest;

TEST_F(FillTest, RectanglesAreHalfOpenClippedAndReported)
{
    constexpr int MOST = std::numeric_limits<int>::max();
    const ScopedBrush brush(0xFF332211); // The fourth byte is none of a colour's.
    const struct
    {
        RECT rc, rcWritten;
    } vCases[] = {
        {{0, 0, 2, 1}, {1, 1, 3, 2}},
        {{-9, -9, 1, 2}, {0, 0, 2, 3}},
        {{-MOST, -MOST, MOST, MOST}, {0, 0, 4, 4}},
        {{2, 2, 1, 1}, {}},
    };
    for (const auto& test : vCases)
    {
        Canvas canvas(4, 4, {1, 1});
        EXPECT_TRUE(FillRect(canvas.hDC, &test.rc, brush.h));
        const bool bWritten = !(test.rcWritten == RECT{});
        EXPECT_EQ(canvas.Pixels()[5], bWritten ? 0x00112233u : 0u) << testing::PrintToString(test.rc);
        EXPECT_EQ(canvas.vDamage, std::vector<RECT>(bWritten, test.rcWritten));
    }
}

TEST_F(FillTest, RegionsFillExactlyTheirPixelsWithinTheClip)
{
    Dice dice;
    const ScopedBrush brush(RGB(1, 2, 3));
    for (int iRound = 0; iRound < 300; ++iRound)
    {
        Canvas canvas(10, 10);
        const Region rgnClip = dice.Region(10);
        const Region rgnFilled = dice.Region(10);
        const HRGN hClip = CreateRectRgn(0, 0, 0, 0);
        const HRGN hFilled = CreateRectRgn(0, 0, 0, 0);
        winlite::FindRegion(hClip)->rgn = rgnClip;
        winlite::FindRegion(hFilled)->rgn = rgnFilled;
        EXPECT_EQ(SelectClipRgn(canvas.hDC, hClip), rgnClip.Complexity());
        EXPECT_TRUE(FillRgn(canvas.hDC, hFilled, brush.h));
        EXPECT_TRUE(DeleteObject(hClip) && DeleteObject(hFilled));
        const Region rgnDamage = Region::FromRects(canvas.vDamage);
        for (int i = 0; i < 100; ++i)
        {
            const POINT pt = {i % 10, i / 10};
            const bool bInside = rgnClip.Contains(pt) && rgnFilled.Contains(pt);
            ASSERT_EQ(canvas.Pixels()[static_cast<std::size_t>(i)], bInside ? 0x00010203u : 0u) << iRound << ": " << i;
            ASSERT_EQ(rgnDamage.Contains(pt), bInside) << iRound << ": " << i;
            ASSERT_EQ(GetPixel(canvas.hDC, pt.x, pt.y) == CLR_INVALID, !rgnClip.Contains(pt));
        }
        EXPECT_EQ(SelectClipRgn(canvas.hDC, nullptr), SIMPLEREGION);
        ASSERT_NE(GetPixel(canvas.hDC, 9, 9), CLR_INVALID);
    }
}

TEST_F(FillTest, PatternsRepeatFromTheBrushOrigin)
{
    Dice dice;
    for (int iRound = 0; iRound < 300; ++iRound)
    {
        const int cxTile = dice.Roll(1, 5);
        const int cyTile = dice.Roll(1, 5);
        const Picture tile = dice.Pixels(cxTile * cyTile);
        const ScopedBrush brush(Canvas(cxTile, tile));
        const POINT ptWindow = {dice.Roll(-3, 3), dice.Roll(-3, 3)};
        const POINT ptOrigin = {dice.Roll(-20, 20), dice.Roll(-20, 20)};
        Canvas canvas(16, 16, ptWindow);
        POINT ptOld = {7, 7};
        EXPECT_TRUE(SetBrushOrgEx(canvas.hDC, ptOrigin.x, ptOrigin.y, &ptOld));
        EXPECT_TRUE(ptOld.x == 0 && ptOld.y == 0);
        const RECT rc = dice.Rect(-5, 12, 20);
        FillRect(canvas.hDC, &rc, brush.h);
        const RECT rcWritten = canvas.pDC->ToSurface(rc);
        for (int y = 0; y < 16; ++y)
            for (int x = 0; x < 16; ++x)
            {
                // 100 tiles more make the remainder's operand positive.
                const int iColumn = (x - ptWindow.x - ptOrigin.x + 100 * cxTile) % cxTile;
                const int iRow = (y - ptWindow.y - ptOrigin.y + 100 * cyTile) % cyTile;
                const std::uint32_t uTile = tile[static_cast<std::size_t>(iRow * cxTile + iColumn)];
                const bool bInside = Region(rcWritten).Contains({x, y});
                ASSERT_EQ(canvas.Pixels()[static_cast<std::size_t>(16 * y + x)], bInside ? uTile : 0u) << iRound;
            }
    }
}
