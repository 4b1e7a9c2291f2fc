#include "user/ScrollBar.h"

#include "user/ScrollBarState.h"
#include "user/WindowObject.h"

#include <algorithm>
#include <map>

namespace winlite
{

namespace
{

std::map<HWND, ScrollBarState>& States()
{
    static auto* pStates = new std::map<HWND, ScrollBarState>;
    return *pStates;
}

/// A bar with an align style takes the standard thickness along that edge of the rectangle it was given.
LRESULT OnCreate(HWND hWnd, ScrollBarState&, WPARAM, LPARAM)
{
    const auto pWindow = FindWindowObject(hWnd);
    if (!pWindow || !pWindow->HasStyle(SBS_RIGHTALIGN))
        return 0;
    RECT rc = pWindow->RectInParent();
    if (pWindow->HasStyle(SBS_VERT))
        rc.left = rc.right - ::GetSystemMetrics(SM_CXVSCROLL);
    else
        rc.top = rc.bottom - ::GetSystemMetrics(SM_CYHSCROLL);
    ::MoveWindow(hWnd, rc.left, rc.top, rc.right - rc.left, rc.bottom - rc.top, FALSE);
    return 0;
}

LRESULT OnSetInfo(HWND hWnd, ScrollBarState& state, WPARAM wParam, LPARAM lParam)
{
    const auto pInfo = reinterpret_cast<const SCROLLINFO*>(lParam);
    if (!pInfo)
        return 0;
    const ScrollInfo infoOld = state.info;
    const int iPosition = state.info.Set(*pInfo);
    const bool bSameThumb = LayoutOfBar(hWnd, state.info).HasSameThumb(LayoutOfBar(hWnd, infoOld));
    state.bPictureOld |= !bSameThumb || state.info.IsDisabled() != infoOld.IsDisabled();
    if (state.bPictureOld && wParam)
    {
        state.bPictureOld = false;
        ::InvalidateRect(hWnd, nullptr, FALSE);
    }
    return iPosition;
}

LRESULT OnGetInfo(HWND, ScrollBarState& state, WPARAM, LPARAM lParam)
{
    const auto pInfo = reinterpret_cast<SCROLLINFO*>(lParam);
    if (!pInfo)
        return FALSE;
    state.info.Get(*pInfo);
    return TRUE;
}

LRESULT OnPaint(HWND hWnd, ScrollBarState& state, WPARAM, LPARAM)
{
    PAINTSTRUCT paint;
    if (const HDC hDC = ::BeginPaint(hWnd, &paint))
        DrawScrollBar(hDC, hWnd, state);
    ::EndPaint(hWnd, &paint);
    return 0;
}

/// Every pixel is painted, so nothing needs erasing first.
LRESULT OnEraseBackground(HWND, ScrollBarState&, WPARAM, LPARAM) { return 1; }

LRESULT OnNcDestroy(HWND hWnd, ScrollBarState&, WPARAM, LPARAM)
{
    States().erase(hWnd);
    return 0;
}

constexpr struct
{
    UINT uMessage;
    LRESULT (*pHandler)(HWND, ScrollBarState&, WPARAM, LPARAM);
} HANDLERS[] = {
    {WM_CREATE, &OnCreate},
    {WM_PAINT, &OnPaint},
    {WM_ERASEBKGND, &OnEraseBackground},
    {WM_NCDESTROY, &OnNcDestroy},
    {SBM_SETSCROLLINFO, &OnSetInfo},
    {SBM_GETSCROLLINFO, &OnGetInfo},
    {WM_LBUTTONDOWN, &OnScrollBarPress},
    {WM_LBUTTONDBLCLK, &OnScrollBarPress},
    {WM_LBUTTONUP, &OnScrollBarRelease},
    {WM_MOUSEMOVE, &OnScrollBarMove},
    {WM_TIMER, &OnScrollBarRepeat},
    {WM_CAPTURECHANGED, &OnScrollBarCaptureLost},
    {WM_KEYDOWN, &OnScrollBarKeyDown},
    {WM_KEYUP, &OnScrollBarKeyUp},
};

} // namespace

ScrollBarState* FindScrollBarState(HWND hWnd)
{
    const auto it = States().find(hWnd);
    return it == States().end() ? nullptr : &it->second;
}

bool IsVerticalBar(HWND hWnd) { return (::GetWindowLongPtr(hWnd, GWL_STYLE) & SBS_VERT) != 0; }

ScrollBarLayout LayoutOfBar(HWND hWnd, const ScrollInfo& info)
{
    RECT rcClient = {};
    ::GetClientRect(hWnd, &rcClient);
    return {{rcClient.right, rcClient.bottom}, IsVerticalBar(hWnd), info};
}

LRESULT ScrollBarProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    if (uMessage == WM_NCCREATE)
        States()[hWnd] = {};
    ScrollBarState* pState = FindScrollBarState(hWnd);
    const auto itHandler =
        std::ranges::find_if(HANDLERS, [&](const auto& entry) { return entry.uMessage == uMessage; });
    if (!pState || itHandler == std::end(HANDLERS))
        return ::DefWindowProc(hWnd, uMessage, wParam, lParam);
    return itHandler->pHandler(hWnd, *pState, wParam, lParam);
}

void RegisterScrollBarClass()
{
    WNDCLASS wndClass = {};
    wndClass.style = CS_HREDRAW | CS_VREDRAW | CS_DBLCLKS;
    wndClass.lpfnWndProc = &ScrollBarProc;
    wndClass.hCursor = ::LoadCursor(nullptr, IDC_ARROW);
    wndClass.lpszClassName = L"SCROLLBAR";
    ::RegisterClass(&wndClass);
}

} // namespace winlite

int SetScrollInfo(HWND hWnd, int iBar, LPCSCROLLINFO pInfo, BOOL bRedraw)
{
    if (iBar != SB_CTL)
        return 0;
    return static_cast<int>(
        ::SendMessage(hWnd, SBM_SETSCROLLINFO, static_cast<WPARAM>(bRedraw), reinterpret_cast<LPARAM>(pInfo)));
}

BOOL GetScrollInfo(HWND hWnd, int iBar, LPSCROLLINFO pInfo)
{
    if (iBar != SB_CTL)
        return FALSE;
    return ::SendMessage(hWnd, SBM_GETSCROLLINFO, 0, reinterpret_cast<LPARAM>(pInfo)) != 0;
}
