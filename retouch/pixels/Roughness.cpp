#include "pixels/Roughness.h"

#include <algorithm>
#include <cstdlib>

namespace
{

/// Of the places about a pixel that have a step to their neighbours.
struct Steps
{
    int iSum = 0;
    int nCount = 0;

    void Add(const Steps& other)
    {
        iSum += other.iSum;
        nCount += other.nCount;
    }
};

using StepsOfPixels = std::vector<Steps>;

StepsOfPixels StepsOf(const PixelView& picture, const std::vector<std::uint8_t>& vHole)
{
    constexpr int GREEN = 1;
    const auto nRow = static_cast<std::size_t>(picture.cx);
    StepsOfPixels vSteps(vHole.size());
    for (int y = 0; y + 1 < picture.cy; ++y)
    {
        for (int x = 0; x + 1 < picture.cx; ++x)
        {
            const std::size_t i = static_cast<std::size_t>(y) * nRow + static_cast<std::size_t>(x);
            if (vHole[i] || vHole[i + 1] || vHole[i + nRow])
                continue;
            const int iHere = picture.Row(y)[x * 4 + GREEN];
            vSteps[i] = {std::abs(iHere - picture.Row(y)[x * 4 + 4 + GREEN]) +
                             std::abs(iHere - picture.Row(y + 1)[x * 4 + GREEN]),
                         1};
        }
    }
    return vSteps;
}

/// Of all within reach along a line of nCount pixels, each nStride after the last.
void SumLine(const StepsOfPixels& vSteps, StepsOfPixels& vSums, std::size_t iFirst, int nCount, std::size_t nStride,
             int nReach)
{
    for (int i = 0; i < nCount; ++i)
    {
        Steps& sum = vSums[iFirst + static_cast<std::size_t>(i) * nStride];
        for (int iNear = std::max(i - nReach, 0); iNear <= std::min(i + nReach, nCount - 1); ++iNear)
            sum.Add(vSteps[iFirst + static_cast<std::size_t>(iNear) * nStride]);
    }
}

StepsOfPixels SumsAround(const StepsOfPixels& vSteps, int cx, int cy, int nReach)
{
    const auto nRow = static_cast<std::size_t>(cx);
    StepsOfPixels vAlong(vSteps.size());
    for (int y = 0; y < cy; ++y)
        SumLine(vSteps, vAlong, static_cast<std::size_t>(y) * nRow, cx, 1, nReach);
    StepsOfPixels vAround(vSteps.size());
    for (int x = 0; x < cx; ++x)
        SumLine(vAlong, vAround, static_cast<std::size_t>(x), cy, nRow, nReach);
    return vAround;
}

} // namespace

std::vector<std::uint8_t> WithRoughness(const PixelView& picture, const std::vector<std::uint8_t>& vHole, int nReach)
{
    constexpr int WEIGHT = 3; // As much as makes grain count beside colour.
    const StepsOfPixels vAround = SumsAround(StepsOf(picture, vHole), picture.cx, picture.cy, nReach);
    std::vector<std::uint8_t> vPixels(vHole.size() * 4);
    for (int y = 0; y < picture.cy; ++y)
    {
        const std::size_t iFirst = static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.cx);
        std::copy_n(picture.Row(y), picture.cx * 4, vPixels.begin() + static_cast<std::ptrdiff_t>(iFirst) * 4);
        for (std::size_t i = iFirst; i < iFirst + static_cast<std::size_t>(picture.cx); ++i)
        {
            const Steps& steps = vAround[i];
            const bool bKnown = !vHole[i] && steps.nCount;
            vPixels[i * 4 + 3] =
                bKnown ? static_cast<std::uint8_t>(std::min(255, WEIGHT * steps.iSum / steps.nCount)) : std::uint8_t{0};
        }
    }
    return vPixels;
}
