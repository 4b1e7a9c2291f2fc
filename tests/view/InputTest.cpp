#include "support/RecordingTool.h"
#include "support/ToolTest.h"
#include "view/Notifications.h"

constexpr auto RIGHT = winlite::MouseButton::Right;

class InputTest : public CToolTest<CRecordingTool>
{
protected:
    InputTest() : CToolTest(1000, 800, strLog) {}
    void SetUp() override
    {
        CToolTest::SetUp();
        user->Click(CPoint(5, 5)); // takes the focus
        user->Wait(600);
        strLog.clear();
    }
};

TEST_F(InputTest, ToolIsAskedFirstAndConsumingEndsTheRest)
{
    const auto click = [](CUser& u) { u.Click(CPoint(7, 8)); };
    const struct
    {
        const char* pszWhat;
        std::function<void(CUser&)> act;
        const char* pszConsumed; ///< The call that the tool answers with nonzero.
        const char* pszLog;
    } vCases[] = {
        {"press and release", click, "", "down(1:7,8) LBUTTONDOWN up(0:7,8) LBUTTONUP "},
        {"press consumed", click, "down", "down(1:7,8) up(0:7,8) LBUTTONUP "},
        {"release consumed", click, "up", "down(1:7,8) LBUTTONDOWN up(0:7,8) "},
        {"move", [](CUser& u) { u.Move(CPoint(9, 10)); }, "", "move(0:9,10) MOUSEMOVE "},
        {"move consumed", [](CUser& u) { u.Move(CPoint(11, 10)); }, "move", "move(0:11,10) "},
        {"right button is never the tool's",
         [](CUser& u) { u.Press(CPoint(7, 8), RIGHT), u.Release(CPoint(7, 8), RIGHT); }, "down",
         "RBUTTONDOWN RBUTTONUP "},
        {"wheel of any size is one step", [](CUser& u) { u.Wheel(-3); }, "",
         "wheel(-3) key(40s) DISPLAYCHANGED scrolled parent-wheel parent-wheel "},
        {"wheel consumed", [](CUser& u) { u.Wheel(-120); }, "wheel", "wheel(-120) parent-wheel "},
        {"wheel's key consumed", [](CUser& u) { u.Wheel(120); }, "key",
         "wheel(120) key(38s) parent-wheel parent-wheel "},
        {"arrow", [](CUser& u) { u.Type(VK_RIGHT); }, "", "key(39) keyup(39) "},
        {"Ctrl and arrow", [](CUser& u) { u.KeyDown(VK_CONTROL), u.Type(VK_RIGHT), u.KeyUp(VK_CONTROL); }, "",
         "key(17) key(39s) DISPLAYCHANGED scrolled keyup(39) keyup(17) "},
        {"Ctrl and wheel", [](CUser& u) { u.KeyDown(VK_CONTROL), u.Wheel(-120), u.KeyUp(VK_CONTROL); }, "",
         "key(17) wheel(-120) key(39s) DISPLAYCHANGED scrolled parent-wheel parent-wheel keyup(17) "},
        {"Alt alone", [](CUser& u) { u.Type(VK_MENU); }, "", "syskey(18) syskeyup(18) "},
        {"Alt with another key", [](CUser& u) { u.KeyDown(VK_MENU), u.Type('A'), u.KeyUp(VK_MENU); }, "",
         "syskey(18) syskey(65) syskeyup(65) keyup(18) "},
        {"Alt with a click", [](CUser& u) { u.KeyDown(VK_MENU), u.Click(CPoint(7, 8)), u.KeyUp(VK_MENU); }, "",
         "syskey(18) down(1:7,8) LBUTTONDOWN up(0:7,8) LBUTTONUP syskeyup(18) "},
        {"Alt and Ctrl", [](CUser& u) { u.KeyDown(VK_MENU), u.Type(VK_CONTROL), u.KeyUp(VK_MENU); }, "",
         "syskey(18) key(17) syskeyup(17) keyup(18) "},
    };
    for (const auto& c : vCases)
    {
        SCOPED_TRACE(c.pszWhat);
        pView->SetDispPosition(100, 100);
        user->Wait(600);
        strLog.clear();
        tool.results[c.pszConsumed] = 1;
        c.act(*user);
        EXPECT_EQ(TakeLog(), c.pszLog);
        tool.results.clear();
    }
}

TEST_F(InputTest, TheReleaseAfterADoubleClickIsSwallowed)
{
    user->Click({50, 60});
    user->Click({51, 61});
    EXPECT_EQ(TakeLog(), "down(1:50,60) LBUTTONDOWN up(0:50,60) LBUTTONUP double(1:51,61) ");
    user->Click({51, 61});
    EXPECT_EQ(TakeLog(), "down(1:51,61) LBUTTONDOWN up(0:51,61) LBUTTONUP ") << "a third click starts over";
    user->Click({53, 61});
    EXPECT_EQ(TakeLog(), "down(1:53,61) LBUTTONDOWN up(0:53,61) LBUTTONUP ") << "too far away";
    user->Wait(510);
    strLog.clear();
    user->Click({53, 61});
    EXPECT_EQ(TakeLog(), "down(1:53,61) LBUTTONDOWN up(0:53,61) LBUTTONUP ") << "too late";
    user->Press({53, 61});
    user->Release({53, 61}, RIGHT);
    user->Release({53, 61});
    EXPECT_EQ(TakeLog(), "double(1:53,61) up(0:53,61) LBUTTONUP ") << "whichever release comes next is swallowed";
}

TEST_F(InputTest, KeysScrollByATenthOfTheView)
{
    const struct
    {
        UINT uKey;
        Gdiplus::Point ptFrom, ptTo;
    } vCases[] = {
        {VK_LEFT, {100, 100}, {72, 100}},   {VK_LEFT, {5, 100}, {0, 100}},     {VK_LEFT, {0, 100}, {0, 100}},
        {VK_RIGHT, {100, 100}, {128, 100}}, {VK_RIGHT, {710, 9}, {717, 9}},    {VK_RIGHT, {717, 9}, {717, 9}},
        {VK_UP, {100, 100}, {100, 82}},     {VK_DOWN, {100, 100}, {100, 118}}, {VK_DOWN, {9, 610}, {9, 617}},
    };
    user->KeyDown(VK_CONTROL);
    for (const auto& c : vCases)
    {
        pView->SetDispPosition(c.ptFrom.X, c.ptFrom.Y);
        user->Type(c.uKey);
        EXPECT_EQ(pView->ptDispPos(), c.ptTo) << c.uKey;
    }
    user->KeyUp(VK_CONTROL);
    pView->ShowScrollBar(FALSE);
    pView->MoveWindow(0, 0, 8, 200);
    pView->SetDispPosition(100, 100);
    user->KeyDown(VK_CONTROL);
    user->Type(VK_RIGHT);
    EXPECT_EQ(pView->ptDispPos(), Gdiplus::Point(101, 100)) << "at least one pixel";
    pView->SetZoom(1e8);
    pView->SetDispPosition(0x7FFFFFFF - 9, 0);
    user->Type(VK_RIGHT);
    EXPECT_EQ(pView->ptDispPos().X, 0x7FFFFFFF - 8) << "the last position there is";
    user->KeyUp(VK_CONTROL);
}

TEST_F(InputTest, ArrowsOnTheirWayToAScrollBarAreTheViews)
{
    pView->m_sbVert.SetFocus();
    pView->SetDispPosition(100, 100);
    strLog.clear();
    user->KeyDown(VK_DOWN);
    EXPECT_EQ(TakeLog(), "key(40) ");
    EXPECT_EQ(pView->ptDispPos(), Gdiplus::Point(100, 100));
    user->Type(VK_NEXT);
    EXPECT_EQ(pView->ptDispPos(), Gdiplus::Point(100, 100 + 184)) << "other keys are the bar's";
}

TEST_F(InputTest, TheWheelOfAnUnfocusedProgramGoesWhereThePointerIs)
{
    winlite::QueueActivation(pHost->m_hWnd, false);
    pView->SetDispPosition(100, 100);
    user->Settle();
    strLog.clear();
    user->Wheel(-120, {2000, 2000});
    EXPECT_EQ(TakeLog(), "");
    user->Wheel(-120, {50, 60});
    EXPECT_EQ(pView->ptDispPos(), Gdiplus::Point(100, 118));
}

TEST_F(InputTest, TheParentFindsThePointOfTheVeryEvent)
{
    pView->SetZoom(2);
    pView->SetDispPosition(100, 60);
    std::vector<CPoint> vPoints;
    pHost->answer = [&](UINT uCode)
    {
        if (uCode == Pixtane::PVN_MOUSEMOVE || uCode == Pixtane::PVN_LBUTTONDOWN)
            vPoints.push_back(pView->GetCursorPos(TRUE));
        return 0;
    };
    user->Move({20, 40});
    user->Press({30, 50});
    tool.results["move"] = 1;
    user->Move({70, 80});
    EXPECT_EQ(pView->GetCursorPos(FALSE), CPoint(30, 50)) << "a consumed move is not the view's";
    EXPECT_EQ(vPoints, (std::vector{CPoint(60, 50), CPoint(65, 55)}));
}

TEST_F(InputTest, AnEmptyViewKeepsFocusCursorAndTimers)
{
    pView->ClearBitmap(TRUE);
    ::SetFocus(pHost->m_hWnd);
    ::SetCursor(nullptr);
    strLog.clear();
    user->Click({5, 5});
    user->Move({6, 6});
    user->Wheel(-120);
    user->Type(VK_SPACE);
    user->Type(VK_MENU);
    EXPECT_EQ(TakeLog(), "");
    EXPECT_EQ(::GetFocus(), pView->m_hWnd);
    EXPECT_EQ(::GetCursor(), pView->GetDefCursor());
    user->Wait(260);
    EXPECT_EQ(TakeLog(), "timer(100) ");
}

TEST_F(InputTest, CursorsOverImageToolAndBars)
{
    user->Move({50, 50});
    EXPECT_EQ(::GetCursor(), pView->GetDefCursor());
    user->Move({290, 50}); // the vertical bar
    EXPECT_EQ(::GetCursor(), ::LoadCursor(nullptr, IDC_ARROW));
    user->Move({290, 190}); // the corner
    EXPECT_EQ(::GetCursor(), ::LoadCursor(nullptr, IDC_ARROW));
    tool.results["cursor"] = 1;
    ::SetCursor(nullptr);
    user->Move({50, 50});
    EXPECT_EQ(::GetCursor(), nullptr) << "the tool has set it";
}

TEST_F(InputTest, ThousandsOfMovesBetweenTwoPaintsBecomeOne)
{
    for (int i = 0; i < 5000; ++i)
        winlite::QueuePointerMove(pHost->m_hWnd, {10 + i % 200, 20 + 30});
    winlite::QueueButton(pHost->m_hWnd, winlite::MouseButton::Left, true, {10 + 7, 20 + 8});
    winlite::QueuePointerMove(pHost->m_hWnd, {10 - 500, 20 + 3});
    winlite::QueueButton(pHost->m_hWnd, winlite::MouseButton::Left, false, {10 - 500, 20 + 3});
    user->Settle();
    EXPECT_EQ(TakeLog(), "move(0:199,30) MOUSEMOVE down(1:7,8) LBUTTONDOWN ")
        << "what leaves the window without capture is nobody's";
}

TEST_F(InputTest, CapturedMiceReportNegativePointsAndLosingIsTold)
{
    tool.inside = [&](const std::string& strCall)
    {
        if (strCall == "down")
            pView->SetCapture();
    };
    user->Press({7, 8});
    user->Move({-30, 900});
    winlite::QueueCaptureLost();
    user->Settle();
    user->Release({-30, 900});
    EXPECT_EQ(TakeLog(), "down(1:7,8) LBUTTONDOWN move(1:-30,900) MOUSEMOVE capture(none) ");
    user->Wait(600);
    user->Press({7, 8});
    CTestView other;
    ASSERT_TRUE(other.Create(CRect(0, 0, 5, 5), pHost.get(), 99, 0));
    strLog.clear();
    other.SetCapture();
    EXPECT_EQ(TakeLog(), "capture(other) ");
    ::ReleaseCapture();
}

TEST_F(InputTest, DisabledMinimisedAndSizelessWindowsGetNothing)
{
    pView->EnableWindow(FALSE);
    user->Click({5, 5});
    user->Type('A');
    EXPECT_EQ(TakeLog(), "");
    pView->EnableWindow(TRUE);
    pView->SetFocus();
    pHost->ShowWindow(SW_MINIMIZE);
    user->Click({5, 5});
    user->Type('A');
    EXPECT_EQ(TakeLog(), "");
    pHost->ShowWindow(SW_RESTORE);
    pView->MoveWindow(0, 0, 0, 0);
    strLog.clear();
    user->Click({5, 5});
    EXPECT_EQ(TakeLog(), "");
}

TEST_F(InputTest, WildMessagesAreSafe)
{
    std::srand(4711);
    for (int i = 0; i < 20000; ++i)
    {
        static constexpr UINT MESSAGES[] = {WM_MOUSEMOVE,      WM_LBUTTONDOWN, WM_LBUTTONUP,  WM_LBUTTONDBLCLK,
                                            WM_RBUTTONDOWN,    WM_RBUTTONUP,   WM_MOUSEWHEEL, WM_KEYDOWN,
                                            WM_KEYUP,          WM_SYSKEYDOWN,  WM_SYSKEYUP,   WM_TIMER,
                                            WM_CAPTURECHANGED, WM_SETCURSOR,   WM_HSCROLL,    WM_VSCROLL};
        const auto wParam = static_cast<WPARAM>(std::rand()) << (std::rand() % 3 * 16);
        const auto lParam = static_cast<LPARAM>(std::rand()) << (std::rand() % 2 * 16);
        pView->SendMessage(MESSAGES[std::rand() % std::size(MESSAGES)], wParam, lParam);
    }
    strLog.clear();
    Screen();
}

TEST_F(InputTest, PostedRecordsBelongToTheirReceiver)
{
    EXPECT_EQ(pView->NotifyParent(Pixtane::PVN_CLONESTAMP_NOSOURCE, TRUE), 0);
    EXPECT_EQ(TakeLog(), "") << "it arrives later";
    NMHDR* pRecord = nullptr;
    MSG msg;
    ASSERT_TRUE(::PeekMessage(&msg, pHost->m_hWnd, WM_NOTIFY, WM_NOTIFY, PM_REMOVE));
    pRecord = reinterpret_cast<NMHDR*>(msg.lParam);
    EXPECT_EQ(pRecord->code, 0x133u);
    EXPECT_EQ(pRecord->idFrom, VIEW_ID);
    delete pRecord;
    pView->NotifyParent(Pixtane::PVN_CLONESTAMP_NOSOURCE,
                        TRUE); // its parent goes before it arrives: the leak check would tell
    pHost->answer = [](UINT uCode) { return uCode == Pixtane::PVN_DISPLAYCHANGED ? LRESULT{42} : LRESULT{0}; };
    EXPECT_EQ(pView->NotifyParent(6, FALSE), 42);
}
