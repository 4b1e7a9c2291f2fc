#include "base/HandleTable.h"
#include "headless/HeadlessDesktop.h"
#include "mfc/Exception.h"
#include "mfc/ScrollBar.h"
#include "mfc/Thread.h"

#include <gtest/gtest.h>
#include <string>

namespace
{

/// Logs what its handlers are called with.
class CLogWnd : public CWnd
{
public:
    std::string strLog;

protected:
    void OnSize(UINT nType, int cx, int cy)
    {
        strLog += "size " + std::to_string(nType) + " " + std::to_string(cx) + "x" + std::to_string(cy) + ";";
        CWnd::OnSize(nType, cx, cy);
    }
    void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar)
    {
        strLog += "hscroll " + std::to_string(nSBCode) + " " + std::to_string(nPos) + (pScrollBar ? " bar;" : " none;");
    }
    void OnTimer(UINT_PTR nIDEvent) { strLog += "timer " + std::to_string(nIDEvent) + ";"; }
    void OnDestroy() { strLog += "destroy;"; }
    void PostNcDestroy() override { strLog += m_hWnd ? "gone with handle;" : "gone;"; }
    BOOL PreTranslateMessage(MSG* pMsg) override
    {
        strLog += pMsg->message == WM_USER ? "asked;" : "";
        return pMsg->message == WM_USER && pMsg->wParam == 1;
    }
    LRESULT WindowProc(UINT uMessage, WPARAM wParam, LPARAM lParam) override
    {
        if (uMessage == WM_USER)
            strLog += "user " + std::to_string(wParam) + ";";
        const LRESULT lResult = CWnd::WindowProc(uMessage, wParam, lParam);
        if (uMessage == WM_NCDESTROY)
            strLog += m_hWnd ? "still there;" : "last message;";
        return lResult;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CLogWnd, CWnd)
ON_WM_SIZE()
ON_WM_HSCROLL()
ON_WM_TIMER()
ON_WM_DESTROY()
END_MESSAGE_MAP()

class WndTest : public testing::Test
{
protected:
    winlite::HeadlessDesktop desktop;
    CWinApp app;
    std::size_t nHandles = winlite::OpenHandleCount();
    CLogWnd wnd;

    void SetUp() override
    {
        ASSERT_TRUE(wnd.CreateEx(0, AfxRegisterWndClass(0), L"", WS_VISIBLE, CRect(0, 0, 50, 40), nullptr, 0));
        app.m_pMainWnd = &wnd;
    }
    void TearDown() override
    {
        wnd.DestroyWindow();
        app.OnIdle(0);
        EXPECT_EQ(winlite::OpenHandleCount(), nHandles);
    }
};

} // namespace

TEST_F(WndTest, HandlersGetDecodedMessagesFromTheFirstToTheLast)
{
    CScrollBar sb;
    ASSERT_TRUE(sb.Create(SBS_HORZ, CRect(0, 0, 50, 17), &wnd, 3));
    wnd.MoveWindow(0, 0, 60, 45);
    wnd.SendMessage(WM_HSCROLL, MAKEWPARAM(SB_THUMBTRACK, 65535), reinterpret_cast<LPARAM>(sb.m_hWnd));
    wnd.SendMessage(WM_HSCROLL, SB_LINERIGHT, 0);
    wnd.SetTimer(9, 100, nullptr);
    desktop.DispatchPending();
    desktop.Advance(250);
    desktop.DispatchPending();
    wnd.DestroyWindow();
    EXPECT_EQ(wnd.strLog,
              "size 0 50x40;size 0 60x45;hscroll 5 65535 bar;hscroll 1 0 none;timer 9;destroy;gone;last message;");
    EXPECT_EQ(sb.m_hWnd, nullptr);
}

TEST_F(WndTest, ObjectsAreFoundByHandle)
{
    EXPECT_EQ(CWnd::FromHandle(wnd.m_hWnd), &wnd);
    EXPECT_EQ(CWnd::FromHandle(nullptr), nullptr);
    const HWND hPlain =
        ::CreateWindowEx(0, L"SCROLLBAR", nullptr, WS_CHILD, 0, 0, 9, 9, wnd.m_hWnd, nullptr, nullptr, nullptr);
    EXPECT_EQ(CWnd::FromHandlePermanent(hPlain), nullptr);
    EXPECT_EQ(CWnd::FromHandle(hPlain)->GetParent(), &wnd);
    app.OnIdle(0);
    EXPECT_TRUE(::IsWindow(hPlain)) << "a temporary object does not take the window with it";
    try
    {
        CClientDC dc(CWnd::FromHandle(reinterpret_cast<HWND>(8)));
        ADD_FAILURE() << "no window, no device context";
    }
    catch (CException* pException)
    {
        EXPECT_TRUE(pException->IsKindOf(RUNTIME_CLASS(CResourceException)));
        pException->Delete();
    }
}

TEST_F(WndTest, PreTranslationComesBeforeDispatchAndForPostedMessagesOnly)
{
    CWnd child;
    ASSERT_TRUE(child.Create(AfxRegisterWndClass(0), L"", WS_VISIBLE, CRect(0, 0, 9, 9), &wnd, 4));
    wnd.strLog.clear();
    wnd.SendMessage(WM_USER, 1);
    wnd.PostMessage(WM_USER, 1);
    wnd.PostMessage(WM_USER, 2);
    child.PostMessage(WM_USER, 1); // its parent is asked too
    desktop.DispatchPending();
    EXPECT_EQ(wnd.strLog, "user 1;asked;asked;user 2;asked;");
}

TEST_F(WndTest, TheLoopEndsWithQuitOrWhenNothingCanHappen)
{
    app.m_pMainWnd = nullptr;
    ::PostQuitMessage(7);
    EXPECT_EQ(app.Run(), 7);
    EXPECT_EQ(app.Run(), 0);
    wnd.SetTimer(5, 1000, nullptr);
    wnd.strLog.clear();
    app.PumpMessage();
    while (wnd.strLog.empty())
        app.PumpMessage();
    EXPECT_EQ(wnd.strLog, "timer 5;") << "the desktop's clock jumps to the next timer";
}

TEST_F(WndTest, ClassesAreRegisteredOncePerSetOfArguments)
{
    const CString strFirst = AfxRegisterWndClass(CS_DBLCLKS);
    EXPECT_EQ(strFirst, AfxRegisterWndClass(CS_DBLCLKS));
    EXPECT_FALSE(strFirst == CString(AfxRegisterWndClass(CS_HREDRAW)));
    EXPECT_FALSE(strFirst == CString(AfxRegisterWndClass(CS_DBLCLKS, ::LoadCursor(nullptr, IDC_ARROW))));
}
