#include "base/Desktop.h"
#include "base/StateLock.h"
#include "user/InputQueue.h"
#include "user/WindowObject.h"

namespace winlite
{

namespace
{

void SetVisible(WindowObject& window, bool bVisible)
{
    ::SendMessage(window.hWnd, WM_SHOWWINDOW, bVisible, 0);
    StateLock lock;
    const bool bWasShown = window.IsVisible();
    window.dwStyle = bVisible ? window.dwStyle | WS_VISIBLE : window.dwStyle & ~WS_VISIBLE;
    if (!bVisible && window.pParent && bWasShown)
        InvalidateTree(*window.pParent, Region(window.RectInParent()), true, InvalidReason::Uncovered);
    if (bVisible)
        InvalidateTree(window, Region(window.ClientRect()), true, InvalidReason::Uncovered);
}

void TellDesktop(const WindowObject& window)
{
    if (!window.pParent && HasDesktop() && ::IsWindow(window.hWnd))
        TheDesktop().WindowChanged(window.hWnd);
}

void SetMinimised(WindowObject& window, bool bMinimised)
{
    SIZE szClient;
    {
        StateLock lock;
        window.dwStyle = bMinimised ? window.dwStyle | WS_MINIMIZE : window.dwStyle & ~WS_MINIMIZE;
        szClient = bMinimised ? SIZE{} : window.szClient;
        if (!bMinimised)
            InvalidateTree(window, Region(window.ClientRect()), true, InvalidReason::Uncovered);
    }
    ::SendMessage(window.hWnd, WM_SIZE, bMinimised ? SIZE_MINIMIZED : SIZE_RESTORED,
                  MAKELPARAM(szClient.cx, szClient.cy));
}

} // namespace

void ShowInPlace(WindowObject& window, bool bVisible)
{
    if (bVisible == window.HasStyle(WS_VISIBLE))
        return;
    SetVisible(window, bVisible);
    TellDesktop(window);
}

} // namespace winlite

using namespace winlite;

BOOL ShowWindow(HWND hWnd, int iCommand)
{
    const auto pWindow = FindWindowObject(hWnd);
    if (!pWindow)
        return FALSE;
    const bool bWasVisible = pWindow->HasStyle(WS_VISIBLE);
    const bool bWasMinimised = pWindow->HasStyle(WS_MINIMIZE);
    const bool bVisible = iCommand != SW_HIDE;
    const bool bMinimised = iCommand == SW_MINIMIZE || (iCommand != SW_RESTORE && bWasMinimised);
    if (bVisible != bWasVisible)
        SetVisible(*pWindow, bVisible);
    if (!bVisible && bWasVisible && ::GetFocus() == hWnd)
        ::SetFocus(::GetParent(hWnd));
    if (bMinimised != bWasMinimised && ::IsWindow(hWnd))
        SetMinimised(*pWindow, bMinimised);
    if (bMinimised && !bWasMinimised)
        MoveFocusFrom(hWnd, nullptr);
    if (bVisible != bWasVisible || bMinimised != bWasMinimised)
        TellDesktop(*pWindow);
    return bWasVisible;
}

BOOL IsWindowVisible(HWND hWnd)
{
    const auto pWindow = FindWindowObject(hWnd);
    StateLock lock;
    return pWindow && pWindow->IsVisible();
}

BOOL IsIconic(HWND hWnd)
{
    const auto pWindow = FindWindowObject(hWnd);
    StateLock lock;
    return pWindow && pWindow->HasStyle(WS_MINIMIZE);
}
