#include "support/TestView.h"

#include <cmath>
#include <limits>

using LayoutTest = CViewTest;

TEST_F(LayoutTest, BarsPositionAndDrawingRectanglesFollowImageZoomAndView)
{
    const struct
    {
        const char* pszWhat;
        CSize szImage;
        double dZoom;
        BOOL bHorz, bVert;
        Gdiplus::Point ptDispPos;
        CRect rcDest;
        Gdiplus::RectF rcSrc;
    } vCases[] = {
        {"smaller than the view", {100, 80}, 1, 0, 0, {-100, -60}, {100, 60, 200, 140}, {0, 0, 100, 80}},
        {"as large as the view", {300, 200}, 1, 0, 0, {0, 0}, {0, 0, 300, 200}, {0, 0, 300, 200}},
        {"odd margin rounds away from 0", {101, 80}, 1, 0, 0, {-100, -60}, {100, 60, 201, 140}, {0, 0, 101, 80}},
        {"zoomed about the centre", {100, 80}, 4, 1, 1, {24, 34}, {0, 0, 283, 183}, {6, 8.5f, 70.75f, 45.75f}},
        {"wide only", {400, 100}, 1, 1, 0, {0, -42}, {0, 42, 300, 142}, {0, 0, 300, 100}},
        {"tall only", {100, 400}, 1, 0, 1, {-92, 0}, {92, 0, 192, 200}, {0, 0, 100, 200}},
        {"one bar forces the other", {301, 190}, 1, 1, 1, {0, 0}, {0, 0, 283, 183}, {0, 0, 283, 183}},
        {"a fraction over needs no bar", {150, 100}, 2.005, 0, 0, {0, 0}, {0, 0, 300, 200}, {0, 0, 150, 100}},
    };
    for (const auto& c : vCases)
    {
        SCOPED_TRACE(c.pszWhat);
        Open(300, 200);
        Show(c.szImage.cx, c.szImage.cy);
        ASSERT_TRUE(c.dZoom == 1 || pView->SetZoom(c.dZoom));
        EXPECT_EQ(pView->m_bHScrollShown, c.bHorz);
        EXPECT_EQ(pView->m_bVScrollShown, c.bVert);
        EXPECT_EQ(pView->m_sbHorz.IsWindowVisible(), c.bHorz);
        EXPECT_EQ(pView->m_sbVert.IsWindowVisible(), c.bVert);
        EXPECT_EQ(pView->ptDispPos(), c.ptDispPos);
        EXPECT_EQ(pView->rcDrawDest(), c.rcDest);
        EXPECT_EQ(pView->rcDrawSrc(), c.rcSrc);
    }
}

TEST_F(LayoutTest, TheSmallerSideKeepsOneDisplayPixel)
{
    Show(1000, 10);
    for (const double dZoom : {0.01, 0.0, -3.0, -std::numeric_limits<double>::infinity()})
    {
        EXPECT_TRUE(pView->SetZoom(dZoom));
        EXPECT_FLOAT_EQ(static_cast<float>(pView->dbZoom()), 0.1f);
        EXPECT_EQ(pView->ZoomedSize(), Gdiplus::SizeF(1000 * 0.1f, 10 * 0.1f));
    }
}

TEST_F(LayoutTest, ZoomsThatAreNoNumberAreRefusedAndHugeOnesSurvive)
{
    EXPECT_FALSE(pView->SetZoom(2)); // no bitmap
    CTestBitmap& bitmap = Show(100, 80);
    pView->SetZoom(3);
    EXPECT_FALSE(pView->SetZoom(std::nan("")));
    EXPECT_EQ(pView->GetZoom(), 3);
    for (const double dZoom : {1e6, 1e30, 1e300, std::numeric_limits<double>::infinity(), 1.0})
    {
        EXPECT_TRUE(pView->SetZoom(dZoom));
        EXPECT_TRUE(pView->SetDispPosition(std::numeric_limits<int>::max() - 3, 77));
        pView->SetDispPosition(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
        pView->MoveImage(std::numeric_limits<long>::max(), std::numeric_limits<long>::min());
        Screen();
    }
    EXPECT_TRUE(pView->SetZoom(1));
    EXPECT_EQ(pView->ptDispPos(), Gdiplus::Point(-100, -60));
    EXPECT_EQ(PixelOf(Screen(), 100, 60), bitmap.At(0, 0));
}

TEST_F(LayoutTest, ZoomingKeepsTheImagePointAtTheCentre)
{
    Show(1000, 800);
    pView->SetDispPosition(400, 300);
    pView->SetZoom(2);
    // The centre of the 283 x 183 area showed image point (541.5, 391.5).
    EXPECT_EQ(pView->ptDispPos(), Gdiplus::Point(941, 691));
    EXPECT_EQ(pView->dbLastZoom(), 1);
    pView->SetZoom(1);
    EXPECT_EQ(pView->ptDispPos(), Gdiplus::Point(399, 299));
}

TEST_F(LayoutTest, PositionsAreLimitedToTheImage)
{
    Show(400, 320);
    const struct
    {
        int x, y;
        Gdiplus::Point ptResult;
        int iResult;
    } vCases[] = {
        {50, 60, {50, 60}, TRUE},
        {50, 60, {50, 60}, FALSE}, // there already
        {-5, -1, {0, 0}, TRUE},
        {5000, 5000, {400 - 283, 320 - 183}, TRUE},
        {-2147483647 - 1, 2147483647, {0, 320 - 183}, TRUE},
    };
    for (const auto& c : vCases)
    {
        const int nPaints = pView->nPaints;
        EXPECT_EQ(pView->SetDispPosition(c.x, c.y), c.iResult);
        EXPECT_EQ(pView->ptDispPos(), c.ptResult);
        EXPECT_EQ(pView->nPaints, nPaints + 1) << "repainted at once";
    }
    pView->MoveImage(7, -9);
    EXPECT_EQ(pView->ptDispPos(), Gdiplus::Point(7, 320 - 183 - 9));
}

TEST_F(LayoutTest, ForbiddenBarsGiveTheWholeClientArea)
{
    Show(1000, 800);
    pView->ShowScrollBar(FALSE);
    EXPECT_FALSE(pView->m_sbHorz.IsWindowVisible() || pView->m_sbVert.IsWindowVisible());
    CRect rcView;
    pView->GetClientRect(&rcView);
    EXPECT_EQ(rcView, CRect(0, 0, 300, 200));
    EXPECT_TRUE(pView->SetDispPosition(700, 600));
    EXPECT_EQ(pView->ptDispPos(), Gdiplus::Point(700, 600));
    pView->ShowScrollBar(TRUE);
    EXPECT_TRUE(pView->m_sbHorz.IsWindowVisible() && pView->m_sbVert.IsWindowVisible());
}

TEST_F(LayoutTest, SizeChangesLayOutAgainAndTinyWindowsAreSafe)
{
    CTestBitmap& bitmap = Show(200, 150);
    for (const CSize sz :
         {CSize(120, 100), CSize(0, 0), CSize(1, 300), CSize(300, 1), CSize(10, 10), CSize(17, 17), CSize(300, 200)})
    {
        pView->MoveWindow(0, 0, sz.cx, sz.cy);
        Screen();
    }
    EXPECT_FALSE(pView->m_bHScrollShown || pView->m_bVScrollShown);
    EXPECT_EQ(pView->ptDispPos(), Gdiplus::Point(-50, -25));
    EXPECT_EQ(PixelOf(Screen(), 50, 25), bitmap.At(0, 0));
    EXPECT_EQ(PixelOf(Screen(), 49, 25), BACKGROUND_PIXEL);
}

TEST_F(LayoutTest, NothingIsLaidOutWhileTheMainWindowIsMinimised)
{
    Show(400, 320);
    pHost->ShowWindow(SW_MINIMIZE);
    Pump();
    const int nPaints = pView->nPaints;
    EXPECT_TRUE(pView->SetDispPosition(5000, 5000));
    EXPECT_EQ(pView->ptDispPos(), Gdiplus::Point(5000, 5000)) << "not limited before the window is restored";
    EXPECT_EQ(pView->nPaints, nPaints);
    pHost->ShowWindow(SW_RESTORE);
    pView->SetZoom(1);
    EXPECT_EQ(pView->ptDispPos(), Gdiplus::Point(400 - 283, 320 - 183));
}
