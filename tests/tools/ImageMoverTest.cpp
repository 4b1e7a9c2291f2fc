#include "tools/ImageMover.h"
#include "support/ToolTest.h"
#include "view/Notifications.h"

using Pixtane::EmbeddedTool::ImageMover;

namespace
{

class ImageMoverTest : public CToolTest<ImageMover>
{
protected:
    ImageMoverTest() : CToolTest(400, 150) {}
};

TEST_F(ImageMoverTest, ThePictureFollowsTheHandAndStopsAtItsEdge)
{
    pView->SetDispPosition(50, 0);
    Told();
    user->Press({100, 100});
    user->Move({80, 90});
    EXPECT_EQ(pView->ptDispPos().X, 70);
    user->Move({80, 90});
    EXPECT_EQ(Told(), "IMAGEMOVER_BEGIN IMAGEMOVER_MOVING ") << "a move of nothing is none";
    user->Move({300, 90});
    EXPECT_EQ(pView->ptDispPos().X, 0);
    user->Move({310, 90});
    user->Release({200, 90});
    EXPECT_EQ(pView->ptDispPos().X, 0) << "the release itself does not move";
    EXPECT_EQ(Told(), "IMAGEMOVER_MOVING IMAGEMOVER_MOVING IMAGEMOVER_END ") << "also against the edge; one end";
    user->Wait(600); // no double click
    user->Press({100, 100});
    ::SetCapture(pHost->m_hWnd);
    ::ReleaseCapture();
    user->Move({50, 100});
    EXPECT_EQ(Told(), "IMAGEMOVER_BEGIN IMAGEMOVER_END ") << "ended by losing the capture";
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
    EXPECT_EQ(Told(), "IMAGEMOVER_BEGIN IMAGEMOVER_MOVING IMAGEMOVER_END ");
    EXPECT_EQ(pView->ptDispPos().X, ptBefore.X + 1);
}

TEST_F(ImageMoverTest, TheOutlineIsHiddenDuringADragAndShownAfterwards)
{
    Select({10, 10, 390, 140});
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
    InsideFirst(Pixtane::PVN_IMAGEMOVER_BEGIN, [] { ::ReleaseCapture(); });
    Select({10, 10, 390, 140});
    const winlite::Picture outlined = Screen();
    user->Press({100, 100});
    EXPECT_EQ(Told(), "IMAGEMOVER_BEGIN IMAGEMOVER_END ");
    EXPECT_EQ(Screen().vPixels, outlined.vPixels) << "the outline is not left hidden";
    class CLeavesWithTheMouse : public ImageMover
    {
        int OnCaptureChanged(CWnd*) override { return pView->UnloadEmbeddedTool(), FALSE; }
    };
    pHost->answer = {};
    CLeavesWithTheMouse leaving;
    pView->LoadEmbeddedTool(leaving);
    user->Wait(600); // no double click
    Told();
    user->Drag({100, 100}, {50, 100});
    EXPECT_EQ(Told(), "IMAGEMOVER_BEGIN IMAGEMOVER_MOVING ")
        << "the release unloads the tool, which then leaves the view alone";
    pView->LoadEmbeddedTool(tool);
    user->Wait(600);
    user->Press({100, 100});
    pView->UnloadEmbeddedTool();
    EXPECT_EQ(::GetCapture(), pView->m_hWnd) << "unloading keeps the capture";
    ::ReleaseCapture();
    ImageMover loose;
    loose.OnLButtonDown(0, {1, 1});
    loose.OnMouseMove(0, {5, 5});
    loose.OnCaptureChanged(nullptr);
}

} // namespace
