#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>

/// The numbers by which a pixel's weight follows from its colour: (max(uFall - max(distance - uTolerance, 0), 0) *
/// uFactor + 128) / 256, all within 16 bits.
struct ColourWeights
{
    /// For a tolerance of 0 or more.
    ColourWeights(unsigned long crColor, int iTolerance)
        : uBlue(static_cast<uint8_t>(crColor >> 16)), uGreen(static_cast<uint8_t>(crColor >> 8)),
          uRed(static_cast<uint8_t>(crColor)), uTolerance(static_cast<uint8_t>(std::min(iTolerance, 255))),
          uFall(static_cast<uint8_t>(uTolerance ? std::max(uTolerance / 4, 16) : 1)),
          uFactor(static_cast<uint16_t>((255 * 256 + uFall / 2) / uFall))
    {
    }

    /// The weight of a pixel: blue, green, red.
    uint8_t WeightOf(const uint8_t* pPixel) const
    {
        const int iDistance =
            std::max({std::abs(pPixel[0] - uBlue), std::abs(pPixel[1] - uGreen), std::abs(pPixel[2] - uRed)});
        const int iRest = std::max(uFall - std::max(iDistance - uTolerance, 0), 0);
        return static_cast<uint8_t>((iRest * uFactor + 128) >> 8);
    }

    uint8_t uBlue, uGreen, uRed;
    uint8_t uTolerance;
    /// Over how many levels beyond the tolerance the weight falls to 0.
    uint8_t uFall;
    /// What a level of the fall is worth, in 1/256.
    uint16_t uFactor;
};
