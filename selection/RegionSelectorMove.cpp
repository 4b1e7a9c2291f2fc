#include "selection/RegionSelector.h"
#include "view/Log.h"
#include "view/Notifications.h"
#include "view/Rounding.h"

namespace Pixtane::EmbeddedTool
{

namespace
{

/// Makes rgnCopy a copy; an empty region for a source without a handle.
void CopyInto(CRgn& rgnCopy, CRgn& rgnSource)
{
    rgnCopy.DeleteObject();
    rgnCopy.CreateRectRgn(0, 0, 0, 0);
    rgnCopy.CopyRgn(&rgnSource);
}

/// Makes a region a copy that is shifted; one without a handle, which takes no operation, stays so.
void MakeShifted(CRgn& rgn, CRgn& rgnSource, int dx, int dy)
{
    if (!rgn.GetSafeHandle())
        return;
    rgn.CopyRgn(&rgnSource);
    rgn.OffsetRgn(dx, dy);
}

int Zoomed(LONG iDistance, float fZoom) { return RoundHalfAway(static_cast<float>(iDistance) * fZoom); }

} // namespace

int RegionSelector::StartMovingSelection(CPoint ptBmp)
{
    if (!IsHosted())
        return 0;
    CopyInto(rgnMoveOrig, pView->rgnSelect());
    CopyInto(rgnMoveOrigScaled, pView->rgnSelectScaled());
    bMovingSelection = TRUE;
    ptMoveStart = ptBmp;
    return 1;
}

int RegionSelector::MovingSelectionRegion(CPoint ptBmp, int bRedraw)
{
    if (!IsHosted() || !bMovingSelection)
        return 1;
    const CPoint ptOffset = ptBmp - ptMoveStart;
    const float fZoom = static_cast<float>(pView->dbZoom());
    MakeShifted(pView->rgnSelectScaled(), rgnMoveOrigScaled, Zoomed(ptOffset.x, fZoom), Zoomed(ptOffset.y, fZoom));
    MakeShifted(pView->rgnSelect(), rgnMoveOrig, ptOffset.x, ptOffset.y);
    if (bRedraw)
    {
        pView->UpdateSelectBorderMaskDC();
        RefreshView(true);
    }
    return 1;
}

int RegionSelector::EndMovingSelection(CPoint ptBmp)
{
    if (!IsHosted() || !bMovingSelection)
        return 0;
    CPixtane& view = *pView;
    const CPoint ptOffset = ptBmp - ptMoveStart;
    const bool bStayed = HasSelection() && view.rgnSelect().EqualRgn(&rgnMoveOrig);
    if (bStayed && ptOffset != CPoint(0, 0))
        PutBack();
    // The move is over before anybody hears of it: what a host does then may end it a second time.
    ForgetMove();
    if (ptOffset == CPoint(0, 0))
        return 1;
    if (!bStayed)
        CommitMove(ptOffset);
    if (IsIn(view))
    {
        view.UpdateSelectBorderMaskDC();
        view.Invalidate(FALSE);
    }
    return 1;
}

void RegionSelector::PutBack()
{
    MakeShifted(pView->rgnSelect(), rgnMoveOrig, 0, 0);
    MakeShifted(pView->rgnSelectScaled(), rgnMoveOrigScaled, 0, 0);
}

void RegionSelector::CommitMove(CPoint ptOffset)
{
    CPixtane& view = *pView;
    if (!HasSelection())
        return;
    const bool bMasked = view.iSelectMaskSize() != 0;
    if (bMasked &&
        !CPixtane::OffsetSelectMask(view.vSelectMask(), view.iBmpWidth(), view.iBmpHeight(), ptOffset.x, ptOffset.y))
        QLWriteLog(QL_INFO, MODULE_NAME, L"RegionSelector::OnLButtonUp", L"Failed to offset select-mask.");
    CRgn rgnLeft;
    rgnLeft.CreateRectRgn(0, 0, 0, 0);
    if (rgnLeft.CombineRgn(&view.rgnSelect(), &view.rgnBitmap(), RGN_AND) > NULLREGION)
    {
        view.rgnSelect().CopyRgn(&rgnLeft);
        view.NotifyParent(PVN_SELECTION_MOVED, FALSE);
        return;
    }
    view.ClearSelection();
    RefreshView(true);
    if (IsIn(view))
        view.NotifyParent(PVN_SELECTION_CLEARED, FALSE);
}

void RegionSelector::ForgetMove()
{
    rgnMoveOrig.DeleteObject();
    rgnMoveOrigScaled.DeleteObject();
    bMovingSelection = FALSE;
}

} // namespace Pixtane::EmbeddedTool
