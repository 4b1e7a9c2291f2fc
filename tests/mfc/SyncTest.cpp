#include "mfc/Sync.h"
#include "base/HandleTable.h"
#include "headless/HeadlessDesktop.h"
#include "mfc/Thread.h"
#include "user/Workers.h"

#include <atomic>
#include <functional>
#include <gtest/gtest.h>
#include <memory>

namespace
{

constexpr DWORD LONG_MS = 60000; // A wait that is expected to be ended by something else.

/// Runs a function as a worker and waits for its end.
class CWorker
{
public:
    explicit CWorker(std::function<void()> run, DWORD dwFlags = 0) : m_run(std::move(run))
    {
        pThread = AfxBeginThread(&Run, this, THREAD_PRIORITY_NORMAL, 0, CREATE_SUSPENDED);
        pThread->m_bAutoDelete = FALSE;
        if (!(dwFlags & CREATE_SUSPENDED))
            pThread->ResumeThread();
    }
    ~CWorker()
    {
        EXPECT_EQ(::WaitForSingleObject(pThread->m_hThread, LONG_MS), WAIT_OBJECT_0);
        delete pThread;
    }
    CWorker(const CWorker&) = delete;
    CWorker& operator=(const CWorker&) = delete;

    CWinThread* pThread;

private:
    static UINT Run(LPVOID pParam)
    {
        static_cast<CWorker*>(pParam)->m_run();
        return 0;
    }

    std::function<void()> m_run;
};

class SyncTest : public testing::Test
{
protected:
    void TearDown() override
    {
        EXPECT_TRUE(winlite::Workers::WaitUntilAllEnded(std::chrono::milliseconds(LONG_MS)));
        EXPECT_EQ(winlite::OpenHandleCount(), m_nHandles);
    }

    HWND MakeWindow()
    {
        const LPCWSTR pszClass = AfxRegisterWndClass(0);
        return ::CreateWindowEx(0, pszClass, L"", WS_POPUP | WS_VISIBLE, 0, 0, 300, 200, nullptr, nullptr, nullptr,
                                nullptr);
    }

    winlite::HeadlessDesktop desktop;
    CWinApp app;

private:
    std::size_t m_nHandles = winlite::OpenHandleCount();
};

TEST_F(SyncTest, WaitsConsumeWhatResetsByItself)
{
    CEvent evtAuto;
    CEvent evtManual(FALSE, TRUE);
    const HANDLE hBoth[] = {evtAuto, evtManual};
    const struct
    {
        bool bSetAuto;
        bool bSetManual;
        BOOL bAll;
        DWORD dwResult;
        BOOL bAutoAfter;
        BOOL bManualAfter;
    } CASES[] = {
        {false, false, FALSE, WAIT_TIMEOUT, FALSE, FALSE},
        {true, false, FALSE, 0, FALSE, FALSE},
        {false, true, FALSE, 1, FALSE, TRUE},
        {true, true, FALSE, 0, FALSE, TRUE},
        {true, false, TRUE, WAIT_TIMEOUT, TRUE, FALSE},
        {false, true, TRUE, WAIT_TIMEOUT, FALSE, TRUE},
        {true, true, TRUE, WAIT_OBJECT_0, FALSE, TRUE},
    };
    for (const auto& c : CASES)
    {
        evtAuto.ResetEvent();
        evtManual.ResetEvent();
        for (int i = 0; i < 2; ++i) // Setting a set event adds nothing.
        {
            EXPECT_TRUE(!c.bSetAuto || evtAuto.SetEvent());
            EXPECT_TRUE(!c.bSetManual || evtManual.SetEvent());
        }
        EXPECT_EQ(::WaitForMultipleObjects(2, hBoth, c.bAll, 1), c.dwResult) << &c - CASES;
        EXPECT_EQ(evtAuto.Lock(0), c.bAutoAfter) << &c - CASES;
        EXPECT_EQ(evtManual.Lock(0), c.bManualAfter) << &c - CASES;
    }
    const HANDLE hBad[] = {evtAuto, nullptr};
    EXPECT_EQ(::WaitForMultipleObjects(2, hBad, FALSE, 0), WAIT_FAILED);
    EXPECT_EQ(::WaitForMultipleObjects(0, hBad, FALSE, 0), WAIT_FAILED);
    EXPECT_FALSE(::SetEvent(nullptr) || ::CloseHandle(nullptr));
    EXPECT_TRUE(CEvent(TRUE).Lock(0)) << "set from the start";
}

TEST_F(SyncTest, OneSignalWakesOneWaiterOrAll)
{
    CEvent evtAuto, evtManual(FALSE, TRUE), evtPassed;
    std::atomic<int> nPassed = 0;
    {
        const auto pass = [&]
        {
            evtAuto.Lock();
            ++nPassed;
            evtPassed.SetEvent();
            evtManual.Lock();
        };
        CWorker first(pass), second(pass);
        for (int n = 1; n <= 2; ++n)
        {
            evtAuto.SetEvent();
            EXPECT_TRUE(evtPassed.Lock(LONG_MS));
            EXPECT_EQ(nPassed, n);
        }
        evtManual.SetEvent();
    }
    EXPECT_TRUE(evtManual.Lock(0)) << "still set";
}

TEST_F(SyncTest, WhoIsWokenMayDestroyTheEventAtOnce)
{
    for (int i = 0; i < 300; ++i)
    {
        auto pEvent = std::make_unique<CEvent>();
        CWorker worker([&pEvent] { pEvent->SetEvent(); });
        EXPECT_TRUE(pEvent->Lock(LONG_MS));
        pEvent.reset();
    }
}

TEST_F(SyncTest, ASectionHoldsOneThreadAsOftenAsItWasTaken)
{
    CCriticalSection section;
    int nSum = 0;
    const auto add = [&]
    {
        for (int i = 0; i < 5000; ++i)
        {
            CSingleLock outer(&section, TRUE);
            CSingleLock inner(&section);
            EXPECT_FALSE(inner.IsLocked() || inner.Unlock());
            inner.Lock();
            ++nSum;
        }
    };
    {
        CWorker first(add), second(add);
    }
    EXPECT_EQ(nSum, 10000);
}

TEST_F(SyncTest, AThreadHasAnObjectABeginningAndAnEnd)
{
    std::atomic<CWinThread*> pSeen = nullptr;
    {
        CWorker worker([&] { pSeen = AfxGetThread(); }, CREATE_SUSPENDED);
        EXPECT_EQ(::WaitForSingleObject(worker.pThread->m_hThread, 1), WAIT_TIMEOUT);
        EXPECT_FALSE(winlite::Workers::CanRun()) << "it is suspended";
        EXPECT_TRUE(worker.pThread->SetThreadPriority(THREAD_PRIORITY_HIGHEST));
        EXPECT_EQ(worker.pThread->ResumeThread(), 1U);
        EXPECT_EQ(::WaitForSingleObject(worker.pThread->m_hThread, LONG_MS), WAIT_OBJECT_0);
        EXPECT_EQ(pSeen, worker.pThread);
        EXPECT_EQ(worker.pThread->ResumeThread(), 0U);
    }
    winlite::Workers::Limit(0);
    EXPECT_EQ(AfxBeginThread([](LPVOID) { return 0U; }, nullptr), nullptr);
    winlite::Workers::Limit(64);
    EXPECT_NE(AfxBeginThread([](LPVOID) { return 0U; }, nullptr), nullptr) << "it deletes itself";
    EXPECT_FALSE(::SetThreadPriority(nullptr, 0) || ::ResumeThread(nullptr) != 0xFFFFFFFF);
}

TEST_F(SyncTest, TheLoopWaitsForWorkersThatMayPost)
{
    const HWND hWnd = MakeWindow();
    desktop.DispatchPending();
    CEvent evtPost, evtEnd;
    {
        CWorker worker(
            [&]
            {
                evtPost.Lock();
                ::Sleep(20);
                ::PostMessage(hWnd, WM_USER, 7, 0);
                evtEnd.Lock();
            });
        MSG msg;
        evtPost.SetEvent();
        EXPECT_EQ(::GetMessage(&msg, nullptr, 0, 0), TRUE);
        EXPECT_EQ(msg.wParam, 7U);
        EXPECT_EQ(::GetMessage(&msg, nullptr, 0, 0), -1) << "it sleeps until somebody wakes it";
        EXPECT_FALSE(desktop.WaitUntilWorkersAskedForPointer(1));
        evtEnd.SetEvent();
    }
    ::DestroyWindow(hWnd);
}

} // namespace
