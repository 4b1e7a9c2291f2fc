#include "retouch/AutoContrast.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace
{

using Histogram = std::array<std::uint64_t, 256>;

template<class F>
void ForEachChannel(std::span<BYTE> vPixels, F f)
{
    for (std::size_t i = 0; i + 4 <= vPixels.size(); i += 4)
    {
        f(vPixels[i]);
        f(vPixels[i + 1]);
        f(vPixels[i + 2]);
    }
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

void StretchContrast(std::span<BYTE> vPixels)
{
    constexpr std::uint64_t CLIPPED_SHARE = 200;
    Histogram histogram = {};
    ForEachChannel(vPixels, [&](BYTE value) { ++histogram[value]; });
    const std::uint64_t nClipped = vPixels.size() / 4 * 3 / CLIPPED_SHARE;
    const int iBlack = ValueAfter(histogram.begin(), histogram.end(), nClipped);
    const int iWhite = 255 - ValueAfter(histogram.rbegin(), histogram.rend(), nClipped);
    if (iWhite <= iBlack)
        return;
    std::array<BYTE, 256> table;
    for (int i = 0; i < 256; ++i)
        table[static_cast<std::size_t>(i)] =
            static_cast<BYTE>(std::clamp((i - iBlack) * 255 / (iWhite - iBlack), 0, 255));
    ForEachChannel(vPixels, [&](BYTE& value) { value = table[value]; });
}
