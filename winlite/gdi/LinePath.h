#pragma once

#include "gdi/PixelPath.h"

namespace winlite
{

enum class LineEnd
{
    Excluded,
    Included,
};

/// The pixels of a straight line: along its longer axis one per step, nearest to the exact line across, where a tie
/// goes to the smaller coordinate, so that both directions give the same pixels.
class LinePath final : public PixelPath
{
public:
    LinePath(POINT ptFrom, POINT ptTo, LineEnd end);

    std::int64_t Count() const override { return m_nSteps; }
    POINT At(std::int64_t iStep) const override;

private:
    POINT m_ptFrom;
    std::int64_t m_nLength;  ///< Along the longer axis.
    std::uint64_t m_nAcross; ///< Along the other one.
    std::int64_t m_nSteps;
    int m_iSignX;
    int m_iSignY;
    bool m_bSteep; ///< The longer axis is y.
};

} // namespace winlite
