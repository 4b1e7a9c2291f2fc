#include "headless/HeadlessDesktop.h"
#include "user/Input.h"
#include "user/Window.h"

#include <gtest/gtest.h>
#include <string>

using namespace winlite;

namespace
{

std::string s_strLog;
bool s_bFollow = true;

/// A parent that moves the bar as it is told to, and logs what it is told.
LRESULT ParentProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    if (uMessage != WM_HSCROLL && uMessage != WM_VSCROLL)
        return ::DefWindowProc(hWnd, uMessage, wParam, lParam);
    static constexpr const char* NAMES[] = {"less",  "more",  "page-less", "page-more", "drop",
                                            "track", "begin", "end",       "over"};
    const int iCode = LOWORD(wParam);
    const HWND hBar = reinterpret_cast<HWND>(lParam);
    SCROLLINFO info = {sizeof(SCROLLINFO), SIF_ALL, 0, 0, 0, 0, 0};
    ::GetScrollInfo(hBar, SB_CTL, &info);
    s_strLog += NAMES[iCode];
    if (iCode == SB_THUMBTRACK || iCode == SB_THUMBPOSITION)
        s_strLog += std::to_string(info.nTrackPos);
    s_strLog += " ";
    constexpr int STEPS[] = {-4, 4, -30, 30};
    if (iCode <= SB_PAGERIGHT)
        info.nPos += STEPS[iCode];
    else if (iCode == SB_THUMBTRACK || iCode == SB_THUMBPOSITION)
        info.nPos = info.nTrackPos;
    info.fMask = SIF_POS;
    if (s_bFollow)
        ::SetScrollInfo(hBar, SB_CTL, &info, TRUE);
    return 0;
}

class ScrollBarTrackingTest : public testing::Test
{
protected:
    void SetUp() override
    {
        WNDCLASS wndClass = {};
        wndClass.lpfnWndProc = &ParentProc;
        wndClass.lpszClassName = L"scroll-parent";
        ::RegisterClass(&wndClass);
        m_hParent =
            ::CreateWindowEx(0, L"scroll-parent", L"", WS_VISIBLE, 0, 0, 300, 200, nullptr, nullptr, nullptr, nullptr);
        m_hBar = ::CreateWindowEx(0, L"SCROLLBAR", L"", WS_CHILD | WS_VISIBLE | SBS_VERT, 100, 0, 17, 134, m_hParent,
                                  nullptr, nullptr, nullptr);
        // A shaft of 100 pixels, a thumb of 50, and positions from 0 to 50: a pixel a step.
        const SCROLLINFO info = {sizeof(SCROLLINFO), SIF_ALL, 0, 99, 50, 0, 0};
        ::SetScrollInfo(m_hBar, SB_CTL, &info, TRUE);
        s_strLog.clear();
        s_bFollow = true;
    }
    void TearDown() override { ::DestroyWindow(m_hParent); }

    void Move(int x, int y)
    {
        QueuePointerMove(m_hParent, {100 + x, y});
        desktop.DispatchPending();
    }
    void Button(bool bDown, int x, int y)
    {
        QueueButton(m_hParent, MouseButton::Left, bDown, {100 + x, y});
        desktop.DispatchPending();
    }
    void Wait(int iMs)
    {
        for (; iMs > 0; iMs -= 10)
        {
            desktop.Advance(10);
            desktop.DispatchPending();
        }
    }
    std::string TakeLog() { return std::exchange(s_strLog, {}); }

    HeadlessDesktop desktop;
    HWND m_hParent = {};
    HWND m_hBar = {};
};

} // namespace

TEST_F(ScrollBarTrackingTest, ArrowsAndPagesRepeatWhileHeld)
{
    Button(true, 8, 130);
    EXPECT_EQ(TakeLog(), "more ");
    Wait(290);
    EXPECT_EQ(TakeLog(), "");
    Wait(110);
    EXPECT_EQ(TakeLog(), "more more more ");
    Move(8, 60); // off the arrow: it waits
    Wait(200);
    Button(false, 8, 130);
    Wait(500);
    EXPECT_EQ(TakeLog(), "over ");

    Button(true, 8, 17 + 16 + 50); // the first pixel past the thumb
    Wait(1000);
    EXPECT_EQ(TakeLog(), "page-more ") << "a page stops where the thumb meets the pointer";
}

TEST_F(ScrollBarTrackingTest, TheThumbFollowsThePointerAndSnapsBackWhenFarAway)
{
    Button(true, 8, 17 + 10);
    EXPECT_EQ(TakeLog(), "");
    Move(8, 17 + 30);
    Move(8, 17 + 30); // no new position: nothing to tell
    Move(-100, 17 + 500);
    Move(-400, 17 + 30);
    Move(8, 17 + 40);
    Button(false, 8, 17 + 40);
    EXPECT_EQ(TakeLog(), "track20 track50 track0 track30 drop30 over ");
    s_bFollow = false;
    Button(true, 8, 17 + 40);
    Move(8, 17 + 45);
    Button(false, 8, 17 + 45);
    SCROLLINFO info = {sizeof(SCROLLINFO), SIF_ALL, 0, 0, 0, 0, 0};
    ::GetScrollInfo(m_hBar, SB_CTL, &info);
    EXPECT_EQ(info.nPos, 30) << "the bar never moves by itself";
    EXPECT_EQ(info.nTrackPos, 30);
}

TEST_F(ScrollBarTrackingTest, LosingTheMouseEndsItAndSoDoesLosingTheBar)
{
    Button(true, 8, 130);
    QueueCaptureLost();
    desktop.DispatchPending();
    Wait(500);
    EXPECT_EQ(TakeLog(), "more over ");
    Button(true, 8, 130);
    ::DestroyWindow(m_hBar);
    Wait(500);
    Button(false, 8, 130);
    EXPECT_EQ(TakeLog(), "more ");
}

TEST_F(ScrollBarTrackingTest, KeysScrollTheFocusedBar)
{
    QueueActivation(m_hParent, true);
    desktop.DispatchPending();
    ::SetFocus(m_hBar);
    for (const UINT uKey : {VK_DOWN, VK_NEXT, VK_LEFT, VK_PRIOR, VK_HOME, VK_END, VK_SPACE})
    {
        QueueKey({uKey, true});
        QueueKey({uKey, false});
    }
    desktop.DispatchPending();
    EXPECT_EQ(TakeLog(), "more over page-more over less over page-less over begin over end over over ");
}
