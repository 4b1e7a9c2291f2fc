#include "support/TestView.h"

using CoordinatesTest = CViewTest;

TEST_F(CoordinatesTest, WindowPointsAndBitmapPixels)
{
    Show(1000, 800);
    const struct
    {
        double dZoom;
        Gdiplus::Point ptDispPos;
        CPoint ptWindow, ptBitmap, ptBack; // the pixel under the window point, and its centre in the window
    } vCases[] = {
        {1, {0, 0}, {0, 0}, {0, 0}, {0, 0}},       {1, {0, 0}, {-1, -1}, {-1, -1}, {-1, -1}},
        {1, {100, 50}, {7, 9}, {107, 59}, {7, 9}}, {4, {0, 0}, {-1, -3}, {-1, -1}, {-2, -2}},
        {4, {401, 6}, {2, 1}, {100, 1}, {1, 0}},   {0.5, {10, 0}, {0, 3}, {20, 6}, {0, 3}},
        {1.2, {0, 0}, {1, 2}, {0, 1}, {0, 1}}, // one way and back may lose a pixel
    };
    for (const auto& c : vCases)
    {
        pView->SetZoom(c.dZoom);
        pView->SetDispPosition(c.ptDispPos.X, c.ptDispPos.Y);
        CPoint pt = c.ptWindow;
        pView->FromWndToBitmap(pt);
        EXPECT_EQ(pt, c.ptBitmap) << "zoom " << c.dZoom;
        pView->FromBitmapToWnd(pt);
        EXPECT_EQ(pt, c.ptBack) << "zoom " << c.dZoom;
    }
    Gdiplus::PointF ptReal(1, 2.5f);
    pView->SetDispPosition(11, 20);
    pView->FromWndToBitmap(ptReal);
    EXPECT_EQ(ptReal, Gdiplus::PointF(12 / 1.2f, 22.5f / 1.2f));
}

TEST_F(CoordinatesTest, HugeValuesSaturateAndAnEmptyViewConvertsNothing)
{
    CPoint pt(5, 6);
    pView->FromWndToBitmap(pt);
    pView->FromBitmapToWnd(pt);
    EXPECT_EQ(pt, CPoint(5, 6));
    Show(1000, 800);
    pView->SetZoom(1e9);
    pt = CPoint(2147483647, -2147483647);
    pView->FromBitmapToWnd(pt);
    EXPECT_EQ(pt, CPoint(2147483647, -2147483647 - 1));
    pView->SetZoom(0.01);
    pt = CPoint(2147483647, -2147483647);
    pView->FromWndToBitmap(pt);
    EXPECT_EQ(pt, CPoint(2147483647, -2147483647 - 1));
}
