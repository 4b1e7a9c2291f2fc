#pragma once

#include "user/User.h"

#include <optional>

namespace winlite
{

/// What a scroll bar shows: a range, a page (how much of the range is in view) and a position, always limited to each
/// other. A new one has the range 0..0, page 0 and position 0.
class ScrollInfo
{
public:
    /// Takes the members that fMask names, then limits all of them; returns the position. SIF_DISABLENOSCROLL disables
    /// the bar while there is no room to scroll; without it only an end of that is noticed.
    int Set(const SCROLLINFO& info);

    /// Fills the members that fMask names.
    void Get(SCROLLINFO& info) const;

    /// While the thumb is dragged, the position under it; empty otherwise.
    void SetTrackPosition(std::optional<int> iPosition) { m_iTrackPosition = iPosition; }

    int Minimum() const { return m_iMin; }
    int Position() const { return m_iPosition; }
    UINT Page() const { return m_uPage; }
    int LargestPosition() const;

    /// How many values the range holds: 1 for 0..0.
    std::int64_t RangeLength() const { return std::int64_t{m_iMax} - m_iMin + 1; }
    bool CanScroll() const { return LargestPosition() > m_iMin; }
    bool IsDisabled() const { return m_bDisabled; }

private:
    void Limit();

    int m_iMin = 0;
    int m_iMax = 0;
    UINT m_uPage = 0;
    int m_iPosition = 0;
    std::optional<int> m_iTrackPosition;
    bool m_bDisabled = false;
};

} // namespace winlite
