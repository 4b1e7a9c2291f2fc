#include "tools/MovableRectangle.h"
#include "support/ToolTest.h"
#include "view/CursorIds.h"

using MovableRectangleTest = CToolTest<Pixtane::EmbeddedTool::MovableRectangle>;

TEST_F(MovableRectangleTest, TheFrameFollowsZoomAndPositionAndStaysOnTheImage)
{
    const struct
    {
        double dbZoom;
        CRect rcSet, rcFrame; ///< With its two pixels on all sides.
    } CASES[] = {{1, {100, 90, 150, 130}, {49, 39, 101, 81}},
                 {2, {50, 40, 90, 80}, {50, 30, 132, 112}},
                 {0.5, {-20, -20, 100, 1000}, {50, 25, 101, 175}},
                 {0.5, {500, 0, 600, 100}, {249, 25, 300, 76}}}; // beyond the image: turned inside out
    for (const auto& [dbZoom, rcSet, rcFrame] : CASES)
    {
        pView->SetZoom(dbZoom);
        pView->SetDispPosition(50, 50);
        pView->UnloadEmbeddedTool();
        const winlite::Picture before = Screen();
        pView->LoadEmbeddedTool(tool);
        tool.SetRectangle(rcSet);
        ExpectFrame(before, rcFrame, 2, [](std::uint32_t) { return 0xFF0000u; });
    }
}

TEST_F(MovableRectangleTest, EveryStepTellsACentreInsideTheImage)
{
    EXPECT_EQ(tool.GetViewCenter(), CPoint(0x7FFFFFFF, 0x7FFFFFFF));
    tool.SetRectangle({10, -3, 31, 0});
    EXPECT_EQ(tool.GetViewCenter(), CPoint(20, -1));
    pView->SetDispPosition(50, 60);
    user->Move({5, 5});
    EXPECT_EQ(::GetCursor(), ::LoadCursor(nullptr, IDC_HAND));
    user->Press({10, 20});
    EXPECT_EQ(::GetCursor(), OwnCursor(Pixtane::CURSOR_CLOSED_HAND));
    EXPECT_EQ(tool.GetViewCenter(), CPoint(60, 80));
    user->Move({-500, 1000});
    user->Release({1000, -500});
    EXPECT_EQ(tool.GetViewCenter(), CPoint(0, 299)) << "the release is no step";
    user->Wait(600);     // no double click
    pView->SetCapture(); // A view that has the mouse already does not lose it to the drag.
    user->Press({10, 20});
    LoseMouse();
    user->Move({50, 100});
    EXPECT_EQ(Told(), "MOVABLERECT_MOVED MOVABLERECT_MOVED MOVABLERECT_MOVED ") << "two of the drag, one of the press";
    EXPECT_EQ(decltype(tool)(tool).GetViewCenter(), CPoint(60, 80));
}
