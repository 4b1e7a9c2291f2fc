#pragma once

#include "base/Types.h"

#include <algorithm>
#include <limits>

namespace winlite
{

/// The nearest value that a coordinate can have.
constexpr int Saturated(std::int64_t iValue)
{
    constexpr std::int64_t iLeast = std::numeric_limits<int>::min();
    constexpr std::int64_t iMost = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(iValue, iLeast, iMost));
}

/// A rectangle with its edges put in order.
constexpr RECT Ordered(int iLeft, int iTop, int iRight, int iBottom)
{
    return {std::min(iLeft, iRight), std::min(iTop, iBottom), std::max(iLeft, iRight), std::max(iTop, iBottom)};
}

constexpr bool HasArea(const RECT& rc) { return rc.left < rc.right && rc.top < rc.bottom; }

/// Whether the sides of a rectangle in order fit an int.
constexpr bool SidesFit(const RECT& rc)
{
    constexpr std::int64_t nMost = std::numeric_limits<int>::max();
    return std::int64_t{rc.right} - rc.left <= nMost && std::int64_t{rc.bottom} - rc.top <= nMost;
}

/// What both rectangles hold; without area when they have nothing in common.
constexpr RECT Intersection(const RECT& rcOne, const RECT& rcOther)
{
    return {std::max(rcOne.left, rcOther.left), std::max(rcOne.top, rcOther.top), std::min(rcOne.right, rcOther.right),
            std::min(rcOne.bottom, rcOther.bottom)};
}

/// The smallest rectangle that holds both; one without area adds nothing.
constexpr RECT UnionBox(const RECT& rcOne, const RECT& rcOther)
{
    if (!HasArea(rcOne))
        return rcOther;
    if (!HasArea(rcOther))
        return rcOne;
    return {std::min(rcOne.left, rcOther.left), std::min(rcOne.top, rcOther.top), std::max(rcOne.right, rcOther.right),
            std::max(rcOne.bottom, rcOther.bottom)};
}

} // namespace winlite
