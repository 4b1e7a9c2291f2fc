#include "platform/vorpix.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace
{

using Mask = std::vector<unsigned char>;

BITMAPINFO Header(int cx, int cy)
{
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), cx, cy, 1, 8, BI_RGB, static_cast<DWORD>(cx * cy), 0, 0, 0, 0};
    return info;
}

Mask Resized(const Mask& vMask, int cx, int cy, int cxNew, int cyNew, Vorpix::RESIZE_ALGORITHM algorithm)
{
    Mask vOut;
    BITMAPINFO infoOut = {};
    EXPECT_TRUE(
        Vorpix::Resize(vMask.data(), vMask.size(), Header(cx, cy), vOut, infoOut, cxNew, cyNew, algorithm, nullptr));
    EXPECT_EQ(infoOut.bmiHeader.biWidth, cxNew);
    EXPECT_EQ(infoOut.bmiHeader.biHeight, cyNew);
    EXPECT_EQ(infoOut.bmiHeader.biSizeImage, vOut.size());
    return vOut;
}

/// A line resized as the rule tells, in double precision.
std::vector<double> PlainLine(const std::vector<double>& vLine, int nDest, bool bSharp)
{
    const auto nSource = static_cast<int>(vLine.size());
    const double dStep = static_cast<double>(nSource) / nDest;
    std::vector<double> vResult;
    for (int iDest = 0; iDest < nDest; ++iDest)
    {
        double dSum = 0, dWeights = 0;
        for (int i = -300; i < nSource + 300; ++i)
        {
            const double d = std::abs(i - ((iDest + 0.5) * dStep - 0.5)) / (bSharp ? std::max(dStep, 1.0) : 1);
            const double dCubic = d < 1   ? 1.5 * d * d * d - 2.5 * d * d + 1
                                  : d < 2 ? -0.5 * d * d * d + 2.5 * d * d - 4 * d + 2
                                          : 0;
            const double dArea =
                std::min((iDest + 1) * dStep, i + 1.0) - std::max(iDest * dStep, static_cast<double>(i));
            const double dWeight = nSource == nDest ? i == iDest
                                   : bSharp         ? dCubic
                                   : dStep > 1      ? std::max(dArea, 0.0)
                                                    : std::max(1 - d, 0.0);
            dSum += dWeight * vLine[static_cast<std::size_t>(std::clamp(i, 0, nSource - 1))];
            dWeights += dWeight;
        }
        vResult.push_back(std::clamp(dSum / dWeights, 0.0, 255.0));
    }
    return vResult;
}

TEST(ResizeTest, EachSideFollowsTheRule)
{
    std::mt19937 random(4);
    const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    for (int i = 0; i < 60; ++i)
    {
        const auto algorithm = i % 2 ? Vorpix::RESIZE_SHARP : Vorpix::RESIZE_SMOOTH;
        const int cx = 1 + below(40), cy = 1 + below(40), cxNew = 1 + below(70), cyNew = 1 + below(70);
        Mask vMask;
        for (int j = 0; j < cx * cy; ++j)
            vMask.push_back(static_cast<unsigned char>(random()));
        const Mask vResized = Resized(vMask, cx, cy, cxNew, cyNew, algorithm);
        ASSERT_EQ(vResized.size(), static_cast<std::size_t>(cxNew) * cyNew);
        std::vector<std::vector<double>> vColumns;
        for (int x = 0; x < cx; ++x)
        {
            std::vector<double> vColumn;
            for (int y = 0; y < cy; ++y)
                vColumn.push_back(vMask[static_cast<std::size_t>(y * cx + x)]);
            vColumns.push_back(PlainLine(vColumn, cyNew, algorithm == Vorpix::RESIZE_SHARP));
        }
        for (int y = 0; y < cyNew; ++y)
        {
            std::vector<double> vRow;
            for (const auto& vColumn : vColumns)
                vRow.push_back(std::floor(vColumn[static_cast<std::size_t>(y)] + 0.5));
            const std::vector<double> vWanted = PlainLine(vRow, cxNew, algorithm == Vorpix::RESIZE_SHARP);
            for (int x = 0; x < cxNew; ++x)
                ASSERT_NEAR(vResized[static_cast<std::size_t>(y * cxNew + x)], vWanted[static_cast<std::size_t>(x)], 2)
                    << cx << "x" << cy << " to " << cxNew << "x" << cyNew << " at " << x << "," << y;
        }
    }
}

TEST(ResizeTest, OneColourStaysAndTheSameSizeIsACopy)
{
    for (const auto algorithm : {Vorpix::RESIZE_SMOOTH, Vorpix::RESIZE_SHARP})
    {
        for (const int iLevel : {0, 1, 128, 254, 255})
        {
            for (const int nNew : {1, 2, 5, 7, 30, 300})
            {
                const Mask vMask(7 * 9, static_cast<unsigned char>(iLevel));
                EXPECT_EQ(Resized(vMask, 7, 9, nNew, 2 * nNew, algorithm),
                          Mask(static_cast<std::size_t>(2 * nNew * nNew), static_cast<unsigned char>(iLevel)));
            }
        }
        const Mask vMask = {1, 200, 3, 40, 5, 60};
        EXPECT_EQ(Resized(vMask, 3, 2, 3, 2, algorithm), vMask);
    }
    EXPECT_EQ(Resized({0, 255, 255, 255, 0, 0, 255, 255}, 4, 2, 2, 1, Vorpix::RESIZE_SMOOTH), (Mask{64, 255}));
}

TEST(ResizeTest, WhatIsNotRightIsRefusedAndNothingWritten)
{
    const Mask vMask(12, 9);
    Mask vOut = {5};
    BITMAPINFO info = Header(4, 3), infoOut = Header(1, 1);
    const auto resize = [&](const Mask& v, int cx, int cy, int iAlgorithm)
    {
        return Vorpix::Resize(v.empty() ? nullptr : v.data(), v.size(), info, vOut, infoOut, cx, cy,
                              static_cast<Vorpix::RESIZE_ALGORITHM>(iAlgorithm), nullptr);
    };
    EXPECT_FALSE(resize(vMask, 0, 3, 1));
    EXPECT_FALSE(resize(vMask, 3, -1, 1));
    EXPECT_FALSE(resize(vMask, 65536, 65536, 1));
    EXPECT_FALSE(resize(vMask, 3, 3, 3));
    EXPECT_FALSE(resize(Mask(11, 9), 3, 3, 1));
    EXPECT_FALSE(resize({}, 3, 3, 1));
    info.bmiHeader.biBitCount = 24;
    EXPECT_FALSE(resize(vMask, 3, 3, 1));
    EXPECT_EQ(vOut, Mask{5});
    EXPECT_EQ(infoOut.bmiHeader.biWidth, 1);
}

} // namespace
