#include "GdiPlusStarted.h"

#include <cmath>
#include <limits>

using namespace Gdiplus;

namespace
{

using GdiPlusTest = GdiPlusStarted;

BITMAPINFO Info(int cx, int cy) { return {{40, cx, cy, 1, 32, BI_RGB, 0, 0, 0, 0, 0}, {}}; }

/// Draws with both modes set.
Status DrawImage(Canvas& canvas, Image* pImage, const RectF& rcDest, const RectF& rcSource)
{
    Graphics graphics(canvas.hDC);
    graphics.SetPixelOffsetMode(PixelOffsetModeHalf);
    graphics.SetInterpolationMode(InterpolationModeNearestNeighbor);
    return graphics.DrawImage(pImage, rcDest, rcSource.X, rcSource.Y, rcSource.Width, rcSource.Height, UnitPixel);
}

} // namespace

TEST_F(GdiPlusTest, PixelsWhoseCentresAreCoveredTakeTheSourcePixelThere)
{
    Dice dice;
    Picture bits = dice.Pixels(100);
    const BITMAPINFO info = Info(10, 10);
    Bitmap bitmap(&info, bits.data());
    for (int iRound = 0; iRound < 1000; ++iRound)
    {
        // Eighths and powers of 2 leave nothing to round.
        const auto Eighths = [&](int iLeast, int iMost) { return static_cast<REAL>(dice.Roll(iLeast, iMost)) / 8; };
        const RectF rcDest(Eighths(-24, 48), Eighths(-24, 48), Eighths(0, 96), Eighths(0, 96));
        const PointF ptScale(static_cast<REAL>(1 << dice.Roll(0, 4)) / 4, static_cast<REAL>(1 << dice.Roll(0, 4)) / 4);
        const RectF rcSource(Eighths(-16, 80), Eighths(-16, 80), rcDest.Width * ptScale.X, rcDest.Height * ptScale.Y);
        const POINT ptOrigin = {dice.Roll(-2, 2), dice.Roll(-2, 2)};
        Canvas canvas(8, 8, ptOrigin);
        canvas.pDC->SetClip(dice.Region(8));
        EXPECT_EQ(DrawImage(canvas, &bitmap, rcDest, rcSource), Ok);
        const winlite::Region rgnDamage = winlite::Region::FromRects(canvas.vDamage);
        Picture expected(64);
        for (int i = 0; i < 64; ++i)
        {
            const REAL x = static_cast<REAL>(i % 8 - ptOrigin.x) + 0.5F - rcDest.X;
            const REAL y = static_cast<REAL>(i / 8 - ptOrigin.y) + 0.5F - rcDest.Y;
            const bool bCovered = x >= 0 && x < rcDest.Width && y >= 0 && y < rcDest.Height;
            if (!bCovered || !canvas.pDC->Clip().Contains({i % 8, i / 8}))
                continue;
            const int iColumn = std::clamp(static_cast<int>(std::floor(rcSource.X + x * ptScale.X)), 0, 9);
            const int iRow = std::clamp(static_cast<int>(std::floor(rcSource.Y + y * ptScale.Y)), 0, 9);
            expected[static_cast<std::size_t>(i)] = bits[static_cast<std::size_t>(10 * (9 - iRow) + iColumn)];
            EXPECT_TRUE(rgnDamage.Contains({i % 8, i / 8})) << iRound << ": " << i;
        }
        ASSERT_EQ(canvas.Pixels(), expected) << iRound;
    }
}

TEST_F(GdiPlusTest, WildNumbersAreSafe)
{
    const REAL fNaN = std::numeric_limits<REAL>::quiet_NaN();
    const REAL fInfinite = std::numeric_limits<REAL>::infinity();
    const REAL fHuge = std::numeric_limits<REAL>::max();
    const REAL vValues[] = {fNaN, fInfinite, -fInfinite, fHuge, -fHuge, 0, -1, 3};
    std::uint32_t vBits[] = {1, 2, 3, 4};
    const BITMAPINFO info = Info(2, 2);
    Bitmap bitmap(&info, vBits);
    for (int i = 0; i < 4; ++i)
        for (const REAL fValue : vValues)
            for (const REAL fOther : vValues)
            {
                REAL vAxis[] = {0, 4, 0, 2};
                vAxis[i] = fValue;
                vAxis[(i + 1) % 4] = fOther;
                const RectF rcDest(vAxis[0], 0, vAxis[1], 4);
                const RectF rcSource(vAxis[2], 0, vAxis[3], 2);
                Canvas canvas(4, 4);
                const bool bFinite = std::isfinite(fValue) && std::isfinite(fOther);
                EXPECT_EQ(DrawImage(canvas, &bitmap, rcDest, rcSource), bFinite ? Ok : InvalidParameter);
                const bool bMayDraw = bFinite && vAxis[1] > 0 && vAxis[3] > 0;
                EXPECT_TRUE(bMayDraw || canvas.vDamage.empty()) << i << ": " << fValue << ", " << fOther;
            }
}
