#include "pixels/AutoContrast.h"
#include "pixels/BrightnessContrast.h"
#include "pixels/LargeBuffer.h"
#include "pixels/MaskDistance.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <random>

namespace
{

using Bytes = std::vector<std::uint8_t>;

/// Bottom-up, taller than the bands that the work is divided into.
constexpr int CX = 37;
constexpr int CY = 331;

PixelView ViewOf(Bytes& vPixels)
{
    return {vPixels.data() + std::ptrdiff_t{CX} * 4 * (CY - 1), CX, CY, std::ptrdiff_t{-4} * CX};
}

Bytes Random(std::size_t nBytes, unsigned uSeed)
{
    std::mt19937 random(uSeed);
    Bytes vBytes(nBytes);
    std::ranges::generate(vBytes, [&] { return static_cast<std::uint8_t>(40 + random() % 150 + random() % 20); });
    return vBytes;
}

TEST(PixelTest, BandsOfRowsComeToWhatThePlainRuleSays)
{
    const Bytes before = Random(CX * CY * 4, 1);
    Bytes mask = Random(CX * CY, 2);
    mask[0] = 0;
    mask[1] = 255;
    Bytes adjusted = before;
    Bytes stretched = before;
    CProgress progress;
    EXPECT_TRUE(AdjustBrightnessContrast(ViewOf(adjusted), {mask.data(), CX}, {20, -30}, progress));
    EXPECT_TRUE(StretchContrast(ViewOf(stretched), progress));

    std::array<std::size_t, 256> counts = {};
    for (std::size_t i = 0; i < before.size(); ++i)
        counts[before[i]] += i % 4 != 3;
    const std::size_t nClipped = before.size() / 4 * 3 / 200;
    int iBlack = 0;
    for (std::size_t n = counts[0]; n <= nClipped; n += counts[static_cast<std::size_t>(iBlack)])
        ++iBlack;
    int iWhite = 255;
    for (std::size_t n = counts[255]; n <= nClipped; n += counts[static_cast<std::size_t>(iWhite)])
        --iWhite;
    for (std::size_t i = 0; i < before.size(); ++i)
    {
        const std::size_t iPixel = i / 4;
        const double dWeight = mask[(CY - 1 - iPixel / CX) * CX + iPixel % CX] / 255.0;
        const double dFull = std::round((before[i] - 127.5) * 0.7 + 127.5 + 20);
        const int iSpread = std::clamp((before[i] - iBlack) * 255 / (iWhite - iBlack), 0, 255);
        if (i % 4 == 3)
        {
            EXPECT_TRUE(adjusted[i] == before[i] && stretched[i] == before[i]);
            continue;
        }
        EXPECT_NEAR(adjusted[i], before[i] + (dFull - before[i]) * dWeight, 0.51) << i;
        EXPECT_EQ(stretched[i], iSpread) << i;
    }
}

TEST(PixelTest, CancelledWorkSaysSoAndKeepsAMask)
{
    Bytes pixels = Random(CX * CY * 4, 3);
    const Bytes before = Random(CX * CY, 4);
    Bytes mask = before;
    const std::function<bool(CProgress&)> vWork[] = {
        [&](CProgress& progress) { return StretchContrast(ViewOf(pixels), progress); },
        [&](CProgress& progress) {
            return AdjustBrightnessContrast(ViewOf(pixels), {}, {9, 9}, progress);
        },
        [&](CProgress& progress) { return GrowMask(mask, CX, 3, progress); },
        [&](CProgress& progress) { return ShrinkMask(mask, CX, 3, progress); },
    };
    for (const auto& work : vWork)
    {
        CProgress cancelled;
        cancelled.Cancel();
        EXPECT_FALSE(work(cancelled));
        EXPECT_EQ(mask, before);
    }
    for (const auto& work : vWork)
    {
        CProgress progress;
        EXPECT_TRUE(work(progress));
        EXPECT_GT(progress.Percent(), 90);
    }
}

TEST(PixelTest, LargeBuffersBeginAtZeroAndHoldAllTheirBytes)
{
    for (const std::size_t nBytes : {std::size_t{0}, std::size_t{1}, std::size_t{4} << 20, (std::size_t{4} << 20) + 1,
                                     (std::size_t{6} << 20) + 4095})
    {
        CLargeBuffer buffer(nBytes);
        EXPECT_EQ(buffer.Size(), nBytes);
        EXPECT_EQ(std::ranges::count(buffer.Bytes(), 0), std::ssize(buffer.Bytes()));
        std::ranges::fill(buffer.Bytes(), std::uint8_t{7});
        const CLargeBuffer moved = std::move(buffer);
        EXPECT_EQ(std::ranges::count(moved.Bytes(), 7), static_cast<std::ptrdiff_t>(nBytes));
    }
    EXPECT_THROW(CLargeBuffer(std::size_t{1} << 60), std::bad_alloc);
}

} // namespace
