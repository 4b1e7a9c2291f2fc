#include "gdi/EllipseArc.h"

#include <algorithm>

namespace winlite
{

namespace
{

using Curve = EllipseCurve::Curve;

/// The largest number of the parity of iLike that is not above iMost.
std::int64_t WithParityOf(std::int64_t iLike, std::int64_t iMost) { return iMost - ((iMost ^ iLike) & 1); }

} // namespace

EllipseArc::EllipseArc(const RECT& rcBox, SideX sideX, SideY sideY, Direction direction)
    : m_rcBox(rcBox), m_a(std::int64_t{rcBox.right} - rcBox.left - 1), m_b(std::int64_t{rcBox.bottom} - rcBox.top - 1),
      m_CurveByRow(m_a, m_b, Curve::Excluded), m_CurveByColumn(m_b, m_a, Curve::Excluded),
      m_iSignX(sideX == SideX::Left ? -1 : 1), m_iSignY(sideY == SideY::Top ? -1 : 1), m_Direction(direction)
{
    m_nFlat = FlatSteps();
    m_LastFlat = DistanceInFlatPart(m_nFlat);
    // Where the curve turns steep it may fall by two rows, of which the steep part takes one.
    if (m_nFlat > 0)
        m_LastFlat.v = std::max(m_LastFlat.v, DistanceInFlatPart(m_nFlat - 1).v - 2);
    m_nSteepRows = (m_LastFlat.v - (m_b & 1)) / 2;
    m_iEnd = m_nFlat + m_nSteepRows + 1;
    m_iEnd += (m_a - DistanceAt(m_iEnd - 1).u) / 2;
}

EllipseArc& EllipseArc::SkipMiddleColumn()
{
    m_iFirst += m_a % 2 == 0 ? 1 : 0;
    return *this;
}

EllipseArc& EllipseArc::SkipMiddleRow()
{
    m_iEnd -= m_b % 2 == 0 ? 1 : 0;
    return *this;
}

POINT EllipseArc::At(std::int64_t iStep) const
{
    return PixelAt(DistanceAt(m_Direction == Direction::ToTheSide ? m_iFirst + iStep : m_iEnd - 1 - iStep));
}

EllipseArc::Distance EllipseArc::DistanceInFlatPart(std::int64_t iStep) const
{
    const std::int64_t u = (m_a & 1) + 2 * iStep;
    if (iStep == 0)
        return {u, m_b};
    // A pixel is the nearest of its column when the curve passes above its lower edge.
    const std::int64_t vMost = m_CurveByColumn.ReachAt(u) + 1;
    return {u, std::max(WithParityOf(m_b, vMost), m_b & 1)};
}

/// How many columns the curve goes on to fall by less than a row from one to the next.
std::int64_t EllipseArc::FlatSteps() const
{
    const auto IsFlatAfter = [this](std::int64_t iStep)
    {
        // The gradient halfway between this pixel's outer neighbour and the one below that. Its products are exact for
        // boxes up to some 100,000 pixels, and for larger ones any choice near the turn is as good.
        const Distance distance = DistanceInFlatPart(iStep);
        const auto a = static_cast<double>(m_a);
        const auto b = static_cast<double>(m_b);
        return static_cast<double>(distance.u + 2) * b * b < static_cast<double>(distance.v - 1) * a * a;
    };
    return Steps{0, m_a / 2}.FirstWithout(IsFlatAfter);
}

EllipseArc::Distance EllipseArc::DistanceAt(std::int64_t iStep) const
{
    if (iStep < m_nFlat)
        return DistanceInFlatPart(iStep);
    // One row down per step, then along the middle row to the side, whatever its width.
    const std::int64_t nRows = std::min(iStep - m_nFlat, m_nSteepRows);
    const std::int64_t nAlongMiddle = iStep - m_nFlat - nRows;
    const std::int64_t v = m_LastFlat.v - 2 * nRows;
    const std::int64_t uNearest = WithParityOf(m_a, m_CurveByRow.ReachAt(v) + 1);
    return {std::clamp(uNearest, m_LastFlat.u, m_LastFlat.u + 2 * nRows) + 2 * nAlongMiddle, v};
}

POINT EllipseArc::PixelAt(const Distance& distance) const
{
    const std::int64_t xSides = std::int64_t{m_rcBox.left} + m_rcBox.right - 1;
    const std::int64_t ySides = std::int64_t{m_rcBox.top} + m_rcBox.bottom - 1;
    return {static_cast<LONG>((xSides + m_iSignX * distance.u) / 2),
            static_cast<LONG>((ySides + m_iSignY * distance.v) / 2)};
}

} // namespace winlite
