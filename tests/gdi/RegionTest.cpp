#include "Canvas.h"

#include "gdi/RectMath.h"

#include <array>
#include <limits>

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

/// A region made of data, which is refused when it is one byte short or its header has another size.
HRGN FromData(const std::vector<RECT>& vRects)
{
    std::vector<BYTE> vBytes(sizeof(RGNDATA) + vRects.size() * sizeof(RECT));
    auto* pData = reinterpret_cast<RGNDATA*>(vBytes.data());
    pData->rdh = {31, 0, static_cast<DWORD>(vRects.size()), 0, {}};
    std::copy(vRects.begin(), vRects.end(), reinterpret_cast<RECT*>(pData->Buffer));
    const auto nNeeded = static_cast<DWORD>(32 + vRects.size() * sizeof(RECT));
    EXPECT_EQ(ExtCreateRegion(nullptr, nNeeded, pData), nullptr);
    pData->rdh.dwSize = 32;
    EXPECT_EQ(ExtCreateRegion(nullptr, nNeeded - 1, pData), nullptr);
    return ExtCreateRegion(nullptr, nNeeded, pData);
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

TEST_F(RegionTest, DataAndCombinationsAgreeWithAGrid)
{
    Dice dice;
    const auto Rolled = [&dice](Grid& grid)
    {
        std::vector<RECT> vRects(static_cast<std::size_t>(dice.Roll(0, 9)));
        for (RECT& rc : vRects)
        {
            rc = dice.Rect(0, 15, 8);
            if (dice.Roll(0, 9) == 0)
                std::swap(rc.left, rc.right); // An inverted one is empty.
        }
        grid = GridOf(vRects);
        return FromData(dice.Roll(0, 2) ? vRects : RunsOf(grid, dice));
    };
    for (int iRound = 0; iRound < 500; ++iRound)
    {
        Grid grid1, grid2;
        const ScopedRegion rgn1(Rolled(grid1));
        const ScopedRegion rgn2(Rolled(grid2));
        const ScopedRegion rgnDest(RECT{7, 7, 9, 9});
        for (int iMode = RGN_AND; iMode <= RGN_COPY; ++iMode)
        {
            Grid grid = grid1;
            const int iComplexity = CombineRgn(rgnDest, rgn1, iMode == RGN_COPY ? nullptr : rgn2.h, iMode);
            for (int i = 0; i < SIZE_OF_GRID * SIZE_OF_GRID; ++i)
            {
                const int x = i % SIZE_OF_GRID, y = i / SIZE_OF_GRID;
                const bool bOne = grid1[y][x], bOther = grid2[y][x];
                const bool vExpected[] = {bOne && bOther, bOne || bOther, bOne != bOther, bOne && !bOther, bOne};
                grid[y][x] = vExpected[iMode - 1];
                ASSERT_EQ(PtInRegion(rgnDest, x, y), grid[y][x]) << iRound << ", " << iMode << ": " << x << ", " << y;
            }
            const std::vector<RECT> vBands = BandsOf(grid);
            ASSERT_EQ(RectsOf(rgnDest), vBands) << iRound << ", " << iMode;
            RECT rcBox = {};
            for (const RECT& rc : vBands)
                rcBox = winlite::UnionBox(rcBox, rc);
            EXPECT_EQ(BoxOf(rgnDest), rcBox);
            EXPECT_EQ(iComplexity, static_cast<int>(std::min<std::size_t>(vBands.size(), 2)) + 1);
            RGNDATA header;
            EXPECT_EQ(GetRegionData(rgnDest, static_cast<DWORD>(31 + 16 * vBands.size()), &header), 0u);
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
    EXPECT_EQ(ExtCreateRegion(nullptr, 100, nullptr), nullptr);
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
