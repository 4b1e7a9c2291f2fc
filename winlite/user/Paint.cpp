#include "user/Paint.h"

#include "base/Desktop.h"
#include "base/StateLock.h"
#include "base/Thread.h"
#include "user/Journal.h"
#include "user/Queue.h"
#include "user/Window.h"
#include "user/WindowObject.h"

namespace winlite
{

namespace
{

HWND FindDirty(const std::vector<std::shared_ptr<WindowObject>>& vWindows, HWND hFilter)
{
    for (const auto& pWindow : vWindows)
    {
        if (!pWindow->IsDrawable())
            continue;
        const bool bDue = !pWindow->rgnUpdate.IsEmpty() && PassesFilter(pWindow->hWnd, hFilter);
        if (bDue && (pWindow->bFreePaint || TheJournal().AdmitsPaint(pWindow->hWnd)))
            return pWindow->hWnd;
        if (const HWND hWnd = FindDirty(pWindow->vChildren, hFilter))
            return hWnd;
    }
    return nullptr;
}

} // namespace

HWND NextWindowToPaint(HWND hFilter)
{
    StateLock lock;
    return FindDirty(TopLevelWindows(), hFilter);
}

bool IsFreePaint(HWND hWnd)
{
    const auto pWindow = FindWindowObject(hWnd);
    StateLock lock;
    return pWindow && pWindow->bFreePaint && !pWindow->rgnUpdate.IsEmpty();
}

void InvalidateTree(WindowObject& window, Region rgnClient, bool bErase, InvalidReason reason)
{
    if (!window.IsVisible())
        return;
    rgnClient &= window.ClientRect();
    if (rgnClient.IsEmpty())
        return;
    const bool bClipChildren = window.HasStyle(WS_CLIPCHILDREN);
    for (const auto& pChild : window.vChildren)
    {
        if (!pChild->HasStyle(WS_VISIBLE))
            continue;
        if (!bClipChildren || reason == InvalidReason::Uncovered)
        {
            Region rgnChild = rgnClient & pChild->RectInParent();
            rgnChild.Offset(-pChild->ptPosition.x, -pChild->ptPosition.y);
            InvalidateTree(*pChild, std::move(rgnChild), bErase, reason);
        }
    }
    if (bClipChildren)
    {
        for (const auto& pChild : window.vChildren)
        {
            if (pChild->HasStyle(WS_VISIBLE))
                rgnClient -= pChild->RectInParent();
        }
    }
    const bool bByWorker = window.thread != std::this_thread::get_id();
    window.bFreePaint = bByWorker && (window.bFreePaint || window.rgnUpdate.IsEmpty());
    window.rgnUpdate |= rgnClient;
    window.bErase |= bErase;
}

} // namespace winlite

using namespace winlite;

BOOL InvalidateRect(HWND hWnd, const RECT* prc, BOOL bErase)
{
    const auto pWindow = FindWindowObject(hWnd);
    if (!pWindow)
        return FALSE;
    {
        StateLock lock;
        InvalidateTree(*pWindow, Region(prc ? *prc : pWindow->ClientRect()), bErase, InvalidReason::Asked);
    }
    if (HasDesktop())
        TheDesktop().Wake();
    return TRUE;
}

BOOL ValidateRect(HWND hWnd, const RECT* prc)
{
    const auto pWindow = FindWindowObject(hWnd);
    if (!pWindow)
        return FALSE;
    StateLock lock;
    if (prc)
        pWindow->rgnUpdate -= *prc;
    else
        pWindow->rgnUpdate = Region();
    pWindow->bErase &= !pWindow->rgnUpdate.IsEmpty();
    return TRUE;
}

BOOL UpdateWindow(HWND hWnd)
{
    AssertUserInterfaceThread();
    const auto pWindow = FindWindowObject(hWnd);
    if (!pWindow)
        return FALSE;
    bool bDue;
    {
        StateLock lock;
        bDue = pWindow->IsDrawable() && !pWindow->rgnUpdate.IsEmpty();
    }
    if (!bDue)
        return TRUE;
    {
        const FreePaintScope scope(IsFreePaint(hWnd));
        ::SendMessage(hWnd, WM_PAINT, 0, 0);
    }
    if (HasDesktop())
        PresentWithinHandler();
    return TRUE;
}

BOOL GetUpdateRect(HWND hWnd, LPRECT prc, BOOL)
{
    const auto pWindow = FindWindowObject(hWnd);
    if (!pWindow)
        return FALSE;
    StateLock lock;
    if (prc)
        *prc = pWindow->rgnUpdate.Box();
    return !pWindow->rgnUpdate.IsEmpty();
}
