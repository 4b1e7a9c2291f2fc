#include "gdi/Stroke.h"

#include "gdi/BrushFill.h"
#include "gdi/RectMath.h"

namespace winlite
{

namespace
{

// What a figure of many lines wrote is told in this many rectangles, the last of which grows over the rest.
constexpr std::size_t MOST_DAMAGE_RECTS = 16;

Rop2 GapOperation(const DeviceContext& dc)
{
    const int iRop2 = dc.iBkMode == OPAQUE ? dc.iRop2 : R2_NOP;
    return {iRop2, PixelFromColorRef(dc.crBackground)};
}

/// The region's rectangles from those that reach below iTop to those that begin above iBottom.
std::span<const RECT> RectsBetween(const Region& rgn, int iTop, int iBottom)
{
    const std::span<const RECT> vRects = rgn.Rects();
    const auto itFirst = std::ranges::partition_point(vRects, [=](const RECT& rc) { return rc.bottom <= iTop; });
    const auto itEnd = std::ranges::partition_point(vRects, [=](const RECT& rc) { return rc.top < iBottom; });
    return itFirst < itEnd ? std::span(itFirst, itEnd) : std::span<const RECT>();
}

} // namespace

Stroke::Stroke(const DeviceContext& dc, std::uint64_t nDashPosition)
    : m_dc(dc), m_pPen(dc.pPen), m_Dashes(dc.pPen->iStyle), m_rop2Dash(dc.iRop2, PixelFromColorRef(dc.pPen->cr)),
      m_rop2Gap(GapOperation(dc)), m_nDashPosition(nDashPosition)
{
}

void Stroke::Draw(const PixelPath& path)
{
    if (path.Count() == 0)
        return;
    if (!IsNull() && IsWide())
        Widen(path);
    else if (!IsNull())
        DrawThin(path);
    m_nDashPosition += static_cast<std::uint64_t>(path.Count());
}

void Stroke::Line(POINT ptFrom, POINT ptTo, LineEnd end)
{
    Draw(LinePath(ptFrom, ptTo, IsWide() ? LineEnd::Included : end));
}

void Stroke::Finish()
{
    if (!m_vSquares.empty())
    {
        BrushObject brush;
        brush.crSolid = m_pPen->cr;
        FillWithBrush(m_dc, Region::FromRects(m_vSquares) & m_dc.Clip(), brush, m_dc.iRop2);
    }
    for (const RECT& rc : m_vDamage)
        m_dc.ReportDamage(rc);
}

void Stroke::DrawThin(const PixelPath& path)
{
    const RECT rcPath = path.BoxOf({0, path.Count()});
    for (const RECT& rc : RectsBetween(m_dc.Clip(), rcPath.top, rcPath.bottom))
    {
        if (rc.left >= rcPath.right || rc.right <= rcPath.left)
            continue;
        const Steps steps = path.StepsWithin(rc);
        if (steps.IsEmpty())
            continue;
        DrawSteps(path, steps);
        NoteDamage(path.BoxOf(steps));
    }
}

void Stroke::DrawSteps(const PixelPath& path, const Steps& steps) const
{
    Surface& surface = m_dc.Target();
    std::uint32_t* pPixels = surface.PixelsForUpdate();
    for (std::int64_t i = steps.iFirst; i < steps.iEnd; ++i)
    {
        const POINT pt = path.At(i);
        std::uint32_t& uPixel = pPixels[pt.y * surface.Stride() + pt.x];
        const bool bOn = m_Dashes.IsOn(m_nDashPosition + static_cast<std::uint64_t>(i));
        uPixel = bOn ? m_rop2Dash(uPixel) : m_rop2Gap(uPixel);
    }
}

void Stroke::Widen(const PixelPath& path)
{
    const int iBefore = ReachBefore();
    const int iAfter = ReachAfter();
    const RECT rcClip = m_dc.Clip().Box();
    const RECT rcReaching = {
        Saturated(std::int64_t{rcClip.left} - iAfter), Saturated(std::int64_t{rcClip.top} - iAfter),
        Saturated(std::int64_t{rcClip.right} + iBefore), Saturated(std::int64_t{rcClip.bottom} + iBefore)};
    const Steps steps = path.StepsWithin(rcReaching);
    for (std::int64_t i = steps.iFirst; i < steps.iEnd; ++i)
    {
        const POINT pt = path.At(i);
        AddSquare({pt.x - iBefore, pt.y - iBefore, pt.x + iAfter + 1, pt.y + iAfter + 1});
    }
}

void Stroke::AddSquare(const RECT& rc)
{
    if (!m_vSquares.empty())
    {
        // Runs along an axis stay one rectangle.
        RECT& rcLast = m_vSquares.back();
        const bool bSameRows = rcLast.top == rc.top && rcLast.bottom == rc.bottom;
        const bool bSameColumns = rcLast.left == rc.left && rcLast.right == rc.right;
        const bool bTouch =
            rc.left <= rcLast.right && rcLast.left <= rc.right && rc.top <= rcLast.bottom && rcLast.top <= rc.bottom;
        if (bTouch && (bSameRows || bSameColumns))
        {
            rcLast = UnionBox(rcLast, rc);
            return;
        }
    }
    m_vSquares.push_back(rc);
}

void Stroke::NoteDamage(const RECT& rc)
{
    if (m_vDamage.size() < MOST_DAMAGE_RECTS)
        m_vDamage.push_back(rc);
    else
        m_vDamage.back() = UnionBox(m_vDamage.back(), rc);
}

} // namespace winlite
