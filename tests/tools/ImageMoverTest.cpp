#include "tools/ImageMover.h"
#include "support/User.h"

using Pixtane::EmbeddedTool::ImageMover;

namespace
{

class ImageMoverTest : public CViewTest
{
protected:
    void SetUp() override
    {
        CViewTest::SetUp();
        pView->SetBitmap(bitmap.info, bitmap.vBits.data());
        pView->LoadEmbeddedTool(hand);
        user = std::make_unique<CUser>(*pView);
    }
    void TearDown() override
    {
        pView->UnloadEmbeddedTool();
        user.reset();
        CViewTest::TearDown();
    }

    /// The tool's notifications since the last time.
    std::string Told()
    {
        std::string strTold;
        const std::string strAll = TakeLog();
        for (std::size_t i = strAll.find("N12"); i != std::string::npos; i = strAll.find("N12", i + 1))
            strTold += strAll.substr(i, 5);
        return strTold;
    }

    CTestBitmap bitmap = CTestBitmap::Numbered(400, 150);
    ImageMover hand;
    std::unique_ptr<CUser> user;
};

TEST_F(ImageMoverTest, ThePictureFollowsTheHandAndStopsAtItsEdge)
{
    pView->SetDispPosition(50, 0);
    Told();
    user->Press({100, 100});
    user->Move({80, 90});
    EXPECT_EQ(pView->ptDispPos().X, 70);
    user->Move({80, 90});
    EXPECT_EQ(Told(), "N120 N121 ") << "a move of nothing is none";
    user->Move({300, 90});
    EXPECT_EQ(pView->ptDispPos().X, 0);
    user->Move({310, 90});
    user->Release({200, 90});
    EXPECT_EQ(pView->ptDispPos().X, 0) << "the release itself does not move";
    EXPECT_EQ(Told(), "N121 N121 N122 ") << "also against the edge; one end";
    user->Wait(600); // no double click
    user->Press({100, 100});
    ::SetCapture(pHost->m_hWnd);
    ::ReleaseCapture();
    user->Move({50, 100});
    EXPECT_EQ(Told(), "N120 N122 ") << "ended by losing the capture";
    EXPECT_EQ(pView->ptDispPos().X, 0);
}

TEST_F(ImageMoverTest, APictureThatFitsIsNotPanned)
{
    CTestBitmap exact = CTestBitmap::Numbered(300, 200);
    pView->SetBitmap(exact.info, exact.vBits.data());
    user->Drag({100, 100}, {50, 50});
    EXPECT_EQ(Told(), "");
    EXPECT_EQ(::GetCursor(), pView->GetDefCursor());
    EXPECT_EQ(::GetCapture(), nullptr);
    user->Wait(600); // no double click
    Told();
    pView->SetZoom(1.01);
    const Gdiplus::Point ptBefore = pView->ptDispPos();
    user->Drag({100, 100}, {99, 100});
    EXPECT_EQ(Told(), "N120 N121 N122 ");
    EXPECT_EQ(pView->ptDispPos().X, ptBefore.X + 1);
}

TEST_F(ImageMoverTest, TheOutlineIsHiddenDuringADragAndShownAfterwards)
{
    CRgn rgn;
    rgn.CreateRectRgn(10, 10, 390, 140);
    pView->UpdateSelection(rgn, std::vector<BYTE>(400 * 150, 255));
    const winlite::Picture outlined = Screen();
    pView->ShowSelection(FALSE);
    const winlite::Picture plain = Screen();
    user->Press({100, 100});
    EXPECT_EQ(Screen().vPixels, plain.vPixels);
    user->Release({100, 100});
    EXPECT_EQ(Screen().vPixels, outlined.vPixels) << "shown, although the host had hidden it";
}

TEST_F(ImageMoverTest, ADragThatEndsInsideItsBeginningIsOver)
{
    pHost->answer = [](UINT uCode)
    {
        if (uCode == 0x120)
            ::ReleaseCapture();
        return 0;
    };
    CRgn rgn;
    rgn.CreateRectRgn(10, 10, 390, 140);
    pView->UpdateSelection(rgn, std::vector<BYTE>(400 * 150, 255));
    const winlite::Picture outlined = Screen();
    user->Press({100, 100});
    EXPECT_EQ(Told(), "N120 N122 ");
    EXPECT_EQ(Screen().vPixels, outlined.vPixels) << "the outline is not left hidden";
    ImageMover loose;
    loose.OnLButtonDown(0, {1, 1});
    loose.OnMouseMove(0, {5, 5});
    loose.OnCaptureChanged(nullptr);
}

TEST_F(ImageMoverTest, TheHostMayTakeTheToolOrThePictureAwayInTheMiddle)
{
    for (const UINT uCode : {0x120U, 0x121U, 0x122U, 6U})
    {
        for (const bool bUnload : {false, true})
        {
            pView->SetBitmap(bitmap.info, bitmap.vBits.data());
            pView->LoadEmbeddedTool(hand);
            pHost->answer = [&](UINT uTold)
            {
                if (uTold == uCode)
                    bUnload ? pView->UnloadEmbeddedTool() : pView->ClearBitmap(TRUE);
                return 0;
            };
            user->Drag({100, 100}, {50, 100});
            ::ReleaseCapture();
            pHost->answer = {};
        }
    }
    pView->SetBitmap(bitmap.info, bitmap.vBits.data());
    pView->LoadEmbeddedTool(hand);
    user->Release({1, 1});
    Told();
    user->Drag({100, 100}, {50, 100});
    EXPECT_EQ(Told(), "N120 N121 N122 ");
}

} // namespace
