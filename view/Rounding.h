#pragma once

#include "platform/framework.h"
#include "platform/minmax.h"

#include <limits>

// The three ways in which the view turns a zoomed coordinate into a pixel. Coordinates and constants are single
// precision; the 0.9999 lets a value that misses a whole number by rounding noise count as that number
// (docs/compatibility.md). Their sum is exact: rounded to single precision, 3000 and 0.9999 would be 3001.

namespace Pixtane
{

constexpr double ALMOST_ONE = 0.9999f;

/// Toward zero; values that no int can hold give the nearest int, and what is no number gives 0.
inline int Truncate(double dValue)
{
    constexpr double BEYOND_INT = 2147483648.0;
    if (dValue != dValue)
        return 0;
    if (dValue >= BEYOND_INT)
        return std::numeric_limits<int>::max();
    if (dValue <= -BEYOND_INT)
        return std::numeric_limits<int>::min();
    return static_cast<int>(dValue);
}

/// Like a floor: negative values lose 0.9999 before truncation.
inline int FloorLike(float fValue) { return Truncate(fValue < 0 ? fValue - ALMOST_ONE : fValue); }

/// Like a ceiling: positive values gain 0.9999 before truncation.
inline int CeilingLike(float fValue) { return Truncate(fValue > 0 ? fValue + ALMOST_ONE : fValue); }

/// To the nearest whole number, halves away from zero.
inline int RoundHalfAway(float fValue) { return Truncate(fValue < 0 ? fValue - 0.5 : fValue + 0.5); }

/// The sum, limited to what an int can hold.
inline int SaturatedSum(long long llA, long long llB)
{
    constexpr long long MIN = std::numeric_limits<int>::min();
    constexpr long long MAX = std::numeric_limits<int>::max();
    const long long llSum = (llA < MIN ? MIN : llA > MAX ? MAX : llA) + (llB < MIN ? MIN : llB > MAX ? MAX : llB);
    return static_cast<int>(llSum < MIN ? MIN : llSum > MAX ? MAX : llSum);
}

/// The bitmap pixel under a window point, by display position and zoom.
inline CPoint BitmapPixelAt(CPoint ptWindow, const Gdiplus::Point& ptDispPos, double dbZoom)
{
    const float fZoom = static_cast<float>(dbZoom);
    return {FloorLike(static_cast<float>(SaturatedSum(ptWindow.x, ptDispPos.X)) / fZoom),
            FloorLike(static_cast<float>(SaturatedSum(ptWindow.y, ptDispPos.Y)) / fZoom)};
}

} // namespace Pixtane
