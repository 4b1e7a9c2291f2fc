#include "user/Queue.h"

#include "base/Desktop.h"
#include "base/StateLock.h"
#include "base/Thread.h"
#include "user/InputQueue.h"
#include "user/Journal.h"
#include "user/Paint.h"
#include "user/Timers.h"
#include "user/Window.h"
#include "user/WindowObject.h"

#include <algorithm>
#include <cassert>
#include <deque>
#include <optional>

namespace winlite
{

namespace
{

struct MessageQueue
{
    std::deque<MSG> vPosted;
    std::optional<int> iExitCode;
};

/// The queue of the user-interface thread. Guarded by StateLock.
MessageQueue& TheQueue()
{
    static auto* pQueue = new MessageQueue;
    return *pQueue;
}

/// Which messages a call asks for.
struct Filter
{
    HWND hWnd;
    UINT uMin;
    UINT uMax;
    UINT uFlags;

    bool Wants(UINT uMessage) const { return (!uMin && !uMax) || (uMessage >= uMin && uMessage <= uMax); }
    bool WantsInput() const { return (!uMin && !uMax) || (uMin <= WM_MOUSELAST && uMax >= WM_KEYFIRST); }
    bool PaintsOnly() const { return (uFlags & PM_QS_PAINT) != 0; }
    bool Takes() const { return (uFlags & PM_REMOVE) != 0; }
};

std::optional<MSG> FindPosted(const Filter& filter)
{
    StateLock lock;
    std::deque<MSG>& vPosted = TheQueue().vPosted;
    const auto it = std::ranges::find_if(vPosted, [&](const MSG& msg)
                                         { return filter.Wants(msg.message) && PassesFilter(msg.hwnd, filter.hWnd); });
    if (it == vPosted.end())
        return std::nullopt;
    const MSG msg = *it;
    if (filter.Takes())
        vPosted.erase(it);
    return msg;
}

std::optional<MSG> NextPosted(const Filter& filter)
{
    if (!TheJournal().AdmitsPosted())
        return std::nullopt;
    const std::optional<MSG> msg = FindPosted(filter);
    if (msg && filter.Takes())
        TheJournal().OnPosted(msg->hwnd, msg->message);
    return msg;
}

std::optional<MSG> NextPaint(const Filter& filter)
{
    const HWND hWnd = filter.Wants(WM_PAINT) ? NextWindowToPaint(filter.hWnd) : nullptr;
    if (!hWnd)
        return std::nullopt;
    if (filter.Takes() && !IsFreePaint(hWnd))
        TheJournal().OnPaint(hWnd);
    return MSG{hWnd, WM_PAINT, 0, 0, 0, {}};
}

std::optional<MSG> NextQuit(const Filter& filter)
{
    StateLock lock;
    std::optional<int>& iExitCode = TheQueue().iExitCode;
    if (!iExitCode)
        return std::nullopt;
    const MSG msg = {nullptr, WM_QUIT, static_cast<WPARAM>(*iExitCode), 0, 0, {}};
    if (filter.Takes())
        iExitCode.reset();
    return msg;
}

std::optional<MSG> NextInput(const Filter& filter)
{
    if (!filter.WantsInput())
        return std::nullopt;
    // What does not pass the filter waits, and all that came after it: input keeps its order.
    const std::optional<MSG> msg = NextInputMessage(false);
    if (!msg || !filter.Wants(msg->message) || !PassesFilter(msg->hwnd, filter.hWnd))
        return std::nullopt;
    return filter.Takes() ? NextInputMessage(true) : msg;
}

/// The order in which messages come: posted ones, input, the end, then what is made only when nothing else waits.
std::optional<MSG> NextMessage(const Filter& filter)
{
    if (!filter.PaintsOnly())
    {
        if (auto msg = NextPosted(filter))
            return msg;
        if (auto msg = NextInput(filter))
            return msg;
        if (auto msg = NextQuit(filter))
            return msg;
    }
    if (auto msg = NextPaint(filter))
        return msg;
    if (!filter.PaintsOnly() && filter.Wants(WM_TIMER))
        return NextTimerMessage(filter.hWnd, filter.Takes());
    return std::nullopt;
}

bool PumpPlainly()
{
    MSG msg;
    if (!::PeekMessage(&msg, nullptr, 0, 0, PM_REMOVE))
        return false;
    ::TranslateMessage(&msg);
    ::DispatchMessage(&msg);
    return true;
}

bool (*s_pPump)() = &PumpPlainly;

} // namespace

bool PassesFilter(HWND hWnd, HWND hFilter)
{
    if (!hFilter)
        return true;
    const auto pWindow = FindWindowObject(hWnd);
    for (const WindowObject* p = pWindow.get(); p; p = p->pParent)
    {
        if (p->hWnd == hFilter)
            return true;
    }
    return false;
}

void ForgetMessagesOf(HWND hWnd)
{
    std::erase_if(TheQueue().vPosted, [hWnd](const MSG& msg) { return msg.hwnd == hWnd; });
}

void SetMessagePump(bool (*pPump)()) { s_pPump = pPump ? pPump : &PumpPlainly; }

bool PumpOneMessage() { return s_pPump(); }

} // namespace winlite

using namespace winlite;

BOOL PostMessage(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    {
        // A window that is about to go takes what was posted to it along, so it must not go in between.
        StateLock lock;
        if (!::IsWindow(hWnd))
            return FALSE;
        TheQueue().vPosted.push_back({hWnd, uMessage, wParam, lParam, 0, {}});
    }
    if (HasDesktop())
        TheDesktop().Wake();
    return TRUE;
}

void PostQuitMessage(int iExitCode)
{
    StateLock lock;
    TheQueue().iExitCode = iExitCode;
}

BOOL PeekMessage(MSG* pMessage, HWND hWnd, UINT uMin, UINT uMax, UINT uRemove)
{
    AssertUserInterfaceThread();
    const std::optional<MSG> msg = NextMessage({hWnd, uMin, uMax, uRemove});
    if (msg)
        *pMessage = *msg;
    return msg.has_value();
}

BOOL GetMessage(MSG* pMessage, HWND hWnd, UINT uMin, UINT uMax)
{
    while (!::PeekMessage(pMessage, hWnd, uMin, uMax, PM_REMOVE))
    {
        PresentDamage();
        if (!TheDesktop().WaitForInput(MsToNextTimer()))
            return -1;
    }
    return pMessage->message != WM_QUIT;
}

BOOL TranslateMessage(const MSG*) { return FALSE; }

LRESULT DispatchMessage(const MSG* pMessage)
{
    BeginHandling(pMessage->message);
    const FreePaintScope scope(pMessage->message == WM_PAINT && IsFreePaint(pMessage->hwnd));
    return ::SendMessage(pMessage->hwnd, pMessage->message, pMessage->wParam, pMessage->lParam);
}

LRESULT SendMessage(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    AssertUserInterfaceThread();
    const auto pWindow = FindWindowObject(hWnd);
    if (!pWindow)
        return 0;
    assert(pWindow->thread == std::this_thread::get_id());
    return ::CallWindowProc(pWindow->pProc, hWnd, uMessage, wParam, lParam);
}

LRESULT CallWindowProc(WNDPROC pProc, HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    StateLock::AssertNotHeld();
    return pProc(hWnd, uMessage, wParam, lParam);
}
