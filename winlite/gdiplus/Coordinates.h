#pragma once

#include "gdiplus/Types.h"

#include <cmath>
#include <initializer_list>

namespace Gdiplus
{

// Beyond this, coordinates and their sums with a device context's origin might leave the range of regions.
constexpr REAL MOST_COORDINATE = 1 << 26;

inline bool AreFinite(std::initializer_list<REAL> vNumbers)
{
    for (const REAL fNumber : vNumbers)
        if (!std::isfinite(fNumber))
            return false;
    return true;
}

/// Whether all numbers can be coordinates.
inline bool AreInRange(std::initializer_list<REAL> vNumbers)
{
    for (const REAL fNumber : vNumbers)
        if (std::abs(fNumber) > MOST_COORDINATE)
            return false;
    return true;
}

/// The pixel at a coordinate that is in range, halves up.
inline int RoundedToPixel(REAL fCoordinate) { return static_cast<int>(std::floor(fCoordinate + 0.5F)); }

} // namespace Gdiplus
