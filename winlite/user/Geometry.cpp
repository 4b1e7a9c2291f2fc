#include "base/Desktop.h"
#include "base/StateLock.h"
#include "base/Thread.h"
#include "gdi/RectMath.h"
#include "user/Journal.h"
#include "user/WindowObject.h"
#include "user/Workers.h"

#include <algorithm>

namespace winlite
{

namespace
{

/// Puts the window where pos says, marks what needs painting, and notes in the flags what did not change.
void ApplyPosition(WindowObject& window, WINDOWPOS& pos)
{
    StateLock lock;
    const RECT rcOld = window.RectInParent();
    if (!(pos.flags & SWP_NOMOVE))
        window.ptPosition = {std::clamp(pos.x, -MAX_COORDINATE, MAX_COORDINATE),
                             std::clamp(pos.y, -MAX_COORDINATE, MAX_COORDINATE)};
    if (!(pos.flags & SWP_NOSIZE))
        window.szClient = {std::clamp(pos.cx, 0, MAX_EXTENT), std::clamp(pos.cy, 0, MAX_EXTENT)};
    const RECT rcNew = window.RectInParent();
    const bool bMoved = rcNew.left != rcOld.left || rcNew.top != rcOld.top;
    const SIZE szOld = {rcOld.right - rcOld.left, rcOld.bottom - rcOld.top};
    const bool bWider = window.szClient.cx != szOld.cx;
    const bool bHigher = window.szClient.cy != szOld.cy;
    if (!bMoved)
        pos.flags |= SWP_NOMOVE;
    if (!bWider && !bHigher)
        pos.flags |= SWP_NOSIZE;
    if ((pos.flags & SWP_NOREDRAW) || !(bMoved || bWider || bHigher))
        return;

    // What stood on the old place is not copied to the new one: a window that moved is painted anew.
    const UINT uStyle = window.pClass->wndClass.style;
    const bool bWhole = window.pParent
                            ? bMoved || (bWider && (uStyle & CS_HREDRAW)) || (bHigher && (uStyle & CS_VREDRAW))
                            : bWider || bHigher;
    Region rgnInvalid(window.ClientRect());
    if (!bWhole)
        rgnInvalid -= RECT{0, 0, szOld.cx, szOld.cy};
    InvalidateTree(window, rgnInvalid, true, InvalidReason::Uncovered);
    if (window.pParent && window.HasStyle(WS_VISIBLE))
        InvalidateTree(*window.pParent, Region(rcOld) -= rcNew, true, InvalidReason::Uncovered);
}

POINT OriginOf(const WindowObject& window)
{
    StateLock lock;
    return window.ScreenOrigin();
}

/// When a worker asks, the window may just be moving.
POINT OriginForWorker(const WindowObject& window)
{
    const JournalNumbers vOrigin = AskAsWorker("worker-origin",
                                               [&window](const JournalNumbers* pRecorded)
                                               {
                                                   const POINT ptNow = OriginOf(window);
                                                   return pRecorded ? *pRecorded : JournalNumbers{ptNow.x, ptNow.y};
                                               });
    return {static_cast<LONG>(vOrigin[0]), static_cast<LONG>(vOrigin[1])};
}

} // namespace

} // namespace winlite

using namespace winlite;

BOOL SetWindowPos(HWND hWnd, HWND hAfter, int x, int y, int cx, int cy, UINT uFlags)
{
    AssertUserInterfaceThread();
    const auto pWindow = FindWindowObject(hWnd);
    if (!pWindow)
        return FALSE;
    WINDOWPOS pos = {hWnd, hAfter, x, y, cx, cy, uFlags};
    ::SendMessage(hWnd, WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&pos));
    if (!::IsWindow(hWnd))
        return FALSE;
    ApplyPosition(*pWindow, pos);
    const bool bChanged = (pos.flags & (SWP_NOMOVE | SWP_NOSIZE)) != (SWP_NOMOVE | SWP_NOSIZE);
    if (bChanged)
        ::SendMessage(hWnd, WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&pos));
    if (bChanged && !pWindow->pParent && HasDesktop() && ::IsWindow(hWnd))
        TheDesktop().WindowChanged(hWnd);
    if (pos.flags & (SWP_SHOWWINDOW | SWP_HIDEWINDOW))
        ShowInPlace(*pWindow, pos.flags & SWP_SHOWWINDOW);
    return TRUE;
}

BOOL MoveWindow(HWND hWnd, int x, int y, int cx, int cy, BOOL bRepaint)
{
    return SetWindowPos(hWnd, nullptr, x, y, cx, cy, SWP_NOZORDER | (bRepaint ? 0 : SWP_NOREDRAW));
}

BOOL GetClientRect(HWND hWnd, LPRECT prc)
{
    const auto pWindow = FindWindowObject(hWnd);
    if (!pWindow)
        return FALSE;
    StateLock lock;
    *prc = pWindow->ClientRect();
    return TRUE;
}

BOOL GetWindowRect(HWND hWnd, LPRECT prc)
{
    if (!GetClientRect(hWnd, prc))
        return FALSE;
    POINT ptOrigin = {};
    ClientToScreen(hWnd, &ptOrigin);
    *prc = {ptOrigin.x, ptOrigin.y, ptOrigin.x + prc->right, ptOrigin.y + prc->bottom};
    return TRUE;
}

BOOL ClientToScreen(HWND hWnd, LPPOINT ppt)
{
    const auto pWindow = FindWindowObject(hWnd);
    if (!pWindow)
        return FALSE;
    const POINT ptOrigin = OriginOf(*pWindow);
    *ppt = {Saturated(std::int64_t{ppt->x} + ptOrigin.x), Saturated(std::int64_t{ppt->y} + ptOrigin.y)};
    return TRUE;
}

BOOL ScreenToClient(HWND hWnd, LPPOINT ppt)
{
    const auto pWindow = FindWindowObject(hWnd);
    if (!pWindow)
        return FALSE;
    const POINT ptOrigin = Workers::Current() ? OriginForWorker(*pWindow) : OriginOf(*pWindow);
    *ppt = {Saturated(std::int64_t{ppt->x} - ptOrigin.x), Saturated(std::int64_t{ppt->y} - ptOrigin.y)};
    return TRUE;
}
