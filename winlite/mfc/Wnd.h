#pragma once

#include "mfc/DC.h"
#include "mfc/MessageMap.h"
#include "mfc/Object.h"
#include "mfc/String.h"

/// A window as an object: it receives the window's messages through its message map. Destroying the object destroys the
/// window. FromHandle gives the object of a window, or a temporary one that lives until the message loop is idle.
/// User-interface thread only.
class CWnd : public CObject
{
    DECLARE_DYNAMIC(CWnd)

public:
    CWnd() = default;
    ~CWnd() override;

    /// Creates the window and attaches this object to it before its first message. FALSE when it cannot be created. The
    /// object must not have a window yet.
    virtual BOOL Create(LPCWSTR pszClass, LPCWSTR pszName, DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID,
                        void* pContext = nullptr);
    BOOL CreateEx(DWORD dwExStyle, LPCWSTR pszClass, LPCWSTR pszName, DWORD dwStyle, const RECT& rect, CWnd* pParent,
                  UINT nID, LPVOID pParam = nullptr);
    virtual BOOL DestroyWindow();

    static CWnd* FromHandle(HWND hWnd);
    static CWnd* FromHandlePermanent(HWND hWnd);
    HWND GetSafeHwnd() const { return m_hWnd; }
    CWnd* GetParent() const { return FromHandle(::GetParent(m_hWnd)); }
    int GetDlgCtrlID() const { return ::GetDlgCtrlID(m_hWnd); }
    DWORD GetStyle() const { return static_cast<DWORD>(::GetWindowLongPtr(m_hWnd, GWL_STYLE)); }
    void SetWindowText(LPCWSTR pszText) { ::SetWindowText(m_hWnd, pszText); }

    BOOL ShowWindow(int iCommand) { return ::ShowWindow(m_hWnd, iCommand); }
    BOOL IsWindowVisible() const { return ::IsWindowVisible(m_hWnd); }
    BOOL IsIconic() const { return ::IsIconic(m_hWnd); }
    void MoveWindow(int x, int y, int cx, int cy, BOOL bRepaint = TRUE)
    {
        ::MoveWindow(m_hWnd, x, y, cx, cy, bRepaint);
    }
    void MoveWindow(LPCRECT prc, BOOL bRepaint = TRUE);
    void GetClientRect(LPRECT prc) const { ::GetClientRect(m_hWnd, prc); }
    void GetWindowRect(LPRECT prc) const { ::GetWindowRect(m_hWnd, prc); }
    void ScreenToClient(LPPOINT ppt) const { ::ScreenToClient(m_hWnd, ppt); }
    void ClientToScreen(LPPOINT ppt) const { ::ClientToScreen(m_hWnd, ppt); }

    void Invalidate(BOOL bErase = TRUE) { ::InvalidateRect(m_hWnd, nullptr, bErase); }
    void InvalidateRect(LPCRECT prc, BOOL bErase = TRUE) { ::InvalidateRect(m_hWnd, prc, bErase); }
    void ValidateRect(LPCRECT prc) { ::ValidateRect(m_hWnd, prc); }
    void UpdateWindow() { ::UpdateWindow(m_hWnd); }
    /// Each returns the window that had it before.
    CWnd* SetFocus() { return FromHandle(::SetFocus(m_hWnd)); }
    CWnd* SetCapture() { return FromHandle(::SetCapture(m_hWnd)); }
    static CWnd* GetFocus() { return FromHandle(::GetFocus()); }
    static CWnd* GetCapture() { return FromHandle(::GetCapture()); }
    BOOL EnableWindow(BOOL bEnable = TRUE) { return ::EnableWindow(m_hWnd, bEnable); }
    BOOL IsWindowEnabled() const { return ::IsWindowEnabled(m_hWnd); }

    UINT_PTR SetTimer(UINT_PTR uId, UINT uMs, void* pCallback) { return ::SetTimer(m_hWnd, uId, uMs, pCallback); }
    BOOL KillTimer(UINT_PTR uId) { return ::KillTimer(m_hWnd, uId); }

    LRESULT SendMessage(UINT uMessage, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        return ::SendMessage(m_hWnd, uMessage, wParam, lParam);
    }
    BOOL PostMessage(UINT uMessage, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        return ::PostMessage(m_hWnd, uMessage, wParam, lParam);
    }

    /// Asked for every message taken from the queue for this window or a window in it, before it is dispatched; TRUE
    /// ends it.
    virtual BOOL PreTranslateMessage(MSG* pMsg);

    HWND m_hWnd = nullptr;

protected:
    friend LRESULT AfxCallWndProc(CWnd* pWnd, HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam);

    virtual const AFX_MSGMAP* GetMessageMap() const;
    static const AFX_MSGMAP* GetThisMessageMap();

    /// Offers a message, WM_NCDESTROY last of all, to the message map, then to the default procedure.
    virtual LRESULT WindowProc(UINT uMessage, WPARAM wParam, LPARAM lParam);

    /// Looks the message up in the maps of the class and its bases; TRUE when a handler took it.
    virtual BOOL OnWndMsg(UINT uMessage, WPARAM wParam, LPARAM lParam, LRESULT* plResult);

    /// A control's notification, looked up by its id and code; the id is the control's own, whatever wParam says.
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* plResult);

    /// The procedure of the class that this window's one stands before.
    virtual LRESULT DefWindowProc(UINT uMessage, WPARAM wParam, LPARAM lParam);

    /// The window is gone; the last call the object gets for it.
    virtual void PostNcDestroy() {}

    /// Default processing of the message now being handled, with the parameters it came with.
    LRESULT Default();

    void OnPaint() { Default(); }
    BOOL OnEraseBkgnd(CDC*) { return static_cast<BOOL>(Default()); }
    void OnSize(UINT, int, int) { Default(); }
    void OnHScroll(UINT, UINT, CScrollBar*) { Default(); }
    void OnVScroll(UINT, UINT, CScrollBar*) { Default(); }
    void OnTimer(UINT_PTR) { Default(); }
    void OnDestroy() { Default(); }
    void OnLButtonDown(UINT, CPoint) { Default(); }
    void OnLButtonUp(UINT, CPoint) { Default(); }
    void OnLButtonDblClk(UINT, CPoint) { Default(); }
    void OnRButtonDown(UINT, CPoint) { Default(); }
    void OnRButtonUp(UINT, CPoint) { Default(); }
    void OnMouseMove(UINT, CPoint) { Default(); }
    BOOL OnMouseWheel(UINT, short, CPoint) { return static_cast<BOOL>(Default()); }
    void OnKeyDown(UINT, UINT, UINT) { Default(); }
    void OnKeyUp(UINT, UINT, UINT) { Default(); }
    void OnSysKeyDown(UINT, UINT, UINT) { Default(); }
    void OnSysKeyUp(UINT, UINT, UINT) { Default(); }
    BOOL OnSetCursor(CWnd*, UINT, UINT) { return static_cast<BOOL>(Default()); }
    void OnCaptureChanged(CWnd*) { Default(); }
    void OnSetFocus(CWnd*) { Default(); }
    void OnKillFocus(CWnd*) { Default(); }

    /// Takes the object off its window and calls PostNcDestroy, where the object may delete itself: nothing follows.
    void OnNcDestroy();

private:
    void AttachBeforeFirstMessage(HWND hWnd);

    WNDPROC m_pSuperProc = nullptr;
};

/// The window procedure of every class that AfxRegisterWndClass registers: hands a message to the window's object.
LRESULT AfxWndProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam);

/// Registers a window class once for each distinct set of arguments and returns its name, in a buffer that the next
/// call overwrites. Throws CResourceException on failure.
LPCWSTR AfxRegisterWndClass(UINT uClassStyle, HCURSOR hCursor = nullptr, HBRUSH hbrBackground = nullptr,
                            HICON hIcon = nullptr);

namespace winlite
{
/// Ends the temporary window objects of this thread; the message loop calls it when it is idle.
void DeleteTemporaryWindows();
} // namespace winlite
