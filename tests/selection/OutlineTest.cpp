#include "selection/Outline.h"

#include <gtest/gtest.h>
#include <random>

namespace
{

using namespace Pixtane;

/// Pixels of a picture: inside 1, outside 0, marked 2. Rows from the top.
struct Grid
{
    int cx, cy;
    std::vector<int> vPixels;
    int& At(int x, int y) { return vPixels[static_cast<std::size_t>(y * cx + x)]; }
};

/// The rule as it is told, step by step along one line.
void MarkLine(const std::vector<int*>& p)
{
    const int n = static_cast<int>(p.size());
    for (int i = 1; i < n;)
    {
        int& a = *p[static_cast<std::size_t>(i - 1)];
        int& b = *p[static_cast<std::size_t>(i)];
        if (i == 1 && a == 1)
        {
            a = 2;
            i += 1;
        }
        else if (i != 1 && a == 1 && b != 1)
        {
            a = 2;
            i += 1;
        }
        else if (i == n - 1)
        {
            i += b == 1 ? 2 : 1;
            b = b == 1 ? 2 : b;
        }
        else if (b == 1 && a != 1)
        {
            b = 2;
            i += 2;
        }
        else
        {
            i += 1;
        }
    }
}

void MarkPlainly(Grid& grid)
{
    for (int y = 0; y < grid.cy; ++y)
    {
        std::vector<int*> vLine;
        for (int x = 0; x < grid.cx; ++x)
            vLine.push_back(&grid.At(x, y));
        MarkLine(vLine);
    }
    for (int x = 0; x < grid.cx; ++x)
    {
        std::vector<int*> vLine;
        for (int y = grid.cy - 1; y >= 0; --y)
            vLine.push_back(&grid.At(x, y));
        MarkLine(vLine);
    }
}

TEST(OutlineTest, MarksMatchTheRuleFollowedPixelByPixel)
{
    std::mt19937 random(11);
    for (int i = 0; i < 4000; ++i)
    {
        const bool bWide = i % 10 == 0;
        Grid grid = {static_cast<int>(random() % (bWide ? 140 : 8)), static_cast<int>(random() % 8), {}};
        const auto uDensity = 1 + random() % 10;
        std::vector<RECT> vInside; // What is outside of the picture does not count.
        for (int y = 0; y < grid.cy; ++y)
        {
            for (int x = 0; x < grid.cx; ++x)
            {
                grid.vPixels.push_back(random() % 10 < uDensity);
                if (grid.vPixels.back())
                    vInside.push_back({x ? x : -9, y ? y : -9, x + 1 < grid.cx ? x + 1 : 999, y + 1});
            }
        }
        Grid outline = {grid.cx, grid.cy, std::vector<int>(grid.vPixels.size())};
        for (const RECT& rc : OutlineRuns(vInside, grid.cx, grid.cy))
        {
            for (int x = rc.left; x < rc.right; ++x)
                outline.At(x, rc.top) = 2;
        }
        MarkPlainly(grid);
        for (std::size_t j = 0; j < grid.vPixels.size(); ++j)
            ASSERT_EQ(outline.vPixels[j] == 2, grid.vPixels[j] == 2)
                << grid.cx << " x " << grid.cy << " at " << j << ", picture " << i;
    }
}

} // namespace
