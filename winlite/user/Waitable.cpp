#include "user/Waitable.h"

#include "user/Sync.h"
#include "user/WorkerCount.h"
#include "user/Workers.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <optional>

namespace winlite
{

/// One wait of one thread.
struct Waiter
{
    const WaitableList& vObjects;
    bool bAll;
    std::optional<DWORD> dwResult = {};
    bool bSleepsForGood = false; ///< A worker whose wait has no limit.
    std::condition_variable cvEnded = {};

    /// Ends the wait if the objects' states allow it.
    bool TryEnd()
    {
        const auto isSignalled = [](const auto& pObject) { return pObject->IsSignalled(); };
        const auto it = std::ranges::find_if(vObjects, isSignalled);
        if (it == vObjects.end() || (bAll && !std::ranges::all_of(vObjects, isSignalled)))
            return false;
        if (bAll)
            std::ranges::for_each(vObjects, [](const auto& pObject) { pObject->Consume(); });
        else
            (*it)->Consume();
        dwResult = WAIT_OBJECT_0 + (bAll ? 0 : static_cast<DWORD>(it - vObjects.begin()));
        return true;
    }

    void EnterLists()
    {
        for (const auto& pObject : vObjects)
            pObject->m_vWaiters.push_back(this);
    }
    void LeaveLists()
    {
        for (const auto& pObject : vObjects)
            std::erase(pObject->m_vWaiters, this);
    }
};

std::mutex& Waitable::WaitLock()
{
    // Never destroyed: threads may still end while the program does.
    static auto* pMutex = new std::mutex;
    return *pMutex;
}

void Waitable::EndWaits()
{
    for (Waiter* pWaiter : m_vWaiters)
    {
        if (pWaiter->dwResult || !pWaiter->TryEnd())
            continue;
        if (pWaiter->bSleepsForGood)
            WorkerIsWoken();
        pWaiter->cvEnded.notify_one();
    }
}

DWORD WaitFor(const WaitableList& vObjects, bool bAll, DWORD dwMs)
{
    std::unique_lock lock(Waitable::WaitLock());
    Waiter waiter = {vObjects, bAll};
    if (waiter.TryEnd())
        return *waiter.dwResult;
    if (dwMs == 0)
        return WAIT_TIMEOUT;
    waiter.EnterLists();
    const auto ended = [&waiter] { return waiter.dwResult.has_value(); };
    if (dwMs == INFINITE)
    {
        waiter.bSleepsForGood = Workers::Current() != 0;
        if (waiter.bSleepsForGood)
            WorkerFallsAsleep();
        waiter.cvEnded.wait(lock, ended);
    }
    else
    {
        waiter.cvEnded.wait_for(lock, std::chrono::milliseconds(dwMs), ended);
    }
    waiter.LeaveLists();
    return waiter.dwResult.value_or(WAIT_TIMEOUT);
}

} // namespace winlite
