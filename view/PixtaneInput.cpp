#include "platform/minmax.h"
#include "view/EmbeddedTool.h"
#include "view/MainWindow.h"
#include "view/Notifications.h"
#include "view/Pixtane.h"
#include "view/Rounding.h"

#include <algorithm>

namespace Pixtane
{

namespace
{

// In a key handler's flags: an arrow key scrolls the view instead of being the tool's. In the message's lParam it is
// bit 19.
constexpr UINT SCROLL_FLAG = 0x0008;
constexpr LPARAM SCROLL_FLAG_LPARAM = static_cast<LPARAM>(SCROLL_FLAG) << 16;
static_assert(SCROLL_FLAG == MK_CONTROL, "Ctrl and the wheel set the same bit in a wheel message's flags.");

bool IsArrowKey(WPARAM wKey) { return wKey == VK_LEFT || wKey == VK_RIGHT || wKey == VK_UP || wKey == VK_DOWN; }

/// A tenth of the view, at least one pixel.
int ScrollStep(int iView) { return std::max(iView / 10, 1); }

/// One step towards the beginning or the end of an image of iZoomed pixels; the position itself where there is no room.
int SteppedBack(int iPos, int iView) { return iPos <= 0 ? iPos : std::max(iPos - ScrollStep(iView), 0); }
int SteppedOn(int iPos, int iView, int iZoomed)
{
    const int iEnd = SaturatedSum(iPos, iView);
    return iEnd >= iZoomed ? iPos : std::min(SaturatedSum(iEnd, ScrollStep(iView)), iZoomed) - iView;
}

} // namespace

void CPixtane::OnLButtonDown(UINT nFlags, CPoint point)
{
    SetFocus();
    if (!m_pBmpData)
        return;
    if (!m_pEmbeddedTool || !m_pEmbeddedTool->OnLButtonDown(nFlags, point))
    {
        m_ptMouse = point;
        NotifyParent(PVN_LBUTTONDOWN, FALSE);
    }
    Default();
}

void CPixtane::OnLButtonUp(UINT nFlags, CPoint point)
{
    if (SwallowsButtonUp() || !m_pBmpData)
        return;
    if (!m_pEmbeddedTool || !m_pEmbeddedTool->OnLButtonUp(nFlags, point))
        NotifyParent(PVN_LBUTTONUP, FALSE);
    Default();
}

void CPixtane::OnLButtonDblClk(UINT nFlags, CPoint point)
{
    m_bDblClk = TRUE;
    if (!m_pBmpData)
        return;
    if (m_pEmbeddedTool)
        m_pEmbeddedTool->OnLButtonDblClk(nFlags, point);
    Default();
}

void CPixtane::OnRButtonDown(UINT, CPoint)
{
    SetFocus();
    if (!m_pBmpData)
        return;
    NotifyParent(PVN_RBUTTONDOWN, FALSE);
    Default();
}

void CPixtane::OnRButtonUp(UINT, CPoint)
{
    if (SwallowsButtonUp() || !m_pBmpData)
        return;
    NotifyParent(PVN_RBUTTONUP, FALSE);
    Default();
}

bool CPixtane::SwallowsButtonUp()
{
    // The release that ends a double-click belongs to it.
    const bool bSwallows = m_bDblClk;
    m_bDblClk = FALSE;
    return bSwallows;
}

void CPixtane::OnMouseMove(UINT nFlags, CPoint point)
{
    if (!m_pBmpData)
        return;
    if (!m_pEmbeddedTool || !m_pEmbeddedTool->OnMouseMove(nFlags, point))
    {
        m_ptMouse = point;
        NotifyParent(PVN_MOUSEMOVE, FALSE);
    }
    Default();
}

BOOL CPixtane::OnMouseWheel(UINT nFlags, short zDelta, CPoint pt)
{
    if (!m_pBmpData)
        return FALSE;
    if (!m_pEmbeddedTool || !m_pEmbeddedTool->OnMouseWheel(nFlags, zDelta, pt))
    {
        // One arrow key a step, whatever its size; Ctrl turns it sideways.
        const bool bSideways = nFlags & MK_CONTROL;
        const UINT uKey = bSideways ? (zDelta > 0 ? VK_LEFT : VK_RIGHT) : (zDelta > 0 ? VK_UP : VK_DOWN);
        OnKeyDown(uKey, 1, nFlags | SCROLL_FLAG);
    }
    return static_cast<BOOL>(Default());
}

void CPixtane::OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    if (!m_pBmpData)
        return;
    const bool bConsumed = m_pEmbeddedTool && m_pEmbeddedTool->OnKeyDown(nChar, nRepCnt, nFlags);
    if (!bConsumed && (nFlags & SCROLL_FLAG) && IsArrowKey(nChar))
        ScrollByKey(nChar);
    Default();
}

void CPixtane::ScrollByKey(UINT nChar)
{
    CRect rcView(0, 0, 0, 0);
    GetClientRect(&rcView);
    int x = m_ptDispPos.X;
    int y = m_ptDispPos.Y;
    if (nChar == VK_LEFT)
        x = SteppedBack(x, rcView.Width());
    else if (nChar == VK_UP)
        y = SteppedBack(y, rcView.Height());
    else if (nChar == VK_RIGHT)
        x = SteppedOn(x, rcView.Width(), Truncate(m_szZoomed.Width));
    else
        y = SteppedOn(y, rcView.Height(), Truncate(m_szZoomed.Height));
    if (x != m_ptDispPos.X || y != m_ptDispPos.Y)
        SetDispPosition(x, y);
}

void CPixtane::OnKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    ShowKeyToTool(&IEmbeddedTool::OnKeyUp, nChar, nRepCnt, nFlags);
}

void CPixtane::OnSysKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    ShowKeyToTool(&IEmbeddedTool::OnSysKeyDown, nChar, nRepCnt, nFlags);
}

void CPixtane::OnSysKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    ShowKeyToTool(&IEmbeddedTool::OnSysKeyUp, nChar, nRepCnt, nFlags);
}

void CPixtane::ShowKeyToTool(KeyOperation pOperation, UINT nChar, UINT nRepCnt, UINT nFlags)
{
    if (!m_pBmpData)
        return;
    if (m_pEmbeddedTool)
        (m_pEmbeddedTool->*pOperation)(nChar, nRepCnt, nFlags);
    Default();
}

void CPixtane::OnCaptureChanged(CWnd* pWnd)
{
    if (!m_pBmpData)
        return;
    if (m_pEmbeddedTool)
        m_pEmbeddedTool->OnCaptureChanged(pWnd);
    Default();
}

int CPixtane::PreTranslateMessage(MSG* pMsg)
{
    if (pMsg->message != WM_KEYDOWN || !IsArrowKey(pMsg->wParam))
        return CUXWnd::PreTranslateMessage(pMsg);
    // Also for keys on their way to a scroll bar: the arrows are the view's.
    const bool bCtrl = ::GetKeyState(VK_CONTROL) < 0;
    pMsg->lParam = bCtrl ? pMsg->lParam | SCROLL_FLAG_LPARAM : pMsg->lParam & ~SCROLL_FLAG_LPARAM;
    SendMessage(WM_KEYDOWN, pMsg->wParam, pMsg->lParam);
    return TRUE;
}

BOOL CPixtane::OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message)
{
    CRect rcView(0, 0, 0, 0);
    GetClientRect(&rcView);
    CPoint ptCursor(0, 0);
    ::GetCursorPos(&ptCursor);
    ScreenToClient(&ptCursor);
    if (!rcView.PtInRect(ptCursor))
        ::SetCursor(::LoadCursor(nullptr, IDC_ARROW));
    else if (!m_pEmbeddedTool || !m_pEmbeddedTool->OnSetCursor(pWnd, nHitTest, message))
        ::SetCursor(m_hDefCursor);
    return TRUE;
}

LRESULT CPixtane::NotifyParent(UINT code, int bPost)
{
    const HWND hParent = ::GetParent(m_hWnd);
    NMHDR record = {m_hWnd, static_cast<UINT_PTR>(GetDlgCtrlID()), code};
    const WPARAM wParam = reinterpret_cast<WPARAM>(m_hWnd);
    if (!bPost)
        return ::SendMessage(hParent, WM_NOTIFY, wParam, reinterpret_cast<LPARAM>(&record));
    // The receiver owns the record; one that cannot be posted has no receiver.
    auto* pRecord = new NMHDR(record);
    if (!::PostMessage(hParent, WM_NOTIFY, wParam, reinterpret_cast<LPARAM>(pRecord)))
        delete pRecord;
    return 0;
}

void CPixtane::DropPostedNotifications()
{
    std::vector<MSG> vOthers;
    MSG msg;
    while (::PeekMessage(&msg, ::GetParent(m_hWnd), WM_NOTIFY, WM_NOTIFY, PM_REMOVE))
    {
        const auto* pRecord = reinterpret_cast<const NMHDR*>(msg.lParam);
        if (pRecord && pRecord->hwndFrom == m_hWnd)
            delete pRecord;
        else
            vOthers.push_back(msg);
    }
    for (const MSG& other : vOthers)
        ::PostMessage(other.hwnd, other.message, other.wParam, other.lParam);
}

} // namespace Pixtane
