#include "program/Navigator.h"
#include "pixels/Thumbnail.h"
#include "program/VisiblePart.h"
#include "support/User.h"

#include <gtest/gtest.h>

namespace
{

/// The program in a window of 400 x 300, with a navigator of 120 x 90 beside it.
class NavigatorTest : public testing::Test
{
protected:
    void SetUp() override
    {
        host.MoveWindow(0, 0, 400, 300);
        small.MoveWindow(500, 0, 120, 90);
        host.ShowWindow(SW_SHOW);
        small.ShowWindow(SW_SHOW);
        CPhoto photo(1200, 600);
        for (int y = 0; y < photo.Height(); ++y)
        {
            for (int x = 0; x < photo.Width(); ++x)
                photo.Row(y)[4 * x] = static_cast<BYTE>(x / 5);
        }
        retoucher.ShowPhoto(std::move(photo));
        CUser::Settle();
    }
    void Do(const std::string& strCommand)
    {
        std::string strError;
        EXPECT_TRUE(retoucher.Execute(strCommand, strError)) << strError;
        CUser::Settle();
    }

    /// The middle of what the large view shows.
    CPoint Middle()
    {
        const VisiblePart part = VisiblePartOf(host.View());
        return {(part.vColumns.front() + part.vColumns.back()) / 2, (part.vRows.front() + part.vRows.back()) / 2};
    }
    BYTE SmallPixel(int x, int y) { return GetBValue(small.View().GetPixelRGBValue({x, y}, TRUE)); }

    CViewHost host;
    CViewHost small;
    CRetoucher retoucher{host};
    CNavigator navigator{small, host, retoucher};
    CUser user{small.View()};
};

TEST_F(NavigatorTest, TheFrameMovesTheLargeViewAndFollowsIt)
{
    EXPECT_EQ(CSize(small.View().iBmpWidth(), small.View().iBmpHeight()), CSize(120, 60));
    Do("one-to-one");
    const struct
    {
        CPoint ptSmall; ///< The small picture begins at 0, 15.
        CPoint ptMiddle;
    } PLACES[] = {{{60, 45}, {605, 305}}, {{80, 50}, {805, 355}}, {{0, 15}, {191, 141}}, {{119, 74}, {1008, 458}}};
    user.Press({30, 40});
    for (const auto& place : PLACES)
    {
        user.Move(place.ptSmall);
        EXPECT_NEAR(Middle().x, place.ptMiddle.x, 1) << place.ptSmall.x;
        EXPECT_NEAR(Middle().y, place.ptMiddle.y, 1) << place.ptSmall.y;
    }
    user.Release({119, 74});
    user.Click({60, 45});
    user.Press({60, 45}); // A double click is two presses.
    user.Move({80, 50});
    user.Release({80, 50});
    EXPECT_NEAR(Middle().x, 805, 1);
    EXPECT_EQ(::GetFocus(), host.View().m_hWnd) << "the keys stay with the photo";
    host.View().SetDispPosition(400, 200);
    CUser::Settle();
    // A red line two pixels wide about the frame: 400/10 .. 783/10 and 15 + 200/10 .. 15 + 483/10.
    const auto isRed = [&](int x, int y) { return small.View().GetPixelRGBValue({x, y}, TRUE) == RGB(255, 0, 0); };
    EXPECT_TRUE(isRed(40, 50) && isRed(60, 35) && isRed(78, 50));
    EXPECT_FALSE(isRed(60, 50) || isRed(30, 50) || isRed(60, 25));
}

TEST_F(NavigatorTest, ThePictureFollowsThePhoto)
{
    const int iBefore = SmallPixel(60, 45);
    Do("brightness-contrast 50 0");
    EXPECT_EQ(SmallPixel(60, 45), iBefore + 50);
    Do("undo");
    EXPECT_EQ(SmallPixel(60, 45), iBefore);
    Do("turn-right");
    EXPECT_EQ(CSize(small.View().iBmpWidth(), small.View().iBmpHeight()), CSize(45, 90));
    small.MoveWindow(500, 0, 300, 180);
    CUser::Settle();
    EXPECT_EQ(CSize(small.View().iBmpWidth(), small.View().iBmpHeight()), CSize(90, 180));
    retoucher.ShowPhoto(CPhoto(3, 2));
    CUser::Settle();
    EXPECT_EQ(CSize(small.View().iBmpWidth(), small.View().iBmpHeight()), CSize(3, 2)) << "nothing is enlarged";
    user.Click({150, 90});
}

} // namespace
