#include "pixels/AutoContrast.h"

#include "pixels/Bands.h"

#include <algorithm>
#include <array>
#include <mutex>

namespace
{

using Histogram = std::array<std::uint64_t, 256>;

template<class F>
void ForEachChannel(const PixelView& pixels, int iFirst, int iEnd, F f)
{
    for (int y = iFirst; y < iEnd; ++y)
    {
        std::uint8_t* const pRow = pixels.Row(y);
        for (std::ptrdiff_t i = 0; i < std::ptrdiff_t{pixels.cx} * 4; i += 4)
            f(pRow[i], pRow[i + 1], pRow[i + 2]);
    }
}

bool CountValues(PixelView pixels, Histogram& histogram, CProgress& progress)
{
    std::mutex mutex;
    return ForBands(pixels.cy, progress,
                    [&](int iFirst, int iEnd)
                    {
                        // A table for each channel: equal values in a row would wait for each other.
                        std::array<Histogram, 3> band = {};
                        ForEachChannel(pixels, iFirst, iEnd,
                                       [&](std::uint8_t blue, std::uint8_t green, std::uint8_t red)
                                       {
                                           ++band[0][blue];
                                           ++band[1][green];
                                           ++band[2][red];
                                       });
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

bool StretchContrast(PixelView pixels, CProgress& progress)
{
    constexpr std::uint64_t CLIPPED_SHARE = 200;
    progress.SetStages(2);
    Histogram histogram = {};
    if (!CountValues(pixels, histogram, progress))
        return false;
    const std::uint64_t nClipped = std::uint64_t{3} * pixels.cx * pixels.cy / CLIPPED_SHARE;
    const int iBlack = ValueAfter(histogram.begin(), histogram.end(), nClipped);
    const int iWhite = 255 - ValueAfter(histogram.rbegin(), histogram.rend(), nClipped);
    if (iWhite <= iBlack)
        return true;
    std::array<std::uint8_t, 256> table;
    for (int i = 0; i < 256; ++i)
        table[static_cast<std::size_t>(i)] =
            static_cast<std::uint8_t>(std::clamp((i - iBlack) * 255 / (iWhite - iBlack), 0, 255));
    const auto stretch = [&](std::uint8_t& blue, std::uint8_t& green, std::uint8_t& red)
    {
        blue = table[blue];
        green = table[green];
        red = table[red];
    };
    return ForBands(pixels.cy, progress, [&](int iFirst, int iEnd) { ForEachChannel(pixels, iFirst, iEnd, stretch); });
}
