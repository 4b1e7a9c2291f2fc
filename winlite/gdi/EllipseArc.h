#pragma once

#include "gdi/EllipseCurve.h"
#include "gdi/PixelPath.h"

namespace winlite
{

/// A quarter of the outline of the ellipse that touches the sides of a box of pixels: 8-connected, the pixel of each
/// column (where the curve is flat) or row (where it is steep) that is nearest to the curve. Steps run from the box's
/// middle columns at the top or bottom to its middle rows at the side, so four quarters share pixels where the box's
/// size is odd.
class EllipseArc final : public PixelPath
{
public:
    enum class SideX
    {
        Left,
        Right,
    };
    enum class SideY
    {
        Top,
        Bottom,
    };
    enum class Direction
    {
        ToTheSide,
        FromTheSide, ///< The same pixels backwards.
    };

    /// A box of at least 2 x 2 pixels, whose sides fit 31 bits.
    EllipseArc(const RECT& rcBox, SideX sideX, SideY sideY, Direction direction);

    /// Leaves out the pixel at the middle column, or at the middle row, when a column or row stands there.
    EllipseArc& SkipMiddleColumn();
    EllipseArc& SkipMiddleRow();

    std::int64_t Count() const override { return m_iEnd - m_iFirst; }
    POINT At(std::int64_t iStep) const override;

private:
    /// Twice the distance of a pixel's centre from the box's: to the side, and up or down.
    struct Distance
    {
        std::int64_t u;
        std::int64_t v;
    };

    Distance DistanceInFlatPart(std::int64_t iStep) const;
    Distance DistanceAt(std::int64_t iStep) const;
    std::int64_t FlatSteps() const;

    POINT PixelAt(const Distance& distance) const;

    RECT m_rcBox;
    std::int64_t m_a; ///< The pixel centres of the outermost column and row are this far, doubled, from the box's.
    std::int64_t m_b;
    EllipseCurve m_CurveByRow;
    EllipseCurve m_CurveByColumn;
    int m_iSignX;
    int m_iSignY;
    Direction m_Direction;
    std::int64_t m_nFlat = 0; ///< Steps to the last pixel of the flat part.
    Distance m_LastFlat = {};
    std::int64_t m_nSteepRows = 0; ///< Rows below it.
    std::int64_t m_iFirst = 0;     ///< The part of the quarter's steps that is taken.
    std::int64_t m_iEnd = 0;
};

} // namespace winlite
