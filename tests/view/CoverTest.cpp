#include "support/TestView.h"

using CoverTest = CViewTest;

TEST_F(CoverTest, PreviewFreezesThePicture)
{
    CTestBitmap bitmap = CTestBitmap::Numbered(600, 500);
    EXPECT_FALSE(pView->EnterPreviewMode()) << "without a bitmap";
    for (const double dZoom : {0.25, 1.0, 2.5}) // smaller than the view, larger, and neither whole
    {
        bitmap = CTestBitmap::Numbered(600, 500);
        pView->SetBitmap(bitmap.info, bitmap.vBits.data());
        pView->SetZoom(dZoom);
        pView->SetDispPosition(13, 17);
        const winlite::Picture before = Screen();
        ASSERT_TRUE(pView->EnterPreviewMode());
        EXPECT_FALSE(pView->EnterPreviewMode()) << "a second time";
        EXPECT_EQ(pView->rcCoverBmp(), pView->rcDrawDest());
        const BITMAPINFOHEADER& header = pView->CoverBmpInfo().bmiHeader;
        EXPECT_EQ(CSize(header.biWidth, header.biHeight), pView->rcDrawDest().Size());
        EXPECT_EQ(header.biSizeImage, pView->vCoverBmpData().size());
        EXPECT_EQ(Screen().vPixels, before.vPixels);
        std::ranges::fill(bitmap.vBits, BYTE{0x55});
        pView->UpdateBitmap(bitmap.info, bitmap.vBits.data(), TRUE);
        EXPECT_EQ(Screen().vPixels, before.vPixels);
        pView->ExitPreviewMode();
        EXPECT_EQ(PixelOf(Screen(), 140, 90), 0x555555u);
    }
}

TEST_F(CoverTest, ACoverInImageCoordinatesFollowsZoomAndPosition)
{
    CTestBitmap bitmap = CTestBitmap::Numbered(600, 500);
    CTestBitmap cover(600, 500);
    for (std::size_t i = 0; i < bitmap.vBits.size(); ++i)
        cover.vBits[i] = static_cast<BYTE>(~bitmap.vBits[i]);
    pView->SetBitmap(bitmap.info, bitmap.vBits.data());
    pView->vCoverBmpData() = cover.vBits;
    pView->CoverBmpInfo() = cover.info;
    for (const double dZoom : {0.25, 1.0, 4.0})
    {
        pView->ShowCoverImage(FALSE, TRUE);
        pView->SetZoom(dZoom);
        pView->SetDispPosition(48, 32);
        const winlite::Picture live = Screen();
        pView->ShowCoverImage(TRUE, TRUE);
        const winlite::Picture covered = Screen();
        for (const CPoint pt : {CPoint(80, 50), CPoint(150, 100), CPoint(210, 140)})
            EXPECT_EQ(PixelOf(covered, pt.x, pt.y), ~PixelOf(live, pt.x, pt.y) & 0xFFFFFF) << dZoom;
    }
    pView->ShowCoverImage(FALSE, FALSE);
    EXPECT_EQ(PixelOf(Screen(), 0, 0), bitmap.At(12, 8));
}

TEST_F(CoverTest, CoversWithoutEnoughPixelsShowTheBackground)
{
    CTestBitmap& bitmap = Show(100, 80);
    pView->CoverBmpInfo() = bitmap.info;
    for (const std::size_t nBytes : {std::size_t{0}, bitmap.vBits.size() - 1})
    {
        pView->vCoverBmpData().assign(nBytes, 0x55);
        for (const BOOL bImageCoords : {FALSE, TRUE})
        {
            pView->ShowCoverImage(TRUE, bImageCoords);
            EXPECT_EQ(PixelOf(Screen(), 150, 100), BACKGROUND_PIXEL);
        }
    }
    pView->vCoverBmpData().assign(bitmap.vBits.size(), 0x55);
    pView->CoverBmpInfo().bmiHeader.biHeight = -80;
    pView->ShowCoverImage(TRUE, TRUE);
    EXPECT_EQ(PixelOf(Screen(), 150, 100), BACKGROUND_PIXEL);
}

TEST_F(CoverTest, AMovedSnapshotStaysInsideTheWindow)
{
    CTestBitmap& bitmap = Show(100, 80);
    ASSERT_TRUE(pView->EnterPreviewMode());
    for (const CRect rc : {CRect(-50, -50, 50, 30), CRect(250, 150, 350, 230), CRect(5, 5, 5, 5), CRect(90, 90, 10, 10),
                           CRect(0, 0, 100000, 100000)})
    {
        pView->rcCoverBmp() = rc;
        pView->ShowCoverImage(TRUE, FALSE);
        Screen();
    }
    pView->rcCoverBmp() = CRect(-50, -50, 50, 30);
    pView->ShowCoverImage(TRUE, FALSE);
    EXPECT_EQ(PixelOf(Screen(), 0, 0), bitmap.At(50, 50));
}

TEST_F(CoverTest, TheDisplayImageIsWhatTheScreenShowsAndNeverStainsIt)
{
    CRect rc;
    std::vector<BYTE> vData;
    BITMAPINFO info;
    EXPECT_FALSE(pView->GetCurDisplayImage(&rc, vData, info)) << "without a bitmap";
    const struct
    {
        CSize szView, szImage;
        int iBitsPixel;
        double dZoom;
        CRect rcShown; // empty: none
    } vCases[] = {{{300, 200}, {600, 500}, 32, 1, {0, 0, 283, 183}},
                  {{300, 200}, {600, 500}, 32, 2.5, {0, 0, 283, 183}},
                  {{300, 200}, {600, 500}, 32, 0.25, {75, 38, 225, 163}},
                  {{117, 200}, {199, 1000}, 32, 0.5, {0, 0, 100, 200}},
                  {{100, 100}, {400, 400}, 8, 1, {}}};
    for (const auto& c : vCases)
    {
        Open(c.szView.cx, c.szView.cy);
        Show(c.szImage.cx, c.szImage.cy, c.iBitsPixel);
        EXPECT_FALSE(pView->GetCurDisplayImage(nullptr, vData, info));
        pView->SetZoom(c.dZoom);
        pView->SetDispPosition(31, 47);
        const winlite::Picture before = Screen();
        ASSERT_EQ(pView->GetCurDisplayImage(&rc, vData, info), !c.rcShown.IsRectEmpty());
        pView->Invalidate(FALSE);
        EXPECT_EQ(Screen().vPixels, before.vPixels);
        if (c.rcShown.IsRectEmpty())
            continue;
        EXPECT_EQ(rc, c.rcShown);
        CTestBitmap read(rc.Width(), rc.Height());
        ASSERT_EQ(info.bmiHeader.biWidth, rc.Width());
        ASSERT_EQ(info.bmiHeader.biBitCount, 32);
        ASSERT_EQ(vData.size(), read.vBits.size());
        read.vBits = vData;
        for (int y = 0; y < rc.Height(); ++y)
        {
            for (int x = 0; x < rc.Width(); ++x)
                ASSERT_EQ(read.At(x, y), PixelOf(before, rc.left + x, rc.top + y)) << x << ", " << y;
        }
    }
}

TEST_F(CoverTest, PixelValuesAreReadFromTheScreen)
{
    EXPECT_EQ(pView->GetPixelRGBValue(CPoint(5, 5), TRUE), BACKGROUND) << "without a bitmap";
    CTestBitmap bitmap = CTestBitmap::Numbered(600, 500);
    bitmap.Set(60, 40, 0x0A141E);
    pView->SetBitmap(bitmap.info, bitmap.vBits.data());
    pView->SetZoom(2);
    pView->SetDispPosition(100, 60);
    const struct
    {
        CPoint pt;
        BOOL bWindow;
        DWORD cr;
    } vCases[] = {
        {{60, 40}, FALSE, RGB(10, 20, 30)}, {{20, 20}, TRUE, RGB(10, 20, 30)},
        {{21, 21}, TRUE, RGB(10, 20, 30)},  {{-1, 0}, FALSE, BACKGROUND},
        {{600, 0}, FALSE, BACKGROUND},      {{283, 50}, TRUE, BACKGROUND}, // on the scroll bar
        {{50, 183}, TRUE, BACKGROUND},      {{-1, 5}, TRUE, BACKGROUND},
        {{500, 400}, FALSE, CLR_INVALID}, // a pixel that the window does not show has no colour on screen
    };
    for (const auto& c : vCases)
        EXPECT_EQ(pView->GetPixelRGBValue(c.pt, c.bWindow), c.cr) << c.pt.x << ", " << c.pt.y;
}
