#include "selection/RegionSelector.h"
#include "support/ToolTest.h"

#include <algorithm>

using Pixtane::EmbeddedTool::RegionSelector;

namespace
{

/// What is drawn over a grey picture while a shape is being drawn.
class FeedbackTest : public CToolTest<RegionSelector>
{
protected:
    static constexpr std::uint32_t GREY = 0x5A5A5A;

    FeedbackTest() : CToolTest(300, 200) { std::ranges::fill(bitmap.vBits, BYTE{0x5A}); }

    /// The box of what is not grey within a part of the window.
    CRect Drawn(CRect rcWithin)
    {
        const winlite::Picture picture = Screen();
        CRect rcDrawn(0x7FFF, 0x7FFF, 0, 0);
        for (int y = rcWithin.top; y < rcWithin.bottom; ++y)
        {
            for (int x = rcWithin.left; x < rcWithin.right; ++x)
            {
                if (PixelOf(picture, x, y) != GREY)
                    rcDrawn = CRect(std::min<int>(rcDrawn.left, x), std::min<int>(rcDrawn.top, y),
                                    std::max<int>(rcDrawn.right, x + 1), std::max<int>(rcDrawn.bottom, y + 1));
            }
        }
        return rcDrawn.left == 0x7FFF ? CRect() : rcDrawn;
    }

    /// Window pixels as text: black '#', white 'o', inverted grey '*', grey '.'.
    std::string Row(int x, int y, int nPixels)
    {
        const winlite::Picture picture = Screen();
        std::string strRow;
        for (int i = 0; i < nPixels; ++i)
        {
            const std::uint32_t uPixel = PixelOf(picture, x + i, y);
            strRow += uPixel == 0          ? '#'
                      : uPixel == 0xFFFFFF ? 'o'
                      : uPixel == 0xA5A5A5 ? '*'
                      : uPixel == GREY     ? '.'
                                           : '?';
        }
        return strRow;
    }
};

TEST_F(FeedbackTest, ARectangleIsABlackLineWithWhiteDashesFromItsUpperRightCorner)
{
    tool.SetSelectMode(RegionSelector::SM_RECTANGLE);
    user->Press({100, 100});
    user->Move({139, 149});
    EXPECT_EQ(Row(99, 100, 42), ".o######ooooooooo######ooo######ooooooooo.");
    EXPECT_EQ(Drawn({101, 101, 139, 149}), CRect()) << "nothing inside";
    EXPECT_EQ(Drawn({100, 100, 140, 150}), CRect(100, 100, 140, 150));
    user->Release({139, 149});
}

TEST_F(FeedbackTest, LabelsStandOutsideTheAnchorAndAtThePointer)
{
    tool.SetSelectMode(RegionSelector::SM_RECTANGLE);
    const struct
    {
        CPoint ptFrom, ptTo;
        bool bPositionLeft, bPositionAbove, bSizeAbove;
    } vCases[] = {
        {{160, 120}, {100, 80}, false, false, true},
        {{100, 80}, {160, 120}, true, true, false},
        {{160, 80}, {100, 120}, false, true, false},
        {{100, 120}, {160, 80}, true, false, true},
    };
    for (const auto& c : vCases)
    {
        user->Wait(600);
        user->Press(c.ptFrom);
        user->Move(c.ptTo);
        // The box is 100..160 by 80..120; the size's text ends at the pointer, less its margin.
        const CRect rcPosition = Drawn(c.bPositionLeft ? CRect(0, 0, 100, 200) : CRect(161, 0, 300, 200));
        EXPECT_GT(rcPosition.Width(), 40);
        EXPECT_EQ(rcPosition.bottom <= 80, c.bPositionAbove);
        EXPECT_EQ(rcPosition.top >= 121, !c.bPositionAbove);
        const CRect rcSize = Drawn(c.bSizeAbove ? CRect(0, 60, c.ptTo.x, 80) : CRect(0, 121, c.ptTo.x, 145));
        EXPECT_GT(rcSize.Width(), 40);
        EXPECT_LE(c.ptTo.x - rcSize.right, 8);
        user->Release(c.ptTo);
        pView->ClearSelection();
        pView->Invalidate(FALSE);
    }
}

TEST_F(FeedbackTest, OutlinesFollowZoomAndPlace)
{
    tool.SetSelectMode(RegionSelector::SM_RECTANGLE);
    pView->SetZoom(2);
    pView->SetDispPosition(7, 5);
    user->Press({0, 4}); // bitmap pixel (3, 4)
    pView->Invalidate(FALSE);
    EXPECT_EQ(Drawn({0, 2, 3, 6}), CRect(0, 3, 1, 5)) << "6 - 7 to 8 - 7, 8 - 5 to 10 - 5; the left column is outside";
    user->Release({0, 4});
    EXPECT_EQ(pView->vSelectMask()[4 * 300 + 3], 255);
}

TEST_F(FeedbackTest, ALassoInvertsAndAPolygonClosesThroughThePointer)
{
    tool.SetSelectMode(RegionSelector::SM_LASSO);
    user->Press({50, 50});
    user->Move({60, 50});
    user->Move({60, 60});
    EXPECT_EQ(Row(49, 50, 13), ".***********.");
    EXPECT_EQ(Row(60, 55, 1), "*");
    user->Release({60, 60});
    user->Wait(600); // no double click
    pView->ClearSelection();
    tool.SetSelectMode(RegionSelector::SM_POLYGON);
    user->Click({50, 50});
    user->Move({70, 50});
    EXPECT_EQ(Drawn({40, 40, 90, 90}), CRect(50, 50, 70, 51)) << "a line to the pointer, without its end";
    user->Click({70, 50});
    user->Move({70, 70});
    EXPECT_EQ(Drawn({40, 40, 90, 90}), CRect(50, 50, 71, 70));
    user->Type(VK_DELETE);
    EXPECT_EQ(Drawn({65, 40, 90, 65}), CRect()) << "the last corner is gone";
    ::ReleaseCapture();
    Pump();
    EXPECT_EQ(Drawn({40, 40, 90, 90}), CRect());
}

} // namespace
