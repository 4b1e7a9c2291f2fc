#include "gdi/BrushFill.h"
#include "gdi/EllipseArc.h"
#include "gdi/EllipticRegion.h"
#include "gdi/Handles.h"
#include "gdi/RectMath.h"
#include "gdi/Stroke.h"

using namespace winlite;

namespace
{

int WidthOf(const RECT& rc) { return rc.right - rc.left; }
int HeightOf(const RECT& rc) { return rc.bottom - rc.top; }

bool IsFlat(const RECT& rc) { return WidthOf(rc) == 1 || HeightOf(rc) == 1; }

/// A box one pixel wide or high: a single line whose pixels are each drawn once. A single pixel draws nothing.
void DrawFlatBox(Stroke& stroke, const RECT& rc)
{
    const POINT ptUpperRight = {rc.right - 1, rc.top};
    const POINT ptLowerLeft = {rc.left, rc.bottom - 1};
    if (WidthOf(rc) > 1 || HeightOf(rc) > 1)
        stroke.Line(ptUpperRight, ptLowerLeft, LineEnd::Included);
}

void OutlineBox(Stroke& stroke, const RECT& rc)
{
    const POINT ptUpperRight = {rc.right - 1, rc.top};
    const POINT ptUpperLeft = {rc.left, rc.top};
    const POINT ptLowerLeft = {rc.left, rc.bottom - 1};
    const POINT ptLowerRight = {rc.right - 1, rc.bottom - 1};
    stroke.Line(ptUpperRight, ptUpperLeft);
    stroke.Line(ptUpperLeft, ptLowerLeft);
    stroke.Line(ptLowerLeft, ptLowerRight);
    stroke.Line(ptLowerRight, ptUpperRight);
}

void OutlineEllipse(Stroke& stroke, const RECT& rc)
{
    using SideX = EllipseArc::SideX;
    using SideY = EllipseArc::SideY;
    using Direction = EllipseArc::Direction;
    EllipseArc arcUpperRight(rc, SideX::Right, SideY::Top, Direction::FromTheSide);
    EllipseArc arcUpperLeft(rc, SideX::Left, SideY::Top, Direction::ToTheSide);
    EllipseArc arcLowerLeft(rc, SideX::Left, SideY::Bottom, Direction::FromTheSide);
    EllipseArc arcLowerRight(rc, SideX::Right, SideY::Bottom, Direction::ToTheSide);
    stroke.Draw(arcUpperRight);
    stroke.Draw(arcUpperLeft.SkipMiddleColumn());
    stroke.Draw(arcLowerLeft.SkipMiddleRow());
    stroke.Draw(arcLowerRight.SkipMiddleColumn().SkipMiddleRow());
}

/// What a pen leaves of a box that it outlines.
RECT Inside(const RECT& rc, const Stroke& stroke)
{
    if (stroke.IsNull())
        return {rc.left, rc.top, rc.right - 1, rc.bottom - 1};
    const std::int64_t nAtStart = stroke.ReachAfter() + 1;
    const std::int64_t nAtEnd = stroke.ReachBefore() + 1;
    return {Saturated(rc.left + nAtStart), Saturated(rc.top + nAtStart), Saturated(rc.right - nAtEnd),
            Saturated(rc.bottom - nAtEnd)};
}

/// What a pen leaves of an ellipse that it outlines, for the rows of the clip only.
Region InsideOfEllipse(const RECT& rc, const RECT& rcClip, const Stroke& stroke)
{
    if (stroke.IsNull())
        return EllipticRegion(rc, rcClip.top, rcClip.bottom);
    const EllipseArc arc(rc, EllipseArc::SideX::Left, EllipseArc::SideY::Top, EllipseArc::Direction::ToTheSide);
    const std::int64_t ySides = std::int64_t{rc.top} + rc.bottom - 1;
    std::vector<RECT> vRows;
    for (int y = std::max(rc.top, rcClip.top); y < std::min(rc.bottom, rcClip.bottom); ++y)
    {
        // The lower half mirrors the upper; the arc's first pixel in a row is its innermost one.
        const int yUpper = static_cast<int>(std::min<std::int64_t>(y, ySides - y));
        const Steps steps = arc.StepsWithin({rc.left, yUpper, rc.right, yUpper + 1});
        const int xInner = arc.At(steps.iFirst).x;
        vRows.push_back({xInner + 1, y, rc.right - 1 - (xInner - rc.left), y + 1});
    }
    return Region::FromRects(vRows);
}

} // namespace

BOOL Rectangle(HDC hDC, int iLeft, int iTop, int iRight, int iBottom)
{
    const auto pDC = FindDC(hDC);
    const RECT rcLogical = Ordered(iLeft, iTop, iRight, iBottom);
    if (!pDC || !SidesFit(rcLogical))
        return FALSE;
    const RECT rc = pDC->ToSurface(rcLogical);
    if (!HasArea(rc))
        return TRUE;
    Stroke stroke(*pDC);
    FillWithBrush(*pDC, pDC->Clip() & Inside(rc, stroke), *pDC->pBrush, pDC->iRop2);
    if (IsFlat(rc))
        DrawFlatBox(stroke, rc);
    else
        OutlineBox(stroke, rc);
    stroke.Finish();
    return TRUE;
}

BOOL Ellipse(HDC hDC, int iLeft, int iTop, int iRight, int iBottom)
{
    const auto pDC = FindDC(hDC);
    const RECT rcLogical = Ordered(iLeft, iTop, iRight, iBottom);
    if (!pDC || !SidesFit(rcLogical))
        return FALSE;
    const RECT rc = pDC->ToSurface(rcLogical);
    if (!HasArea(rc))
        return TRUE;
    Stroke stroke(*pDC);
    if (IsFlat(rc))
    {
        DrawFlatBox(stroke, rc);
    }
    else
    {
        const Region rgnInside = InsideOfEllipse(rc, pDC->Clip().Box(), stroke);
        FillWithBrush(*pDC, pDC->Clip() & rgnInside, *pDC->pBrush, pDC->iRop2);
        OutlineEllipse(stroke, rc);
    }
    stroke.Finish();
    return TRUE;
}
