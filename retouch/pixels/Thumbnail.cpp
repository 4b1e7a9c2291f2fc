#include "pixels/Thumbnail.h"

#include <array>
#include <cstddef>

namespace
{

constexpr int PLACES = 6; ///< Along each side of a pixel.

/// The pixel of nPixels at one of the places of one of nSmall.
int PlaceOf(int iSmall, int iPlace, int nSmall, int nPixels)
{
    const long long llHalves = 2LL * (iSmall * PLACES + iPlace) + 1;
    return static_cast<int>(llHalves * nPixels / (2LL * nSmall * PLACES));
}

} // namespace

void Reduce(const PixelView& picture, const PixelView& small)
{
    for (int y = 0; y < small.cy; ++y)
    {
        std::uint8_t* pPixel = small.Row(y);
        for (int x = 0; x < small.cx; ++x, pPixel += 4)
        {
            std::array<int, 4> aSum = {};
            for (int iPlace = 0; iPlace < PLACES * PLACES; ++iPlace)
            {
                const int iColumn = PlaceOf(x, iPlace % PLACES, small.cx, picture.cx);
                const std::uint8_t* const pFrom =
                    picture.Row(PlaceOf(y, iPlace / PLACES, small.cy, picture.cy)) + std::ptrdiff_t{iColumn} * 4;
                for (std::size_t i = 0; i < aSum.size(); ++i)
                    aSum[i] += pFrom[i];
            }
            for (std::size_t i = 0; i < aSum.size(); ++i)
                pPixel[i] = static_cast<std::uint8_t>((aSum[i] + PLACES * PLACES / 2) / (PLACES * PLACES));
        }
    }
}
