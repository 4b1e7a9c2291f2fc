#include "selection/RegionRects.h"
#include "selection/ScaleRgn.h"
#include "support/MaskPicture.h"

#include <gtest/gtest.h>
#include <random>

namespace
{

using namespace Pixtane;

TEST(ScaleRgnTest, EdgesRoundAsTheModeSays)
{
    const struct
    {
        std::vector<RECT> vRects;
        float sx, sy;
        int iMode;
        const char* pszScaled;
    } vCases[] = {
        {{{3, 0, 7, 2}}, 0.5f, 0.5f, SCALE_KEEPS_BOX, "2,0,3,1 "},
        {{{3, 1, 7, 2}}, 2, 3, SCALE_KEEPS_BOX, "6,3,14,6 "},
        // Inner edges go outwards, so that neighbours touch or overlap: their union counts.
        {{{0, 0, 4, 1}, {0, 1, 2, 3}, {0, 3, 4, 4}}, 0.75f, 0.75f, SCALE_KEEPS_BOX, "0,0,3,1 0,1,2,2 0,2,3,3 "},
        {{{0, 0, 1, 1}}, 0.5f, 0.5f, SCALE_KEEPS_BOX, ""}, // vanished, but a region
        {{{-3, -3, 3, 3}}, 0.5f, 0.5f, SCALE_KEEPS_BOX, "-1,-1,1,1 "},
        {{{3, 0, 7, 2}}, 0.5f, 0.5f, SCALE_FRACTION_ALIGNED, "1,0,3,1 "},
        {{{2, 0, 7, 2}}, 0.5f, 0.5f, SCALE_FRACTION_ALIGNED, "1,0,4,1 "},
        {{{3, 5, 7, 9}}, 1.5f, 1.5f, SCALE_FRACTION_ALIGNED, "4,7,10,13 "},
    };
    for (const auto& c : vCases)
    {
        CRegionRects rects(c.vRects.size());
        std::ranges::copy(c.vRects, rects.Rects().begin());
        CRgn rgn, rgnScaled;
        rects.CreateRegion(rgn);
        rgnScaled.CreateRectRgn(9, 9, 99, 99);
        EXPECT_EQ(ScaleRgn(rgn, rgnScaled, c.sx, c.sy, c.iMode), 1);
        EXPECT_EQ(RectsOf(rgnScaled), c.pszScaled);
        for (const float fBad : {0.0f, -1.0f, std::numeric_limits<float>::quiet_NaN()})
            EXPECT_EQ(ScaleRgn(rgn, rgnScaled, fBad, 1, c.iMode), 0);
        EXPECT_EQ(RectsOf(rgnScaled), c.pszScaled) << "kept";
    }
    CRgn rgnNone, rgnKept;
    rgnKept.CreateRectRgn(0, 0, 1, 1);
    EXPECT_EQ(ScaleRgn(rgnNone, rgnKept, 1, 1, SCALE_KEEPS_BOX), 0);
    EXPECT_EQ(RectsOf(rgnKept), "0,0,1,1 ");
}

} // namespace
