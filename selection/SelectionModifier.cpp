#include "selection/SelectionModifier.h"

#include "platform/minmax.h"
#include "selection/RegionBox.h"
#include "selection/ScaleRgn.h"
#include "view/Notifications.h"
#include "view/OutOfMemory.h"
#include "view/Rounding.h"

#include <algorithm>
#include <cwchar>

namespace Pixtane::EmbeddedTool
{

namespace
{

BITMAPINFO MaskInfo(BITMAPINFO info, LONG cx, LONG cy, std::size_t nBytes)
{
    info.bmiHeader.biBitCount = 8;
    info.bmiHeader.biWidth = cx;
    info.bmiHeader.biHeight = cy;
    info.bmiHeader.biSizeImage = static_cast<DWORD>(nBytes);
    return info;
}

CSize SizeOf(const BITMAPINFO& info) { return {info.bmiHeader.biWidth, info.bmiHeader.biHeight}; }

/// As far as regions reach.
constexpr LONG FARTHEST = (1 << 27) - 16;

/// By what a size is scaled to another one, as far as the edges may go.
float ScaleFactor(int iSize, LONG iOrigin, LONG iLastEdge)
{
    return std::min(static_cast<float>(iSize) / static_cast<float>(iOrigin),
                    static_cast<float>(FARTHEST) / static_cast<float>(iLastEdge));
}

/// The offset that takes a box's left top corner to a place, as far as it may go.
CPoint OffsetTo(int x, int y, const CRect& rcBox)
{
    return CPoint(std::clamp<LONG>(x, -FARTHEST, FARTHEST - rcBox.Width()),
                  std::clamp<LONG>(y, -FARTHEST, FARTHEST - rcBox.Height())) -
           rcBox.TopLeft();
}

void Offset(CRgn& rgn, CPoint ptOffset)
{
    if (rgn.GetSafeHandle())
        rgn.OffsetRgn(ptOffset.x, ptOffset.y);
}

/// A side of the length, moved to where all of it is from 0 to the limit; cut off to the limit when it is longer.
void MoveInside(LONG& iLow, LONG& iHigh, LONG iLimit)
{
    const LONG iLength = std::clamp<LONG>(SaturatedSum(iHigh, -static_cast<long long>(iLow)), 1, iLimit);
    iLow = std::clamp<LONG>(iLow, 0, iLimit - iLength);
    iHigh = iLow + iLength;
}

} // namespace

SelectionModifier::SelectionModifier()
{
    std::wcscpy(szToolName, L"selection_modifier");
    UpdateAdjustData(); // The handles of no frame.
}
SelectionModifier::~SelectionModifier() = default;

// ---- the snapshot

int SelectionModifier::OnLoad(CPixtane& view)
try
{
    pView = &view;
    if (!TakeSnapshot())
    {
        Forget();
        return FALSE;
    }
    UpdateDispData(TRUE);
    if (IsHosted())
        view.Invalidate(FALSE);
    return TRUE;
}
catch (...)
{
    Forget();
    RethrowUnlessOutOfMemory();
    return FALSE;
}

bool SelectionModifier::TakeSnapshot()
{
    // A host may select what lies outside the bitmap, but there are no weights for it.
    if (!pView->GetSelectRegion(rgnOrigin) ||
        rgnOrigin.CombineRgn(&rgnOrigin, &pView->rgnBitmap(), RGN_AND) <= NULLREGION)
        return false;
    const auto nPixels = static_cast<std::size_t>(pView->iBmpWidth()) * pView->iBmpHeight();
    if (!pView->vSelectMask().empty() && pView->vSelectMask().size() != nPixels)
        return false; // The host has made something of it that does not belong to the bitmap.
    rcOrigin = BoxOf(rgnOrigin);
    const BITMAPINFO info = pView->BmpInfo();
    const auto cx = static_cast<std::size_t>(rcOrigin.Width());
    const auto cy = static_cast<std::size_t>(rcOrigin.Height());
    vOrigMask = pView->vSelectMask();
    vNewMask = vOrigMask;
    bmiNewMask = MaskInfo(info, pView->iBmpWidth(), pView->iBmpHeight(), vNewMask.size());
    vCropMask.assign(cx * cy, 0);
    bmiCropMask = MaskInfo(info, rcOrigin.Width(), rcOrigin.Height(), vCropMask.size());
    for (std::size_t y = 0; !vOrigMask.empty() && y < cy; ++y)
        std::copy_n(vOrigMask.begin() + (rcOrigin.top + y) * pView->iBmpWidth() + rcOrigin.left, cx,
                    vCropMask.begin() + y * cx);
    vResizedMask = vCropMask;
    bmiResizedMask = bmiCropMask;
    rcImage = rcOrigin;
    return true;
}

int SelectionModifier::OnUnload()
{
    if (bDragging)
        ReleaseMouse();
    if (IsHosted())
        pView->Invalidate(FALSE);
    Forget();
    return TRUE;
}

void SelectionModifier::Forget()
{
    for (std::vector<BYTE>* const pMask : {&vCropMask, &vResizedMask, &vNewMask, &vOrigMask})
        std::vector<BYTE>().swap(*pMask);
    rgnOrigin.DeleteObject();
    bDragging = FALSE;
    pView = nullptr;
}

bool SelectionModifier::ShowsItsBitmap() const
{
    return IsHosted() && pView->pBmpData() && CSize(pView->iBmpWidth(), pView->iBmpHeight()) == SizeOf(bmiNewMask) &&
           pView->vSelectMask().size() == vNewMask.size();
}

// ---- by numbers

void SelectionModifier::SetLeftTop(int x, int y)
{
    if (!ShowsItsBitmap())
        return;
    const CPoint ptOffset = OffsetTo(x, y, rcImage);
    Offset(pView->rgnSelect(), ptOffset);
    rcImage.OffsetRect(ptOffset.x, ptOffset.y);
    RegionChanged(true);
}

void SelectionModifier::SetSize(int cx, int cy)
{
    if (!ShowsItsBitmap())
        return;
    CPixtane& view = *pView;
    ScaleSelection(rcImage.left, rcImage.top, cx, cy);
    view.UpdateScaledRegion();
    const bool bShown = !BoxOf(view.rgnSelectScaled()).IsRectNull();
    if (!bShown)
        rcDisplay = ZoomedImageRect();
    UpdateDispData(bShown);
    RefreshBorder();
    view.NotifyParent(PVN_SELMOD_SIZE, FALSE);
}

void SelectionModifier::SetRect(int x, int y, int cx, int cy)
{
    if (!ShowsItsBitmap())
        return;
    ScaleSelection(x, y, cx, cy);
    RegionChanged(true);
}

void SelectionModifier::ScaleSelection(int x, int y, int cx, int cy)
{
    CRgn& rgnSelect = pView->rgnSelect();
    ScaleRgn(rgnOrigin, rgnSelect, ScaleFactor(cx, rcOrigin.Width(), rcOrigin.right),
             ScaleFactor(cy, rcOrigin.Height(), rcOrigin.bottom), SCALE_FRACTION_ALIGNED);
    Offset(rgnSelect, OffsetTo(x, y, BoxOf(rgnSelect)));
    rcImage = BoxOf(rgnSelect);
}

void SelectionModifier::GetRect(CRect& rc) { rc = bDragging && IsHosted() ? DraggedRect() : rcImage; }

void SelectionModifier::ApplyModify()
{
    if (!ShowsItsBitmap())
        return;
    const CWaitCursor wait;
    const CRect rc = IntoBitmap(rcImage);
    if (rc.Size() != rcOrigin.Size())
    {
        Resample(rc.Size(), Vorpix::RESIZE_CUBIC);
    }
    else
    {
        vResizedMask = vCropMask;
        bmiResizedMask = bmiCropMask;
    }
    const bool bMoved = rc != rcImage;
    PlaceSelection(rc);
    RegionChanged(bMoved);
}

void SelectionModifier::CancelModify()
{
    if (!ShowsItsBitmap())
        return;
    CRgn& rgnSelect = pView->rgnSelect();
    if (!rgnSelect.GetSafeHandle())
        rgnSelect.CreateRectRgn(0, 0, 0, 0);
    rgnSelect.CopyRgn(&rgnOrigin);
    RegionChanged(false);
}

// ---- the selection's new weights

CRect SelectionModifier::IntoBitmap(CRect rc) const
{
    MoveInside(rc.left, rc.right, pView->iBmpWidth());
    MoveInside(rc.top, rc.bottom, pView->iBmpHeight());
    return rc;
}

void SelectionModifier::ResampleForDrag(CSize szMask)
{
    if (SizeOf(bmiResizedMask) != szMask)
        Resample(szMask, Vorpix::RESIZE_LINEAR);
}

void SelectionModifier::Resample(CSize szMask, Vorpix::RESIZE_ALGORITHM eAlgorithm)
{
    // Where this fails there are the weights of before, and Paste takes what there is.
    Vorpix::Resize(vCropMask.data(), vCropMask.size(), bmiCropMask, vResizedMask, bmiResizedMask, szMask.cx, szMask.cy,
                   eAlgorithm, nullptr);
}

void SelectionModifier::PlaceSelection(const CRect& rc)
{
    if (vNewMask.empty()) // A view without masks keeps the region alone.
    {
        ScaleSelection(rc.left, rc.top, rc.Width(), rc.Height());
        CRgn& rgnSelect = pView->rgnSelect();
        if (rgnSelect.GetSafeHandle())
            rgnSelect.CombineRgn(&rgnSelect, &pView->rgnBitmap(), RGN_AND);
    }
    else
    {
        Paste(rc);
    }
    rcImage = rc;
}

void SelectionModifier::Paste(const CRect& rc)
{
    const CSize szMask = SizeOf(bmiResizedMask);
    // A resizing that failed may have left anything.
    const LONG cyThere = szMask.cx > 0 ? static_cast<LONG>(vResizedMask.size() / szMask.cx) : 0;
    const LONG cx = std::clamp<LONG>(szMask.cx, 0, rc.Width());
    const LONG cy = std::clamp<LONG>(std::min(szMask.cy, cyThere), 0, rc.Height());
    const LONG cxBitmap = bmiNewMask.bmiHeader.biWidth;
    std::ranges::fill(vNewMask, BYTE{0});
    for (std::ptrdiff_t y = 0; y < cy; ++y)
        std::copy_n(vResizedMask.begin() + y * szMask.cx, cx, vNewMask.begin() + (rc.top + y) * cxBitmap + rc.left);
    pView->vSelectMask() = vNewMask;
    CPixtane::CreateRgnFromMask(pView->rgnSelect(), vNewMask, cxBitmap, bmiNewMask.bmiHeader.biHeight);
}

void SelectionModifier::RegionChanged(bool bFrameFollows)
{
    pView->UpdateScaledRegion();
    if (bFrameFollows)
        UpdateDispData(TRUE);
    RefreshBorder();
}

void SelectionModifier::RefreshBorder()
{
    pView->UpdateSelectBorderMaskDC();
    pView->Invalidate(FALSE);
}

} // namespace Pixtane::EmbeddedTool
