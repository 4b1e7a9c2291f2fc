#include "hostlibs/FeatherKernel.h"

#include <algorithm>
#include <bit>

FeatherKernel::FeatherKernel(int iRadiusOfEdge) : iRadius(iRadiusOfEdge), iReach((3 * iRadiusOfEdge - 1) / 2)
{
    nUnit = static_cast<uint64_t>(iRadius) * iRadius * iRadius;
    // Scaled, a unit lies in (64, 128], so that 255.5 of them have 15 bits and the factor has 16.
    const int iTooMany = static_cast<int>(std::bit_width(nUnit - 1)) - 7;
    iRight = std::max(iTooMany, 0);
    iLeft = std::max(-iTooMany, 0);
    // Rounded up, which makes the division exact where nothing is shifted out.
    const uint64_t nScaled = nUnit << iLeft;
    const uint64_t nFactor = ((uint64_t{1} << (22 + iRight)) + nScaled - 1) / nScaled;
    uFactor = static_cast<uint16_t>(std::min<uint64_t>(nFactor, UINT16_MAX));
}
