#include "user/Workers.h"

#include "user/Sync.h"
#include "user/Waitable.h"
#include "user/WorkerCount.h"

#include <algorithm>
#include <condition_variable>
#include <cstdio>
#include <limits>
#include <sys/resource.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace winlite
{

namespace
{

/// All of it is guarded by the lock of all waits.
struct WorkerList
{
    int nStarted = 0;
    int nCanRun = 0;
    int nMost = std::numeric_limits<int>::max();
    std::vector<int> vAlive; ///< Numbers.
    std::condition_variable cvChanged;
};

WorkerList& TheList()
{
    static auto* pList = new WorkerList;
    return *pList;
}

thread_local int t_iNumber = 0;

bool SetPriorityOfCaller(int iPriority)
{
    // On Linux a thread has a nice value of its own, and the thread's id names it.
    constexpr int NICE_STEPS = 5;
    return setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), -NICE_STEPS * iPriority) == 0;
}

void TellOfRefusedPriority()
{
    static std::once_flag s_Told;
    std::call_once(s_Told, [] { std::fputs("winlite: the system does not permit thread priorities\n", stderr); });
}

/// A worker. Signalled when it has ended.
class WorkerThread : public Waitable
{
public:
    bool Resume()
    {
        const std::scoped_lock lock(WaitLock());
        if (!m_bSuspended)
            return false;
        m_bSuspended = false;
        WorkerIsWoken();
        m_cvResumed.notify_one();
        return true;
    }

    /// Takes effect when the thread begins.
    void SetPriority(int iPriority)
    {
        const std::scoped_lock lock(WaitLock());
        m_iPriority = iPriority;
    }

    void Run(int iNumber, const std::function<void()>& run)
    {
        t_iNumber = iNumber;
        if (const int iPriority = WaitUntilResumed(); iPriority != 0 && !SetPriorityOfCaller(iPriority))
            TellOfRefusedPriority();
        run();
        const std::scoped_lock lock(WaitLock());
        m_bEnded = true;
        EndWaits();
        WorkerList& list = TheList();
        std::erase(list.vAlive, iNumber);
        --list.nCanRun;
        list.cvChanged.notify_all();
    }

private:
    bool IsSignalled() const override { return m_bEnded; }

    int WaitUntilResumed()
    {
        std::unique_lock lock(WaitLock());
        m_cvResumed.wait(lock, [this] { return !m_bSuspended; });
        return m_iPriority;
    }

    bool m_bSuspended = true;
    bool m_bEnded = false;
    int m_iPriority = THREAD_PRIORITY_NORMAL;
    std::condition_variable m_cvResumed;
};

/// Enters a worker that is about to start; 0 when there are as many as may be.
int EnterWorker()
{
    const std::scoped_lock lock(Waitable::WaitLock());
    WorkerList& list = TheList();
    if (static_cast<int>(list.vAlive.size()) >= list.nMost)
        return 0;
    list.vAlive.push_back(++list.nStarted);
    return list.nStarted;
}

void LeaveWorkerThatDidNotStart(int iNumber)
{
    const std::scoped_lock lock(Waitable::WaitLock());
    std::erase(TheList().vAlive, iNumber);
}

} // namespace

void WorkerFallsAsleep()
{
    --TheList().nCanRun;
    TheList().cvChanged.notify_all();
}

void WorkerIsWoken() { ++TheList().nCanRun; }

HANDLE Workers::Start(std::function<void()> run)
{
    const int iNumber = EnterWorker();
    if (iNumber == 0)
        return nullptr;
    try
    {
        auto pThread = std::make_shared<WorkerThread>();
        std::thread([pThread, iNumber, run = std::move(run)] { pThread->Run(iNumber, run); }).detach();
        return OpenHandle(pThread);
    }
    catch (const std::system_error&)
    {
        LeaveWorkerThatDidNotStart(iNumber);
        return nullptr;
    }
}

int Workers::Current() { return t_iNumber; }

int Workers::StartedCount()
{
    const std::scoped_lock lock(Waitable::WaitLock());
    return TheList().nStarted;
}

bool Workers::IsAlive(int iNumber)
{
    const std::scoped_lock lock(Waitable::WaitLock());
    return std::ranges::count(TheList().vAlive, iNumber) != 0;
}

bool Workers::CanRun()
{
    const std::scoped_lock lock(Waitable::WaitLock());
    return TheList().nCanRun > 0;
}

bool Workers::WaitWhileTheyRun(const std::function<bool()>& fulfilled, std::chrono::milliseconds limit)
{
    std::unique_lock lock(Waitable::WaitLock());
    bool bFulfilled = false;
    TheList().cvChanged.wait_for(lock, limit,
                                 [&]
                                 {
                                     bFulfilled = fulfilled();
                                     return bFulfilled || TheList().nCanRun == 0;
                                 });
    return bFulfilled;
}

void Workers::PokeWaiting()
{
    const std::scoped_lock lock(Waitable::WaitLock());
    TheList().cvChanged.notify_all();
}

bool Workers::WaitUntilAllEnded(std::chrono::milliseconds limit)
{
    std::unique_lock lock(Waitable::WaitLock());
    return TheList().cvChanged.wait_for(lock, limit, [] { return TheList().vAlive.empty(); });
}

void Workers::Limit(int nMost)
{
    const std::scoped_lock lock(Waitable::WaitLock());
    TheList().nMost = nMost;
}

} // namespace winlite

using namespace winlite;

BOOL SetThreadPriority(HANDLE hThread, int iPriority)
{
    const auto pThread = FindHandleAs<WorkerThread>(hThread);
    if (pThread)
        pThread->SetPriority(iPriority);
    return pThread != nullptr;
}

DWORD ResumeThread(HANDLE hThread)
{
    const auto pThread = FindHandleAs<WorkerThread>(hThread);
    return pThread ? pThread->Resume() : 0xFFFFFFFF;
}
