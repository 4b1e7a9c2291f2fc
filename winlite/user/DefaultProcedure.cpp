#include "user/User.h"
#include "user/WindowObject.h"

#include <algorithm>

using namespace winlite;

namespace
{

LRESULT OnNcCreate(HWND, WPARAM, LPARAM) { return TRUE; }

LRESULT OnPaint(HWND hWnd, WPARAM, LPARAM)
{
    PAINTSTRUCT paint;
    if (::BeginPaint(hWnd, &paint))
        ::EndPaint(hWnd, &paint);
    return 0;
}

LRESULT OnEraseBackground(HWND hWnd, WPARAM wParam, LPARAM)
{
    const auto pWindow = FindWindowObject(hWnd);
    const HBRUSH hBrush = pWindow ? pWindow->pClass->wndClass.hbrBackground : nullptr;
    if (!hBrush)
        return 0;
    RECT rcClient;
    ::GetClientRect(hWnd, &rcClient);
    ::FillRect(reinterpret_cast<HDC>(wParam), &rcClient, hBrush);
    return 1;
}

LRESULT OnWindowPosChanged(HWND hWnd, WPARAM, LPARAM lParam)
{
    const UINT uFlags = reinterpret_cast<const WINDOWPOS*>(lParam)->flags;
    const auto pWindow = FindWindowObject(hWnd);
    if (!pWindow)
        return 0;
    if (!(uFlags & SWP_NOMOVE))
        ::SendMessage(hWnd, WM_MOVE, 0, MAKELPARAM(pWindow->ptPosition.x, pWindow->ptPosition.y));
    if (!(uFlags & SWP_NOSIZE))
        ::SendMessage(hWnd, WM_SIZE, SIZE_RESTORED, MAKELPARAM(pWindow->szClient.cx, pWindow->szClient.cy));
    return 0;
}

LRESULT OnHitTest(HWND, WPARAM, LPARAM) { return HTCLIENT; }

/// A child asks its parent first; then the class's cursor shows over the client area.
LRESULT OnSetCursor(HWND hWnd, WPARAM wParam, LPARAM lParam)
{
    const HWND hParent = ::GetParent(hWnd);
    if (hParent && ::SendMessage(hParent, WM_SETCURSOR, wParam, lParam))
        return TRUE;
    const auto pWindow = FindWindowObject(hWnd);
    const HCURSOR hCursor = pWindow ? pWindow->pClass->wndClass.hCursor : nullptr;
    if (static_cast<SHORT>(LOWORD(static_cast<DWORD_PTR>(lParam))) != HTCLIENT || !hCursor)
        return FALSE;
    ::SetCursor(hCursor);
    return TRUE;
}

LRESULT OnMouseWheel(HWND hWnd, WPARAM wParam, LPARAM lParam)
{
    const HWND hParent = ::GetParent(hWnd);
    return hParent ? ::SendMessage(hParent, WM_MOUSEWHEEL, wParam, lParam) : 0;
}

/// Whatever held the mouse gives it up.
LRESULT OnCancelMode(HWND hWnd, WPARAM, LPARAM)
{
    if (::GetCapture() == hWnd)
        ::ReleaseCapture();
    return 0;
}

LRESULT OnClose(HWND hWnd, WPARAM, LPARAM)
{
    ::DestroyWindow(hWnd);
    return 0;
}

const struct
{
    UINT uMessage;
    LRESULT (*pHandler)(HWND, WPARAM, LPARAM);
} s_vHandlers[] = {
    {WM_NCCREATE, &OnNcCreate},
    {WM_PAINT, &OnPaint},
    {WM_ERASEBKGND, &OnEraseBackground},
    {WM_WINDOWPOSCHANGED, &OnWindowPosChanged},
    {WM_CLOSE, &OnClose},
    {WM_NCHITTEST, &OnHitTest},
    {WM_SETCURSOR, &OnSetCursor},
    {WM_MOUSEWHEEL, &OnMouseWheel},
    {WM_CANCELMODE, &OnCancelMode},
};

} // namespace

LRESULT DefWindowProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    const auto it = std::ranges::find_if(s_vHandlers, [&](const auto& entry) { return entry.uMessage == uMessage; });
    return it == std::end(s_vHandlers) ? 0 : it->pHandler(hWnd, wParam, lParam);
}
