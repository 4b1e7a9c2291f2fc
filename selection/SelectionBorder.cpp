#include "selection/Outline.h"
#include "selection/RegionRects.h"
#include "selection/RegionSelector.h"
#include "selection/SelectionModifier.h"
#include "view/MainWindow.h"
#include "view/OutOfMemory.h"
#include "view/Pixtane.h"
#include "view/Rounding.h"

#include <algorithm>
#include <cwchar>

namespace Pixtane
{

namespace
{

constexpr COLORREF NO_BORDER = RGB(255, 0, 0);
constexpr COLORREF BORDER = RGB(255, 0, 255);

/// What draws an outline of more runs faster than filling them one by one: the same time for every selection.
constexpr std::size_t MOST_FILLED_RUNS = 50000;

/// Makes the outline of the region's part in the client rectangle, and gives its number of runs; without a handle when
/// there is none or memory is short.
std::size_t MakeOutline(const CRgn& rgnInside, const CRect& rcClient, CRgn& rgnOutline)
try
{
    auto inside = CRegionRects::Read(rgnInside);
    if (!inside)
        return 0;
    const std::vector<RECT> vRuns = OutlineRuns(inside->Rects(), rcClient.Width(), rcClient.Height());
    CRegionRects outline(vRuns.size());
    std::ranges::copy(vRuns, outline.Rects().begin());
    outline.CreateRegion(rgnOutline);
    return vRuns.size();
}
catch (...)
{
    RethrowUnlessOutOfMemory();
    return 0;
}

void Subtract(CRgn& rgn, const CRect& rc)
{
    CRgn rgnRect;
    rgnRect.CreateRectRgnIndirect(&rc);
    rgn.CombineRgn(&rgn, &rgnRect, RGN_DIFF);
}

} // namespace

void CPixtane::ShowSelection(int bShow)
{
    if (m_bShowSelection == bShow)
        return;
    m_bShowSelection = bShow;
    if (bShow)
    {
        UpdateScaledRegion();
        UpdateSelectBorderMaskDC();
    }
    if (m_hWnd)
    {
        Invalidate(FALSE);
        UpdateWindow();
    }
}

void CPixtane::DeleteSelectBorderMask()
{
    if (!m_hSelectBorderBmp)
        return;
    m_dcSelectBorderMask.DeleteDC();
    ::DeleteObject(m_hSelectBorderBmp);
    m_hSelectBorderBmp = nullptr;
    m_rgnOutline.DeleteObject();
}

bool CPixtane::CreateSelectBorderMask(const CRect& rcClient)
{
    if (!m_hWnd)
        return false;
    CClientDC dcWindow(this);
    if (!m_dcSelectBorderMask.CreateCompatibleDC(&dcWindow))
        return false;
    m_hSelectBorderBmp = ::CreateCompatibleBitmap(dcWindow, rcClient.Width(), rcClient.Height());
    if (!m_hSelectBorderBmp)
    {
        m_dcSelectBorderMask.DeleteDC();
        return false;
    }
    ::SelectObject(m_dcSelectBorderMask, m_hSelectBorderBmp);
    return true;
}

void CPixtane::UpdateSelectBorderMaskDC()
{
    if (!m_pBmpData || !m_bShowSelection)
        return;
    DeleteSelectBorderMask();
    CRect rcClient(0, 0, 0, 0);
    GetClientRect(&rcClient);
    if (!m_rgnSelect.GetSafeHandle() || !CreateSelectBorderMask(rcClient))
        return;
    CRgn rgnVisible, rgnOutline;
    const CRect rcBox = MakeVisibleSelection(rcClient, rgnVisible);
    const std::size_t nRuns = MakeOutline(rgnVisible, rcClient, rgnOutline);
    CBrush brNoBorder(NO_BORDER);
    CBrush brBorder(BORDER);
    m_dcSelectBorderMask.FillRect(&rcClient, &brNoBorder);
    if (!rgnOutline.GetSafeHandle())
        return;
    EraseRunOnBorders(rgnOutline, rcClient, rcBox);
    m_dcSelectBorderMask.FillRgn(&rgnOutline, &brBorder);
    if (nRuns <= MOST_FILLED_RUNS)
        m_rgnOutline.Attach(rgnOutline.Detach());
}

CRect CPixtane::MakeVisibleSelection(const CRect& rcClient, CRgn& rgnVisible)
{
    const CRect rcImage(0, 0, Truncate(m_szZoomed.Width), Truncate(m_szZoomed.Height));
    rgnVisible.CreateRectRgn(0, 0, 0, 0);
    rgnVisible.CopyRgn(&m_rgnSelectScaled);
    CRect rcBox(0, 0, 0, 0);
    rgnVisible.GetRgnBox(&rcBox);
    if (rcBox.left < 0 || rcBox.top < 0 || rcBox.right > rcImage.right || rcBox.bottom > rcImage.bottom)
    {
        CRgn rgnImage;
        rgnImage.CreateRectRgnIndirect(&rcImage);
        rgnVisible.CombineRgn(&rgnVisible, &rgnImage, RGN_AND);
        m_rgnSelectScaled.CopyRgn(&rgnVisible);
    }
    rgnVisible.OffsetRgn(-m_ptDispPos.X, -m_ptDispPos.Y);
    rgnVisible.GetRgnBox(&rcBox);
    if (m_szZoomed.Width > static_cast<float>(rcClient.Width()) ||
        m_szZoomed.Height > static_cast<float>(rcClient.Height()))
    {
        CRgn rgnClient;
        rgnClient.CreateRectRgnIndirect(&rcClient);
        rgnVisible.CombineRgn(&rgnVisible, &rgnClient, RGN_AND);
    }
    return rcBox;
}

void CPixtane::EraseRunOnBorders(CRgn& rgnOutline, const CRect& rcClient, const CRect& rcBox)
{
    // The last pixel of each side stays (docs/compatibility.md).
    const int iRight = rcClient.right - 1;
    const int iBottom = rcClient.bottom - 1;
    const auto runsOn = [](float fZoomed, int iPos, int iView)
    { return fZoomed > static_cast<float>(SaturatedSum(iPos, iView)); };
    if (m_ptDispPos.X > 0 && rcBox.left <= rcClient.left)
        Subtract(rgnOutline, {rcClient.left, rcClient.top, rcClient.left + 1, iBottom});
    if (m_ptDispPos.Y > 0 && rcBox.top <= rcClient.top)
        Subtract(rgnOutline, {rcClient.left, rcClient.top, iRight, rcClient.top + 1});
    if (runsOn(m_szZoomed.Width, m_ptDispPos.X, rcClient.Width()) && rcBox.right > rcClient.right)
        Subtract(rgnOutline, {iRight, rcClient.top, rcClient.right, iBottom});
    if (runsOn(m_szZoomed.Height, m_ptDispPos.Y, rcClient.Height()) && rcBox.bottom > rcClient.bottom)
        Subtract(rgnOutline, {rcClient.left, iBottom, iRight, rcClient.bottom});
}

void CPixtane::DrawSelectBorder(CDC& dc, unsigned int uPhase)
{
    if (!m_rgnSelect.GetSafeHandle() || !m_bShowSelection)
        return;
    if (!m_rgnOutline.GetSafeHandle())
    {
        DrawSelectBorderByMask(dc, uPhase);
        return;
    }
    // The image may have become smaller since, while nothing was laid out.
    CRgn rgnShown;
    rgnShown.CreateRectRgn(-m_ptDispPos.X, -m_ptDispPos.Y, SaturatedSum(Truncate(m_szZoomed.Width), -m_ptDispPos.X),
                           SaturatedSum(Truncate(m_szZoomed.Height), -m_ptDispPos.Y));
    rgnShown.CombineRgn(&rgnShown, &m_rgnOutline, RGN_AND);
    dc.FillRgn(&rgnShown, &m_brPattern[uPhase]);
}

void CPixtane::DrawSelectBorderByMask(CDC& dc, unsigned int uPhase)
{
    CRect rcClient(0, 0, 0, 0);
    GetClientRect(&rcClient);
    const int cx = rcClient.Width();
    const int cy = rcClient.Height();
    CUXMemDC dcPattern(dc, cx, cy);
    dcPattern.FillRect(&rcClient, &m_brPattern[uPhase]);
    if (!::TransparentBlt(dcPattern, 0, 0, cx, cy, m_dcSelectBorderMask, 0, 0, cx, cy, BORDER))
        return; // There is no mask, or it is of another layout.
    CBrush brNoBorder(NO_BORDER);
    CRgn rgnOutside, rgnClient;
    rgnOutside.CreateRectRgn(-m_ptDispPos.X, -m_ptDispPos.Y, SaturatedSum(Truncate(m_szZoomed.Width), -m_ptDispPos.X),
                             SaturatedSum(Truncate(m_szZoomed.Height), -m_ptDispPos.Y));
    rgnClient.CreateRectRgnIndirect(&rcClient);
    rgnOutside.CombineRgn(&rgnOutside, &rgnClient, RGN_XOR);
    dcPattern.FillRgn(&rgnOutside, &brNoBorder);
    ::TransparentBlt(dc, 0, 0, cx, cy, dcPattern, 0, 0, cx, cy, NO_BORDER);
}

// ---- the animation

bool CPixtane::IsSelectionBeingDragged() const
{
    if (!m_pEmbeddedTool)
        return false;
    const auto isNamed = [this](const wchar_t* pszName)
    { return std::wcscmp(m_pEmbeddedTool->GetToolName(), pszName) == 0; };
    const auto* const pSelector = dynamic_cast<const EmbeddedTool::RegionSelector*>(m_pEmbeddedTool);
    const auto* const pModifier = dynamic_cast<const EmbeddedTool::SelectionModifier*>(m_pEmbeddedTool);
    return (pSelector && isNamed(L"region_selector") && pSelector->IsMovingSelection()) ||
           (pModifier && isNamed(L"selection_modifier") && pModifier->IsMouseDragging());
}

bool CPixtane::StepSelectBorder()
{
    if (!m_hWnd || IsMainWindowMinimised() || !m_rgnSelect.GetSafeHandle() || IsSelectionBeingDragged())
        return false;
    CClientDC dc(this);
    DrawSelectBorder(dc, m_uBorderPhase);
    m_uBorderPhase = (m_uBorderPhase + 1) % MAXREPEAT_DRAWSELECTBOX;
    return true;
}

void CPixtane::OnTimer(UINT_PTR nIDEvent)
{
    if (m_pEmbeddedTool)
        m_pEmbeddedTool->OnTimer(nIDEvent);
    if (nIDEvent != TIMER_DRAWSELECTBOX || StepSelectBorder())
        Default();
}

} // namespace Pixtane
