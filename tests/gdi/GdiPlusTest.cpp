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

TEST_F(GdiPlusTest, PixelsWhoseCentresAreCoveredAreDrawn)
{
    const struct
    {
        REAL fScale;
        int iFirst, iLast;
    } vCases[] = {{0.8F, 1, 1}, {1.0F, 1, 2}, {1.2F, 1, 3}, {1.5F, 1, 3}, {1.8F, 2, 4}, {2.0F, 2, 5}, {2.5F, 2, 6}};
    std::uint32_t vBits[] = {1, 1};
    const BITMAPINFO info = Info(2, 1);
    Bitmap bitmap(&info, vBits);
    for (const auto& test : vCases)
    {
        Canvas canvas(10, 1);
        EXPECT_EQ(DrawImage(canvas, &bitmap, {test.fScale, 0, 2 * test.fScale, 1}, {0, 0, 2, 1}), Ok);
        Picture expected(10);
        std::fill(expected.begin() + test.iFirst, expected.begin() + test.iLast + 1, 1);
        EXPECT_EQ(canvas.Pixels(), expected) << test.fScale;
        EXPECT_EQ(canvas.vDamage, (std::vector<RECT>{{test.iFirst, 0, test.iLast + 1, 1}})) << test.fScale;
    }
}

TEST_F(GdiPlusTest, SourcePixelsAreTakenAtPixelCentres)
{
    std::uint32_t vBits[100];
    for (std::uint32_t i = 0; i < 100; ++i)
        vBits[i] = (9 - i / 10) << 8 | i % 10; // 0xRC at row R from the top, column C.
    const BITMAPINFO info = Info(10, 10);
    Bitmap bitmap(&info, vBits);
    const REAL fScrolled = 4.0F / 3.0F;
    const struct
    {
        RectF rcDest, rcSource;
        Picture expected; // 4 x 1
    } vCases[] = {
        {{0, 0, 4, 1}, {fScrolled, 5, fScrolled, 1}, {0x501, 0x501, 0x502, 0x502}},
        {{0, 0, 4, 1}, {-2, -7, 4, 1}, {0, 0, 0, 1}},
        {{-2, 0, 4, 1}, {3, 9, 4, 1}, {0x905, 0x906, 0, 0}},
        {{1.25F, 0, 1.5F, 1}, {0, 0, 3, 1}, {0, 0, 2, 0}},
        {{0, -0.5F, 4, 1.0F}, {3, 3, 4, 1}, {0, 0, 0, 0}},
    };
    for (const auto& test : vCases)
    {
        Canvas canvas(4, 1);
        EXPECT_EQ(DrawImage(canvas, &bitmap, test.rcDest, test.rcSource), Ok);
        EXPECT_EQ(canvas.Pixels(), test.expected) << test.rcDest.X << ", " << test.rcSource.X;
    }
    Canvas canvas(4, 3, {1, 1});
    canvas.pDC->SetClip(winlite::Region(RECT{0, 0, 2, 1}));
    EXPECT_EQ(DrawImage(canvas, &bitmap, {0, 0, 3, 3}, {4, 4, 3, 3}), Ok);
    EXPECT_EQ(canvas.Pixels(), (Picture{0, 0, 0, 0, 0, 0x404, 0x405, 0, 0, 0, 0, 0}));
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
