#include "user/Timers.h"

#include "base/Desktop.h"
#include "base/StateLock.h"
#include "base/Thread.h"
#include "user/Journal.h"
#include "user/Queue.h"
#include "user/Window.h"
#include "user/WindowObject.h"

#include <algorithm>

namespace winlite
{

namespace
{

struct Timer
{
    HWND hWnd;
    UINT_PTR uId;
    std::uint64_t uPeriod;
    std::uint64_t uDue;
};

std::vector<Timer>& Timers()
{
    static auto* pTimers = new std::vector<Timer>;
    return *pTimers;
}

auto FindTimer(HWND hWnd, UINT_PTR uId)
{
    return std::ranges::find_if(Timers(), [&](const Timer& timer) { return timer.hWnd == hWnd && timer.uId == uId; });
}

std::optional<InputJournal::Timer> DueTimer(HWND hFilter, std::uint64_t uNow)
{
    StateLock lock;
    const auto it = std::ranges::find_if(Timers(), [&](const Timer& timer)
                                         { return timer.uDue <= uNow && PassesFilter(timer.hWnd, hFilter); });
    return it == Timers().end() ? std::nullopt : std::optional(InputJournal::Timer{it->hWnd, it->uId});
}

/// Sets the timer for its next period.
void Deliver(const InputJournal::Timer& delivered, std::uint64_t uNow)
{
    StateLock lock;
    const auto it = FindTimer(delivered.hWnd, delivered.uId);
    if (it == Timers().end())
        return;
    // Periods that were missed are not made up for. The timer goes last, so that each gets its turn.
    const std::uint64_t uLate = uNow > it->uDue ? uNow - it->uDue : 0;
    it->uDue += (uLate / it->uPeriod + 1) * it->uPeriod;
    std::rotate(it, it + 1, Timers().end());
}

} // namespace

std::optional<MSG> NextTimerMessage(HWND hFilter, bool bTake)
{
    if (!HasDesktop())
        return std::nullopt;
    const std::uint64_t uNow = TheDesktop().TickCount();
    const auto due = TheJournal().OnTimer(DueTimer(hFilter, uNow), bTake);
    if (!due)
        return std::nullopt;
    if (bTake)
        Deliver(*due, uNow);
    return MSG{due->hWnd, WM_TIMER, due->uId, 0, static_cast<DWORD>(uNow), {}};
}

bool IsTimerSet(HWND hWnd, UINT_PTR uId)
{
    StateLock lock;
    return FindTimer(hWnd, uId) != Timers().end();
}

int MsToNextTimer()
{
    const std::uint64_t uNow = TheDesktop().TickCount();
    StateLock lock;
    const auto it = std::ranges::min_element(Timers(), {}, &Timer::uDue);
    if (it == Timers().end())
        return -1;
    return it->uDue <= uNow ? 0 : static_cast<int>(std::min<std::uint64_t>(it->uDue - uNow, 0x7FFFFFFF));
}

void ForgetTimersOf(HWND hWnd)
{
    std::erase_if(Timers(), [hWnd](const Timer& timer) { return timer.hWnd == hWnd; });
}

} // namespace winlite

using namespace winlite;

UINT_PTR SetTimer(HWND hWnd, UINT_PTR uAskedId, UINT uMs, void* pCallback)
{
    AssertUserInterfaceThread();
    constexpr UINT SHORTEST_PERIOD = 10;
    if (!::IsWindow(hWnd) || pCallback)
        return 0;
    const UINT_PTR uId = uAskedId ? uAskedId : 1; // 0 would tell of a failure.
    const std::uint64_t uPeriod = std::max(uMs, SHORTEST_PERIOD);
    const Timer timer = {hWnd, uId, uPeriod, TheDesktop().TickCount() + uPeriod};
    {
        StateLock lock;
        const auto it = FindTimer(hWnd, uId);
        if (it != Timers().end())
            *it = timer;
        else
            Timers().push_back(timer);
    }
    TheDesktop().Wake();
    return uId;
}

BOOL KillTimer(HWND hWnd, UINT_PTR uId)
{
    AssertUserInterfaceThread();
    StateLock lock;
    const auto it = FindTimer(hWnd, uId);
    if (it == Timers().end())
        return FALSE;
    Timers().erase(it);
    return TRUE;
}

DWORD GetTickCount() { return static_cast<DWORD>(TheDesktop().TickCount()); }
