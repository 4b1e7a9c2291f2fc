#include "gdi/PixelPath.h"

#include <algorithm>
#include <functional>

namespace winlite
{

namespace
{

/// The steps whose coordinate, rising or falling all along, is at least iLow and below iHigh.
template<class Coordinate>
Steps Limited(const Steps& steps, int iLow, int iHigh, Coordinate coordinate)
{
    if (steps.IsEmpty())
        return steps;
    const auto IsWithin = [=](int i) { return i >= iLow && i < iHigh; };
    const int iAtStart = coordinate(steps.iFirst);
    const int iAtEnd = coordinate(steps.iEnd - 1);
    if (IsWithin(iAtStart) && IsWithin(iAtEnd))
        return steps;
    const auto IsBelowLow = [&](std::int64_t iStep) { return coordinate(iStep) < iLow; };
    const auto IsBelowHigh = [&](std::int64_t iStep) { return coordinate(iStep) < iHigh; };
    if (iAtStart <= iAtEnd)
        return {steps.FirstWithout(IsBelowLow), steps.FirstWithout(IsBelowHigh)};
    return {steps.FirstWithout(std::not_fn(IsBelowHigh)), steps.FirstWithout(std::not_fn(IsBelowLow))};
}

} // namespace

RECT PixelPath::BoxOf(const Steps& steps) const
{
    const POINT ptFirst = At(steps.iFirst);
    const POINT ptLast = At(steps.iEnd - 1);
    return {std::min(ptFirst.x, ptLast.x), std::min(ptFirst.y, ptLast.y), std::max(ptFirst.x, ptLast.x) + 1,
            std::max(ptFirst.y, ptLast.y) + 1};
}

Steps PixelPath::StepsWithin(const RECT& rc) const
{
    const Steps steps = Limited({0, Count()}, rc.left, rc.right, [this](std::int64_t iStep) { return At(iStep).x; });
    return Limited(steps, rc.top, rc.bottom, [this](std::int64_t iStep) { return At(iStep).y; });
}

} // namespace winlite
