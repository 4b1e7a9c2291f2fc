#include "platform/minmax.h"
#include "selection/RegionSelector.h"
#include "view/EdgeScroll.h"
#include "view/Notifications.h"
#include "view/Rounding.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace Pixtane::EmbeddedTool
{

namespace
{

constexpr UINT SCROLL_FLAG = 0x0008; // of a key's flags: the view scrolls by it

/// Where the dragged corner must be for a square that reaches as far as the nearer side.
LONG SquareEdge(LONG iStart, LONG iPointer, int iSide) { return iPointer <= iStart ? iStart - iSide : iStart + iSide; }

bool IsDrag(UINT eShape)
{
    return eShape == RegionSelector::SM_LASSO || eShape == RegionSelector::SM_RECTANGLE ||
           eShape == RegionSelector::SM_ELLIPSE;
}

} // namespace

// Everything outside is told may take the tool out of its view, or the view's window away: each such call is followed
// by a look whether the tool is still loaded.

int RegionSelector::OnLButtonDown(UINT, CPoint point)
{
    const emSelectMode eShape = GetSelectingMode();
    if (IsHosted() && eShape != SM_NONE)
    {
        const CPoint pt = ToBitmap(point);
        const bool bMoves = GetSelectingOverlapMode() == OM_NEW && IsInSelection(pt);
        if (IsDrag(eShape) && !bMoves && !bSelecting)
            StartShape(pt);
        if (IsHosted() && bMoves && !bSelecting)
        {
            StartMovingSelection(pt);
            pView->SetCapture();
        }
    }
    ptDown = point;
    return FALSE;
}

void RegionSelector::StartShape(CPoint ptBmp)
{
    CPixtane& view = *pView;
    view.SetCapture();
    ForgetShape();
    bSelecting = TRUE;
    if (GetSelectingMode() == SM_LASSO)
        arrPoints.Add(ptBmp);
    else
        ptStart = ptEnd = ptBmp;
    if (GetSelectingOverlapMode() != OM_NEW)
        return;
    view.ClearSelection();
    view.NotifyParent(PVN_SELECTION_CLEARED, FALSE);
    // Without a bitmap nothing would tell when the gesture ends.
    if (IsIn(view) && !view.pBmpData())
        DropShape();
}

int RegionSelector::OnMouseMove(UINT nFlags, CPoint point)
{
    if (!IsHosted() || GetSelectingMode() == SM_NONE)
        return FALSE;
    ScrollWhileAtEdge(*pView, point, [&](CPoint ptClient) { return bSelecting && DrawShapeTo(nFlags, ptClient); });
    if (IsHosted() && !bSelecting && GetSelectingOverlapMode() == OM_NEW && HasSelection())
        MovingSelectionRegion(ToBitmap(point), TRUE);
    return FALSE;
}

bool RegionSelector::DrawShapeTo(UINT nFlags, CPoint ptClient)
{
    CPixtane& view = *pView;
    const CPoint ptBmp = ToBitmap(ptClient);
    const bool bScrolled = ScrollBy(view, EdgeStep(view, ptClient));
    if (!IsIn(view) || !bSelecting)
        return false;
    if (nFlags & MK_LBUTTON)
        FollowPointer(nFlags, ptBmp);
    RefreshView(true);
    if (!IsIn(view))
        return false;
    OnSetCursor(pView, HTCLIENT, WM_MOUSEMOVE);
    return bScrolled;
}

void RegionSelector::FollowPointer(UINT nFlags, CPoint ptBmp)
{
    const emSelectMode eShape = GetSelectingMode();
    if (eShape == SM_LASSO)
    {
        const bool bSame = !arrPoints.IsEmpty() && ptBmp == arrPoints[arrPoints.GetSize() - 1];
        if (!bSame)
            arrPoints.Add(ptBmp);
    }
    else if (eShape == SM_RECTANGLE || eShape == SM_ELLIPSE)
    {
        DragCorner(nFlags, ptBmp);
    }
}

void RegionSelector::DragCorner(UINT nFlags, CPoint ptBmp)
{
    if (!IsSet(ptStart))
        return; // The shape was another when the button went down.
    if (::GetKeyState(VK_SPACE) < 0)
    {
        ptStart = CPoint(ptStart) + (ptBmp - CPoint(ptEnd));
        ptEnd = ptBmp;
        return;
    }
    ptEnd = ptBmp;
    if (!(nFlags & MK_SHIFT))
        return;
    const int iSide = std::min(std::abs(ptStart.x - ptEnd.x), std::abs(ptStart.y - ptEnd.y));
    ptEnd = CPoint(SquareEdge(ptStart.x, ptBmp.x, iSide), SquareEdge(ptStart.y, ptBmp.y, iSide));
}

int RegionSelector::OnLButtonUp(UINT nFlags, CPoint point)
{
    if (eSelectMode == SM_LASSO && bSelecting && ::GetKeyState(VK_MENU) < 0)
        eSelectingMode = SM_POLYGON;
    if (!IsHosted() || GetSelectingMode() == SM_NONE)
        return FALSE;
    if (GetSelectingOverlapMode() == OM_NEW && point == ptDown && IsInSelection(ToBitmap(point)))
        ClearByClick();
    else if (!bMovingSelection)
        FinishShapeStep(nFlags, point);
    if (IsHosted() && EndMovingSelection(ToBitmap(point)))
        ReleaseMouse();
    return FALSE;
}

void RegionSelector::ClearByClick()
{
    CPixtane& view = *pView;
    view.ClearSelection();
    RefreshView(true);
    if (IsIn(view))
        view.NotifyParent(PVN_SELECTION_CLEARED, FALSE);
}

void RegionSelector::FinishShapeStep(UINT nFlags, CPoint ptClient)
{
    switch (GetSelectingMode())
    {
    case SM_LASSO:
        if (bSelecting)
            CloseSelection();
        break;
    case SM_POLYGON:
        if (bSelecting)
            AddPolygonVertex(nFlags, ptClient);
        else if (ToBitmap(ptClient) == ToBitmap(ptDown))
            StartPolygon(ptClient);
        break;
    case SM_RECTANGLE:
    case SM_ELLIPSE:
        if (bSelecting)
            ApplySelection();
        break;
    case SM_MAGICWAND:
        ApplySelection();
        break;
    case SM_NONE:
        break;
    }
    if (IsHosted())
        RefreshView(true);
}

void RegionSelector::StartPolygon(CPoint ptClient)
{
    CPixtane& view = *pView;
    const CPoint ptFirst = ToBitmap(ptClient);
    if (GetSelectingOverlapMode() == OM_NEW)
    {
        view.ClearSelection();
        view.NotifyParent(PVN_SELECTION_CLEARED, FALSE);
    }
    if (!IsIn(view) || !view.pBmpData())
        return;
    view.SetCapture();
    ForgetShape();
    bSelecting = TRUE;
    arrPoints.Add(ptFirst);
}

void RegionSelector::AddPolygonVertex(UINT nFlags, CPoint ptClient)
{
    const bool bCloses = arrPoints.GetSize() > 1 && (IsCloseToFirstVertex(ptClient) || (nFlags & MK_CONTROL));
    arrPoints.Add(ToBitmap(ptClient));
    if (bCloses)
        CloseSelection();
}

bool RegionSelector::IsCloseToFirstVertex(CPoint ptClient) const
{
    if (arrPoints.IsEmpty())
        return false;
    const CPoint ptFirst = ToWindow(arrPoints[0]);
    const double dx = static_cast<double>(ptFirst.x) - ptClient.x;
    const double dy = static_cast<double>(ptFirst.y) - ptClient.y;
    return std::sqrt(dx * dx + dy * dy) <= dbCloseDistance;
}

int RegionSelector::OnLButtonDblClk(UINT, CPoint)
{
    if (IsHosted() && GetSelectingMode() == SM_POLYGON && bSelecting)
        CloseSelection();
    return FALSE;
}

int RegionSelector::OnSysKeyUp(UINT nChar, UINT, UINT)
{
    if (eSelectMode != SM_LASSO || eSelectingMode != SM_POLYGON || nChar != VK_MENU)
        return FALSE;
    eSelectingMode = SM_NONE;
    if (IsHosted() && ::GetKeyState(VK_LBUTTON) >= 0)
        CloseSelection();
    return FALSE;
}

int RegionSelector::OnKeyDown(UINT nChar, UINT, UINT nFlags)
{
    if (!IsHosted())
        return FALSE;
    if (GetSelectingMode() == SM_POLYGON && bSelecting && nChar == VK_DELETE)
    {
        if (arrPoints.GetSize() > 1)
            arrPoints.RemoveAt(arrPoints.GetSize() - 1);
        pView->Invalidate(FALSE);
    }
    // In the middle of a move by the mouse the selection is not where a step could begin.
    if ((nFlags & SCROLL_FLAG) || bMovingSelection)
        return FALSE;
    const int iStep = std::max(CeilingLike(1 / static_cast<float>(pView->dbZoom())), 1);
    CPoint ptOffset(0, 0);
    switch (nChar)
    {
    case VK_LEFT:
        ptOffset.x = -iStep;
        break;
    case VK_UP:
        ptOffset.y = -iStep;
        break;
    case VK_RIGHT:
        ptOffset.x = iStep;
        break;
    case VK_DOWN:
        ptOffset.y = iStep;
        break;
    default:
        return FALSE;
    }
    StartMovingSelection({0, 0});
    MovingSelectionRegion(ptOffset, FALSE);
    EndMovingSelection(ptOffset);
    return FALSE;
}

int RegionSelector::OnCaptureChanged(CWnd*)
{
    if (IsHosted() && bSelecting)
    {
        if (eSelectMode == SM_LASSO || eSelectMode == SM_POLYGON)
            CloseSelection();
        else
            ApplySelection();
    }
    if (IsHosted() && bMovingSelection)
    {
        const CPoint ptCursor = CursorInView();
        pView->SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(ptCursor.x, ptCursor.y));
    }
    return FALSE;
}

void RegionSelector::ForgetShape()
{
    arrPoints.RemoveAll();
    ptStart = ptEnd = POINT_UNSET;
}

void RegionSelector::RefreshView(bool bAtOnce)
{
    CPixtane& view = *pView;
    view.Invalidate(FALSE);
    if (bAtOnce)
        view.UpdateWindow();
}

} // namespace Pixtane::EmbeddedTool
