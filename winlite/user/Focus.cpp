#include "base/StateLock.h"
#include "base/Thread.h"
#include "user/InputQueue.h"
#include "user/Queue.h"
#include "user/Window.h"
#include "user/WindowObject.h"

#include <utility>

namespace winlite
{

namespace
{

// Guarded by StateLock.
HWND s_hFocus = nullptr;
HWND s_hActive = nullptr;
HWND s_hCapture = nullptr;

void SetCaptureTo(HWND hNew)
{
    AssertUserInterfaceThread();
    HWND hOld;
    {
        StateLock lock;
        hOld = std::exchange(s_hCapture, hNew);
    }
    if (hOld)
        ::SendMessage(hOld, WM_CAPTURECHANGED, 0, reinterpret_cast<LPARAM>(hNew));
}

void SetActive(HWND hTopLevel)
{
    StateLock lock;
    s_hActive = hTopLevel;
}

void RememberFocus(HWND hWnd)
{
    if (const auto pWindow = FindWindowObject(hWnd))
        pWindow->TopLevel().hLastFocus = hWnd;
}

} // namespace

std::optional<MSG> MessageFor(const ActivationEvent& event, DWORD)
{
    const auto pTopLevel = FindWindowObject(event.hTopLevel);
    if (event.bActive && pTopLevel)
    {
        SetActive(event.hTopLevel);
        if (!pTopLevel->HasStyle(WS_MINIMIZE))
            ::SetFocus(::IsWindow(pTopLevel->hLastFocus) ? pTopLevel->hLastFocus : event.hTopLevel);
    }
    else if (!event.bActive && ::GetActiveWindow() == event.hTopLevel)
    {
        const HWND hFocus = ::GetFocus();
        SetActive(nullptr);
        ::SetFocus(nullptr);
        if (pTopLevel && hFocus)
            pTopLevel->hLastFocus = hFocus;
    }
    return std::nullopt;
}

std::optional<MSG> MessageFor(const CaptureLostEvent&, DWORD)
{
    SetCaptureTo(nullptr);
    return std::nullopt;
}

void ForgetInputOf(HWND hWnd)
{
    StateLock lock;
    if (s_hCapture == hWnd)
        s_hCapture = nullptr;
    if (s_hFocus == hWnd)
        s_hFocus = nullptr;
    if (s_hActive == hWnd)
        s_hActive = nullptr;
}

void MoveFocusFrom(HWND hWnd, HWND hTo)
{
    if (PassesFilter(::GetFocus(), hWnd))
        ::SetFocus(hTo);
}

} // namespace winlite

using namespace winlite;

HWND SetFocus(HWND hWnd)
{
    AssertUserInterfaceThread();
    if (hWnd && (!::IsWindow(hWnd) || !::IsWindowEnabled(hWnd)))
        return nullptr;
    HWND hOld;
    {
        StateLock lock;
        hOld = std::exchange(s_hFocus, hWnd);
    }
    if (hOld == hWnd)
        return hOld;
    if (hOld)
        ::SendMessage(hOld, WM_KILLFOCUS, reinterpret_cast<WPARAM>(hWnd), 0);
    if (hWnd && ::GetFocus() == hWnd)
    {
        RememberFocus(hWnd);
        ::SendMessage(hWnd, WM_SETFOCUS, reinterpret_cast<WPARAM>(hOld), 0);
    }
    return hOld;
}

HWND GetFocus()
{
    StateLock lock;
    return s_hFocus;
}

HWND GetActiveWindow()
{
    StateLock lock;
    return s_hActive;
}

HWND SetCapture(HWND hWnd)
{
    if (!::IsWindow(hWnd))
        return nullptr;
    const HWND hOld = ::GetCapture();
    SetCaptureTo(hWnd);
    return hOld;
}

BOOL ReleaseCapture()
{
    SetCaptureTo(nullptr);
    return TRUE;
}

HWND GetCapture()
{
    StateLock lock;
    const auto pWindow = FindWindowObject(s_hCapture);
    return pWindow && pWindow->thread == std::this_thread::get_id() ? s_hCapture : nullptr;
}

BOOL EnableWindow(HWND hWnd, BOOL bEnable)
{
    AssertUserInterfaceThread();
    const auto pWindow = FindWindowObject(hWnd);
    if (!pWindow)
        return FALSE;
    const bool bWasDisabled = pWindow->HasStyle(WS_DISABLED);
    if (bWasDisabled == !bEnable)
        return bWasDisabled;
    if (!bEnable)
        ::SendMessage(hWnd, WM_CANCELMODE, 0, 0);
    {
        StateLock lock;
        pWindow->dwStyle = bEnable ? pWindow->dwStyle & ~WS_DISABLED : pWindow->dwStyle | WS_DISABLED;
    }
    if (!bEnable && ::GetFocus() == hWnd)
        ::SetFocus(nullptr);
    ::SendMessage(hWnd, WM_ENABLE, static_cast<WPARAM>(bEnable), 0);
    return bWasDisabled;
}

BOOL IsWindowEnabled(HWND hWnd)
{
    const auto pWindow = FindWindowObject(hWnd);
    StateLock lock;
    // A window in a disabled one is as good as disabled.
    for (const WindowObject* p = pWindow.get(); p; p = p->pParent)
    {
        if (p->HasStyle(WS_DISABLED))
            return FALSE;
    }
    return pWindow != nullptr;
}
