#include "tools/ImageMover.h"

#include "view/CursorIds.h"
#include "view/Module.h"
#include "view/Notifications.h"
#include "view/Rounding.h"

#include <cwchar>

namespace Pixtane::EmbeddedTool
{

ImageMover::ImageMover() { std::wcscpy(szToolName, L"image_mover"); }

int ImageMover::OnUnload()
{
    pView = nullptr;
    return TRUE;
}

bool ImageMover::CanPan() const
{
    CRect rcView(0, 0, 0, 0);
    pView->GetClientRect(&rcView);
    const Gdiplus::SizeF szZoomed = pView->ZoomedSize();
    return szZoomed.Width > static_cast<float>(rcView.Width()) || szZoomed.Height > static_cast<float>(rcView.Height());
}

int ImageMover::OnSetCursor(CWnd*, UINT, UINT)
{
    if (!IsHosted())
        return FALSE;
    if ((!bDragging && !IsCursorOverView()) || !CanPan())
        return FALSE;
    ShowOwnCursor(bDragging ? CURSOR_CLOSED_HAND : CURSOR_OPEN_HAND);
    return TRUE;
}

int ImageMover::OnLButtonDown(UINT, CPoint point)
{
    if (!IsHosted() || !CanPan())
        return FALSE;
    CPixtane& view = *pView;
    ShowOwnCursor(CURSOR_CLOSED_HAND);
    view.SetCapture();
    ptLast = point;
    bDragging = TRUE;
    view.NotifyParent(PVN_IMAGEMOVER_BEGIN, FALSE);
    if (IsIn(view) && bDragging)
        view.ShowSelection(FALSE);
    return FALSE;
}

int ImageMover::OnMouseMove(UINT, CPoint point)
{
    if (!IsHosted() || !bDragging)
        return FALSE;
    CPixtane& view = *pView;
    // The display position moves against the mouse, so that the picture follows the hand.
    const CSize szMove = ptLast - point;
    if (szMove != CSize(0, 0))
    {
        const Gdiplus::Point ptPos = view.ptDispPos();
        view.SetDispPosition(SaturatedSum(ptPos.X, szMove.cx), SaturatedSum(ptPos.Y, szMove.cy));
        if (!IsIn(view) || !bDragging)
            return FALSE; // It ended inside that.
        view.NotifyParent(PVN_IMAGEMOVER_MOVING, FALSE);
    }
    ptLast = point;
    ShowOwnCursor(CURSOR_CLOSED_HAND);
    return FALSE;
}

int ImageMover::OnLButtonUp(UINT, CPoint)
{
    if (!IsHosted() || !bDragging)
        return FALSE;
    CPixtane& view = *pView;
    bDragging = FALSE; // The capture's change, which follows, then finds no drag.
    ReleaseMouse();
    if (IsIn(view))
        EndDrag();
    return FALSE;
}

int ImageMover::OnCaptureChanged(CWnd*)
{
    if (!IsHosted() || !bDragging)
        return FALSE;
    bDragging = FALSE;
    EndDrag();
    return FALSE;
}

void ImageMover::EndDrag()
{
    CPixtane& view = *pView;
    view.ShowSelection(TRUE);
    if (IsIn(view))
        view.NotifyParent(PVN_IMAGEMOVER_END, FALSE);
}

} // namespace Pixtane::EmbeddedTool
