#include "user/ScrollInfo.h"

#include <algorithm>

namespace winlite
{

int ScrollInfo::Set(const SCROLLINFO& info)
{
    if (info.fMask & SIF_RANGE)
    {
        m_iMin = info.nMin;
        m_iMax = info.nMax;
    }
    if (info.fMask & SIF_PAGE)
        m_uPage = info.nPage;
    if (info.fMask & SIF_POS)
        m_iPosition = info.nPos;
    Limit();
    m_bDisabled = !CanScroll() && (m_bDisabled || (info.fMask & SIF_DISABLENOSCROLL));
    return m_iPosition;
}

void ScrollInfo::Limit()
{
    m_iMax = std::max(m_iMin, m_iMax);
    m_uPage = static_cast<UINT>(std::min<std::int64_t>(m_uPage, RangeLength()));
    m_iPosition = std::clamp(m_iPosition, m_iMin, LargestPosition());
}

int ScrollInfo::LargestPosition() const
{
    // In 64 bits: a page may be larger than any int.
    return static_cast<int>(m_iMax - std::max<std::int64_t>(std::int64_t{m_uPage} - 1, 0));
}

void ScrollInfo::Get(SCROLLINFO& info) const
{
    if (info.fMask & SIF_RANGE)
    {
        info.nMin = m_iMin;
        info.nMax = m_iMax;
    }
    if (info.fMask & SIF_PAGE)
        info.nPage = m_uPage;
    if (info.fMask & SIF_POS)
        info.nPos = m_iPosition;
    if (info.fMask & SIF_TRACKPOS)
        info.nTrackPos = m_iTrackPosition.value_or(m_iPosition);
}

} // namespace winlite
