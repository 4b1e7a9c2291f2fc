#include "support/TestView.h"

#include <tuple>

class ScrollTest : public CViewTest
{
protected:
    void Send(UINT uMessage, CScrollBar& sb, int iCode, int iPos = 0)
    {
        pView->SendMessage(uMessage, MAKEWPARAM(iCode, iPos), reinterpret_cast<LPARAM>(sb.m_hWnd));
    }
    static SCROLLINFO InfoOf(CScrollBar& sb)
    {
        SCROLLINFO info = {};
        sb.GetScrollInfo(&info);
        return info;
    }
};

TEST_F(ScrollTest, BarsHoldRangePageAndPosition)
{
    Show(401, 320);
    pView->SetZoom(1.5); // 601.5 x 480
    pView->SetDispPosition(33, 44);
    const SCROLLINFO horz = InfoOf(pView->m_sbHorz);
    EXPECT_EQ(std::tuple(horz.nMin, horz.nMax, horz.nPage, horz.nPos), std::tuple(0, 602, 284u, 33));
    const SCROLLINFO vert = InfoOf(pView->m_sbVert);
    EXPECT_EQ(std::tuple(vert.nMin, vert.nMax, vert.nPage, vert.nPos), std::tuple(0, 480, 184u, 44));
}

TEST_F(ScrollTest, EachCodeMovesAsFarAsItShould)
{
    Show(1000, 800); // positions up to 717 and 617
    const struct
    {
        int iFrom, iCode, iPos, iTo;
    } vCases[] = {
        {3, SB_LINELEFT, 0, 0},
        {4, SB_LINELEFT, 0, 0},
        {100, SB_LINELEFT, 0, 96},
        {100, SB_LINERIGHT, 0, 104},
        {716, SB_LINERIGHT, 0, 717},
        {283, SB_PAGELEFT, 0, 0},
        {300, SB_PAGELEFT, 0, 16},
        {10, SB_PAGERIGHT, 0, 294},
        {600, SB_PAGERIGHT, 0, 717},
        {100, SB_THUMBTRACK, 555, 100}, // the bar's own track position counts, 16 bits would not do
        {100, SB_THUMBPOSITION, 555, 100},
        {100, SB_LEFT, 0, 0},
        {100, SB_RIGHT, 0, 0}, // codes the view does not know move to the message's position
        {100, 1234, 65535, 717},
        {100, SB_ENDSCROLL, 300, 100},
    };
    for (const auto& c : vCases)
    {
        pView->SetDispPosition(c.iFrom, 7);
        Send(WM_HSCROLL, pView->m_sbHorz, c.iCode, c.iPos);
        EXPECT_EQ(pView->ptDispPos(), Gdiplus::Point(c.iTo, 7)) << c.iFrom << " code " << c.iCode;
        EXPECT_EQ(InfoOf(pView->m_sbHorz).nPos, c.iTo);
    }
}

TEST_F(ScrollTest, TheVerticalBarMovesTheOtherAxis)
{
    Show(1000, 800);
    pView->SetDispPosition(50, 60);
    Send(WM_VSCROLL, pView->m_sbVert, SB_PAGEDOWN);
    EXPECT_EQ(pView->ptDispPos(), Gdiplus::Point(50, 60 + 184));
    Send(WM_VSCROLL, pView->m_sbVert, SB_BOTTOM, 65535);
    EXPECT_EQ(pView->ptDispPos(), Gdiplus::Point(50, 617));
}

TEST_F(ScrollTest, WildMessagesDoNothing)
{
    pView->SendMessage(WM_HSCROLL, MAKEWPARAM(SB_LINERIGHT, 0), 0); // no bar, no bitmap
    Send(WM_VSCROLL, pView->m_sbVert, SB_PAGEDOWN);
    Show(1000, 800);
    pView->SetDispPosition(50, 60);
    for (const LPARAM lBar : {LPARAM{0}, LPARAM{12345}, reinterpret_cast<LPARAM>(pView->m_hWnd)})
        pView->SendMessage(WM_HSCROLL, MAKEWPARAM(SB_PAGERIGHT, 65535), lBar);
    EXPECT_EQ(pView->ptDispPos(), Gdiplus::Point(50, 60));
    pView->ShowScrollBar(FALSE);
    Send(WM_HSCROLL, pView->m_sbHorz, SB_PAGERIGHT);
    EXPECT_EQ(pView->ptDispPos(), Gdiplus::Point(50 + 301, 60)) << "a hidden bar still has its range";
}
