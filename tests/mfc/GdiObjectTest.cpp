#include "base/HandleTable.h"
#include "mfc/DC.h"

#include <gtest/gtest.h>
#include <thread>

TEST(GdiObjectTest, ObjectsDeleteWhatTheyStillHold)
{
    const std::size_t nHandles = winlite::OpenHandleCount();
    {
        CRgn rgn;
        ASSERT_TRUE(rgn.CreateRectRgn(0, 0, 4, 4));
        CBrush br(RGB(1, 2, 3));
        CDC dc;
        ASSERT_TRUE(dc.CreateCompatibleDC(nullptr));
        EXPECT_EQ(winlite::OpenHandleCount(), nHandles + 3);
        EXPECT_TRUE(rgn.DeleteObject());
        EXPECT_FALSE(rgn.DeleteObject());
        EXPECT_EQ(rgn.GetSafeHandle(), nullptr);
        EXPECT_FALSE(rgn.Attach(nullptr));
        EXPECT_TRUE(dc.DeleteDC());
        EXPECT_FALSE(dc.DeleteDC());
    }
    EXPECT_EQ(winlite::OpenHandleCount(), nHandles);
}

TEST(GdiObjectTest, RegionsAreNeverCreatedForTheCaller)
{
    CRgn rgn;
    ASSERT_TRUE(rgn.CreateRectRgn(0, 0, 10, 10));
    CRgn rgnNone;
    CRect rc(1, 2, 3, 4);
    EXPECT_EQ(rgnNone.GetRgnBox(&rc), ERROR);
    EXPECT_TRUE(rc.IsRectNull());
    EXPECT_EQ(rgnNone.CopyRgn(&rgn), ERROR);
    EXPECT_EQ(rgn.CombineRgn(&rgn, &rgnNone, RGN_AND), ERROR);
    EXPECT_EQ(rgn.CombineRgn(&rgn, nullptr, RGN_OR), ERROR);
    EXPECT_EQ(rgn.GetRgnBox(&rc), SIMPLEREGION);
    EXPECT_EQ(rc, CRect(0, 0, 10, 10));
    EXPECT_FALSE(rgnNone.PtInRegion(CPoint(1, 1)) || rgnNone.EqualRgn(&rgn) || rgnNone.OffsetRgn(1, 1));
}

TEST(GdiObjectTest, SelectingGivesThePreviousObjectBack)
{
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    CBrush br(RGB(1, 2, 3));
    CBrush* pOld = dc.SelectObject(&br);
    ASSERT_NE(pOld, nullptr);
    EXPECT_EQ(static_cast<HBRUSH>(*pOld), ::GetStockObject(WHITE_BRUSH));
    CBrush* pMine = dc.SelectObject(pOld);
    EXPECT_EQ(pMine, &br) << "the object itself while the handle is attached to it";
    const HGDIOBJ hBrush = br.Detach();
    EXPECT_NE(CBrush::FromHandle(static_cast<HBRUSH>(hBrush)), &br);
    br.Attach(hBrush);
    std::thread([&] { EXPECT_NE(CBrush::FromHandle(br), &br) << "objects stay on their thread"; }).join();
    EXPECT_EQ(dc.SelectObject(static_cast<CBrush*>(nullptr)), nullptr);
    winlite::DeleteTemporaryGdiObjects(); // which own nothing
    EXPECT_NE(dc.SelectObject(&br), nullptr);
    EXPECT_EQ(dc.SelectStockObject(NULL_BRUSH)->GetSafeHandle(), br.GetSafeHandle());
    EXPECT_EQ(dc.SelectStockObject(NULL_PEN)->GetSafeHandle(), ::GetStockObject(BLACK_PEN));
    EXPECT_EQ(dc.SelectStockObject(99), nullptr);
    CBitmap bitmap;
    bitmap.CreateCompatibleBitmap(&dc, 5, 5);
    CBitmap* pOldBitmap = dc.SelectObject(&bitmap);
    dc.FillSolidRect(0, 0, 5, 5, RGB(9, 9, 9));
    EXPECT_EQ(dc.GetBkColor(), RGB(9, 9, 9));
    dc.SelectStockObject(BLACK_PEN);
    dc.Ellipse(CRect(2, 2, 5, 5));
    for (const CPoint pt : {CPoint(1, 2), CPoint(2, 3), CPoint(3, 2), CPoint(4, 3), CPoint(3, 4)})
        EXPECT_EQ(dc.GetPixel(pt.x, pt.y), pt.x == 1 ? RGB(9, 9, 9) : 0) << pt.x << ',' << pt.y;
    dc.SelectObject(pOldBitmap);
}

TEST(GdiObjectTest, RectanglesFollowTheWindowsRules)
{
    CRect rc;
    EXPECT_FALSE(rc.IntersectRect(CRect(0, 0, 10, 10), CRect(10, 0, 20, 10)));
    EXPECT_TRUE(rc.IsRectNull());
    EXPECT_TRUE(rc.IntersectRect(CRect(0, 0, 10, 10), CRect(3, -5, 20, 7)));
    EXPECT_EQ(rc, CRect(3, 0, 10, 7));
    EXPECT_TRUE(rc.UnionRect(CRect(5, 5, 5, 9), CRect(1, 1, 2, 2)));
    EXPECT_EQ(rc, CRect(1, 1, 2, 2));
    EXPECT_FALSE(rc.UnionRect(CRect(5, 5, 5, 9), CRect(0, 0, 0, 0)));
    EXPECT_TRUE(rc.UnionRect(CRect(1, 1, 2, 2), CRect(0, 3, 5, 4)));
    EXPECT_EQ(rc, CRect(0, 1, 5, 4));
}
