#include "GdiPlusStarted.h"

#include <cmath>
#include <limits>

using namespace Gdiplus;

namespace
{

using GdiPlusTest = GdiPlusStarted;

} // namespace

TEST_F(GdiPlusTest, WildNumbersAreSafe)
{
    const REAL fNaN = std::numeric_limits<REAL>::quiet_NaN();
    const REAL fInfinite = std::numeric_limits<REAL>::infinity();
    const REAL fHuge = std::numeric_limits<REAL>::max();
    const REAL vValues[] = {fNaN, fInfinite, -fInfinite, fHuge, -fHuge, 0, -1, 3};
    std::uint32_t vBits[] = {1, 2, 3, 4};
    const BITMAPINFO info = {{40, 2, 2, 1, 32, BI_RGB, 0, 0, 0, 0, 0}, {}};
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
                EXPECT_EQ(DrawNearest(canvas.hDC, &bitmap, rcDest, rcSource), bFinite ? Ok : InvalidParameter);
                const bool bMayDraw = bFinite && vAxis[1] > 0 && vAxis[3] > 0;
                EXPECT_TRUE(bMayDraw || canvas.vDamage.empty()) << i << ": " << fValue << ", " << fOther;
            }
}
