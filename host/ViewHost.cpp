#include "host/ViewHost.h"

#include "user/Journal.h"
#include "view/Notifications.h"

#include <limits>
#include <memory>
#include <sstream>
#include <stdexcept>

namespace
{

constexpr const char* POINTER_LEFT_COMMAND = "pointer-left";
constexpr const char* SCROLL_COMMAND = "view-scroll";
constexpr const char* ZOOM_COMMAND = "view-zoom";

} // namespace

BEGIN_MESSAGE_MAP(CViewHost, CWnd)
ON_WM_SIZE()
ON_WM_SETFOCUS()
END_MESSAGE_MAP()

CViewHost::CViewHost()
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

CViewHost::Subscription CViewHost::Listen(Listener listener)
{
    auto pListener = std::make_shared<const Listener>(std::move(listener));
    m_vListeners.push_back(pListener);
    return pListener;
}

CViewHost::Subscription CViewHost::ListenToKeys(KeyListener listener)
{
    auto pListener = std::make_shared<const KeyListener>(std::move(listener));
    m_vKeyListeners.push_back(pListener);
    return pListener;
}

void CViewHost::TellKey(const MSG& msg)
{
    for (const auto& pListener : m_vKeyListeners)
    {
        if (const auto pThere = pListener.lock())
            (*pThere)(static_cast<UINT>(msg.wParam), msg.message == WM_KEYDOWN);
    }
}

BOOL CViewHost::PreTranslateMessage(MSG* pMsg)
{
    if ((pMsg->message == WM_KEYDOWN || pMsg->message == WM_KEYUP) && Holds(pMsg->hwnd))
        TellKey(*pMsg);
    if (pMsg->message == WM_LBUTTONDBLCLK && Holds(pMsg->hwnd) && m_IsPressesOnly && m_IsPressesOnly())
        pMsg->message = WM_LBUTTONDOWN;
    // As the main window it is asked about the messages of others, too.
    const bool bZooms = pMsg->message == WM_MOUSEWHEEL && (pMsg->wParam & MK_CONTROL) && Holds(pMsg->hwnd);
    if (!bZooms)
        return CWnd::PreTranslateMessage(pMsg);
    CPoint ptWindow(pMsg->pt);
    m_view.ScreenToClient(&ptWindow);
    m_Zoom.StepZoom(static_cast<SHORT>(HIWORD(pMsg->wParam)) / WHEEL_DELTA,
                    ExactPoint::MiddleOf(ptWindow.x, ptWindow.y));
    return TRUE;
}

void CViewHost::WriteDown(const std::string& strCommand) const
{
    winlite::TheJournal().OnCommand(m_strPrefix + strCommand);
}

void CViewHost::ScrollByGesture(int dx, int dy)
{
    std::ostringstream command;
    command << SCROLL_COMMAND << " " << dx << " " << dy;
    WriteDown(command.str());
    m_view.MoveImage(dx, dy);
}

void CViewHost::ZoomByGesture(double dbZoom, ExactPoint ptWindow)
{
    std::ostringstream command;
    command.precision(std::numeric_limits<double>::max_digits10);
    command << ZOOM_COMMAND << " " << dbZoom << " " << ptWindow.x << " " << ptWindow.y;
    WriteDown(command.str());
    m_Zoom.ZoomAbout(dbZoom, ptWindow);
}

void CViewHost::ShowCursor()
{
    m_view.SendMessage(WM_SETCURSOR, reinterpret_cast<WPARAM>(m_view.m_hWnd), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
}

void CViewHost::PointerLeft()
{
    WriteDown(POINTER_LEFT_COMMAND);
    m_view.Invalidate(FALSE);
}

bool CViewHost::Execute(const std::string& strCommand)
{
    if (!strCommand.starts_with(m_strPrefix))
        return false;
    std::istringstream command(strCommand.substr(m_strPrefix.size()));
    std::string strName;
    command >> strName;
    if (strName == POINTER_LEFT_COMMAND)
    {
        PointerLeft();
        return true;
    }
    if (strName == SCROLL_COMMAND)
    {
        int dx = 0;
        int dy = 0;
        if (command >> dx >> dy)
            ScrollByGesture(dx, dy);
        return !command.fail();
    }
    double dbZoom = 0;
    ExactPoint pt;
    if (strName != ZOOM_COMMAND || !(command >> dbZoom >> pt.x >> pt.y))
        return false;
    ZoomByGesture(dbZoom, pt);
    return true;
}

BOOL CViewHost::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* plResult)
{
    auto* const pNotify = reinterpret_cast<NMHDR*>(lParam);
    if (pNotify->hwndFrom != m_view.m_hWnd)
        return CWnd::OnNotify(wParam, lParam, plResult);
    // This one was posted, and its record is the receiver's.
    const std::unique_ptr<NMHDR> pOwned(pNotify->code == Pixtane::PVN_CLONESTAMP_NOSOURCE ? pNotify : nullptr);
    const CPoint ptWindow = m_view.GetCursorPos(FALSE);
    for (const auto& pListener : m_vListeners)
    {
        const auto pThere = pListener.lock();
        if (const LRESULT lReply = pThere ? (*pThere)(pNotify->code, ptWindow) : 0)
            *plResult = lReply;
    }
    return TRUE;
}

void CViewHost::OnSize(UINT uType, int cx, int cy)
{
    CWnd::OnSize(uType, cx, cy);
    if (uType == SIZE_MINIMIZED)
        return;
    const bool bFitted = m_Zoom.IsFitted();
    m_view.MoveWindow(0, 0, cx, cy);
    if (bFitted)
        m_Zoom.ZoomToFit();
}

void CViewHost::OnSetFocus(CWnd*)
{
    AfxGetThread()->m_pMainWnd = this;
    m_view.SetFocus();
}
