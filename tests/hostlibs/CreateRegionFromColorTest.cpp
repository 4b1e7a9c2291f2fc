#include "Images.h"
#include "platform/vorpix.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <random>

namespace
{

constexpr unsigned long COLOUR = 0x64C832; // blue 100, green 200, red 50

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
