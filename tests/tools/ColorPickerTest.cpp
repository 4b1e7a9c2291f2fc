#include "tools/ColorPicker.h"
#include "support/ToolTest.h"
#include "view/CursorIds.h"

using ColorPickerTest = CToolTest<Pixtane::EmbeddedTool::ColorPicker>;

TEST_F(ColorPickerTest, PicksWhatTheScreenShowsAndTellsEachTime)
{
    Select({20, 10, 70, 40});
    for (const double dbZoom : {0.5, 1.0, 3.0})
    {
        pView->SetZoom(dbZoom);
        pView->SetDispPosition(30, 20);
        const winlite::Picture screen = Screen();
        CRect rcView(0, 0, 0, 0);
        pView->GetClientRect(&rcView);
        for (const CPoint pt : {At(20, 10), At(50, 30), CPoint(0, 0), CPoint(rcView.right - 1, 100),
                                CPoint(rcView.right, 100), CPoint(100, rcView.bottom), CPoint(-1, 5)})
        {
            const std::uint32_t u = rcView.PtInRect(pt) ? PixelOf(screen, pt.x, pt.y) : BACKGROUND_PIXEL;
            tool.OnMouseMove(MK_LBUTTON, pt);
            EXPECT_EQ(tool.GetColor(), RGB(u >> 16 & 255, u >> 8 & 255, u & 255)) << dbZoom << " " << pt.x;
        }
    }
    TakeLog();
    user->Move({100, 100});
    EXPECT_EQ(::GetCursor(), OwnCursor(Pixtane::CURSOR_EYEDROPPER));
    user->Press({150, 100});
    user->Move({150, 101});
    EXPECT_EQ(::GetCapture(), nullptr);
    user->Release({150, 101});
    user->Click({150, 101}); // a double click
    EXPECT_EQ(Told(), "COLORPICKER_COLOR COLORPICKER_COLOR ");
    pView->ClearBitmap(FALSE);
    tool.OnLButtonDown(0, {150, 100});
    EXPECT_EQ(tool.GetColor(), BACKGROUND) << "without a bitmap";
}
