#include "pixels/AutoContrast.h"

#include "pixels/Bands.h"
#include "pixels/Curve.h"

#include <algorithm>
#include <array>
#include <mutex>
#include <numeric>

namespace
{

using Histogram = std::array<std::uint64_t, 256>;

/// Counts the channel values of the pixels that take part.
void CountRow(const std::uint8_t* pPixel, const std::uint8_t* pWeights, int cx, std::array<Histogram, 3>& counts)
{
    for (int x = 0; x < cx; ++x, pPixel += 4)
    {
        // A table for each channel: equal values in a row would wait for each other.
        for (std::size_t i = 0; i < counts.size() && (!pWeights || pWeights[x]); ++i)
            ++counts[i][pPixel[i]];
    }
}

bool CountValues(PixelView pixels, MaskView weights, Histogram& histogram, CProgress& progress)
{
    std::mutex mutex;
    return ForBands(pixels.cy, progress,
                    [&](int iFirst, int iEnd)
                    {
                        std::array<Histogram, 3> band = {};
                        for (int y = iFirst; y < iEnd; ++y)
                            CountRow(pixels.Row(y), weights.Row(y), pixels.cx, band);
                        const std::lock_guard lock(mutex);
                        for (std::size_t i = 0; i < histogram.size(); ++i)
                            histogram[i] += band[0][i] + band[1][i] + band[2][i];
                    });
}

/// The first value, counted from the first of the range, below which that many lie.
template<class It>
int ValueAfter(It itFirst, It itEnd, std::uint64_t nCount)
{
    const It it = std::find_if(itFirst, itEnd,
                               [&](std::uint64_t n)
                               {
                                   const bool bReached = n > nCount;
                                   nCount -= bReached ? 0 : n;
                                   return bReached;
                               });
    return static_cast<int>(it - itFirst);
}

} // namespace

bool StretchContrast(PixelView pixels, MaskView weights, CProgress& progress)
{
    constexpr std::uint64_t CLIPPED_SHARE = 200;
    progress.SetStages(2);
    Histogram histogram = {};
    if (!CountValues(pixels, weights, histogram, progress))
        return false;
    const std::uint64_t nValues = std::accumulate(histogram.begin(), histogram.end(), std::uint64_t{0});
    const std::uint64_t nClipped = nValues / CLIPPED_SHARE;
    const int iBlack = ValueAfter(histogram.begin(), histogram.end(), nClipped);
    const int iWhite = 255 - ValueAfter(histogram.rbegin(), histogram.rend(), nClipped);
    if (iWhite <= iBlack)
        return true;
    Curve curve;
    for (int i = 0; i < 256; ++i)
        curve[static_cast<std::size_t>(i)] =
            static_cast<std::uint8_t>(std::clamp((i - iBlack) * 255 / (iWhite - iBlack), 0, 255));
    return ApplyCurve(pixels, weights, curve, progress);
}
