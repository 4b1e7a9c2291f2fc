#include "gdi/LinePath.h"

#include <algorithm>
#include <cstdlib>

namespace winlite
{

LinePath::LinePath(POINT ptFrom, POINT ptTo, LineEnd end)
    : m_ptFrom(ptFrom), m_iSignX(ptTo.x < ptFrom.x ? -1 : 1), m_iSignY(ptTo.y < ptFrom.y ? -1 : 1)
{
    const std::int64_t dx = std::abs(std::int64_t{ptTo.x} - ptFrom.x);
    const std::int64_t dy = std::abs(std::int64_t{ptTo.y} - ptFrom.y);
    m_bSteep = dy > dx;
    m_nLength = std::max(dx, dy);
    m_nAcross = static_cast<std::uint64_t>(std::min(dx, dy));
    m_nSteps = m_nLength + (end == LineEnd::Included ? 1 : 0);
}

POINT LinePath::At(std::int64_t iStep) const
{
    // Lengths are below 2^32, so their product fits 64 bits without a sign, and twice a remainder does as well.
    const auto nLength = static_cast<std::uint64_t>(std::max<std::int64_t>(m_nLength, 1));
    const std::uint64_t nProduct = m_nAcross * static_cast<std::uint64_t>(iStep);
    const std::uint64_t nTwiceRest = nProduct % nLength * 2;
    const int iSignAcross = m_bSteep ? m_iSignX : m_iSignY;
    const bool bRoundsAway = iSignAcross > 0 ? nTwiceRest > nLength : nTwiceRest >= nLength;
    const auto iAcross = static_cast<std::int64_t>(nProduct / nLength) + (bRoundsAway ? 1 : 0);
    const std::int64_t iStepX = m_bSteep ? iAcross : iStep;
    const std::int64_t iStepY = m_bSteep ? iStep : iAcross;
    return {static_cast<LONG>(m_ptFrom.x + m_iSignX * iStepX), static_cast<LONG>(m_ptFrom.y + m_iSignY * iStepY)};
}

} // namespace winlite
