#include "qt/ViewHost.h"

#include "view/Notifications.h"

#include <memory>
#include <stdexcept>

BEGIN_MESSAGE_MAP(CViewHost, CWnd)
ON_WM_SIZE()
ON_WM_SETFOCUS()
END_MESSAGE_MAP()

CViewHost::CViewHost(Reports reports) : m_Reports(std::move(reports))
{
    constexpr UINT VIEW_ID = 1;
    constexpr DWORD BACKGROUND = RGB(58, 60, 64);
    const CRect rcEmpty;
    if (!CreateEx(0, AfxRegisterWndClass(0), L"Pixtane", WS_CLIPCHILDREN, rcEmpty, nullptr, 0) ||
        !m_view.Create(rcEmpty, this, VIEW_ID, BACKGROUND))
        throw std::runtime_error("the view's windows could not be made");
    m_view.ShowWindow(SW_SHOW);
    AfxGetThread()->m_pMainWnd = this;
}

CViewHost::~CViewHost()
{
    m_view.DestroyWindow();
    DestroyWindow();
    if (AfxGetThread()->m_pMainWnd == this)
        AfxGetThread()->m_pMainWnd = nullptr;
}

bool CViewHost::Holds(HWND hWnd) const
{
    while (hWnd && hWnd != m_hWnd)
        hWnd = ::GetParent(hWnd);
    return hWnd != nullptr;
}

BOOL CViewHost::PreTranslateMessage(MSG* pMsg)
{
    // As the main window it is asked about the messages of others, too.
    const bool bZooms = pMsg->message == WM_MOUSEWHEEL && (pMsg->wParam & MK_CONTROL) && Holds(pMsg->hwnd);
    if (!bZooms)
        return CWnd::PreTranslateMessage(pMsg);
    CPoint ptWindow(pMsg->pt);
    m_view.ScreenToClient(&ptWindow);
    m_Reports.zoomWheel(static_cast<SHORT>(HIWORD(pMsg->wParam)) / WHEEL_DELTA, ptWindow);
    return TRUE;
}

BOOL CViewHost::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* plResult)
{
    auto* const pNotify = reinterpret_cast<NMHDR*>(lParam);
    if (pNotify->hwndFrom != m_view.m_hWnd)
        return CWnd::OnNotify(wParam, lParam, plResult);
    // This one was posted, and its record is the receiver's.
    const std::unique_ptr<NMHDR> pOwned(pNotify->code == Pixtane::PVN_CLONESTAMP_NOSOURCE ? pNotify : nullptr);
    *plResult = m_Reports.notified(pNotify->code);
    return TRUE;
}

void CViewHost::OnSize(UINT uType, int cx, int cy)
{
    CWnd::OnSize(uType, cx, cy);
    if (uType != SIZE_MINIMIZED)
        m_view.MoveWindow(0, 0, cx, cy);
}

void CViewHost::OnSetFocus(CWnd*)
{
    AfxGetThread()->m_pMainWnd = this;
    m_view.SetFocus();
}
