#include "tools/HoriLinePen.h"

#include "view/CursorIds.h"
#include "view/Module.h"
#include "view/Notifications.h"
#include "view/TwoPassOutline.h"

#include <cmath>
#include <cwchar>
#include <numbers>

namespace Pixtane::EmbeddedTool
{

HoriLinePen::HoriLinePen() { std::wcscpy(szToolName, L"horiline_pen"); }

float HoriLinePen::GetOffsetAngle()
{
    using std::numbers::pi;
    if (!IsSet(ptStart) || !IsSet(ptEnd) || ptStart == ptEnd)
        return 0;
    const double dx = static_cast<double>(ptEnd.x) - ptStart.x;
    const double dy = static_cast<double>(ptEnd.y) - ptStart.y;
    const double dAngle = dx != 0 ? std::atan(dy / dx) : std::copysign(pi / 2, dy);
    // From the nearer axis; the image's y grows downwards.
    const double dAxis = std::abs(dAngle) <= pi / 4 ? 0 : dAngle > 0 ? pi / 2 : -pi / 2;
    return static_cast<float>((dAxis - dAngle) * 180.0 / pi);
}

int HoriLinePen::OnUnload()
{
    if (bDragging)
    {
        bDragging = FALSE;
        ReleaseMouse();
    }
    pView = nullptr;
    return TRUE;
}

int HoriLinePen::OnSetCursor(CWnd*, UINT, UINT)
{
    ShowOwnCursor(CURSOR_PEN);
    return TRUE;
}

int HoriLinePen::OnLButtonDown(UINT, CPoint point)
{
    if (!IsHosted())
        return FALSE;
    ptStart = point;
    bDragging = TRUE;
    CaptureMouse();
    return FALSE;
}

int HoriLinePen::OnMouseMove(UINT, CPoint point)
{
    if (!IsHosted() || !bDragging)
        return FALSE;
    CPixtane& view = *pView;
    ptEnd = point;
    view.Invalidate(FALSE);
    view.UpdateWindow();
    return FALSE;
}

int HoriLinePen::OnLButtonUp(UINT, CPoint point)
{
    if (!IsHosted() || !bDragging)
        return FALSE;
    CPixtane& view = *pView;
    ptEnd = point;
    bDragging = FALSE; // The capture's change, which follows, then finds no drag.
    ReleaseMouse();
    if (IsIn(view))
        TellLine();
    return FALSE;
}

int HoriLinePen::OnCaptureChanged(CWnd*)
{
    if (!IsHosted() || !bDragging)
        return FALSE;
    bDragging = FALSE;
    TellLine();
    return FALSE;
}

void HoriLinePen::TellLine()
{
    CPixtane& view = *pView;
    view.Invalidate(FALSE); // The line disappears.
    view.NotifyParent(PVN_HORILINE_DRAWN, FALSE);
}

int HoriLinePen::OnPostPaint(CDC& dc, CRect&)
{
    if (!bDragging || !IsSet(ptEnd))
        return FALSE;
    CTwoPassOutline outline(dc, PS_DOT);
    outline.Draw(
        [&]
        {
            dc.MoveTo(ptStart);
            dc.LineTo(ptEnd);
        });
    return FALSE;
}

} // namespace Pixtane::EmbeddedTool
