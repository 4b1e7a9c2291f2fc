#include "user/Journal.h"

#include "base/StateLock.h"
#include "base/Thread.h"
#include "user/WindowObject.h"
#include "user/Workers.h"

#include <condition_variable>
#include <mutex>
#include <utility>

namespace winlite
{

namespace
{

InputJournal* s_pJournal = nullptr; ///< Written on the user-interface thread, with s_WorkerCalls locked.
thread_local bool t_bInFreePaint = false;

/// The workers that are in a call of the journal.
struct WorkerCalls
{
    std::mutex mutex;
    std::condition_variable cvLeft;
    int nInside = 0;
};

WorkerCalls& TheCalls()
{
    static auto* pCalls = new WorkerCalls;
    return *pCalls;
}

/// Keeps the journal there while a worker is in it. Without one nothing is kept: whoever takes the journal away would
/// wait for a worker that asks again and again.
class WorkerCallScope
{
public:
    WorkerCallScope()
    {
        const std::scoped_lock lock(TheCalls().mutex);
        pJournal = s_pJournal;
        TheCalls().nInside += pJournal != nullptr;
    }
    ~WorkerCallScope()
    {
        const std::scoped_lock lock(TheCalls().mutex);
        TheCalls().nInside -= pJournal != nullptr;
        TheCalls().cvLeft.notify_all();
    }
    WorkerCallScope(const WorkerCallScope&) = delete;
    WorkerCallScope& operator=(const WorkerCallScope&) = delete;

    InputJournal* pJournal;
};

HWND FindNumber(const std::vector<std::shared_ptr<WindowObject>>& vWindows, int iNumber)
{
    for (const auto& pWindow : vWindows)
    {
        if (pWindow->iNumber == iNumber)
            return pWindow->hWnd;
        if (const HWND hChild = FindNumber(pWindow->vChildren, iNumber))
            return hChild;
    }
    return nullptr;
}

} // namespace

JournalNumbers InputJournal::OnWorkerAsks(int, const char*, const JournalAnswer& answer) { return answer(nullptr); }

void SetJournal(InputJournal* pJournal)
{
    WorkerCalls& calls = TheCalls();
    std::unique_lock lock(calls.mutex);
    s_pJournal = pJournal;
    if (!pJournal)
        calls.cvLeft.wait(lock, [&calls] { return calls.nInside == 0; });
}

InputJournal& TheJournal()
{
    static InputJournal s_PassesAll;
    const bool bConcerned = !t_bInFreePaint && IsUserInterfaceThread();
    return bConcerned && s_pJournal ? *s_pJournal : s_PassesAll;
}

JournalNumbers AskAsWorker(const char* pszWord, const JournalAnswer& answer)
{
    const WorkerCallScope call;
    const int iWorker = Workers::Current();
    return call.pJournal && iWorker ? call.pJournal->OnWorkerAsks(iWorker, pszWord, answer) : answer(nullptr);
}

FreePaintScope::FreePaintScope(bool bFree) : m_bOutside(std::exchange(t_bInFreePaint, t_bInFreePaint || bFree)) {}

FreePaintScope::~FreePaintScope() { t_bInFreePaint = m_bOutside; }

int NumberOf(HWND hWnd)
{
    const auto pWindow = FindWindowObject(hWnd);
    return pWindow ? pWindow->iNumber : 0;
}

HWND WindowOfNumber(int iNumber)
{
    StateLock lock;
    return iNumber ? FindNumber(TopLevelWindows(), iNumber) : nullptr;
}

int OldestWindowNumber()
{
    StateLock lock;
    return TopLevelWindows().empty() ? WindowCount() + 1 : TopLevelWindows().front()->iNumber;
}

void PlaceTopLevel(HWND hTopLevel, const RECT& rcScreen)
{
    TheJournal().OnPlaced(hTopLevel, rcScreen);
    ::MoveWindow(hTopLevel, rcScreen.left, rcScreen.top, rcScreen.right - rcScreen.left, rcScreen.bottom - rcScreen.top,
                 TRUE);
}

void ShowTopLevel(HWND hTopLevel, int iShow)
{
    TheJournal().OnShown(hTopLevel, iShow);
    ::ShowWindow(hTopLevel, iShow);
}

void EnableTopLevel(HWND hTopLevel, BOOL bEnable)
{
    TheJournal().OnEnabled(hTopLevel, bEnable);
    ::EnableWindow(hTopLevel, bEnable);
}

} // namespace winlite
