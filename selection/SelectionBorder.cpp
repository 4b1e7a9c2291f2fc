#include "selection/Outline.h"
#include "selection/RegionRects.h"
#include "selection/RegionSelector.h"
#include "view/MainWindow.h"
#include "view/Pixtane.h"
#include "view/Rounding.h"

#include <algorithm>
#include <cwchar>
#include <new>

namespace Pixtane
{

namespace
{

constexpr COLORREF NO_BORDER = RGB(255, 0, 0);
constexpr COLORREF BORDER = RGB(255, 0, 255);

/// Fills the outline of the region's part in the client rectangle; nothing when memory is short.
void FillOutline(CDC& dc, const CRgn& rgnInside, const CRect& rcClient)
try
{
    auto inside = CRegionRects::Read(rgnInside);
    if (!inside)
        return;
    const std::vector<RECT> vRuns = OutlineRuns(inside->Rects(), rcClient.Width(), rcClient.Height());
    CRegionRects outline(vRuns.size());
    std::ranges::copy(vRuns, outline.Rects().begin());
    CRgn rgnOutline;
    CBrush brBorder(BORDER);
    if (outline.CreateRegion(rgnOutline))
        dc.FillRgn(&rgnOutline, &brBorder);
}
catch (const std::bad_alloc&)
{
}

/// A pen selected while it lives.
class CPenSelection
{
public:
    CPenSelection(CDC& dc, CPen& pen) : m_dc(dc), m_pOld(dc.SelectObject(&pen)) {}
    ~CPenSelection() { m_dc.SelectObject(m_pOld); }
    CPenSelection(const CPenSelection&) = delete;
    CPenSelection& operator=(const CPenSelection&) = delete;

private:
    CDC& m_dc;
    CPen* m_pOld;
};

void DrawLine(CDC& dc, int xFrom, int yFrom, int xTo, int yTo)
{
    dc.MoveTo(xFrom, yFrom);
    dc.LineTo(xTo, yTo);
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
    Invalidate(FALSE);
    UpdateWindow();
}

void CPixtane::DeleteSelectBorderMask()
{
    if (!m_hSelectBorderBmp)
        return;
    m_dcSelectBorderMask.DeleteDC();
    ::DeleteObject(m_hSelectBorderBmp);
    m_hSelectBorderBmp = nullptr;
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
    CRect rcClient;
    GetClientRect(&rcClient);
    if (!m_rgnSelect.GetSafeHandle() || !CreateSelectBorderMask(rcClient))
        return;
    CBrush brNoBorder(NO_BORDER);
    m_dcSelectBorderMask.FillRect(&rcClient, &brNoBorder);
    CRgn rgnVisible;
    const CRect rcBox = MakeVisibleSelection(rcClient, rgnVisible);
    FillOutline(m_dcSelectBorderMask, rgnVisible, rcClient);
    EraseRunOnBorders(rcClient, rcBox);
}

CRect CPixtane::MakeVisibleSelection(const CRect& rcClient, CRgn& rgnVisible)
{
    const CRect rcImage(0, 0, Truncate(m_szZoomed.Width), Truncate(m_szZoomed.Height));
    rgnVisible.CreateRectRgn(0, 0, 0, 0);
    rgnVisible.CopyRgn(&m_rgnSelectScaled);
    CRect rcBox;
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

void CPixtane::EraseRunOnBorders(const CRect& rcClient, const CRect& rcBox)
{
    CDC& dc = m_dcSelectBorderMask;
    CPen pen(PS_SOLID, 1, NO_BORDER);
    const CPenSelection selection(dc, pen);
    const int iRight = rcClient.right - 1;
    const int iBottom = rcClient.bottom - 1;
    if (m_ptDispPos.X > 0 && rcBox.left <= rcClient.left)
        DrawLine(dc, rcClient.left, rcClient.top, rcClient.left, iBottom);
    if (m_ptDispPos.Y > 0 && rcBox.top <= rcClient.top)
        DrawLine(dc, rcClient.left, rcClient.top, iRight, rcClient.top);
    const auto runsOn = [](float fZoomed, int iPos, int iView)
    { return fZoomed > static_cast<float>(SaturatedSum(iPos, iView)); };
    if (runsOn(m_szZoomed.Width, m_ptDispPos.X, rcClient.Width()) && rcBox.right > rcClient.right)
        DrawLine(dc, iRight, rcClient.top, iRight, iBottom);
    if (runsOn(m_szZoomed.Height, m_ptDispPos.Y, rcClient.Height()) && rcBox.bottom > rcClient.bottom)
        DrawLine(dc, rcClient.left, iBottom, iRight, iBottom);
}

void CPixtane::DrawSelectBorder(CDC& dc, unsigned int uPhase)
{
    if (!m_rgnSelect.GetSafeHandle() || !m_bShowSelection)
        return;
    CRect rcClient;
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
    if (!m_pEmbeddedTool || std::wcscmp(m_pEmbeddedTool->GetToolName(), L"region_selector") != 0)
        return false;
    const auto* const pSelector = dynamic_cast<const EmbeddedTool::RegionSelector*>(m_pEmbeddedTool);
    return pSelector && pSelector->IsMovingSelection();
}

bool CPixtane::StepSelectBorder()
{
    if (IsMainWindowMinimised() || !m_rgnSelect.GetSafeHandle() || IsSelectionBeingDragged())
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
