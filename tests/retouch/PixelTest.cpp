#include "pixels/AutoContrast.h"
#include "pixels/Average.h"
#include "pixels/BrightnessContrast.h"
#include "pixels/Effects.h"
#include "pixels/LargeBuffer.h"
#include "pixels/MaskDistance.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <numeric>
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
    EXPECT_TRUE(StretchContrast(ViewOf(stretched), {mask.data(), CX}, progress));

    std::array<std::size_t, 256> counts = {};
    const auto weight = [&](std::size_t iByte) { return mask[(CY - 1 - iByte / 4 / CX) * CX + iByte / 4 % CX]; };
    for (std::size_t i = 0; i < before.size(); ++i)
        counts[before[i]] += i % 4 != 3 && weight(i);
    const std::size_t nClipped = std::accumulate(counts.begin(), counts.end(), std::size_t{0}) / 200;
    int iBlack = 0;
    for (std::size_t n = counts[0]; n <= nClipped; n += counts[static_cast<std::size_t>(iBlack)])
        ++iBlack;
    int iWhite = 255;
    for (std::size_t n = counts[255]; n <= nClipped; n += counts[static_cast<std::size_t>(iWhite)])
        --iWhite;
    for (std::size_t i = 0; i < before.size(); ++i)
    {
        const double dWeight = weight(i) / 255.0;
        const double dFull = std::round((before[i] - 127.5) * 0.7 + 127.5 + 20);
        const int iSpread = std::clamp((before[i] - iBlack) * 255 / (iWhite - iBlack), 0, 255);
        if (i % 4 == 3)
        {
            EXPECT_TRUE(adjusted[i] == before[i] && stretched[i] == before[i]);
            continue;
        }
        EXPECT_NEAR(adjusted[i], before[i] + (dFull - before[i]) * dWeight, 0.51) << i;
        EXPECT_NEAR(stretched[i], before[i] + (iSpread - before[i]) * dWeight, 0.51) << i;
    }
}

TEST(PixelTest, CancelledWorkSaysSoAndKeepsAMask)
{
    Bytes pixels = Random(CX * CY * 4, 3);
    const Bytes before = Random(CX * CY, 4);
    Bytes mask = before;
    const std::function<bool(CProgress&)> vWork[] = {
        [&](CProgress& progress) { return StretchContrast(ViewOf(pixels), {}, progress); },
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

double Spread(const Bytes& bytes, std::size_t iChannel)
{
    double dSum = 0;
    double dSquares = 0;
    for (std::size_t i = iChannel; i < bytes.size(); i += 4)
    {
        dSum += bytes[i];
        dSquares += bytes[i] * bytes[i];
    }
    const double n = static_cast<double>(bytes.size()) / 4;
    return std::sqrt(dSquares / n - dSum * dSum / n / n);
}

double Mean(const Bytes& bytes, std::size_t iChannel)
{
    double dSum = 0;
    for (std::size_t i = iChannel; i < bytes.size(); i += 4)
        dSum += bytes[i];
    return dSum * 4 / static_cast<double>(bytes.size());
}

TEST(PixelTest, EffectsDoAsTheySayAndHaveNoSeams)
{
    const struct
    {
        const char* pszName;
        void (*pApply)(PixelView, PixelRect);
        bool (*pIsRight)(const Bytes& before, const Bytes& after);
    } EFFECTS[] = {
        {"blur", &Blur, [](const Bytes& b, const Bytes& a) { return Spread(a, 1) < 0.3 * Spread(b, 1); }},
        {"sharpen", &Sharpen, [](const Bytes& b, const Bytes& a) { return Spread(a, 1) > 1.3 * Spread(b, 1); }},
        {"mosaic", &Mosaic, [](const Bytes& b, const Bytes& a) { return Spread(a, 1) < 0.2 * Spread(b, 1); }},
        {"saturate", &Saturate, [](const Bytes& b, const Bytes& a) { return Spread(a, 0) > 1.2 * Spread(b, 0); }},
        {"warm", &Warm,
         [](const Bytes& b, const Bytes& a) { return Mean(a, 2) > Mean(b, 2) && Mean(a, 0) < Mean(b, 0); }},
        {"denoise", &Denoise, [](const Bytes& b, const Bytes& a) { return Spread(a, 1) < 0.9 * Spread(b, 1); }},
    };
    const Bytes before = Random(CX * CY * 4, 5);
    std::mt19937 random(6);
    for (const auto& effect : EFFECTS)
    {
        Bytes whole = before;
        effect.pApply(ViewOf(whole), {-5, -5, CX + 9, CY + 9});
        EXPECT_TRUE(effect.pIsRight(before, whole)) << effect.pszName;
        EXPECT_NEAR(Mean(whole, 1), Mean(before, 1), 3) << effect.pszName;
        EXPECT_EQ(Mean(whole, 3), Mean(before, 3)) << effect.pszName;
        for (int n = 0; n < 8; ++n)
        {
            const int x = static_cast<int>(random() % CX);
            const int y = static_cast<int>(random() % CY);
            const PixelRect rect = {x, y, x + static_cast<int>(random() % 20), y + static_cast<int>(random() % 90)};
            Bytes part = before;
            effect.pApply(ViewOf(part), rect);
            for (std::size_t i = 0; i < part.size(); ++i)
            {
                const int iColumn = static_cast<int>(i / 4 % CX);
                const int iRow = CY - 1 - static_cast<int>(i / 4 / CX);
                const bool bInside =
                    iColumn >= rect.left && iColumn < rect.right && iRow >= rect.top && iRow < rect.bottom;
                ASSERT_EQ(part[i], (bInside ? whole : before)[i]) << effect.pszName << " " << iColumn << " " << iRow;
            }
        }
    }
}

TEST(PixelTest, TheAverageIsThatOfThePixelsThatAreThere)
{
    Bytes bytes(std::size_t{CX} * CY * 4);
    for (int i = 0; i < 9; ++i)
        ViewOf(bytes).Row(i / 3)[i % 3 * 4 + 1] = static_cast<std::uint8_t>(10 * i);
    EXPECT_EQ(AverageColour(ViewOf(bytes), 1, 1, 1)[1], 40);
    EXPECT_EQ(AverageColour(ViewOf(bytes), 1, 1, 3)[1], 40);
    EXPECT_EQ(AverageColour(ViewOf(bytes), 0, 0, 3)[1], 20);
    EXPECT_EQ(AverageColour(ViewOf(bytes), 0, 0, 5)[1], 40);
}

} // namespace
