#include "platform/vorpix.h"
#include "selection/RegionBox.h"
#include "selection/RegionSelector.h"
#include "selection/WandFill.h"
#include "view/Log.h"
#include "view/Notifications.h"
#include "view/OutOfMemory.h"

#include <algorithm>
#include <utility>

namespace Pixtane::EmbeddedTool
{

int RegionSelector::CreateMagicWandMask(std::vector<BYTE>& vMask, const CPoint& ptSeed, BYTE byTolerance, RECT* pBounds)
try
{
    const CPoint pt = ToBitmap(ptSeed);
    const BITMAPINFOHEADER header = pView->BmpInfo().bmiHeader;
    const bool bKnown = header.biBitCount == 24 || header.biBitCount == 32;
    if (!bKnown || !pView->rgnBitmap().GetSafeHandle() || !pView->rgnBitmap().PtInRegion(pt))
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
catch (...)
{
    RethrowUnlessOutOfMemory();
    QLWriteLog(QL_ERROR, MODULE_NAME, L"RegionSelector::CreateMagicWandMask", L"Not enough memory.");
    return 0;
}

bool RegionSelector::TakeWand(CRgn& rgnShape)
{
    // A view without masks keeps the region alone.
    std::vector<BYTE> vOwn;
    const bool bMasked = pView->iSelectMaskSize() != 0;
    std::vector<BYTE>& vShape = bMasked ? pView->vSelectMask_Cur() : vOwn;
    RECT rcBounds = {};
    if (!CreateMagicWandMask(vShape, ptDown, static_cast<BYTE>(iTolerance), &rcBounds))
        return false;
    if (iFeatherRadius >= 1 && !Vorpix::FeatherRegion(vShape, rcBounds, iFeatherRadius, pView->iBmpWidth(),
                                                      pView->iBmpHeight(), nullptr, true))
        QLWriteLog(QL_ERROR, MODULE_NAME, L"RegionSelector::CreateSelectMask", L"Failed to call Vorpix::FeatherRegion");
    return bMasked ? HasFeatheredShape()
                   : CPixtane::CreateRgnFromMask(rgnShape, vShape, pView->iBmpWidth(), pView->iBmpHeight());
}

void RegionSelector::SelectColorRange(COLORREF crColor, int iColorTolerance)
try
{
    constexpr const wchar_t* FUNCTION = L"CPixtane::SelectColorRange";
    if (!IsHosted())
        return;
    const auto fail = [](const wchar_t* pszText) { QLWriteLog(QL_ERROR, MODULE_NAME, FUNCTION, pszText); };
    if (!pView->pBmpData())
        return fail(L"Failed to create region.");
    CRect rcArea = BoxOf(IsEmpty(pView->rgnSelect()) ? pView->rgnBitmap() : pView->rgnSelect());
    BITMAPINFO info = pView->BmpInfo();
    std::vector<BYTE> vOwn;
    std::vector<BYTE>& vShape = pView->iSelectMaskSize() ? pView->vSelectMask_Cur() : vOwn;
    // Only the area is written, and what stood elsewhere is no part of the range.
    vShape.assign(static_cast<std::size_t>(pView->iBmpWidth()) * pView->iBmpHeight(), 0);
    if (!Vorpix::CreateRegionFromColor(pView->pBmpData(), info, rcArea, vShape, crColor, iColorTolerance, nullptr))
        return fail(L"Failed to create region.");
    if (!MergeColorRange(vShape))
        return fail(L"Failed to create region after feathering.");
    pView->UpdateScaledRegion();
    pView->UpdateSelectBorderMaskDC();
    RefreshView(false);
}
catch (...)
{
    RethrowUnlessOutOfMemory();
    QLWriteLog(QL_ERROR, MODULE_NAME, L"CPixtane::SelectColorRange", L"Not enough memory.");
}

bool RegionSelector::MergeColorRange(const std::vector<BYTE>& vShape)
{
    CRgn& rgnSelect = pView->rgnSelect();
    const bool bSelection = !IsEmpty(rgnSelect);
    const int cx = pView->iBmpWidth();
    const int cy = pView->iBmpHeight();
    if (pView->iSelectMaskSize())
    {
        const emOverlapMode eOld = std::exchange(eOverlapMode, bSelection ? OM_INTERSECT : OM_NEW);
        MergeSelectMask();
        eOverlapMode = eOld;
        return CPixtane::CreateRgnFromMask(rgnSelect, pView->vSelectMask(), cx, cy);
    }
    CRgn rgnRange;
    bool bLeft = CPixtane::CreateRgnFromMask(rgnRange, vShape, cx, cy);
    if (bLeft && bSelection)
        bLeft = rgnRange.CombineRgn(&rgnRange, &rgnSelect, RGN_AND) > NULLREGION;
    rgnSelect.DeleteObject();
    if (bLeft)
        rgnSelect.Attach(rgnRange.Detach());
    return bLeft;
}

void RegionSelector::SelectAll()
{
    if (!IsHosted() || !pView->pBmpData())
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
    if (!IsHosted() || !pView->pBmpData())
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
