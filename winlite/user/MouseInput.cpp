#include "base/Desktop.h"
#include "base/StateLock.h"
#include "user/InputQueue.h"
#include "user/Journal.h"
#include "user/KeyState.h"
#include "user/Window.h"
#include "user/WindowObject.h"
#include "user/Workers.h"

#include <algorithm>
#include <cstdlib>

namespace winlite
{

namespace
{

POINT PointerNow()
{
    if (const std::optional<POINT> ptNow = HasDesktop() ? TheDesktop().PointerPosition() : std::nullopt)
        return *ptNow;
    StateLock lock;
    return LastPointerPosition();
}

/// What makes a second press a double click: the first one's button, window, time and place.
struct LastPress
{
    HWND hWnd = {};
    MouseButton button = MouseButton::Left;
    DWORD uTime = 0;
    POINT ptScreen = {};
};
LastPress s_LastPress;

bool Holds(const WindowObject& window, POINT ptScreen)
{
    const POINT ptOrigin = window.ScreenOrigin();
    return ptScreen.x >= ptOrigin.x && ptScreen.x - ptOrigin.x < window.szClient.cx && ptScreen.y >= ptOrigin.y &&
           ptScreen.y - ptOrigin.y < window.szClient.cy;
}

/// The deepest visible, enabled window under the point; the topmost of siblings. A disabled child leaves the point to
/// its parent, a disabled top-level window to nobody.
HWND DeepestAt(const WindowObject& window, POINT ptScreen)
{
    if (!window.HasStyle(WS_VISIBLE) || window.HasStyle(WS_DISABLED) || !Holds(window, ptScreen))
        return nullptr;
    for (const auto& pChild : window.vChildren)
    {
        if (const HWND hChild = DeepestAt(*pChild, ptScreen))
            return hChild;
    }
    return window.hWnd;
}

HWND TargetAt(HWND hTopLevel, POINT ptScreen)
{
    const auto pTopLevel = FindWindowObject(hTopLevel);
    StateLock lock;
    return pTopLevel && !pTopLevel->HasStyle(WS_MINIMIZE) ? DeepestAt(*pTopLevel, ptScreen) : nullptr;
}

LPARAM PointParam(POINT pt) { return MAKELPARAM(pt.x, pt.y); }

/// Where a mouse message goes: the capturing window, otherwise the one that says the point is in its client area.
HWND MouseTarget(HWND hTopLevel, POINT ptScreen, UINT uMessage)
{
    if (const HWND hCapture = ::GetCapture())
        return hCapture;
    HWND hTarget = TargetAt(hTopLevel, ptScreen);
    while (hTarget)
    {
        const auto iHit = static_cast<SHORT>(::SendMessage(hTarget, WM_NCHITTEST, 0, PointParam(ptScreen)));
        if (iHit != HTTRANSPARENT)
        {
            ::SendMessage(hTarget, WM_SETCURSOR, reinterpret_cast<WPARAM>(hTarget),
                          MAKELPARAM(iHit, static_cast<int>(uMessage)));
            return iHit == HTCLIENT && ::IsWindow(hTarget) ? hTarget : nullptr;
        }
        hTarget = ::GetParent(hTarget);
    }
    return nullptr;
}

std::optional<MSG> MouseMessage(HWND hWnd, UINT uMessage, POINT ptScreen, DWORD uTime)
{
    if (!hWnd)
        return std::nullopt;
    POINT ptClient = ptScreen;
    ::ScreenToClient(hWnd, &ptClient);
    StateLock lock;
    return MSG{hWnd, uMessage, FetchedKeys().MouseFlags(), PointParam(ptClient), uTime, ptScreen};
}

/// The message of a button: three in a row, and the next button's three follow.
UINT ButtonMessage(MouseButton button, bool bDown)
{
    return WM_LBUTTONDOWN + 3 * static_cast<UINT>(button) + (bDown ? 0 : 1);
}

/// Whether a press is the second of a double click. It is then forgotten: a third press starts over.
bool IsDoubleClick(const LastPress& press)
{
    constexpr DWORD DOUBLE_CLICK_MS = 500;
    constexpr int NEAR_PIXELS = 2;
    const auto pWindow = FindWindowObject(press.hWnd);
    const bool bWanted = pWindow && (pWindow->pClass->wndClass.style & CS_DBLCLKS);
    const bool bSecond = bWanted && s_LastPress.hWnd == press.hWnd && s_LastPress.button == press.button &&
                         press.uTime - s_LastPress.uTime <= DOUBLE_CLICK_MS &&
                         std::abs(press.ptScreen.x - s_LastPress.ptScreen.x) < NEAR_PIXELS &&
                         std::abs(press.ptScreen.y - s_LastPress.ptScreen.y) < NEAR_PIXELS;
    s_LastPress = bSecond ? LastPress{} : press;
    return bSecond;
}

} // namespace

std::optional<MSG> MessageFor(const PointerMoveEvent& event, DWORD uTime)
{
    const HWND hTarget = MouseTarget(event.hTopLevel, event.ptScreen, WM_MOUSEMOVE);
    return MouseMessage(hTarget, WM_MOUSEMOVE, event.ptScreen, uTime);
}

std::optional<MSG> MessageFor(const ButtonEvent& event, DWORD uTime)
{
    {
        StateLock lock;
        FetchedKeys().SetButton(event.button, event.bDown);
    }
    const UINT uMessage = ButtonMessage(event.button, event.bDown);
    const HWND hTarget = MouseTarget(event.hTopLevel, event.ptScreen, uMessage);
    const bool bDouble = event.bDown && IsDoubleClick({hTarget, event.button, uTime, event.ptScreen});
    constexpr UINT FROM_DOWN_TO_DOUBLE = WM_LBUTTONDBLCLK - WM_LBUTTONDOWN;
    return MouseMessage(hTarget, bDouble ? uMessage + FROM_DOWN_TO_DOUBLE : uMessage, event.ptScreen, uTime);
}

std::optional<MSG> MessageFor(const WheelEvent& event, DWORD uTime)
{
    // While no window of the program has the focus, the one under the pointer gets it.
    const HWND hFocus = ::GetFocus();
    const HWND hTarget = hFocus ? hFocus : ::WindowFromPoint(event.ptScreen);
    if (!hTarget)
        return std::nullopt;
    StateLock lock;
    const int zDelta = std::clamp(event.zDelta, -32768, 32767);
    const WPARAM wParam = MAKEWPARAM(static_cast<int>(FetchedKeys().MouseFlags()), zDelta);
    return MSG{hTarget, WM_MOUSEWHEEL, wParam, PointParam(event.ptScreen), uTime, event.ptScreen};
}

} // namespace winlite

using namespace winlite;

HWND WindowFromPoint(POINT pt)
{
    StateLock lock;
    const auto& vWindows = TopLevelWindows();
    for (auto it = vWindows.rbegin(); it != vWindows.rend(); ++it)
    {
        const HWND hWnd = (*it)->HasStyle(WS_MINIMIZE) ? nullptr : DeepestAt(**it, pt);
        if (hWnd)
            return hWnd;
    }
    return nullptr;
}

BOOL GetCursorPos(LPPOINT ppt)
{
    if (!Workers::Current())
    {
        NotePointerAsked();
        *ppt = TheJournal().OnPointerAsked(PointerNow());
        return TRUE;
    }
    const JournalNumbers vAnswer = AskAsWorker("worker-pointer",
                                               [](const JournalNumbers* pRecorded)
                                               {
                                                   const POINT ptNow = PointerNow();
                                                   return pRecorded ? *pRecorded : JournalNumbers{ptNow.x, ptNow.y};
                                               });
    *ppt = {static_cast<LONG>(vAnswer[0]), static_cast<LONG>(vAnswer[1])};
    return TRUE;
}
