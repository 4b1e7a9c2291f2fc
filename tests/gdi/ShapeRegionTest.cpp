#include "Canvas.h"

#include <algorithm>

using winlite::Region;

namespace
{

/// The region of a new handle, which is deleted.
Region Taken(HRGN hRgn)
{
    EXPECT_NE(hRgn, nullptr);
    const Region rgn = winlite::FindRegion(hRgn)->rgn;
    EXPECT_TRUE(DeleteObject(hRgn));
    return rgn;
}

/// The region's pixels as text, from (0, 0) on.
Rows TextOf(const Region& rgn, std::size_t cx, std::size_t cy)
{
    Rows vRows(cy, std::string(cx, '.'));
    for (const RECT& rc : rgn.Rects())
        for (int y = rc.top; y < rc.bottom; ++y)
            for (int x = rc.left; x < rc.right; ++x)
                vRows.at(static_cast<std::size_t>(y)).at(static_cast<std::size_t>(x)) = '#';
    return vRows;
}

/// Whether a pixel is in a polygon: by the crossings of its row that are not right of it.
bool IsInside(const std::vector<POINT>& vPoints, POINT pt, int iMode)
{
    int iCrossings = 0;
    for (std::size_t i = 0; i < vPoints.size(); ++i)
    {
        const POINT ptFrom = vPoints[i];
        const POINT ptTo = vPoints[(i + 1) % vPoints.size()];
        if (pt.y < std::min(ptFrom.y, ptTo.y) || pt.y >= std::max(ptFrom.y, ptTo.y))
            continue;
        const std::int64_t iSide =
            std::int64_t{pt.x - ptFrom.x} * (ptTo.y - ptFrom.y) - std::int64_t{pt.y - ptFrom.y} * (ptTo.x - ptFrom.x);
        const int iDirection = ptTo.y > ptFrom.y ? 1 : -1;
        if (iSide * iDirection >= 0)
            iCrossings += iMode == WINDING ? iDirection : 1;
    }
    return iMode == WINDING ? iCrossings != 0 : iCrossings % 2 != 0;
}

using ShapeRegionTest = HandleTest;

} // namespace

TEST_F(ShapeRegionTest, PolygonsAgreeWithCountedCrossings)
{
    Dice dice;
    for (int iRound = 0; iRound < 400; ++iRound)
    {
        const int iReach = iRound % 4 == 0 ? 1000 : iRound % 4 == 1 ? 3 : 20;
        std::vector<POINT> vPoints(static_cast<std::size_t>(dice.Roll(2, 12)));
        for (POINT& pt : vPoints)
            pt = {dice.Roll(-iReach, iReach), dice.Roll(-iReach, iReach)};
        const int iMode = dice.Roll(ALTERNATE, WINDING);
        const Region rgn = Taken(CreatePolygonRgn(vPoints.data(), static_cast<int>(vPoints.size()), iMode));
        for (int i = 0; i < 41 * 41; ++i)
        {
            const POINT pt = {i % 41 - 20, i / 41 - 20};
            ASSERT_EQ(rgn.Contains(pt), IsInside(vPoints, pt, iMode)) << iRound << ": " << pt.x << ',' << pt.y;
        }
    }
    const POINT vFar[] = {{0, 0}, {1 << 28, 0}, {0, 5}};
    EXPECT_EQ(CreatePolygonRgn(vFar, 3, ALTERNATE), nullptr);
    const POINT vNear[] = {{0, 0}, {9, 0}, {0, 5}};
    EXPECT_EQ(CreatePolygonRgn(vNear, 1, ALTERNATE), nullptr);
    EXPECT_EQ(CreatePolygonRgn(vNear, 3, 3), nullptr);
}

TEST_F(ShapeRegionTest, EllipticRegionsEndBeforeTheLastRowAndColumn)
{
    const struct
    {
        RECT rc;
        Rows vRows;
    } vCases[] = {
        {{0, 0, 1, 5}, {"."}},
        {{2, 2, 0, 0}, {"#.", ".."}},
        {{0, 0, 4, 4}, {"###", "###", "###"}},
        {{0, 0, 8, 8}, {"..###..", ".#####.", "#######", "#######", "#######", ".#####.", "..###.."}},
        {{0, 0, 8, 5}, {".#####.", "#######", "#######", ".#####."}},
        {{0, 0, 12, 4}, {".#########.", "###########", ".#########."}},
    };
    for (const auto& test : vCases)
        EXPECT_EQ(TextOf(Taken(CreateEllipticRgnIndirect(&test.rc)), test.vRows[0].size(), test.vRows.size()),
                  test.vRows);
    const Region rgnLarge = Taken(CreateEllipticRgn(-100'000'000, -500, 100'000'001, 502));
    EXPECT_EQ(rgnLarge.Box(), (RECT{-100'000'000, -500, 100'000'000, 501}));
}
