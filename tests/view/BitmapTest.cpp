#include "support/TestView.h"

using BitmapTest = CViewTest;

TEST_F(BitmapTest, RefusedBitmapsChangeNothing)
{
    CTestBitmap shown = CTestBitmap::Numbered(100, 80);
    ASSERT_TRUE(pView->SetBitmap(shown.info, shown.vBits.data()));
    pView->SetZoom(1.5);
    const winlite::Picture before = Screen();
    const struct
    {
        const char* pszWhat;
        LONG cx, cy;
        WORD nBits;
        DWORD nSizeImage;
        bool bPixels;
    } vCases[] = {
        {"no pixels", 4, 4, 32, 0, false},
        {"no width", 0, 4, 32, 0, true},
        {"negative width", -4, 4, 32, 0, true},
        {"top-down", 4, -4, 32, 0, true},
        {"no height", 4, 0, 32, 0, true},
        {"odd biSizeImage", 4, 4, 32, 6, true},
        {"pixel count beyond 31 bits", 65536, 32768, 1, 0, true},
        {"byte count beyond 31 bits", 32768, 16384, 32, 0, true},
        {"row length beyond 31 bits", 0x7FFFFFFF, 1, 32, 0, true},
    };
    BYTE pixel[64] = {};
    for (const auto& c : vCases)
    {
        SCOPED_TRACE(c.pszWhat);
        BITMAPINFO info = shown.info;
        info.bmiHeader.biWidth = c.cx;
        info.bmiHeader.biHeight = c.cy;
        info.bmiHeader.biBitCount = c.nBits;
        info.bmiHeader.biSizeImage = c.nSizeImage;
        EXPECT_FALSE(pView->SetBitmap(info, c.bPixels ? pixel : nullptr));
        EXPECT_FALSE(pView->UpdateBitmap(info, c.bPixels ? pixel : nullptr, TRUE));
        EXPECT_EQ(pView->pBmpData(), shown.vBits.data());
        EXPECT_EQ(pView->dbZoom(), 1.5);
    }
    EXPECT_EQ(Screen().vPixels, before.vPixels);
    CTestView unborn;
    EXPECT_FALSE(unborn.SetBitmap(shown.info, shown.vBits.data())) << "before Create";
}

TEST_F(BitmapTest, SizeImageIsNotBelieved)
{
    CTestBitmap bitmap = CTestBitmap::Numbered(5, 3, 24);
    for (const DWORD nSizeImage : {0u, 4u, 48u, 0xFFFFFFFCu})
    {
        bitmap.info.bmiHeader.biSizeImage = nSizeImage;
        ASSERT_TRUE(pView->SetBitmap(bitmap.info, bitmap.vBits.data()));
        EXPECT_EQ(PixelOf(Screen(), 149, 100), bitmap.At(1, 1)) << nSizeImage;
    }
}

TEST_F(BitmapTest, OtherBitCountsAttachAndShowTheBackground)
{
    for (const WORD nBits : std::initializer_list<WORD>{0, 1, 4, 8, 17, 64})
    {
        CTestBitmap bitmap(40, 30, 32);
        bitmap.vBits.resize(40 * 30 * 8, 0xFF);
        bitmap.info.bmiHeader.biBitCount = nBits;
        ASSERT_TRUE(pView->SetBitmap(bitmap.info, bitmap.vBits.data())) << nBits;
        EXPECT_EQ(PixelOf(Screen(), 150, 100), BACKGROUND_PIXEL);
        pView->SetZoom(20); // the other drawing path
        EXPECT_EQ(PixelOf(Screen(), 150, 100), BACKGROUND_PIXEL);
        pView->SetZoom(1);
    }
}

TEST_F(BitmapTest, ASecondBitmapKeepsTheZoomAndSizesTheMasks)
{
    CTestBitmap first(100, 80);
    CTestBitmap second(30, 20);
    pView->SetBitmap(first.info, first.vBits.data());
    pView->SetZoom(2.5);
    pView->vSelectMask()[7] = 255;
    ASSERT_TRUE(pView->SetBitmap(second.info, second.vBits.data()));
    EXPECT_EQ(pView->dbZoom(), 2.5);
    EXPECT_EQ(pView->ZoomedSize(), Gdiplus::SizeF(75, 50));
    EXPECT_EQ(pView->iSelectMaskSize(), 600);
    EXPECT_EQ(pView->vSelectMask(), std::vector<BYTE>(600));
    EXPECT_EQ(pView->vSelectMask_Cur(), std::vector<BYTE>(600));
    CRect rcBitmap;
    pView->rgnBitmap().GetRgnBox(&rcBitmap);
    EXPECT_EQ(rcBitmap, CRect(0, 0, 30, 20));

    CTestView without(1);
    ASSERT_TRUE(without.Create(CRect(0, 0, 50, 50), pHost.get(), 5, 0));
    ASSERT_TRUE(without.SetBitmap(second.info, second.vBits.data()));
    EXPECT_TRUE(without.vSelectMask().empty() && without.vSelectMask_Cur().empty());
    EXPECT_EQ(without.iSelectMaskSize(), 0);
}

TEST_F(BitmapTest, ClearingDropsTheBitmapAndKeepsTheZoom)
{
    Show(1000, 800);
    pView->SetZoom(2);
    Screen();
    const int nPaints = pView->nPaints;
    pView->ClearBitmap(FALSE);
    EXPECT_EQ(pView->nPaints, nPaints);
    EXPECT_FALSE(pView->m_sbHorz.IsWindowVisible() || pView->m_sbVert.IsWindowVisible());
    pView->ClearBitmap(TRUE);
    EXPECT_EQ(pView->nPaints, nPaints + 1);
    BITMAPINFO info;
    EXPECT_EQ(pView->GetBitmap(info), nullptr);
    EXPECT_EQ(info.bmiHeader.biSize, 0u);
    EXPECT_EQ(pView->iBmpWidth(), 0);
    EXPECT_EQ(pView->ptDispPos(), Gdiplus::Point(0, 0));
    EXPECT_EQ(pView->rgnBitmap().GetSafeHandle(), nullptr);
    EXPECT_EQ(pView->dbZoom(), 2);
    EXPECT_FALSE(pView->SetDispPosition(1, 1));
    const winlite::Picture picture = Screen();
    for (const std::uint32_t uPixel : picture.vPixels)
        ASSERT_EQ(uPixel & 0xFFFFFF, BACKGROUND_PIXEL);
}

TEST_F(BitmapTest, UpdatesShowNewPixelsOnlyWhenToldThatTheyChanged)
{
    CTestBitmap& bitmap = Show(100, 80);
    Screen();
    const std::uint32_t uOld = bitmap.At(3, 4);
    bitmap.Set(3, 4, 0x123456);
    pView->UpdateBitmap(bitmap.info, bitmap.vBits.data(), FALSE);
    EXPECT_FALSE(pView->m_bCacheDirty);
    EXPECT_EQ(PixelOf(Screen(), 103, 64), uOld);
    pView->UpdateBitmap(bitmap.info, bitmap.vBits.data(), TRUE);
    EXPECT_EQ(PixelOf(Screen(), 103, 64), 0x123456u);

    CTestBitmap other = CTestBitmap::Numbered(100, 80);
    other.Set(3, 4, 0x654321);
    pView->UpdateBitmap(other.info, other.vBits.data(), FALSE);
    EXPECT_EQ(PixelOf(Screen(), 103, 64), 0x654321u) << "another buffer is drawn afresh";
    pView->vSelectMask()[0] = 255;
    other.info.bmiHeader.biXPelsPerMeter = 2835;
    pView->UpdateBitmap(other.info, other.vBits.data(), FALSE);
    EXPECT_EQ(pView->vSelectMask()[0], 0) << "another header is another bitmap";
}

TEST_F(BitmapTest, RedrawLocksDoNotCount)
{
    CTestBitmap bitmap = CTestBitmap::Numbered(100, 80);
    pView->UnlockRedraw(); // not locked: nothing to do
    const winlite::Picture before = Screen();
    const int nPaints = pView->nPaints;
    pView->LockRedraw();
    pView->LockRedraw();
    pView->SetBitmap(bitmap.info, bitmap.vBits.data());
    EXPECT_EQ(Screen().vPixels, before.vPixels);
    EXPECT_GT(pView->nPaints, nPaints) << "a paint that draws nothing validates all the same";
    pView->UnlockRedraw();
    EXPECT_EQ(PixelOf(winlite::WindowPicture(pHost->m_hWnd), 100, 60), bitmap.At(0, 0)) << "repainted at once";
}

TEST_F(BitmapTest, BackgroundColourReachesTheMarginsAtOnce)
{
    CTestBitmap& bitmap = Show(100, 80);
    const int nPaints = pView->nPaints;
    EXPECT_EQ(pView->SetBackgroundColor(BACKGROUND), BACKGROUND);
    EXPECT_EQ(pView->nPaints, nPaints);
    EXPECT_EQ(pView->SetBackgroundColor(RGB(200, 10, 20)), BACKGROUND);
    const winlite::Picture picture = winlite::WindowPicture(pHost->m_hWnd);
    EXPECT_EQ(PixelOf(picture, 99, 60), 0xC80A14u);
    EXPECT_EQ(PixelOf(picture, 100, 60), bitmap.At(0, 0));
}

TEST_F(BitmapTest, AWindowThatIsGoneLeavesASafeObject)
{
    CTestBitmap& bitmap = Show(1000, 800);
    pView->DestroyWindow();
    EXPECT_TRUE(pView->SetZoom(2));
    pView->SetDispPosition(5, 5);
    EXPECT_FALSE(pView->UpdateBitmap(bitmap.info, bitmap.vBits.data(), TRUE));
    std::vector<BYTE> vData;
    CRect rc;
    EXPECT_FALSE(pView->GetCurDisplayImage(&rc, vData, bitmap.info));
    EXPECT_EQ(pView->GetPixelRGBValue(CPoint(1, 1), FALSE), BACKGROUND);
    EXPECT_FALSE(pView->EnterPreviewMode());
}
