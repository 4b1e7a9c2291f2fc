#include "headless/HeadlessDesktop.h"
#include "program/Retoucher.h"
#include "support/User.h"

#include <gtest/gtest.h>
#include <random>

namespace
{

/// A photo in which no two neighbours are the same, and a cover that changes nothing of it.
class PresenterTest : public testing::Test
{
protected:
    void SetUp() override
    {
        host.MoveWindow(0, 0, 401, 303);
        host.ShowWindow(SW_SHOW);
        CPhoto photo(531, 397);
        std::mt19937 random(7);
        std::generate_n(photo.Pixels(), photo.ByteCount(), [&] { return static_cast<BYTE>(random()); });
        for (std::size_t i = 3; i < photo.ByteCount(); i += 4)
            photo.Pixels()[i] = 0;
        retoucher.ShowPhoto(std::move(photo));
    }
    void Do(const std::string& strCommand)
    {
        std::string strError;
        EXPECT_TRUE(retoucher.Execute(strCommand, strError)) << strCommand << ": " << strError;
    }
    std::vector<std::uint32_t> Picture()
    {
        CUser::Settle();
        return winlite::WindowPicture(host.m_hWnd).vPixels;
    }

    CViewHost host;
    CRetoucher retoucher{host};
};

TEST_F(PresenterTest, ACoverStandsWhereThePhotoStoodAndFollowsIt)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> exponent(-4, 3.5);
    Do("preview-brightness-contrast 0 0");
    for (int i = 0; i < 60; ++i)
    {
        const CSize szWindow(static_cast<int>(200 + random() % 300), static_cast<int>(150 + random() % 300));
        host.MoveWindow(0, 0, szWindow.cx, szWindow.cy);
        host.View().SetZoom(std::exp2(exponent(random)));
        host.View().SetDispPosition(static_cast<int>(random() % 3000), static_cast<int>(random() % 3000));
        const auto covered = Picture();
        EXPECT_LE(host.View().vCoverBmpData().size(), static_cast<std::size_t>(szWindow.cx) * szWindow.cy * 4);
        Do("end-preview");
        const auto plain = Picture();
        const auto itFirst = std::ranges::mismatch(plain, covered).in1;
        EXPECT_EQ(itFirst - plain.begin(), std::ssize(plain))
            << "at zoom " << host.View().dbZoom() << ", display " << host.View().ptDispPos().X << ", "
            << host.View().ptDispPos().Y;
        Do("preview-brightness-contrast 0 0");
    }
}

TEST_F(PresenterTest, TheOriginalGoesBeforeAPreviewAndThatBeforeATint)
{
    const auto original = Picture();
    Do("brightness-contrast 30 0");
    const auto brighter = Picture();
    Do("show-original");
    EXPECT_EQ(Picture(), original);
    Do("show-result");
    EXPECT_EQ(Picture(), brighter);
    Do("hide-outline");
    Do("select-colour 5 5");
    Do("tint");
    const auto tinted = Picture();
    EXPECT_NE(tinted, brighter);
    Do("preview-brightness-contrast 0 0");
    EXPECT_EQ(Picture(), brighter) << "a preview without the tint";
    Do("show-original");
    EXPECT_EQ(Picture(), original);
    Do("end-preview");
    EXPECT_EQ(Picture(), original) << "still the one that goes first";
    Do("show-result");
    EXPECT_EQ(Picture(), tinted);
    Do("select-none");
    EXPECT_EQ(Picture(), brighter) << "without a selection nothing is tinted";
    Do("undo");
    EXPECT_EQ(Picture(), tinted);
    Do("no-tint");
    EXPECT_EQ(Picture(), brighter);
    EXPECT_TRUE(host.View().vCoverBmpData().empty());
}

} // namespace
