#include "platform/minmax.h"
#include "selection/MaskMerge.h"
#include "selection/RegionBox.h"
#include "selection/RegionSelector.h"
#include "view/Log.h"
#include "view/Notifications.h"

#include <algorithm>
#include <new>
#include <span>
#include <vector>

namespace Pixtane::EmbeddedTool
{

namespace
{

constexpr const wchar_t* FUNCTION = L"RegionSelector::ApplySelection";

constexpr UINT RULE_NOTIFICATIONS[] = {0, PVN_SELECT_NEW, PVN_SELECT_ADD, PVN_SELECT_SUBTRACT, PVN_SELECT_INTERSECT};
constexpr int RULE_MODES[] = {0, RGN_COPY, RGN_OR, RGN_DIFF, RGN_AND};

bool IsRule(RegionSelector::emOverlapMode eRule)
{
    return eRule >= RegionSelector::OM_NEW && eRule <= RegionSelector::OM_INTERSECT;
}

/// Right and lower parts of an outline one pixel outwards: vertices are pixels, and those have an extent.
std::vector<POINT> Widened(std::span<const POINT> vPoints)
{
    float fSumX = 0;
    float fSumY = 0;
    for (const POINT& pt : vPoints)
    {
        fSumX += static_cast<float>(pt.x);
        fSumY += static_cast<float>(pt.y);
    }
    const auto fCount = static_cast<float>(vPoints.size());
    const float fCentreX = fSumX / fCount;
    const float fCentreY = fSumY / fCount;
    std::vector<POINT> vWidened(vPoints.begin(), vPoints.end());
    for (POINT& pt : vWidened)
    {
        pt.x += static_cast<float>(pt.x) > fCentreX;
        pt.y += static_cast<float>(pt.y) > fCentreY;
    }
    return vWidened;
}

} // namespace

void RegionSelector::CloseSelection()
{
    if ((eSelectMode == SM_LASSO || eSelectMode == SM_POLYGON) && arrPoints.GetSize() >= 3)
    {
        ApplySelection();
        return;
    }
    DropShape();
}

void RegionSelector::DropShape()
{
    ForgetShape();
    pView->Invalidate(FALSE);
    bSelecting = FALSE;
    eSelectingMode = SM_NONE;
    ReleaseMouse();
}

void RegionSelector::ApplySelection()
{
    const CWaitCursor wait;
    CPixtane& view = *pView;
    const bool bWasEmpty = IsEmpty(view.rgnSelect());
    CRgn rgnShape;
    const bool bShape =
        eSelectMode == SM_MAGICWAND ? TakeWand(rgnShape) : TakeShape(rgnShape) && RasteriseShape(rgnShape);
    if (!view.rgnSelect().GetSafeHandle())
        view.rgnSelect().CreateRectRgn(0, 0, 0, 0);
    if (bShape)
        MergeShape(rgnShape);
    view.UpdateScaledRegion();
    view.UpdateSelectBorderMaskDC();
    ForgetShape();
    bSelecting = FALSE;
    eSelectingMode = SM_NONE;
    ReleaseMouse();
    if (IsIn(view))
        NotifyApplied(bWasEmpty);
    if (IsIn(view))
        view.Invalidate(FALSE);
}

bool RegionSelector::TakeShape(CRgn& rgnShape)
{
    switch (eSelectMode)
    {
    case SM_LASSO:
    case SM_POLYGON:
        TakePolygon(rgnShape);
        break;
    case SM_RECTANGLE:
    case SM_ELLIPSE:
    {
        if (!IsSet(ptStart) || !IsSet(ptEnd))
            break; // The shape was another when the button went down.
        const CRect rcShape = ShapeBox();
        if (eSelectMode == SM_RECTANGLE)
            rgnShape.CreateRectRgn(rcShape.left, rcShape.top, rcShape.right + 1, rcShape.bottom + 1);
        else
            rgnShape.CreateEllipticRgn(rcShape.left, rcShape.top, rcShape.right + 2, rcShape.bottom + 2);
        break;
    }
    default:
        break;
    }
    return rgnShape.GetSafeHandle() != nullptr;
}

CRect RegionSelector::ShapeBox() const
{
    return CRect(std::min(ptStart.x, ptEnd.x), std::min(ptStart.y, ptEnd.y), std::max(ptStart.x, ptEnd.x),
                 std::max(ptStart.y, ptEnd.y));
}

void RegionSelector::TakePolygon(CRgn& rgnShape)
{
    const std::span vPoints(arrPoints.GetData(), static_cast<std::size_t>(arrPoints.GetSize()));
    std::vector<POINT> vOutline = Widened(vPoints);
    arrPoints.RemoveAll();
    rgnShape.CreatePolygonRgn(vOutline.data(), static_cast<int>(vOutline.size()), ALTERNATE);
}

bool RegionSelector::RasteriseShape(const CRgn& rgnShape)
{
    std::vector<BYTE>& vShape = pView->vSelectMask_Cur();
    if (!pView->iSelectMaskSize())
        return !IsEmpty(rgnShape); // A view without masks keeps the region alone.
    if (!CPixtane::CreateSelectMask(rgnShape, vShape, pView->iBmpWidth(), pView->iBmpHeight(), iFeatherRadius))
    {
        QLWriteLog(QL_INFO, MODULE_NAME, FUNCTION, L"Failed to create select-mask.");
        return false;
    }
    return HasFeatheredShape();
}

bool RegionSelector::HasFeatheredShape() const
{
    // A region of it would serve only to see whether anything is left.
    if (iFeatherRadius <= 0 || HasWeight(pView->vSelectMask_Cur()))
        return true;
    QLWriteLog(QL_ERROR, MODULE_NAME, FUNCTION, L"Failed to create region after feathering.");
    return false;
}

void RegionSelector::MergeShape(CRgn& rgnShape)
{
    CRgn& rgnSelect = pView->rgnSelect();
    bool bLeft;
    if (pView->iSelectMaskSize())
    {
        MergeSelectMask();
        bLeft = CPixtane::CreateRgnFromMask(rgnSelect, pView->vSelectMask(), pView->iBmpWidth(), pView->iBmpHeight());
    }
    else
    {
        if (IsRule(GetSelectingOverlapMode()))
            rgnSelect.CombineRgn(GetSelectingOverlapMode() == OM_NEW ? &rgnShape : &rgnSelect, &rgnShape,
                                 RULE_MODES[GetSelectingOverlapMode()]);
        bLeft = rgnSelect.CombineRgn(&rgnSelect, &pView->rgnBitmap(), RGN_AND) > NULLREGION;
    }
    if (bLeft)
        return;
    QLWriteLog(QL_ERROR, MODULE_NAME, FUNCTION, L"Failed to create region after feathering.");
    pView->ClearSelection();
}

void RegionSelector::MergeSelectMask()
{
    std::vector<BYTE>& vMask = pView->vSelectMask();
    const std::vector<BYTE>& vShape = pView->vSelectMask_Cur();
    const emOverlapMode eRule = GetSelectingOverlapMode();
    if (eRule == OM_NEW)
    {
        vMask = vShape;
        return;
    }
    const std::size_t nBytes = static_cast<std::size_t>(std::max(pView->iSelectMaskSize(), 0));
    const std::span vMerged = std::span(vMask).first(std::min(nBytes, vMask.size()));
    if (eRule == OM_ADD)
        AddMask(vMerged, vShape);
    else if (eRule == OM_SUBTRACT)
        SubtractMask(vMerged, vShape);
    else if (eRule == OM_INTERSECT)
        IntersectMask(vMerged, vShape);
}

void RegionSelector::NotifyApplied(bool bWasEmpty)
{
    CPixtane& view = *pView;
    const bool bNowEmpty = IsEmpty(view.rgnSelect());
    if (bWasEmpty && bNowEmpty)
        return;
    const emOverlapMode eRule = GetSelectingOverlapMode();
    if (bNowEmpty)
        view.NotifyParent(PVN_SELECTION_CLEARED, FALSE);
    if (IsIn(view) && IsRule(eRule))
        view.NotifyParent(RULE_NOTIFICATIONS[eRule], FALSE);
}

} // namespace Pixtane::EmbeddedTool
