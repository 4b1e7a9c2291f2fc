#include "hostlibs/FeatherKernel.h"
#include "hostlibs/ParallelFor.h"
#include "platform/vorpix.h"
#include "Targets.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <climits>
#include <cmath>
#include <cstdint>
#include <random>
#include <stdexcept>

namespace
{

struct Mask
{
    Mask(int cx, int cy, int iLevel = 0) : iWidth(cx), iHeight(cy)
    {
        vBytes.assign(static_cast<size_t>(cx) * cy, static_cast<unsigned char>(iLevel));
    }
    unsigned char& At(int x, int y) { return vBytes[static_cast<size_t>(y) * iWidth + x]; }
    void Fill(const RECT& rc, int iLevel)
    {
        for (int y = rc.top; y < rc.bottom; ++y)
            for (int x = rc.left; x < rc.right; ++x)
                At(x, y) = static_cast<unsigned char>(iLevel);
    }
    bool Feather(RECT rcBox, int iRadius)
    {
        return Vorpix::FeatherRegion(vBytes, rcBox, iRadius, iWidth, iHeight, nullptr, true);
    }
    RECT Box() const { return {0, 0, iWidth, iHeight}; }

    int iWidth, iHeight;
    std::vector<unsigned char> vBytes;
};

/// A few rectangles of levels, some of them noise.
Mask RandomMask(int iWidth, int iHeight, std::mt19937& random)
{
    Mask mask(iWidth, iHeight);
    for (int i = 0; i < 6; ++i)
    {
        const int x = static_cast<int>(random() % iWidth), y = static_cast<int>(random() % iHeight);
        const RECT rc = {x, y, x + 1 + static_cast<int>(random() % (iWidth - x)),
                         y + 1 + static_cast<int>(random() % (iHeight - y))};
        mask.Fill(rc, i % 2 ? 255 : static_cast<int>(random() % 256));
        for (int n = 0; n < 20; ++n)
            mask.At(static_cast<int>(random() % iWidth), y) = static_cast<unsigned char>(random());
    }
    return mask;
}

std::vector<uint64_t> Convolve(const std::vector<uint64_t>& vLeft, const std::vector<uint64_t>& vRight)
{
    std::vector<uint64_t> vResult(vLeft.size() + vRight.size() - 1);
    for (size_t i = 0; i < vLeft.size(); ++i)
        for (size_t j = 0; j < vRight.size(); ++j)
            vResult[i + j] += vLeft[i] * vRight[j];
    return vResult;
}

/// One direction as declared: every pixel's weighted sum on its own, the outermost pixels repeated.
Mask SlowDirection(Mask mask, int iRadius, bool bDown)
{
    const std::vector<uint64_t> vBox(iRadius, 1), vOdd = {1, 6, 1}, vEven = {1, 1};
    const auto vWeights = Convolve(Convolve(vBox, vBox), Convolve(vBox, iRadius % 2 ? vOdd : vEven));
    const uint64_t nShare = iRadius % 2 ? 8 : 2;
    const FeatherKernel kernel(iRadius);
    const int iReach = static_cast<int>(vWeights.size() / 2);
    Mask result = mask;
    for (int y = 0; y < mask.iHeight; ++y)
        for (int x = 0; x < mask.iWidth; ++x)
        {
            uint64_t nSum = nShare * kernel.nUnit / 2;
            for (int i = -iReach; i <= iReach; ++i)
                nSum += vWeights[i + iReach] * mask.At(std::clamp(x + (bDown ? 0 : i), 0, mask.iWidth - 1),
                                                       std::clamp(y + (bDown ? i : 0), 0, mask.iHeight - 1));
            result.At(x, y) = kernel.LevelOf(nSum / nShare);
        }
    return result;
}

/// What must come out; outside of the grown box the mask's own bytes.
Mask SlowFeather(Mask mask, const RECT& rcBox, int iRadius)
{
    iRadius = std::min(iRadius, std::max(mask.iWidth, mask.iHeight));
    Mask soft = SlowDirection(SlowDirection(mask, iRadius, true), iRadius, false);
    const int iReach = (3 * iRadius - 1) / 2;
    for (int y = std::max(rcBox.top - iReach, 0); y < std::min(rcBox.bottom + iReach, mask.iHeight); ++y)
        for (int x = std::max(rcBox.left - iReach, 0); x < std::min(rcBox.right + iReach, mask.iWidth); ++x)
            mask.At(x, y) = soft.At(x, y);
    return mask;
}

} // namespace

TEST(FeatherRegion, AgreesWithTheWeightedSumOfEveryPixel)
{
    const struct
    {
        int iWidth, iHeight;
        RECT rcBox;
        std::vector<int> vRadii;
    } aCases[] = {
        {1, 1, {0, 0, 1, 1}, {1, 2, 300}},
        {97, 83, {0, 0, 97, 83}, {1, 2, 3, 4, 5, 8, 21, 150}},
        {97, 83, {40, 30, 60, 35}, {1, 6, 7, 18}},
        {97, 83, {-50, 70, 3, 500}, {4, 9}},
        {700, 3, {300, 1, 350, 2}, {2, 5, 60}},
        {3, 700, {1, 300, 2, 350}, {2, 5, 60, 257}},
        {1, 400, {0, 10, 1, 20}, {11}},
        {400, 1, {10, 0, 20, 1}, {12}},
    };
    std::mt19937 random(1);
    for (const auto& test : aCases)
        for (const int iRadius : test.vRadii)
        {
            Mask mask = RandomMask(test.iWidth, test.iHeight, random);
            const Mask expected = SlowFeather(mask, test.rcBox, iRadius);
            ASSERT_TRUE(mask.Feather(test.rcBox, iRadius));
            ASSERT_TRUE(mask.vBytes == expected.vBytes) << test.iWidth << " x " << test.iHeight << ", " << iRadius;
        }
}

TEST(FeatherRegion, IsTheSameForEveryProcessorAndNumberOfThreads)
{
    std::mt19937 random(2);
    const Mask mask = RandomMask(1100, 800, random);
    const RECT rcBox = {100, 120, 1000, 640};
    for (const int iRadius : {2, 5, 64, 301})
    {
        SetParallelThreads(1);
        UseTargets(0);
        Mask expected = mask;
        ASSERT_TRUE(expected.Feather(rcBox, iRadius));
        for (int64_t nLeft = hwy::SupportedTargets(); nLeft != 0; nLeft &= nLeft - 1)
            for (const size_t nThreads : {1, 2, 3})
            {
                SetParallelThreads(nThreads);
                UseTargets(nLeft & -nLeft);
                Mask other = mask;
                ASSERT_TRUE(other.Feather(rcBox, iRadius));
                ASSERT_TRUE(other.vBytes == expected.vBytes)
                    << hwy::TargetName(nLeft & -nLeft) << ", " << nThreads << " threads, radius " << iRadius;
            }
    }
    SetParallelThreads(0);
    UseTargets(0);
}

TEST(FeatherRegion, IsCloseToAGaussianOnAStraightEdge)
{
    for (int iRadius = 3; iRadius <= 301; ++iRadius)
    {
        const int iSize = 6 * iRadius + 2, iEdge = iSize / 2;
        Mask across(iSize, 2), down(2, iSize);
        across.Fill({iEdge, 0, iSize, 2}, 255);
        down.Fill({0, iEdge, 2, iSize}, 255);
        ASSERT_TRUE(across.Feather(across.Box(), iRadius) && down.Feather(down.Box(), iRadius));
        EXPECT_EQ(across.At(iEdge - 2 * iRadius, 0), 0);
        for (int i = 0; i < iSize; ++i)
        {
            const double dSigmas = (i + 0.5 - iEdge) / (iRadius / 2.0);
            const double dGaussian = 255 * 0.5 * std::erfc(-dSigmas / std::sqrt(2.0));
            ASSERT_NEAR(across.At(i, 1), std::round(dGaussian), 3) << iRadius << " at " << i;
            ASSERT_EQ(across.At(i, 0), down.At(1, i));
        }
    }
}

TEST(FeatherRegion, KeepsEvenAreasAndSelectionsAlongTheBorder)
{
    for (const int iRadius : {1, 2, 9, 64, 255, 256, 257, 4000, INT_MAX})
        for (int iLevel = 0; iLevel <= 255; ++iLevel)
        {
            Mask mask(70, 41, iLevel);
            const std::vector<unsigned char> vBefore = mask.vBytes;
            ASSERT_TRUE(mask.Feather({10, 10, 20, 20}, iRadius));
            ASSERT_TRUE(mask.vBytes == vBefore) << iRadius << " of " << iLevel;
        }
    Mask touching(120, 60), inside(240, 60);
    touching.Fill({0, 0, 50, 60}, 255);
    inside.Fill({0, 0, 170, 60}, 255);
    ASSERT_TRUE(touching.Feather({0, 0, 50, 60}, 20) && inside.Feather({0, 0, 170, 60}, 20));
    for (int x = 0; x < 120; ++x)
        EXPECT_EQ(touching.At(x, 59), inside.At(x + 120, 30)) << x;
    const std::vector<unsigned char> vSoft = touching.vBytes;
    ASSERT_TRUE(touching.Feather(touching.Box(), 0) && touching.Feather(touching.Box(), INT_MIN));
    EXPECT_TRUE(touching.vBytes == vSoft) << "no radius, no change";
}

TEST(ParallelFor, HandsOnTheFirstFailureAndBeginsNothingMore)
{
    std::atomic<int> iBegun = 0;
    const auto FailLate = [&](size_t, size_t nBegin, size_t)
    {
        ++iBegun;
        if (nBegin >= 10)
            throw std::runtime_error("no");
    };
    EXPECT_THROW(ParallelFor(1000, 1, 3, FailLate), std::runtime_error);
    EXPECT_LE(iBegun, 13);
}
