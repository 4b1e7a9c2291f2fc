#include "platform/minmax.h"
#include "view/EmbeddedTool.h"
#include "view/MainWindow.h"
#include "view/Module.h"
#include "view/Notifications.h"
#include "view/Pixtane.h"
#include "view/Rounding.h"

#include <algorithm>
#include <cmath>

namespace Pixtane
{

int CPixtane::SetZoom(double dbZoom)
{
    if (!m_pBmpData || std::isnan(dbZoom))
        return FALSE;
    const float fWidth = static_cast<float>(m_iBmpWidth);
    const float fHeight = static_cast<float>(m_iBmpHeight);
    if (m_iBmpWidth * dbZoom < 1.0 || m_iBmpHeight * dbZoom < 1.0)
        dbZoom = std::max(1.0f / fWidth, 1.0f / fHeight);
    m_dbLastZoom = m_dbZoom;
    m_dbZoom = dbZoom;
    m_bZooming = TRUE;
    const float fZoom = static_cast<float>(m_dbZoom);
    m_szZoomed = Gdiplus::SizeF(fWidth * fZoom, fHeight * fZoom);
    HideScrollBars();
    UpdateScaledRegion();
    UpdateDisplay();
    m_bZooming = FALSE;
    if (m_pEmbeddedTool)
        m_pEmbeddedTool->OnZoomChanged();
    return TRUE;
}

int CPixtane::SetDispPosition(int x, int y)
{
    if (!m_pBmpData)
        return FALSE;
    if (x == m_ptDispPos.X && y == m_ptDispPos.Y)
    {
        Invalidate(FALSE);
        UpdateWindow();
        return FALSE;
    }
    m_ptDispPos = Gdiplus::Point(x, y);
    UpdateDisplay();
    if (m_pEmbeddedTool)
        m_pEmbeddedTool->OnDispPosChanged();
    return TRUE;
}

void CPixtane::MoveImage(long dx, long dy)
{
    SetDispPosition(SaturatedSum(m_ptDispPos.X, dx), SaturatedSum(m_ptDispPos.Y, dy));
}

void CPixtane::ShowScrollBar(int bShow)
{
    m_bShowScrollBar = bShow;
    if (m_pBmpData)
        UpdateDisplay();
}

void CPixtane::OnSize(UINT nType, int cx, int cy)
{
    CUXWnd::OnSize(nType, cx, cy);
    if (m_pBmpData)
        UpdateDisplay();
}

void CPixtane::GetClientRect(LPRECT lpRect)
{
    *lpRect = RECT{};
    CUXWnd::GetClientRect(lpRect);
    // In a window smaller than its bars the view area is empty, never negative.
    if (m_bHScrollShown)
        lpRect->bottom = std::max(lpRect->top, lpRect->bottom - HorizontalBarHeight());
    if (m_bVScrollShown)
        lpRect->right = std::max(lpRect->left, lpRect->right - VerticalBarWidth());
}

void CPixtane::UpdateDisplay()
{
    if (IsMainWindowMinimised())
        return;
    UpdateUI();
    CRect rcView(0, 0, 0, 0);
    GetClientRect(&rcView);
    const float fViewWidth = static_cast<float>(rcView.Width());
    const float fViewHeight = static_cast<float>(rcView.Height());
    if (fViewWidth >= m_szZoomed.Width)
        m_ptDispPos.X = RoundHalfAway((m_szZoomed.Width - fViewWidth) * 0.5f);
    if (fViewHeight >= m_szZoomed.Height)
        m_ptDispPos.Y = RoundHalfAway((m_szZoomed.Height - fViewHeight) * 0.5f);
    UpdateSelectBorderMaskDC();
    Invalidate();
    UpdateWindow();
    NotifyParent(PVN_DISPLAYCHANGED, FALSE);
}

void CPixtane::UpdateUI()
{
    if (m_bShowScrollBar)
        DecideScrollBars();
    else
        HideScrollBars();
    CRect rcView(0, 0, 0, 0);
    GetClientRect(&rcView);
    if (m_bZooming)
        ZoomAboutCentre(rcView.Width(), rcView.Height());
    LimitDispPos(rcView.Width(), rcView.Height());
    UpdateScrollInfo(m_sbHorz, m_szZoomed.Width, rcView.Width(), m_ptDispPos.X);
    UpdateScrollInfo(m_sbVert, m_szZoomed.Height, rcView.Height(), m_ptDispPos.Y);
}

void CPixtane::HideScrollBars()
{
    m_sbHorz.ShowWindow(SW_HIDE);
    m_sbVert.ShowWindow(SW_HIDE);
    m_bHScrollShown = FALSE;
    m_bVScrollShown = FALSE;
}

void CPixtane::DecideScrollBars()
{
    // A bar takes room from the other axis, so a change on one side asks the other side again.
    bool bHorzPending = true;
    bool bVertPending = true;
    while (bHorzPending || bVertPending)
    {
        CRect rcView(0, 0, 0, 0);
        GetClientRect(&rcView);
        if (bHorzPending)
        {
            bHorzPending = false;
            bVertPending |= DecideBar(m_sbHorz, m_bHScrollShown, rcView.Width(), m_szZoomed.Width);
        }
        else
        {
            bVertPending = false;
            bHorzPending |= DecideBar(m_sbVert, m_bVScrollShown, rcView.Height(), m_szZoomed.Height);
        }
    }
    PlaceScrollBars();
}

bool CPixtane::DecideBar(CScrollBar& sb, BOOL& bShown, int iView, float fZoomed)
{
    const BOOL bNeeded = iView < FloorLike(fZoomed);
    if (bNeeded == bShown)
        return false;
    sb.ShowWindow(bNeeded ? SW_SHOW : SW_HIDE);
    bShown = bNeeded;
    return true;
}

void CPixtane::PlaceScrollBars()
{
    CRect rcWindow(0, 0, 0, 0);
    CUXWnd::GetClientRect(&rcWindow);
    const int cxVert = VerticalBarWidth();
    const int cyHorz = HorizontalBarHeight();
    m_sbVert.MoveWindow(rcWindow.right - cxVert, rcWindow.top, cxVert,
                        rcWindow.Height() - (m_bHScrollShown ? cyHorz : 0));
    m_sbHorz.MoveWindow(rcWindow.left, rcWindow.bottom - cyHorz, rcWindow.Width() - (m_bVScrollShown ? cxVert : 0),
                        cyHorz);
}

void CPixtane::ZoomAboutCentre(int cx, int cy)
{
    const float fRatio = static_cast<float>(m_dbZoom / m_dbLastZoom);
    const auto zoomed = [fRatio](int iPos, int iView)
    {
        const float fHalf = static_cast<float>(iView) * 0.5f;
        return Truncate((static_cast<float>(iPos) + fHalf) * fRatio - fHalf);
    };
    m_ptDispPos = Gdiplus::Point(zoomed(m_ptDispPos.X, cx), zoomed(m_ptDispPos.Y, cy));
}

void CPixtane::LimitDispPos(int cx, int cy)
{
    // A position below 0 stands only where the image does not fill the view: UpdateDisplay centres it there.
    const auto limited = [](int iPos, int iView, float fZoomed)
    {
        const long long llZoomed = Truncate(fZoomed);
        const long long llEnd = static_cast<long long>(iPos) + iView;
        if (iPos < 0)
            return llEnd < llZoomed ? 0 : iPos;
        const bool bPastEnd = llZoomed < llEnd && static_cast<float>(iView) < fZoomed;
        return bPastEnd ? static_cast<int>(llZoomed - iView) : iPos;
    };
    m_ptDispPos =
        Gdiplus::Point(limited(m_ptDispPos.X, cx, m_szZoomed.Width), limited(m_ptDispPos.Y, cy, m_szZoomed.Height));
}

void CPixtane::UpdateScrollInfo(CScrollBar& sb, float fZoomed, int iView, int iPos)
{
    SCROLLINFO info = {};
    info.cbSize = sizeof(info);
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    info.nMax = CeilingLike(fZoomed);
    info.nPage = static_cast<UINT>(iView) + 1;
    info.nPos = iPos;
    sb.SendMessage(SBM_SETSCROLLINFO, TRUE, reinterpret_cast<LPARAM>(&info));
}

void CPixtane::OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar)
{
    int iTarget = 0;
    if (ScrollTarget(nSBCode, nPos, pScrollBar, iTarget))
        SetDispPosition(iTarget, m_ptDispPos.Y);
}

void CPixtane::OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar)
{
    int iTarget = 0;
    if (ScrollTarget(nSBCode, nPos, pScrollBar, iTarget))
        SetDispPosition(m_ptDispPos.X, iTarget);
}

bool CPixtane::ScrollTarget(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar, int& iTarget)
{
    constexpr UINT LINE_STEP = 4; // display pixels, whatever the zoom
    if (!pScrollBar)
        return false; // Not sent by a bar: there is nothing to read the range from.
    SCROLLINFO info = {};
    pScrollBar->GetScrollInfo(&info, SIF_ALL);
    const UINT uPos = static_cast<UINT>(info.nPos);
    UINT uTarget = nPos;
    switch (nSBCode)
    {
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
        uTarget = static_cast<UINT>(info.nTrackPos);
        break;
    case SB_LINELEFT:
        uTarget = uPos < LINE_STEP ? 0 : uPos - LINE_STEP;
        break;
    case SB_LINERIGHT:
        uTarget = uPos + LINE_STEP;
        break;
    case SB_PAGELEFT:
        uTarget = uPos < info.nPage ? 0 : uPos - info.nPage;
        break;
    case SB_PAGERIGHT:
        uTarget = uPos + info.nPage;
        break;
    default:
        break;
    }
    uTarget = std::min(uTarget, static_cast<UINT>(info.nMax) - info.nPage + 1);
    uTarget = std::max(uTarget, static_cast<UINT>(info.nMin));
    if (nSBCode == SB_ENDSCROLL)
        return false;
    iTarget = static_cast<int>(uTarget);
    info.fMask = SIF_POS;
    info.nPos = iTarget;
    pScrollBar->SendMessage(SBM_SETSCROLLINFO, TRUE, reinterpret_cast<LPARAM>(&info));
    return true;
}

} // namespace Pixtane
