#include "user/ScrollBarLayout.h"

#include <algorithm>

namespace winlite
{

namespace
{

/// iValue * nNumerator / nDenominator for values that are not negative, rounded to the nearest.
int Scaled(std::int64_t iValue, std::int64_t nNumerator, std::int64_t nDenominator)
{
    return static_cast<int>((iValue * nNumerator + nDenominator / 2) / nDenominator);
}

} // namespace

ScrollBarLayout::ScrollBarLayout(SIZE szBar, bool bVertical, const ScrollInfo& info)
    : m_bVertical(bVertical), m_nLength(bVertical ? szBar.cy : szBar.cx), m_nThickness(bVertical ? szBar.cx : szBar.cy),
      m_nArrow(std::min(m_nThickness, m_nLength / 2)), m_iLeast(info.Minimum()), m_iMost(info.LargestPosition())
{
    if (!info.CanScroll())
        return;
    m_nThumb = ThumbLength(info);
    m_iThumb = Scaled(std::int64_t{info.Position()} - m_iLeast, Room() - m_nThumb, std::int64_t{m_iMost} - m_iLeast);
}

int ScrollBarLayout::ThumbLength(const ScrollInfo& info) const
{
    const int nShortest = std::max(m_nThickness / 2, 1);
    if (Room() < nShortest)
        return 0;
    // Without a page nothing is known about the proportion, and the thumb is square.
    const int nWanted = info.Page() ? Scaled(info.Page(), Room(), info.RangeLength()) : m_nThickness;
    return std::clamp(nWanted, nShortest, Room());
}

RECT ScrollBarLayout::Along(int iStart, int nLength) const
{
    return m_bVertical ? RECT{0, iStart, m_nThickness, iStart + nLength}
                       : RECT{iStart, 0, iStart + nLength, m_nThickness};
}

std::optional<RECT> ScrollBarLayout::Thumb() const
{
    if (!m_nThumb)
        return std::nullopt;
    return Along(m_nArrow + m_iThumb, m_nThumb);
}

ScrollBarPart ScrollBarLayout::PartAt(POINT pt) const
{
    const int iAlong = m_bVertical ? pt.y : pt.x;
    const int iAcross = m_bVertical ? pt.x : pt.y;
    if (iAlong < 0 || iAlong >= m_nLength || iAcross < 0 || iAcross >= m_nThickness)
        return ScrollBarPart::None;
    if (iAlong < m_nArrow)
        return ScrollBarPart::ArrowLess;
    if (iAlong >= m_nLength - m_nArrow)
        return ScrollBarPart::ArrowMore;
    // A shaft without a thumb is divided in the middle.
    const int iDivide = m_nArrow + (m_nThumb ? m_iThumb : Room() / 2);
    if (iAlong < iDivide)
        return ScrollBarPart::ShaftLess;
    return iAlong < iDivide + m_nThumb ? ScrollBarPart::Thumb : ScrollBarPart::ShaftMore;
}

int ScrollBarLayout::PositionAt(int iThumbOffset) const
{
    const int nTravel = Room() - m_nThumb;
    if (!m_nThumb || nTravel <= 0)
        return m_iLeast;
    const std::int64_t nPositions = std::int64_t{m_iMost} - m_iLeast;
    const std::int64_t iOffset = std::clamp(iThumbOffset, 0, nTravel);
    return static_cast<int>(m_iLeast + (iOffset * nPositions + nTravel / 2) / nTravel);
}

} // namespace winlite
