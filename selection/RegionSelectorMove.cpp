#include "selection/RegionSelector.h"
#include "view/Log.h"
#include "view/Notifications.h"
#include "view/Rounding.h"

namespace Pixtane::EmbeddedTool
{

namespace
{

/// Makes rgnCopy a copy; an empty region for a source without a handle.
void CopyInto(CRgn& rgnCopy, const CRgn& rgnSource)
{
    rgnCopy.DeleteObject();
    rgnCopy.CreateRectRgn(0, 0, 0, 0);
    rgnCopy.CopyRgn(&rgnSource);
}

int Zoomed(LONG iDistance, float fZoom) { return RoundHalfAway(static_cast<float>(iDistance) * fZoom); }

} // namespace

int RegionSelector::StartMovingSelection(CPoint ptBmp)
{
    if (!pView)
        return 0;
    CopyInto(rgnMoveOrig, pView->rgnSelect());
    CopyInto(rgnMoveOrigScaled, pView->rgnSelectScaled());
    bMovingSelection = TRUE;
    ptMoveStart = ptBmp;
    return 1;
}

int RegionSelector::MovingSelectionRegion(CPoint ptBmp, int bRedraw)
{
    if (!pView || !bMovingSelection)
        return 1;
    const CPoint ptOffset = ptBmp - ptMoveStart;
    const float fZoom = static_cast<float>(pView->dbZoom());
    CRgn& rgnScaled = pView->rgnSelectScaled();
    rgnScaled.CopyRgn(&rgnMoveOrigScaled);
    rgnScaled.OffsetRgn(Zoomed(ptOffset.x, fZoom), Zoomed(ptOffset.y, fZoom));
    CRgn& rgnSelect = pView->rgnSelect();
    rgnSelect.CopyRgn(&rgnMoveOrig);
    rgnSelect.OffsetRgn(ptOffset.x, ptOffset.y);
    if (bRedraw)
    {
        pView->UpdateSelectBorderMaskDC();
        RefreshView(true);
    }
    return 1;
}

int RegionSelector::EndMovingSelection(CPoint ptBmp)
{
    if (!pView || !bMovingSelection)
        return 0;
    CPixtane& view = *pView;
    const CPoint ptOffset = ptBmp - ptMoveStart;
    if (ptOffset != CPoint(0, 0))
    {
        if (view.rgnSelect().EqualRgn(&rgnMoveOrig))
        {
            view.rgnSelect().CopyRgn(&rgnMoveOrig);
            view.rgnSelectScaled().CopyRgn(&rgnMoveOrigScaled);
        }
        else
        {
            CommitMove(ptOffset);
        }
        if (pView == &view)
        {
            view.UpdateSelectBorderMaskDC();
            view.Invalidate(FALSE);
        }
    }
    ForgetMove();
    return 1;
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
    if (pView == &view)
        view.NotifyParent(PVN_SELECTION_CLEARED, FALSE);
}

void RegionSelector::ForgetMove()
{
    rgnMoveOrig.DeleteObject();
    rgnMoveOrigScaled.DeleteObject();
    bMovingSelection = FALSE;
}

} // namespace Pixtane::EmbeddedTool
