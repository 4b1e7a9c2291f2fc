#include "gdi/Surface.h"
#include "Recorder.h"
#include "user/Input.h"

#include <atomic>
#include <thread>

using QueueTest = UserTest;

TEST_F(QueueTest, PostedMessagesComeBeforeTheEndThenPaintsThenTimers)
{
    ::SetTimer(hTop, 5, 10, nullptr);
    desktop.Advance(10);
    ::InvalidateRect(hTop, nullptr, FALSE);
    ::PostQuitMessage(3);
    ::PostMessage(hTop, WM_USER, 1, 0);
    ::PostMessage(hTop, WM_USER, 2, 0);
    const struct
    {
        UINT uMessage;
        WPARAM wParam;
    } vExpected[] = {{WM_USER, 1}, {WM_USER, 2}, {WM_QUIT, 3}, {WM_PAINT, 0}, {WM_TIMER, 5}};
    for (const auto& expected : vExpected)
    {
        MSG msg;
        EXPECT_TRUE(::PeekMessage(&msg, nullptr, 0, 0, PM_NOREMOVE));
        EXPECT_EQ(::GetMessage(&msg, nullptr, 0, 0), expected.uMessage != WM_QUIT);
        EXPECT_EQ(msg.message, expected.uMessage);
        EXPECT_EQ(msg.wParam, expected.wParam);
        ::DispatchMessage(&msg);
    }
    ::KillTimer(hTop, 5);
    MSG msg;
    EXPECT_EQ(::GetMessage(&msg, nullptr, 0, 0), -1) << "nothing can come any more";
}

TEST_F(QueueTest, AskingForPaintsSeesOnlyThemAndClearsNothing)
{
    const HWND hA = Make('A', WS_VISIBLE, {0, 0, 2, 2}, hTop);
    const HWND hB = Make('B', WS_VISIBLE, {3, 0, 2, 2}, hTop);
    desktop.DispatchPending();
    const auto isPaintPending = [](HWND hWnd, UINT uFlags)
    {
        MSG msg;
        return ::PeekMessage(&msg, hWnd, 0, 0, uFlags | PM_QS_PAINT) && msg.message == WM_PAINT;
    };
    ::PostMessage(hTop, WM_USER, 0, 0);
    EXPECT_FALSE(isPaintPending(nullptr, PM_NOREMOVE));
    ::InvalidateRect(hA, nullptr, FALSE);
    for (const HWND hWnd : {HWND{}, hTop, hA})
        EXPECT_TRUE(isPaintPending(hWnd, PM_NOREMOVE) && isPaintPending(hWnd, PM_REMOVE));
    EXPECT_FALSE(isPaintPending(hB, PM_NOREMOVE));
    desktop.DispatchPending();
    EXPECT_FALSE(isPaintPending(nullptr, PM_NOREMOVE));
}

TEST_F(QueueTest, APaintThatIsNotValidatedComesAgain)
{
    bValidates = false;
    ::InvalidateRect(hTop, nullptr, FALSE);
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(winlite::PumpOneMessage());
    EXPECT_EQ(TakeLog(), "Ppaint Ppaint Ppaint");
    bValidates = true;
    EXPECT_EQ(LogAfterDispatch(), "Ppaint(0,0,6,4)");
}

TEST_F(QueueTest, TimersAreReplacedDoNotPileUpAndAreNeverFasterThan10Ms)
{
    EXPECT_EQ(::SetTimer(hTop, 5, 50, nullptr), 5u);
    desktop.Advance(20);
    EXPECT_EQ(::SetTimer(hTop, 5, 30, nullptr), 5u);
    const struct
    {
        int iAdvanceMs;
        const char* pszLog;
    } vSteps[] = {{29, ""}, {1, "Ptimer5"}, {0, ""}, {95, "Ptimer5"}, {24, ""}, {1, "Ptimer5"}};
    for (const auto& step : vSteps)
    {
        desktop.Advance(step.iAdvanceMs);
        EXPECT_EQ(LogAfterDispatch(), step.pszLog);
    }
    EXPECT_TRUE(::KillTimer(hTop, 5));
    EXPECT_FALSE(::KillTimer(hTop, 5));

    const HWND hA = Make('A', 0, {0, 0, 2, 2}, hTop);
    TakeLog();
    ::SetTimer(hA, 1, 0, nullptr);
    ::SetTimer(hTop, 1, 3, nullptr);
    EXPECT_EQ(winlite::MsToNextTimer(), 10);
    desktop.Advance(10);
    EXPECT_EQ(LogAfterDispatch(), "Atimer1 Ptimer1") << "one id on two windows makes two timers";
    ::DestroyWindow(hA);
    TakeLog();
    desktop.Advance(10);
    EXPECT_EQ(LogAfterDispatch(), "Ptimer1");
    EXPECT_EQ(::SetTimer(hA, 1, 10, nullptr), 0u);
}

TEST_F(QueueTest, AWorkerMaySampleThePointerWhileWindowsComeAndGo)
{
    // A brush's worker does this: it looks at pointer and keys, converts, and asks for a repaint.
    WNDCLASS wndClass = {};
    wndClass.lpfnWndProc = &::DefWindowProc;
    wndClass.lpszClassName = L"plain";
    ::RegisterClass(&wndClass);
    const HWND hWindow =
        ::CreateWindowEx(0, L"plain", L"", WS_VISIBLE, 0, 0, 60, 50, nullptr, nullptr, nullptr, nullptr);
    std::atomic<bool> bStop = false;
    std::atomic<int> nSamples = 0;
    std::atomic<HWND> hPassing = nullptr;
    const std::size_t nBytes = winlite::Surface::BytesInUse();
    std::thread worker(
        [&]
        {
            while (!bStop)
            {
                POINT pt;
                ::GetCursorPos(&pt);
                ::ScreenToClient(hWindow, &pt);
                const RECT rc = {pt.x, pt.y, pt.x + 1, pt.y + 1};
                ::InvalidateRect(hWindow, &rc, FALSE);
                ::ScreenToClient(hPassing, &pt);
                ::InvalidateRect(hPassing, nullptr, FALSE);
                ::PostMessage(hPassing, WM_USER + 1, 0, 0);
                EXPECT_EQ(::GetCapture(), nullptr);
                ::GetAsyncKeyState(VK_LBUTTON);
                if (nSamples % 64 == 0)
                {
                    EXPECT_TRUE(::PostMessage(hWindow, WM_USER, 0, 0));
                }
                ++nSamples;
            }
        });
    for (int i = 0; i < 300 || nSamples < 100; ++i)
    {
        winlite::QueuePointerMove(hWindow, {i % 50, i % 40});
        winlite::QueueButton(hWindow, winlite::MouseButton::Left, i % 2 == 0, {i % 50, i % 40});
        ::SetCapture(hWindow);
        hPassing = ::CreateWindowEx(0, L"SCROLLBAR", L"", WS_CHILD | WS_VISIBLE, 0, 0, 9, 9, hWindow, nullptr, nullptr,
                                    nullptr);
        ::MoveWindow(hWindow, i % 7, i % 5, 60 + i % 3, 50, TRUE);
        desktop.DispatchPending();
        ::DestroyWindow(hPassing);
    }
    ::ReleaseCapture();
    bStop = true;
    worker.join();
    MSG msg;
    EXPECT_FALSE(::PeekMessage(&msg, nullptr, WM_USER + 1, WM_USER + 1, PM_NOREMOVE)) << "for windows that are gone";
    desktop.DispatchPending();
    EXPECT_FALSE(::GetUpdateRect(hWindow, nullptr, FALSE));
    EXPECT_LE(winlite::Surface::BytesInUse(), nBytes + (std::size_t{4} << 20)) << "more than the pool keeps";
    ::DestroyWindow(hWindow);
}
