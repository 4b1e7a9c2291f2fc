#include "support/TestView.h"

#include <random>

class PaintTest : public CViewTest
{
protected:
    /// Compares the view area with what nearest sampling at pixel centres gives for the view's drawing rectangles.
    void ExpectPainted(const CTestBitmap& bitmap)
    {
        const winlite::Picture picture = Screen();
        CRect rcView;
        pView->GetClientRect(&rcView);
        const Gdiplus::Point ptDispPos = pView->ptDispPos();
        const double dZoom = pView->dbZoom();
        int nWrong = 0;
        for (int y = 0; y < rcView.bottom; ++y)
        {
            for (int x = 0; x < rcView.right; ++x)
            {
                const double dX = (x + 0.5 + ptDispPos.X) / dZoom;
                const double dY = (y + 0.5 + ptDispPos.Y) / dZoom;
                const bool bInside = dX >= 0 && dX < pView->iBmpWidth() && dY >= 0 && dY < pView->iBmpHeight();
                const std::uint32_t uExpected =
                    bInside ? bitmap.At(static_cast<int>(dX), static_cast<int>(dY)) : BACKGROUND_PIXEL;
                if (PixelOf(picture, x, y) != uExpected && ++nWrong <= 3)
                    ADD_FAILURE() << "at " << x << ", " << y << ": " << std::hex << PixelOf(picture, x, y) << " for "
                                  << uExpected;
            }
        }
        EXPECT_EQ(nWrong, 0);
    }
};

TEST_F(PaintTest, WholeNumbersGiveExactlyTheNearestPixel)
{
    // Whole zooms and their reciprocals on sizes that divide: both drawing paths must agree with the plain rule.
    for (const int iBits : {16, 24, 32})
    {
        CTestBitmap& bitmap = Show(240, 160, iBits);
        for (const double dZoom : {0.25, 0.5, 1.0, 2.0, 3.0, 8.0, 40.0})
        {
            for (const CPoint pt : {CPoint(0, 0), CPoint(37, 23), CPoint(100000, 100000)})
            {
                SCOPED_TRACE(testing::Message() << iBits << " bits, zoom " << dZoom << ", position " << pt.x);
                pView->SetZoom(dZoom);
                pView->SetDispPosition(pt.x, pt.y);
                ExpectPainted(bitmap);
            }
        }
    }
}

TEST_F(PaintTest, FractionalZoomsStayWithinOneSourcePixel)
{
    CTestBitmap bitmap(700, 500);
    for (int y = 0; y < 500; ++y)
    {
        for (int x = 0; x < 700; ++x)
            bitmap.Set(x, y, static_cast<std::uint32_t>(x << 12 | y));
    }
    ASSERT_TRUE(pView->SetBitmap(bitmap.info, bitmap.vBits.data()));
    std::mt19937 random(7);
    for (int i = 0; i < 40; ++i)
    {
        pView->SetZoom(std::uniform_real_distribution(0.3, 9.0)(random));
        pView->SetDispPosition(static_cast<int>(random() % 900), static_cast<int>(random() % 700));
        const winlite::Picture picture = Screen();
        for (const CPoint pt : {CPoint(60, 70), CPoint(150, 100), CPoint(200, 130)})
        {
            const std::uint32_t uPixel = PixelOf(picture, pt.x, pt.y);
            Gdiplus::PointF ptBitmap(static_cast<float>(pt.x) + 0.5f, static_cast<float>(pt.y) + 0.5f);
            pView->FromWndToBitmap(ptBitmap);
            EXPECT_NEAR(static_cast<double>(uPixel >> 12) + 0.5, ptBitmap.X, 1.01) << pView->dbZoom();
            EXPECT_NEAR(static_cast<double>(uPixel & 0xFFF) + 0.5, ptBitmap.Y, 1.01) << pView->dbZoom();
        }
    }
}

TEST_F(PaintTest, ScrollingRendersAfreshAndAnUnchangedPaintDoesNot)
{
    CTestBitmap& bitmap = Show(600, 500);
    const winlite::Picture before = Screen();
    std::ranges::fill(bitmap.vBits, BYTE{0x55}); // behind the view's back: only a fresh rendering would show it
    pView->Invalidate();
    EXPECT_EQ(Screen().vPixels, before.vPixels);
    pView->SetDispPosition(0, 1);
    EXPECT_EQ(PixelOf(Screen(), 10, 10), 0x555555u);
}

TEST_F(PaintTest, TheCornerBetweenTheBarsHasTheButtonColour)
{
    CTestBitmap& bitmap = Show(600, 500);
    const winlite::Picture picture = Screen();
    for (const CPoint pt : {CPoint(300 - BAR, 200 - BAR), CPoint(299, 199)})
        EXPECT_EQ(PixelOf(picture, pt.x, pt.y), 0xF0F0F0u);
    EXPECT_EQ(PixelOf(picture, 300 - BAR - 1, 200 - BAR - 1), bitmap.At(300 - BAR - 1, 200 - BAR - 1));
}
