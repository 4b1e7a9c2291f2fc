#include "platform/vorpix.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <random>

namespace
{

constexpr unsigned long COLOUR = 0x64C832; // blue 100, green 200, red 50

BITMAPINFO InfoOf(int iWidth, int iHeight, int iBitsPixel)
{
    BITMAPINFO info = {};
    info.bmiHeader.biWidth = iWidth;
    info.bmiHeader.biHeight = iHeight;
    info.bmiHeader.biBitCount = static_cast<WORD>(iBitsPixel);
    return info;
}

size_t StrideOf(int iWidth, int iBitsPixel) { return (static_cast<size_t>(iWidth) * iBitsPixel / 8 + 3) / 4 * 4; }

/// The weight as declared, not rounded.
double ExactWeight(const unsigned char* pPixel, int iTolerance)
{
    const int iDistance = std::max({std::abs(pPixel[0] - 100), std::abs(pPixel[1] - 200), std::abs(pPixel[2] - 50)});
    if (iDistance <= iTolerance)
        return 255;
    const double dFall = iTolerance ? std::max(std::min(iTolerance, 255) / 4, 16) : 1;
    return 255 * std::max(1 - (iDistance - iTolerance) / dFall, 0.0);
}

std::vector<unsigned char> NearbyColours(int iWidth, int iHeight, int iBitsPixel)
{
    std::mt19937 random(7);
    std::vector<unsigned char> vBits(StrideOf(iWidth, iBitsPixel) * iHeight);
    for (size_t i = 0; i < vBits.size(); ++i)
        vBits[i] = static_cast<unsigned char>(random());
    for (int y = 0; y < iHeight; ++y)
        for (int x = 0; x < iWidth; ++x)
        {
            unsigned char* const pPixel = &vBits[StrideOf(iWidth, iBitsPixel) * y + x * iBitsPixel / 8];
            const int iReach = 1 << random() % 9;
            const int aColour[] = {100, 200, 50};
            for (int i = 0; i < 3; ++i)
                pPixel[i] = static_cast<unsigned char>(
                    std::clamp(aColour[i] + static_cast<int>(random() % iReach) - iReach / 2, 0, 255));
        }
    return vBits;
}

} // namespace

TEST(CreateRegionFromColor, WeighsEveryPixelOfTheAreaAndNoOther)
{
    const RECT aAreas[] = {{0, 0, 1000, 1000}, {3, 2, 4, 9}, {-5, 4, 40, 5}, {20, 7, 71, 12}, {1, 0, 65, 1}};
    for (const int iBitsPixel : {24, 32})
        for (const int iWidth : {1, 2, 5, 31, 67, 130})
            for (const int iTolerance : {0, 1, 15, 63, 64, 68, 100, 200, 254, 255, 256, INT_MAX})
                for (RECT rcArea : aAreas)
                {
                    const int iHeight = 13;
                    BITMAPINFO info = InfoOf(iWidth, iHeight, iBitsPixel);
                    const std::vector<unsigned char> vBits = NearbyColours(iWidth, iHeight, iBitsPixel);
                    std::vector<unsigned char> vMask(static_cast<size_t>(iWidth) * iHeight, 77);
                    const bool bInside = rcArea.left < iWidth;
                    ASSERT_EQ(
                        Vorpix::CreateRegionFromColor(vBits.data(), info, rcArea, vMask, COLOUR, iTolerance, nullptr),
                        bInside);
                    for (int i = 0; i < iWidth * iHeight; ++i)
                    {
                        const int x = i % iWidth, y = i / iWidth;
                        const auto* const pPixel =
                            &vBits[StrideOf(iWidth, iBitsPixel) * (iHeight - 1 - y) + x * iBitsPixel / 8];
                        if (x < rcArea.left || x >= rcArea.right || y < rcArea.top || y >= rcArea.bottom)
                            ASSERT_EQ(vMask[i], 77) << x << "," << y;
                        else
                            ASSERT_NEAR(vMask[i], ExactWeight(pPixel, iTolerance), 0.625) << x << "," << y;
                    }
                }
}

TEST(CreateRegionFromColor, RefusesBadArgumentsAndLeavesTheMask)
{
    const unsigned char aBits[4 * 4 * 4] = {};
    const struct
    {
        int iWidth, iHeight, iBitsPixel, iTolerance;
        RECT rcArea;
        const unsigned char* pBits = nullptr;
        size_t nMask = 16;
    } aCases[] = {
        {4, 4, 32, 1, {0, 0, 4, 4}},
        {4, 4, 16, 1, {0, 0, 4, 4}, aBits},
        {4, 4, 8, 1, {0, 0, 4, 4}, aBits},
        {0, 4, 32, 1, {0, 0, 4, 4}, aBits, 0},
        {-4, -4, 32, 1, {0, 0, 4, 4}, aBits},
        {4, 4, 32, 1, {0, 0, 4, 4}, aBits, 15},
        {INT_MAX, INT_MAX, 32, 1, {0, 0, 4, 4}, aBits},
        {4, 4, 32, -1, {0, 0, 4, 4}, aBits},
        {4, 4, 32, 1, {0, 0, 0, 0}, aBits},
        {4, 4, 32, 1, {4, 0, 8, 4}, aBits},
        {4, 4, 32, 1, {3, 0, 1, 4}, aBits},
        {4, 4, 24, 1, {0, INT_MIN, 4, 0}, aBits},
    };
    for (const auto& test : aCases)
    {
        BITMAPINFO info = InfoOf(test.iWidth, test.iHeight, test.iBitsPixel);
        RECT rcArea = test.rcArea;
        std::vector<unsigned char> vMask(test.nMask, 77);
        EXPECT_FALSE(Vorpix::CreateRegionFromColor(test.pBits, info, rcArea, vMask, 0, test.iTolerance, nullptr));
        EXPECT_EQ(vMask, std::vector<unsigned char>(test.nMask, 77));
    }
}
