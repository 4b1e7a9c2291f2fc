#pragma once

#include "base/Types.h"

#include <chrono>
#include <functional>

namespace winlite
{

/// The threads that the class library has started. A worker can run unless it is in a wait without a limit: while one
/// can, it may still post, invalidate or ask, and a program that has nothing to do waits for it. Any thread.
class Workers
{
public:
    /// Starts a thread that first waits for ResumeThread, then runs. Returns its handle; NULL when it cannot be
    /// started. Workers have numbers from 1 on, by order of their start.
    static HANDLE Start(std::function<void()> run);

    /// The number of the calling worker; 0 for any other thread.
    static int Current();

    static int StartedCount();
    static bool IsAlive(int iNumber);
    static bool CanRun();

    /// Waits until fulfilled() is true, no worker can run any more, or the time is over; returns the last fulfilled().
    /// It is asked with a lock held and must only look at what PokeWaiting announces.
    static bool WaitWhileTheyRun(const std::function<bool()>& fulfilled, std::chrono::milliseconds limit);

    /// Something that fulfilled() looks at has changed.
    static void PokeWaiting();

    /// Waits until every worker has ended; false when that takes longer than the limit.
    static bool WaitUntilAllEnded(std::chrono::milliseconds limit);

    /// The most workers that may live at a time; Start refuses more. A server bounds itself with it.
    static void Limit(int nMost);
};

} // namespace winlite
