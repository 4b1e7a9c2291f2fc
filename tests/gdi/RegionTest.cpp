#include "Canvas.h"

#include <array>
#include <limits>

using winlite::Region;

namespace
{

/// A region handle that ends with the test.
struct ScopedRegion
{
    ScopedRegion(HRGN hOwned) : h(hOwned) {}
    ScopedRegion(const RECT& rc) : h(CreateRectRgnIndirect(&rc)) {}
    ~ScopedRegion() { DeleteObject(h); }
    operator HRGN() const { return h; }
    HRGN h;
};

RECT BoxOf(HRGN hRgn)
{
    RECT rc = {-1, -1, -1, -1};
    GetRgnBox(hRgn, &rc);
    return rc;
}

std::vector<RECT> RectsOf(HRGN hRgn)
{
    std::vector<BYTE> vBytes(GetRegionData(hRgn, 0, nullptr));
    auto* pData = reinterpret_cast<RGNDATA*>(vBytes.data());
    EXPECT_EQ(GetRegionData(hRgn, static_cast<DWORD>(vBytes.size()), pData), vBytes.size());
    const auto* pRects = reinterpret_cast<const RECT*>(pData->Buffer);
    return {pRects, pRects + pData->rdh.nCount};
}

/// The same set as booleans, on coordinates from 0 to SIZE.
constexpr int SIZE_OF_GRID = 24;
using Grid = std::array<std::array<bool, SIZE_OF_GRID>, SIZE_OF_GRID>;

Grid GridOf(const std::vector<RECT>& vRects)
{
    Grid grid = {};
    for (int y = 0; y < SIZE_OF_GRID; ++y)
        for (int x = 0; x < SIZE_OF_GRID; ++x)
            for (const RECT& rc : vRects)
                grid[y][x] |= x >= rc.left && x < rc.right && y >= rc.top && y < rc.bottom;
    return grid;
}

Grid GridOf(const Region& rgn) { return GridOf(std::vector<RECT>(rgn.Rects().begin(), rgn.Rects().end())); }

/// The one reduced list of rectangles that the set has.
std::vector<RECT> BandsOf(const Grid& grid)
{
    std::vector<RECT> vBands;
    for (int y = 0, iEnd = 1; y < SIZE_OF_GRID; y = iEnd++)
    {
        while (iEnd < SIZE_OF_GRID && grid[iEnd] == grid[y])
            ++iEnd;
        for (int x = 0, xEnd = 1; x < SIZE_OF_GRID; x = xEnd++)
        {
            while (xEnd < SIZE_OF_GRID && grid[y][xEnd] == grid[y][x])
                ++xEnd;
            if (grid[y][x])
                vBands.push_back({x, y, xEnd, iEnd});
        }
    }
    return vBands;
}

/// Every row on its own, cut into runs that touch.
std::vector<RECT> RunsOf(const Grid& grid, Dice& dice)
{
    std::vector<RECT> vRuns;
    for (int y = 0; y < SIZE_OF_GRID; ++y)
        for (int x = 0, xEnd = 1; x < SIZE_OF_GRID; x = xEnd++)
        {
            while (xEnd < SIZE_OF_GRID && grid[y][xEnd] == grid[y][x] && dice.Roll(0, 3) > 0)
                ++xEnd;
            if (grid[y][x])
                vRuns.push_back({x, y, xEnd, y + 1});
        }
    return vRuns;
}

} // namespace

using RegionTest = HandleTest;

TEST_F(RegionTest, CombiningTellsComplexityAndBox)
{
    constexpr RECT NOTHING = {};
    struct Outcome
    {
        int iComplexity;
        RECT rcBox;
    };
    const struct
    {
        RECT rc1, rc2;
        Outcome and_, or_, xor_, diff;
    } vCases[] = {
        {{0, 0, 0, 0}, {0, 0, 1, 1}, {1, NOTHING}, {2, {0, 0, 1, 1}}, {2, {0, 0, 1, 1}}, {1, NOTHING}},
        {{0, 0, 4, 4}, {0, 0, 4, 4}, {2, {0, 0, 4, 4}}, {2, {0, 0, 4, 4}}, {1, NOTHING}, {1, NOTHING}},
        {{0, 0, 4, 4}, {0, 0, 2, 4}, {2, {0, 0, 2, 4}}, {2, {0, 0, 4, 4}}, {2, {2, 0, 4, 4}}, {2, {2, 0, 4, 4}}},
        {{0, 0, 4, 4}, {0, 0, 2, 2}, {2, {0, 0, 2, 2}}, {2, {0, 0, 4, 4}}, {3, {0, 0, 4, 4}}, {3, {0, 0, 4, 4}}},
        {{2, 2, 4, 4}, {0, 1, 3, 5}, {2, {2, 2, 3, 4}}, {3, {0, 1, 4, 5}}, {3, {0, 1, 4, 5}}, {2, {3, 2, 4, 4}}},
        {{2, 2, 4, 4}, {4, 3, 6, 4}, {1, NOTHING}, {3, {2, 2, 6, 4}}, {3, {2, 2, 6, 4}}, {2, {2, 2, 4, 4}}},
    };
    for (const auto& test : vCases)
    {
        const ScopedRegion rgn1(test.rc1);
        const ScopedRegion rgn2(test.rc2);
        const ScopedRegion rgnDest(RECT{7, 7, 9, 9});
        const Outcome vExpected[] = {
            test.and_, test.or_, test.xor_, test.diff, {CombineRgn(rgn1, rgn1, nullptr, RGN_COPY), test.rc1}};
        for (int iMode = RGN_AND; iMode <= RGN_COPY; ++iMode)
        {
            EXPECT_EQ(CombineRgn(rgnDest, rgn1, rgn2, iMode), vExpected[iMode - 1].iComplexity) << iMode;
            EXPECT_EQ(BoxOf(rgnDest), vExpected[iMode - 1].rcBox) << iMode;
        }
    }
}

TEST_F(RegionTest, FailuresLeaveTheDestination)
{
    const ScopedRegion rgn(RECT{1, 2, 3, 4});
    const ScopedRegion rgnOther(RECT{0, 0, 9, 9});
    const HRGN hBrush = static_cast<HRGN>(GetStockObject(WHITE_BRUSH));
    EXPECT_EQ(CombineRgn(nullptr, rgn, rgn, RGN_OR), ERROR);
    EXPECT_EQ(CombineRgn(rgn, nullptr, rgnOther, RGN_OR), ERROR);
    EXPECT_EQ(CombineRgn(rgn, rgnOther, hBrush, RGN_OR), ERROR);
    EXPECT_EQ(CombineRgn(rgn, rgnOther, rgnOther, 0), ERROR);
    EXPECT_EQ(CombineRgn(rgn, rgnOther, rgnOther, 6), ERROR);
    EXPECT_EQ(BoxOf(rgn), (RECT{1, 2, 3, 4}));
    EXPECT_EQ(CombineRgn(rgn, rgnOther, hBrush, RGN_COPY), SIMPLEREGION);
    EXPECT_TRUE(EqualRgn(rgn, rgnOther));
    EXPECT_FALSE(EqualRgn(rgn, nullptr));
}

TEST_F(RegionTest, RectanglesAndMovesKeepTheirEdges)
{
    const ScopedRegion rgn(CreateRectRgn(10, 10, 4, 4));
    EXPECT_EQ(BoxOf(rgn), (RECT{4, 4, 10, 10}));
    EXPECT_TRUE(PtInRegion(rgn, 4, 9) && !PtInRegion(rgn, 4, 10) && !PtInRegion(rgn, 10, 9));
    const RECT rcInverted = {5, 5, 0, 0};
    const RECT rcBeside = {10, 4, 12, 10};
    const RECT rcEmpty = {5, 5, 5, 8};
    EXPECT_TRUE(RectInRegion(rgn, &rcInverted));
    EXPECT_FALSE(RectInRegion(rgn, &rcBeside) || RectInRegion(rgn, &rcEmpty));

    SetRectRgn(rgn, 0, 0, 100, 100);
    EXPECT_EQ(OffsetRgn(rgn, 10, 10), SIMPLEREGION);
    EXPECT_EQ(OffsetRgn(rgn, 0x8000000 - 110, 10), ERROR);
    EXPECT_EQ(OffsetRgn(rgn, std::numeric_limits<int>::max(), 0), ERROR);
    EXPECT_EQ(OffsetRgn(rgn, 0, -0x8000000 - 11), ERROR);
    EXPECT_EQ(BoxOf(rgn), (RECT{10, 10, 110, 110}));

    SetRectRgn(rgn, 5, 5, 5, 9);
    EXPECT_EQ(OffsetRgn(rgn, 3, 3), NULLREGION);
    EXPECT_EQ(BoxOf(rgn), (RECT{}));
}

TEST_F(RegionTest, DataComesInReducedBands)
{
    const struct
    {
        RECT rc1, rc2;
        int iMode;
        std::vector<RECT> vExpected;
    } vCases[] = {
        {{0, 0, 4, 2}, {0, 2, 4, 4}, RGN_OR, {{0, 0, 4, 4}}},
        {{0, 0, 4, 2}, {0, 2, 2, 4}, RGN_OR, {{0, 0, 4, 2}, {0, 2, 2, 4}}},
        {{2, 2, 4, 4}, {3, 3, 6, 6}, RGN_OR, {{2, 2, 4, 3}, {2, 3, 6, 4}, {3, 4, 6, 6}}},
        {{0, 0, 4, 4}, {1, 1, 3, 3}, RGN_DIFF, {{0, 0, 4, 1}, {0, 1, 1, 3}, {3, 1, 4, 3}, {0, 3, 4, 4}}},
        {{0, 0, 4, 4}, {0, 0, 4, 4}, RGN_XOR, {}},
    };
    for (const auto& test : vCases)
    {
        const ScopedRegion rgn(test.rc1);
        CombineRgn(rgn, rgn, ScopedRegion(test.rc2), test.iMode);
        EXPECT_EQ(RectsOf(rgn), test.vExpected);

        RGNDATA header;
        const auto nRectBytes = static_cast<DWORD>(16 * test.vExpected.size());
        EXPECT_EQ(GetRegionData(rgn, 31 + nRectBytes, &header), 0u);
    }
}

TEST_F(RegionTest, ARegionFromDataIsTheUnionOfItsRectangles)
{
    const struct
    {
        std::vector<RECT> vRects;
        int iComplexity;
        RECT rcBox;
    } vCases[] = {
        {{}, NULLREGION, {}},
        {{{111, 222, 333, 444}}, SIMPLEREGION, {111, 222, 333, 444}},
        {{{0, 0, 10, 10}, {10, 10, 20, 20}}, COMPLEXREGION, {0, 0, 20, 20}},
        {{{0, 0, 4, 2}, {0, 1, 4, 3}}, SIMPLEREGION, {0, 0, 4, 3}},
        {{{5, 5, 9, 9}, {3, 0, 2, 1}, {0, 0, 2, 2}}, COMPLEXREGION, {0, 0, 9, 9}},
        {{{3, 0, 2, 1}}, NULLREGION, {}},
    };
    for (const auto& test : vCases)
    {
        std::vector<BYTE> vBytes(sizeof(RGNDATA) + test.vRects.size() * sizeof(RECT));
        auto* pData = reinterpret_cast<RGNDATA*>(vBytes.data());
        pData->rdh = {32, 0, static_cast<DWORD>(test.vRects.size()), 0, {}};
        std::copy(test.vRects.begin(), test.vRects.end(), reinterpret_cast<RECT*>(pData->Buffer));
        const auto nNeeded = static_cast<DWORD>(32 + test.vRects.size() * sizeof(RECT));
        const ScopedRegion rgn(ExtCreateRegion(nullptr, nNeeded, pData));
        RECT rcBox = {};
        EXPECT_EQ(GetRgnBox(rgn, &rcBox), test.iComplexity);
        EXPECT_EQ(rcBox, test.rcBox);

        EXPECT_EQ(ExtCreateRegion(nullptr, nNeeded - 1, pData), nullptr);
        pData->rdh.dwSize = 31;
        EXPECT_EQ(ExtCreateRegion(nullptr, nNeeded, pData), nullptr);
    }
    EXPECT_EQ(ExtCreateRegion(nullptr, 100, nullptr), nullptr);
}

TEST_F(RegionTest, RandomRegionsAgreeWithAGrid)
{
    Dice dice;
    for (int iRound = 0; iRound < 1000; ++iRound)
    {
        std::vector<RECT> vRects(static_cast<std::size_t>(dice.Roll(0, 12)));
        for (RECT& rc : vRects)
            rc = dice.Rect(0, 15, 8);
        const Grid grid = GridOf(vRects);
        if (iRound % 3 == 0)
            vRects = RunsOf(grid, dice);
        const Region rgn = Region::FromRects(vRects);
        ASSERT_EQ(std::vector<RECT>(rgn.Rects().begin(), rgn.Rects().end()), BandsOf(grid)) << iRound;

        Region rgnCombined = dice.Region(12);
        const Grid gridOther = GridOf(rgnCombined);
        const int iMode = iRound % 4;
        iMode == 0   ? rgnCombined &= rgn
        : iMode == 1 ? rgnCombined |= rgn
        : iMode == 2 ? rgnCombined ^= rgn
                     : rgnCombined -= rgn;
        for (int y = 0; y < SIZE_OF_GRID; ++y)
            for (int x = 0; x < SIZE_OF_GRID; ++x)
            {
                const bool bMine = gridOther[y][x];
                const bool bIts = grid[y][x];
                const bool vExpected[] = {bMine && bIts, bMine || bIts, bMine != bIts, bMine && !bIts};
                ASSERT_EQ(rgnCombined.Contains({x, y}), vExpected[iMode]) << iRound << ": " << x << ", " << y;
            }
    }
}
