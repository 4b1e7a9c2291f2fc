#pragma once

#include "platform/minmax.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace Pixtane
{

/// A range of each channel (blue, green, red), as the least value and how many lie above it.
struct ColourRange
{
    std::uint8_t vLeast[3];
    std::uint8_t vAbove[3];

    ColourRange(const BYTE* pColour, BYTE byTolerance)
    {
        for (int i = 0; i < 3; ++i)
        {
            vLeast[i] = static_cast<BYTE>(std::max(pColour[i] - byTolerance, 0));
            vAbove[i] = static_cast<BYTE>(std::min(pColour[i] + byTolerance, 255) - vLeast[i]);
        }
    }

    bool Has(const std::uint8_t* pPixel) const
    {
        const auto isIn = [&](int i) { return static_cast<std::uint8_t>(pPixel[i] - vLeast[i]) <= vAbove[i]; };
        return isIn(0) && isIn(1) && isIn(2);
    }
};

/// Sets a bit for each pixel of a row (3 or 4 bytes each) whose colour is in the range: pixel x is bit x % 64 of word x
/// / 64. The bits after the last pixel are 0.
void MatchPixels(const std::uint8_t* pPixels, int nPixelBytes, std::size_t nPixels, const ColourRange& range,
                 std::uint64_t* pBits);

/// Writes a byte for each bit of a row: 255 where it is set, otherwise 0.
void WidenBits(const std::uint64_t* pBits, std::size_t nPixels, std::uint8_t* pBytes);

} // namespace Pixtane
