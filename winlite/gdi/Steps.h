#pragma once

#include <cstdint>

namespace winlite
{

/// A stretch of a path: steps iFirst to iEnd, without the latter.
struct Steps
{
    std::int64_t iFirst;
    std::int64_t iEnd;

    bool IsEmpty() const { return iFirst >= iEnd; }

    /// The first step for which a condition, true up to some step, is false; iEnd when there is none.
    template<class Condition>
    std::int64_t FirstWithout(Condition condition) const
    {
        std::int64_t iLow = iFirst;
        std::int64_t iHigh = iEnd;
        while (iLow < iHigh)
        {
            const std::int64_t iMiddle = iLow + (iHigh - iLow) / 2;
            if (condition(iMiddle))
                iLow = iMiddle + 1;
            else
                iHigh = iMiddle;
        }
        return iLow;
    }
};

} // namespace winlite
