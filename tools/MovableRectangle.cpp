#include "tools/MovableRectangle.h"

#include "view/CursorIds.h"
#include "view/Module.h"
#include "view/Notifications.h"
#include "view/Rounding.h"

#include "platform/minmax.h"

#include <algorithm>
#include <cwchar>

namespace Pixtane::EmbeddedTool
{

MovableRectangle::MovableRectangle() { std::wcscpy(szToolName, L"movable_rectangle"); }

void MovableRectangle::SetRectangle(CRect rc)
{
    const auto middle = [](long long llFrom, long long llTo) { return static_cast<int>((llFrom + llTo) / 2); };
    rcRect = rc;
    ptCenter = CPoint(middle(rc.left, rc.right), middle(rc.top, rc.bottom));
    if (IsHosted())
        pView->Invalidate(FALSE);
}

int MovableRectangle::OnUnload()
{
    EndDrag();
    pView = nullptr;
    return TRUE;
}

// ---- the drag

int MovableRectangle::OnSetCursor(CWnd*, UINT, UINT)
{
    ::SetCursor(::LoadCursor(nullptr, IDC_HAND));
    return TRUE;
}

int MovableRectangle::OnLButtonDown(UINT nFlags, CPoint point)
{
    if (!IsHosted())
        return FALSE;
    ShowOwnCursor(CURSOR_CLOSED_HAND);
    bDragging = TRUE;
    CaptureMouse();
    OnMouseMove(nFlags, point); // A click without a move chooses a centre too.
    return FALSE;
}

int MovableRectangle::OnMouseMove(UINT, CPoint point)
{
    if (!IsHosted() || !bDragging)
        return FALSE;
    CPixtane& view = *pView;
    ShowOwnCursor(CURSOR_CLOSED_HAND);
    view.Invalidate(FALSE);
    view.UpdateWindow();
    if (!IsIn(view))
        return FALSE;
    view.FromWndToBitmap(point);
    ptCenter.x = std::min<LONG>(std::max<LONG>(point.x, 0), view.iBmpWidth() - 1);
    ptCenter.y = std::min<LONG>(std::max<LONG>(point.y, 0), view.iBmpHeight() - 1);
    view.NotifyParent(PVN_MOVABLERECT_MOVED, FALSE);
    if (IsIn(view) && !view.pBmpData())
        EndDrag(); // A view without a bitmap would not tell of the release.
    return FALSE;
}

int MovableRectangle::OnLButtonUp(UINT, CPoint)
{
    EndDrag();
    return FALSE;
}

int MovableRectangle::OnCaptureChanged(CWnd*)
{
    bDragging = FALSE;
    return FALSE;
}

void MovableRectangle::EndDrag()
{
    if (!bDragging)
        return;
    bDragging = FALSE;
    ReleaseMouse();
}

// ---- drawing

int MovableRectangle::OnPostPaint(CDC& dc, CRect&)
{
    if (!IsHosted())
        return FALSE;
    CPen pen(PS_SOLID, 2, RGB(255, 0, 0));
    CPen* pOldPen = dc.SelectObject(&pen);
    CGdiObject* pOldBrush = dc.SelectStockObject(NULL_BRUSH);
    const CRect rc = RectInWindow();
    dc.Rectangle(&rc);
    dc.SelectObject(static_cast<CBrush*>(pOldBrush));
    dc.SelectObject(pOldPen);
    return FALSE;
}

/// From the middle of its first pixel to that of its last, within the image as it is drawn.
CRect MovableRectangle::RectInWindow() const
{
    CPoint ptFirst = rcRect.TopLeft();
    CPoint ptLast(rcRect.right, rcRect.bottom);
    pView->FromBitmapToWnd(ptFirst);
    pView->FromBitmapToWnd(ptLast);
    const CRect rcImage = pView->rcDrawDest();
    return {std::max<LONG>(ptFirst.x, rcImage.left + 1), std::max<LONG>(ptFirst.y, rcImage.top + 1),
            std::min<LONG>(SaturatedSum(ptLast.x, 1), rcImage.right),
            std::min<LONG>(SaturatedSum(ptLast.y, 1), rcImage.bottom)};
}

} // namespace Pixtane::EmbeddedTool
