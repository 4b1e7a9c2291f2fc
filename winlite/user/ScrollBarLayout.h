#pragma once

#include "user/ScrollInfo.h"

#include <optional>

namespace winlite
{

enum class ScrollBarPart
{
    None,
    ArrowLess,
    ShaftLess,
    Thumb,
    ShaftMore,
    ArrowMore,
};

/// Where the parts of a scroll bar are, in its client coordinates; "less" is up or left:
///
///     +---+-----------+-------+-----------------+---+
///     | < | ShaftLess | Thumb |    ShaftMore    | > |
///     +---+-----------+-------+-----------------+---+
///
/// Arrows are square, and share a bar that is too short for both of them. There is no thumb without room to scroll, or
/// when the shaft is shorter than the shortest thumb.
class ScrollBarLayout
{
public:
    ScrollBarLayout(SIZE szBar, bool bVertical, const ScrollInfo& info);

    RECT ArrowLess() const { return Along(0, m_nArrow); }
    RECT ArrowMore() const { return Along(m_nLength - m_nArrow, m_nArrow); }
    RECT Shaft() const { return Along(m_nArrow, Room()); }
    std::optional<RECT> Thumb() const;

    ScrollBarPart PartAt(POINT pt) const;

    /// The position for a thumb that begins so many pixels after the beginning of the shaft; held at the ends.
    int PositionAt(int iThumbOffset) const;
    int ThumbOffset() const { return m_iThumb; }
    int Thickness() const { return m_nThickness; }

    /// A point's place along the shaft and across the bar.
    int AlongShaft(POINT pt) const { return (m_bVertical ? pt.y : pt.x) - m_nArrow; }
    int Across(POINT pt) const { return m_bVertical ? pt.x : pt.y; }

    /// Whether a bar of the same size has its thumb at the same place.
    bool HasSameThumb(const ScrollBarLayout& other) const
    {
        return m_nThumb == other.m_nThumb && m_iThumb == other.m_iThumb;
    }

private:
    RECT Along(int iStart, int nLength) const;
    int Room() const { return m_nLength - 2 * m_nArrow; }
    int ThumbLength(const ScrollInfo& info) const;

    bool m_bVertical;
    int m_nLength;
    int m_nThickness;
    int m_nArrow;
    int m_nThumb = 0; ///< 0 without a thumb.
    int m_iThumb = 0; ///< The thumb's beginning after that of the shaft.
    int m_iLeast;     ///< The positions at the shaft's two ends.
    int m_iMost;
};

} // namespace winlite
