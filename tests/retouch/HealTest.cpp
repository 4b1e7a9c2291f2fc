#include "pixels/Heal.h"
#include "pixels/Membrane.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace
{

using Bytes = std::vector<std::uint8_t>;

struct Picture
{
    Picture(int cxOf, int cyOf)
        : bytes(static_cast<std::size_t>(cxOf) * static_cast<std::size_t>(cyOf) * 4), cx(cxOf), cy(cyOf)
    {
    }
    PixelView View() { return {bytes.data(), cx, cy, std::ptrdiff_t{cx} * 4}; }

    Bytes bytes;
    int cx;
    int cy;
};

/// The rule of a spot, written once more.
bool IsIn(const Spot& spot, int x, int y)
{
    const double dMiddle = (spot.iSize - 1) / 2.0;
    return std::hypot(x - (spot.x - spot.iSize / 2) - dMiddle, y - (spot.y - spot.iSize / 2) - dMiddle) <=
           spot.iSize / 2.0;
}

/// A slope in two directions with regular stripes of a height.
Picture Slope(int cx, int cy, double dStripes)
{
    Picture picture(cx, cy);
    for (int y = 0; y < cy; ++y)
    {
        for (int x = 0; x < cx; ++x)
        {
            for (int i = 0; i < 3; ++i)
            {
                const double dStripe = dStripes * std::sin(x * 0.9) * std::cos(y * 0.7 + i);
                picture.View().Row(y)[x * 4 + i] =
                    static_cast<std::uint8_t>(std::lround(60 + 20 * i + 0.4 * x + 0.3 * y + dStripe));
            }
        }
    }
    return picture;
}

void Blot(Picture& picture, const Spot& spot)
{
    for (int y = 0; y < picture.cy; ++y)
    {
        for (int x = 0; x < picture.cx; ++x)
        {
            for (int i = 0; i < 3 && IsIn(spot, x, y); ++i)
                picture.View().Row(y)[x * 4 + i] = static_cast<std::uint8_t>(i * 100);
        }
    }
}

TEST(HealTest, RunsAndRingsHoldTheirPixels)
{
    const PixelRect rect = {3, 2, 40, 30};
    for (int iSize = 1; iSize < 40; ++iSize)
    {
        const Spot spot = {10 + iSize % 7, 12, iSize};
        std::vector<int> vTimes(40 * 30);
        const auto count = [&](const std::vector<PixelRun>& vRuns, int iTimes)
        {
            for (const PixelRun& run : vRuns)
            {
                for (int x = run.left; x < run.right; ++x)
                    vTimes[static_cast<std::size_t>(run.y * 40 + x)] += iTimes;
            }
        };
        count(spot.RunsWithin(rect), 1);
        count(spot.RingWithin(rect, 3), 2);
        for (int y = 0; y < 30; ++y)
        {
            for (int x = 0; x < 40; ++x)
            {
                const bool bThere = x >= rect.left && y >= rect.top;
                const int iExpected = IsIn(spot, x, y) ? 1 : IsIn(spot.Grown(3), x, y) ? 2 : 0;
                ASSERT_EQ(vTimes[static_cast<std::size_t>(y * 40 + x)], bThere ? iExpected : 0)
                    << iSize << ": " << x << " " << y;
            }
        }
    }
}

/// What each wanted value comes to when it is made the mean of its neighbours in the grid again and again.
std::vector<double> Relaxed(const PixelRect& grid, const Spot& spot, std::vector<double> vValues)
{
    const auto at = [&](int x, int y) -> double& { return vValues[static_cast<std::size_t>(y * grid.right + x)]; };
    for (int i = 0; i < 20000; ++i)
    {
        for (const PixelRun& run : spot.RunsWithin(grid))
        {
            for (int x = run.left; x < run.right; ++x)
            {
                double dSum = 0;
                int nNeighbours = 0;
                for (const auto& [dx, dy] : {std::pair{-1, 0}, {1, 0}, {0, -1}, {0, 1}})
                {
                    if (x + dx < 0 || run.y + dy < 0 || x + dx >= grid.right || run.y + dy >= grid.bottom)
                        continue;
                    dSum += at(x + dx, run.y + dy);
                    ++nNeighbours;
                }
                at(x, run.y) = dSum / nNeighbours;
            }
        }
    }
    return vValues;
}

TEST(HealTest, AMembraneIsTheMeanOfItsNeighbours)
{
    const struct
    {
        PixelRect grid;
        Spot spot;
    } CASES[] = {{{0, 0, 37, 37}, {18, 18, 33}}, {{0, 0, 30, 41}, {12, 20, 37}}, {{0, 0, 23, 21}, {0, 0, 36}},
                 {{0, 0, 60, 5}, {30, 2, 51}},   {{0, 0, 5, 5}, {2, 2, 1}},      {{0, 0, 1, 40}, {0, 10, 31}}};
    std::mt19937 random(3);
    for (const auto& test : CASES)
    {
        CMembrane membrane(test.grid.right, test.grid.bottom, test.spot.RunsWithin(test.grid));
        std::vector<double> vValues(static_cast<std::size_t>(test.grid.right) *
                                    static_cast<std::size_t>(test.grid.bottom));
        for (const PixelRun& run : test.spot.RingWithin(test.grid, 2))
        {
            for (int x = run.left; x < run.right; ++x)
            {
                const double dValue = 60 * std::sin(x * 0.2) + run.y + static_cast<int>(random() % 10);
                vValues[static_cast<std::size_t>(run.y * test.grid.right + x)] = dValue;
                membrane.Know(x, run.y, static_cast<float>(dValue), static_cast<float>(-dValue), 7);
            }
        }
        membrane.Solve();
        const std::vector<double> vExpected = Relaxed(test.grid, test.spot, vValues);
        for (const PixelRun& run : test.spot.RunsWithin(test.grid))
        {
            for (int x = run.left; x < run.right; ++x)
            {
                const double dExpected = vExpected[static_cast<std::size_t>(run.y * test.grid.right + x)];
                ASSERT_NEAR(membrane.At(x, run.y)[0], dExpected, 1) << test.spot.iSize << ": " << x << " " << run.y;
                ASSERT_NEAR(membrane.At(x, run.y)[1], -dExpected, 1);
                ASSERT_NEAR(membrane.At(x, run.y)[2], 7, 0.01);
            }
        }
    }
}

TEST(HealTest, ASpotGoesAndAllElseStays)
{
    const struct
    {
        const char* pszName;
        double dStripes;
        Spot spot;
        int iMostOff; ///< Of any pixel of the spot.
    } CASES[] = {{"smooth", 0, {100, 60, 25}, 2},
                 {"one pixel", 0, {100, 60, 1}, 1},
                 {"an even size", 0, {100, 60, 16}, 1},
                 {"the right edge", 0, {199, 60, 21}, 5},
                 {"a corner", 0, {0, 0, 30}, 7},
                 {"about a place beyond the edge", 0, {-5, 80, 24}, 6},
                 {"textured", 12, {100, 60, 25}, 12},
                 {"textured, at the edge", 12, {70, 119, 20}, 14},
                 {"most of the height, with the surroundings alone", 0, {100, 60, 116}, 60},
                 {"beside the picture", 0, {-40, 60, 25}, 0}};
    for (const auto& test : CASES)
    {
        const Picture original = Slope(200, 120, test.dStripes);
        Picture healed = original;
        Blot(healed, test.spot);
        const bool bBlotted = healed.bytes != original.bytes;
        EXPECT_EQ(bBlotted, test.iMostOff > 0) << test.pszName;
        CProgress progress;
        ASSERT_TRUE(HealSpot(healed.View(), healed.View(), {}, test.spot, progress)) << test.pszName;
        for (std::size_t i = 0; i < healed.bytes.size(); ++i)
        {
            const auto x = static_cast<int>(i / 4 % 200);
            const auto y = static_cast<int>(i / 800);
            ASSERT_NEAR(healed.bytes[i], original.bytes[i], IsIn(test.spot, x, y) ? test.iMostOff : 0)
                << test.pszName << ": " << x << " " << y;
        }
    }
}

TEST(HealTest, EdgesGoOnThroughASpot)
{
    Picture original = Slope(200, 160, 0);
    for (int y = 0; y < original.cy; ++y)
    {
        for (int i = 0; i < 4 * (90 + y / 6); ++i)
            original.View().Row(y)[i] /= 4;
    }
    for (const int iSize : {11, 30, 55})
    {
        const Spot spot = {104, 80, iSize};
        Picture blotted = original;
        Blot(blotted, spot);
        Picture healed = blotted;
        CProgress progress;
        ASSERT_TRUE(HealSpot(blotted.View(), healed.View(), {}, spot, progress));
        int nOff = 0;
        for (std::size_t i = 0; i < healed.bytes.size(); ++i)
            nOff += std::abs(healed.bytes[i] - original.bytes[i]) > 20;
        EXPECT_LE(nOff, 3 * iSize) << "one pixel along the edge, in each channel, at most";
        Picture again = blotted;
        ASSERT_TRUE(HealSpot(blotted.View(), again.View(), {}, spot, progress));
        EXPECT_EQ(again.bytes, healed.bytes) << iSize;
    }
}

/// A bend that no other place of the picture has.
int CurveAt(int y) { return 90 + (y - 80) * (y - 80) / 60; }

/// The mean step from a pixel to the next of a spot's pixels on one side of an edge.
double RoughnessOf(const Picture& picture, const Spot& spot, int iSide)
{
    double dSum = 0;
    double dCount = 0;
    for (const PixelRun& run : spot.RunsWithin({0, 0, picture.cx, picture.cy}))
    {
        const int iEdge = CurveAt(run.y);
        const int left = iSide < 0 ? run.left : std::max(run.left, iEdge + 6);
        const int right = iSide < 0 ? std::min(run.right, iEdge - 6) : run.right;
        for (int x = left; x < right; ++x, ++dCount)
        {
            const std::uint8_t* const pPixel = picture.bytes.data() + (run.y * picture.cx + x) * 4;
            dSum += std::abs(pPixel[1] - pPixel[5]);
        }
    }
    return dSum / dCount;
}

TEST(HealTest, GrainGoesOnThroughASpotOnItsSideOfAnEdge)
{
    std::mt19937 random(9);
    Picture original = Slope(200, 160, 0);
    for (int y = 0; y < original.cy; ++y)
    {
        for (int i = 0; i < 4 * CurveAt(y); ++i)
            original.View().Row(y)[i] = static_cast<std::uint8_t>(original.View().Row(y)[i] / 4 + random() % 30);
    }
    for (const int iSize : {30, 35, 48})
    {
        const Spot spot = {94, 80, iSize};
        Picture healed = original;
        Blot(healed, spot);
        CProgress progress;
        ASSERT_TRUE(HealSpot(healed.View(), healed.View(), {}, spot, progress));
        EXPECT_GT(RoughnessOf(healed, spot, -1), 0.9 * RoughnessOf(original, spot, -1)) << iSize;
        EXPECT_LT(RoughnessOf(healed, spot, 1), 3) << iSize;
    }
}

TEST(HealTest, WeightsLimitItAndCancellingLeavesThePicture)
{
    Picture blotted = Slope(200, 120, 5);
    const Spot spot = {100, 60, 25};
    Blot(blotted, spot);
    Picture whole = blotted;
    Picture half = blotted;
    std::vector<std::uint8_t> vWeights(200 * 120);
    for (std::size_t i = 0; i < vWeights.size(); ++i)
        vWeights[i] = i % 200 < 100 ? 255 : i % 3 == 0 ? 128 : 0;
    CProgress progress;
    EXPECT_TRUE(HealSpot(blotted.View(), whole.View(), {}, spot, progress));
    EXPECT_TRUE(HealSpot(blotted.View(), half.View(), {vWeights.data(), 200}, spot, progress));
    for (std::size_t i = 0; i < half.bytes.size(); ++i)
    {
        const double dWeight = vWeights[i / 4] / 255.0;
        ASSERT_NEAR(half.bytes[i], blotted.bytes[i] + dWeight * (whole.bytes[i] - blotted.bytes[i]), 1);
    }
    progress.Cancel();
    Picture cancelled = blotted;
    EXPECT_FALSE(HealSpot(cancelled.View(), cancelled.View(), {}, spot, progress));
    EXPECT_EQ(cancelled.bytes, blotted.bytes);
}

TEST(HealTest, AnyPictureAndAnySpot)
{
    std::mt19937 random(5);
    for (const auto& [cx, cy] : {std::pair{1, 1}, {1, 300}, {300, 1}, {2, 2}, {31, 7}})
    {
        for (const int iSize : {1, 2, 9, 60, 500})
        {
            Picture picture = Slope(cx, cy, 3);
            const Spot spot = {static_cast<int>(random() % static_cast<unsigned>(cx + 4)) - 2,
                               static_cast<int>(random() % static_cast<unsigned>(cy + 4)) - 2, iSize};
            Blot(picture, spot);
            const Bytes before = picture.bytes;
            CProgress progress;
            EXPECT_TRUE(HealSpot(picture.View(), picture.View(), {}, spot, progress));
            // A spot that leaves nothing to go by stays.
            if (spot.RingWithin({0, 0, cx, cy}, 1).empty())
            {
                EXPECT_EQ(picture.bytes, before) << cx << " " << cy << " " << iSize;
            }
        }
    }
}

} // namespace
