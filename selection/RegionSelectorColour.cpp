#include "platform/vorpix.h"
#include "selection/RegionSelector.h"
#include "selection/WandFill.h"
#include "view/Log.h"
#include "view/Notifications.h"

#include <algorithm>
#include <limits>
#include <new>
#include <utility>

namespace Pixtane::EmbeddedTool
{

int RegionSelector::CreateMagicWandMask(std::vector<BYTE>& vMask, const CPoint& ptSeed, BYTE byTolerance, RECT* pBounds)
try
{
    constexpr WORD FEWEST_BITS = 24;
    const CPoint pt = ToBitmap(ptSeed);
    const BITMAPINFOHEADER header = pView->BmpInfo().bmiHeader;
    if (!pView->rgnBitmap().PtInRegion(pt) || header.biBitCount < FEWEST_BITS)
        return 0;
    if (static_cast<long long>(header.biWidth) * header.biHeight <= 0)
    {
        QLWriteLog(QL_INFO, MODULE_NAME, L"RegionSelector::CreateMagicWandMask", L"Invalid Mask Size.");
        return 0;
    }
    const CRect rcFilled = FillWand(vMask, header, pView->pBmpData(), pt, byTolerance);
    if (pBounds)
        *pBounds = rcFilled;
    return 1;
}
catch (const std::bad_alloc&)
{
    QLWriteLog(QL_ERROR, MODULE_NAME, L"RegionSelector::CreateMagicWandMask", L"Not enough memory.");
    return 0;
}

bool RegionSelector::TakeWand()
{
    std::vector<BYTE>& vShape = pView->vSelectMask_Cur();
    RECT rcBounds = {};
    if (!pView->iSelectMaskSize() || !CreateMagicWandMask(vShape, ptDown, static_cast<BYTE>(iTolerance), &rcBounds))
        return false;
    if (iFeatherRadius >= 1 && !Vorpix::FeatherRegion(vShape, rcBounds, iFeatherRadius, pView->iBmpWidth(),
                                                      pView->iBmpHeight(), nullptr, true))
        QLWriteLog(QL_ERROR, MODULE_NAME, L"RegionSelector::CreateSelectMask", L"Failed to call Vorpix::FeatherRegion");
    return HasFeatheredShape();
}

void RegionSelector::SelectColorRange(COLORREF crColor, int iColorTolerance)
{
    constexpr const wchar_t* FUNCTION = L"CPixtane::SelectColorRange";
    if (!pView || !pView->pBmpData() || !pView->iSelectMaskSize())
        return;
    const bool bSelection = HasSelection();
    CRect rcArea;
    (bSelection ? pView->rgnSelect() : pView->rgnBitmap()).GetRgnBox(&rcArea);
    BITMAPINFO info = pView->BmpInfo();
    std::vector<BYTE>& vShape = pView->vSelectMask_Cur();
    // Only the area is written, and what stood elsewhere is no part of the range.
    std::ranges::fill(vShape, BYTE{0});
    if (!Vorpix::CreateRegionFromColor(pView->pBmpData(), info, rcArea, vShape, crColor, iColorTolerance, nullptr))
    {
        QLWriteLog(QL_ERROR, MODULE_NAME, FUNCTION, L"Failed to create region.");
        return;
    }
    const emOverlapMode eOld = std::exchange(eOverlapMode, bSelection ? OM_INTERSECT : OM_NEW);
    MergeSelectMask();
    eOverlapMode = eOld;
    if (!CPixtane::CreateRgnFromMask(pView->rgnSelect(), pView->vSelectMask(), pView->iBmpWidth(), pView->iBmpHeight()))
    {
        QLWriteLog(QL_ERROR, MODULE_NAME, FUNCTION, L"Failed to create region after feathering.");
        return;
    }
    pView->UpdateScaledRegion();
    pView->UpdateSelectBorderMaskDC();
    RefreshView(false);
}

void RegionSelector::SelectAll()
{
    if (!pView || !pView->pBmpData())
        return;
    CRgn& rgnSelect = pView->rgnSelect();
    if (!rgnSelect.GetSafeHandle())
        rgnSelect.CreateRectRgn(0, 0, 0, 0);
    rgnSelect.CopyRgn(&pView->rgnBitmap());
    if (pView->iSelectMaskSize())
    {
        std::ranges::fill(pView->vSelectMask(), BYTE{255});
        std::ranges::fill(pView->vSelectMask_Cur(), BYTE{0});
    }
    pView->UpdateScaledRegion();
    pView->UpdateSelectBorderMaskDC();
    RefreshView(true);
}

void RegionSelector::InverseSelect()
{
    if (!pView || !pView->pBmpData())
        return;
    CPixtane& view = *pView;
    if (HasSelection())
    {
        view.rgnSelect().CombineRgn(&view.rgnBitmap(), &view.rgnSelect(), RGN_DIFF);
        for (BYTE& weight : view.vSelectMask())
            weight = static_cast<BYTE>(~weight);
        view.UpdateScaledRegion();
        view.UpdateSelectBorderMaskDC();
        RefreshView(true);
    }
    else
    {
        SelectAll();
    }
    if (IsIn(view))
        view.NotifyParent(PVN_SELECTION_INVERTED, FALSE);
}

} // namespace Pixtane::EmbeddedTool
