#include "Recorder.h"

using PaintTest = UserTest;

TEST_F(PaintTest, ClippingStylesDecideWhatIsPaintedAndSeen)
{
    const struct
    {
        const char* pszWhat;
        DWORD dwParent;
        DWORD dwChildren;
        const char* pszFirst; ///< The picture after creation.
        const char* pszLog;   ///< What is painted after the parent was invalidated.
    } vCases[] = {
        {"without clipping the later child covers the first", 0, 0, "AAAAPP|AABBBB|AABBBB|PPBBBB",
         "Ppaint(0,0,6,4) Apaint(0,0,4,3) Bpaint(0,0,4,3)"},
        {"a child under its sibling", 0, WS_CLIPSIBLINGS, "AAAAPP|AAAABB|AAAABB|PPBBBB",
         "Ppaint(0,0,6,4) Apaint(0,0,4,3) Bpaint(0,0,4,3)"},
        {"a parent that leaves its children alone", WS_CLIPCHILDREN, WS_CLIPSIBLINGS, "AAAAPP|AAAABB|AAAABB|PPBBBB",
         "Ppaint(0,0,6,4)"},
    };
    for (const auto& test : vCases)
    {
        SCOPED_TRACE(test.pszWhat);
        ::SetWindowLongPtr(hTop, GWL_STYLE, static_cast<LONG_PTR>(WS_POPUP | WS_VISIBLE | test.dwParent));
        const HWND hA = Make('A', WS_VISIBLE | test.dwChildren, {0, 0, 4, 3}, hTop);
        const HWND hB = Make('B', WS_VISIBLE | test.dwChildren, {2, 1, 9, 3}, hTop);
        ::MoveWindow(hB, 2, 1, 4, 3, TRUE);
        desktop.DispatchPending();
        EXPECT_EQ(PictureText(), test.pszFirst);
        TakeLog();
        ::InvalidateRect(hTop, nullptr, FALSE);
        EXPECT_EQ(LogAfterDispatch(), test.pszLog);
        EXPECT_EQ(PictureText(), test.pszFirst);
        ::DestroyWindow(hA);
        ::DestroyWindow(hB);
        desktop.DispatchPending();
        EXPECT_EQ(PictureText(), "PPPPPP|PPPPPP|PPPPPP|PPPPPP") << "what they covered is painted";
    }
}

TEST_F(PaintTest, HidingUncoversWhatIsBeneath)
{
    for (const DWORD dwClip : {DWORD{0}, WS_CLIPCHILDREN})
    {
        SCOPED_TRACE(dwClip);
        ::SetWindowLongPtr(hTop, GWL_STYLE, static_cast<LONG_PTR>(WS_POPUP | WS_VISIBLE | dwClip));
        const HWND hA = Make('A', WS_VISIBLE, {0, 0, 3, 3}, hTop);
        const HWND hB = Make('B', WS_VISIBLE | WS_CLIPSIBLINGS, {1, 1, 5, 3}, hTop);
        desktop.DispatchPending();
        TakeLog();

        EXPECT_TRUE(::ShowWindow(hA, SW_HIDE));
        EXPECT_EQ(LogAfterDispatch(), "Ashow0 Ppaint Perase(0,0,3,3) Bpaint Berase(0,0,2,2)");
        EXPECT_EQ(PictureText(), "PPPPPP|PBBBBB|PBBBBB|PBBBBB");
        EXPECT_FALSE(::ShowWindow(hA, SW_HIDE)) << "it was hidden already";
        EXPECT_TRUE(::MoveWindow(hA, 0, 0, 4, 3, TRUE));
        EXPECT_EQ(LogAfterDispatch(), "Achanging Achanged Asize4,3") << "a hidden window causes no repaint";

        EXPECT_FALSE(::ShowWindow(hA, SW_SHOW));
        EXPECT_EQ(LogAfterDispatch(), "Ashow1 Apaint Aerase(0,0,4,3)");
        ::MoveWindow(hA, 0, 0, 4, 2, TRUE);
        desktop.DispatchPending();
        EXPECT_EQ(PictureText(), "AAAAPP|AAAABB|PBBBBB|PBBBBB");
        ::DestroyWindow(hA);
        ::DestroyWindow(hB);
    }
}

TEST_F(PaintTest, ShowingAndRestoringAParentPaintsItsChildren)
{
    ::SetWindowLongPtr(hTop, GWL_STYLE, static_cast<LONG_PTR>(WS_POPUP | WS_CLIPCHILDREN));
    const HWND hA = Make('A', WS_VISIBLE, {1, 1, 2, 2}, hTop);
    EXPECT_FALSE(::IsWindowVisible(hA));
    ::ShowWindow(hTop, SW_SHOW);
    desktop.DispatchPending();
    EXPECT_EQ(PictureText(), "PPPPPP|PAAPPP|PAAPPP|PPPPPP");
    ::MoveWindow(hTop, 0, 0, 5, 3, TRUE);
    desktop.DispatchPending();
    EXPECT_EQ(PictureText(), "PPPPP|PAAPP|PAAPP") << "a new size is a new picture";
    TakeLog();
    ::ShowWindow(hTop, SW_MINIMIZE);
    EXPECT_TRUE(::IsIconic(hTop));
    ::InvalidateRect(hA, nullptr, TRUE);
    EXPECT_EQ(LogAfterDispatch(), "Psize0,0");
    ::ShowWindow(hTop, SW_RESTORE);
    EXPECT_EQ(LogAfterDispatch(), "Psize5,3 Ppaint Perase(0,0,5,3) Apaint Aerase(0,0,2,2)");
}

TEST_F(PaintTest, InvalidAreasGatherUntilTheyArePainted)
{
    const RECT rcFirst = {0, 0, 2, 1};
    const RECT rcOther = {3, 2, 99, 3};
    ::InvalidateRect(hTop, &rcFirst, TRUE);
    ::InvalidateRect(hTop, &rcOther, FALSE);
    RECT rcUpdate;
    EXPECT_TRUE(::GetUpdateRect(hTop, &rcUpdate, FALSE));
    EXPECT_EQ(rcUpdate, (RECT{0, 0, 6, 3}));
    EXPECT_EQ(TakeLog(), "");
    ::UpdateWindow(hTop);
    ::UpdateWindow(hTop);
    EXPECT_EQ(TakeLog(), "Ppaint Perase(0,0,6,3)") << "the request to erase stays, and is met once";

    ::InvalidateRect(hTop, &rcOther, FALSE);
    ::ValidateRect(hTop, &rcOther);
    EXPECT_FALSE(::GetUpdateRect(hTop, &rcUpdate, FALSE));
    EXPECT_EQ(LogAfterDispatch(), "");
}

TEST_F(PaintTest, APaintInsideAPaintComesOnlyForWhatBecameInvalidAgain)
{
    Hooks[{'P', WM_PAINT}] = [this](HWND hWnd)
    {
        ::UpdateWindow(hWnd);
        Hooks.clear();
        const RECT rc = {1, 1, 2, 2};
        ::InvalidateRect(hWnd, &rc, FALSE);
        ::UpdateWindow(hWnd);
    };
    ::InvalidateRect(hTop, nullptr, FALSE);
    EXPECT_EQ(LogAfterDispatch(), "Ppaint(0,0,6,4) Ppaint(1,1,2,2)");
}

TEST_F(PaintTest, OnlyDamageIsPresentedAndOnlyOnceAndOnlyWhenShown)
{
    const HWND hA = Make('A', WS_VISIBLE, {1, 1, 2, 2}, hTop);
    desktop.DispatchPending();
    const int nBefore = desktop.PresentCount(hTop);
    desktop.DispatchPending();
    EXPECT_EQ(desktop.PresentCount(hTop), nBefore);
    const auto drawInChild = [hA]
    {
        const HDC hDC = ::GetDC(hA);
        const RECT rc = {-9, -9, 99, 1};
        ::FillRect(hDC, &rc, static_cast<HBRUSH>(::GetStockObject(BLACK_BRUSH)));
        EXPECT_EQ(::ReleaseDC(hA, hDC), 1);
    };
    drawInChild();
    EXPECT_EQ(PictureText(), "PPPPPP|P..PPP|PAAPPP|PPPPPP");
    desktop.DispatchPending();
    EXPECT_EQ(desktop.PresentCount(hTop), nBefore + 1);
    ::ShowWindow(hA, SW_HIDE);
    drawInChild();
    EXPECT_EQ(PictureText(), "PPPPPP|P..PPP|PAAPPP|PPPPPP") << "a hidden window has nothing visible to draw on";
    ::ShowWindow(hTop, SW_MINIMIZE);
    desktop.DispatchPending();
    EXPECT_EQ(desktop.PresentCount(hTop), nBefore + 1);
}

TEST_F(PaintTest, ALongHandlerIsShownAtTheScreensPace)
{
    const auto repaint = [this]
    {
        ::InvalidateRect(hTop, nullptr, FALSE);
        ::UpdateWindow(hTop);
        return desktop.PresentCount(hTop);
    };
    desktop.Advance(100);
    const int nBefore = repaint();
    EXPECT_EQ(repaint(), nBefore) << "no time has passed";
    desktop.Advance(16);
    EXPECT_EQ(repaint(), nBefore + 1);
}

TEST_F(PaintTest, OnlyALoopThatFollowsThePointerWaitsForTheScreen)
{
    bool bAsksOnce = false, bAsksAgain = false;
    const auto repaintThrice = [&](HWND hWnd)
    {
        for (int i = 0; i < 3; ++i)
        {
            POINT pt;
            if (bAsksAgain || (bAsksOnce && i == 1))
                ::GetCursorPos(&pt);
            ::InvalidateRect(hWnd, nullptr, FALSE);
            ::UpdateWindow(hWnd);
        }
    };
    Hooks[{'P', WM_MOUSEMOVE}] = repaintThrice;
    const struct
    {
        const char* pszWhat;
        bool bCaptured, bAsksOnce, bAsksAgain;
        DWORD uMsPerMove;
    } vCases[] = {
        {"draws a lot", true, false, false, 0},
        {"tells where the pointer is", true, true, false, 0},
        {"moves over the window only", false, false, true, 0},
        {"scrolls while the pointer is at the edge", true, false, true, 16},
    };
    for (const auto& c : vCases)
    {
        ::SetCapture(c.bCaptured ? hTop : nullptr);
        bAsksOnce = c.bAsksOnce;
        bAsksAgain = c.bAsksAgain;
        const DWORD uStart = ::GetTickCount();
        const MSG move = {hTop, WM_MOUSEMOVE, 0, 0, 0, {}};
        for (int i = 0; i < 50; ++i)
            ::DispatchMessage(&move);
        EXPECT_EQ(::GetTickCount() - uStart, 50 * c.uMsPerMove) << c.pszWhat;
        ::ReleaseCapture();
    }
}
