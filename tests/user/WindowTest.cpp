#include "Recorder.h"

#include <climits>

using WindowTest = UserTest;

TEST_F(WindowTest, CreatingMovingAndDestroyingSendTheirMessagesInOrder)
{
    const HWND hA = Make('A', 0, {1, 2, 5, 4}, hTop);
    EXPECT_EQ(TakeLog(), "Anccreate Acreate Asize5,4 Amove1,2 Pnotify");
    const HWND hB = Make('B', WS_VISIBLE, {-1, 0, 2, 2}, hA);
    EXPECT_EQ(TakeLog(), "Bnccreate Bcreate Bsize2,2 Bmove-1,0 Anotify Bshow1");

    const struct
    {
        const char* pszWhat;
        RECT rc;
        const char* pszLog;
    } vMoves[] = {
        {"moved and sized", {2, 2, 6, 4}, "Achanging Achanged Amove2,2 Asize6,4"},
        {"moved", {3, 2, 6, 4}, "Achanging Achanged Amove3,2"},
        {"sized", {3, 2, 6, 5}, "Achanging Achanged Asize6,5"},
        {"as it was", {3, 2, 6, 5}, "Achanging"},
    };
    for (const auto& move : vMoves)
    {
        EXPECT_TRUE(::MoveWindow(hA, move.rc.left, move.rc.top, move.rc.right, move.rc.bottom, TRUE));
        EXPECT_EQ(TakeLog(), move.pszLog) << move.pszWhat;
    }
    EXPECT_EQ(::GetWindow(hTop, GW_CHILD), hA);
    EXPECT_EQ(::GetParent(hB), hA);
    EXPECT_TRUE(::DestroyWindow(hA));
    EXPECT_EQ(TakeLog(), "Adestroy Bdestroy Bncdestroy Ancdestroy");
    EXPECT_FALSE(::IsWindow(hA) || ::IsWindow(hB) || ::DestroyWindow(hA) || ::MoveWindow(hA, 0, 0, 1, 1, TRUE));
}

TEST_F(WindowTest, AWindowOrItsParentMayBeDestroyedInsideAnyOfItsMessages)
{
    for (const bool bParent : {false, true})
    {
        for (const UINT uMessage : {WM_NCCREATE, WM_CREATE, WM_SIZE, WM_MOVE, WM_SHOWWINDOW, WM_PAINT, WM_ERASEBKGND,
                                    WM_WINDOWPOSCHANGING, WM_WINDOWPOSCHANGED, WM_DESTROY, WM_NCDESTROY})
        {
            const HWND hQ = Make('Q', WS_VISIBLE, {0, 0, 6, 4});
            Hooks[{'A', uMessage}] = [&](HWND hWnd) { ::DestroyWindow(bParent ? hQ : hWnd); };
            const HWND hA = Make('A', WS_VISIBLE, {0, 0, 2, 2}, hQ);
            const HWND hB = hA ? Make('B', WS_VISIBLE, {0, 0, 2, 2}, hA) : nullptr;
            desktop.DispatchPending();
            ::MoveWindow(hA, 1, 1, 3, 3, TRUE);
            ::DestroyWindow(hA);
            EXPECT_FALSE(::IsWindow(hA) || ::IsWindow(hB)) << uMessage;
            EXPECT_EQ(::GetWindow(hQ, GW_CHILD), nullptr) << uMessage;
            EXPECT_NE(::IsWindow(hQ), bParent) << uMessage;
            Hooks.clear();
            ::DestroyWindow(hQ);
        }
    }
}

TEST_F(WindowTest, HidingByPositionLeavesTheFocus)
{
    for (const bool bByPosition : {false, true})
    {
        const HWND hA = Make('A', WS_VISIBLE, {0, 0, 2, 2}, hTop);
        ::SetFocus(hA);
        constexpr UINT HIDE = SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_HIDEWINDOW;
        EXPECT_TRUE(bByPosition ? ::SetWindowPos(hA, nullptr, 0, 0, 0, 0, HIDE) : ::ShowWindow(hA, SW_HIDE));
        EXPECT_FALSE(::IsWindowVisible(hA));
        EXPECT_EQ(::GetFocus(), bByPosition ? hA : hTop);
        ::DestroyWindow(hA);
    }
}

TEST_F(WindowTest, WildSizesAndPositionsAreLimited)
{
    constexpr int vWild[] = {INT_MIN, INT_MIN + 1, -40000, -1, 0, 32768, INT_MAX - 1, INT_MAX};
    const HWND hA = Make('A', WS_VISIBLE, {0, 0, 2, 2}, hTop);
    for (const int iPosition : vWild)
    {
        for (const int iSize : vWild)
        {
            const HWND hB = Make('B', WS_VISIBLE, {iPosition, iPosition, iSize, iSize}, hA);
            ::MoveWindow(hA, iPosition, iPosition, iSize, iSize, TRUE);
            ::MoveWindow(hTop, iPosition, iPosition, 6, 4, TRUE);
            const RECT rcInvalid = {iPosition, iPosition, iSize, iSize};
            ::InvalidateRect(hA, &rcInvalid, TRUE);
            desktop.DispatchPending();
            RECT rcClient;
            EXPECT_TRUE(::GetClientRect(hB, &rcClient));
            EXPECT_EQ(rcClient, (RECT{0, 0, std::clamp(iSize, 0, 32767), std::clamp(iSize, 0, 32767)}));
            POINT pt = {iPosition, iSize};
            EXPECT_TRUE(::ClientToScreen(hB, &pt));
            ::DestroyWindow(hB);
        }
    }
}

TEST_F(WindowTest, TheVirtualScreenIsTheBoxAroundAllScreens)
{
    struct CTwoScreens : winlite::HeadlessDesktop
    {
        RECT VirtualScreen() override { return {-1280, -100, 1920, 1080}; }
    };
    const auto rcVirtual = []
    {
        const int x = ::GetSystemMetrics(SM_XVIRTUALSCREEN), y = ::GetSystemMetrics(SM_YVIRTUALSCREEN);
        return RECT{x, y, x + ::GetSystemMetrics(SM_CXVIRTUALSCREEN), y + ::GetSystemMetrics(SM_CYVIRTUALSCREEN)};
    };
    EXPECT_EQ(rcVirtual(), (RECT{0, 0, 1920, 1080}));
    {
        CTwoScreens desktopWide;
        EXPECT_EQ(rcVirtual(), desktopWide.VirtualScreen());
    }
    winlite::SetDesktop(&desktop);
}
