#include "tools/RedeyeReduction.h"
#include "support/Rects.h"
#include "support/ToolTest.h"
#include "view/Notifications.h"

using RedeyeReductionTest = CToolTest<Pixtane::EmbeddedTool::RedeyeReduction>;

TEST_F(RedeyeReductionTest, AFrameFollowsTheMouseAndItsPixelsAreTold)
{
    const struct
    {
        double dbZoom;
        CPoint ptPress, ptRelease;
        CRect rcFrame, rcDetect;
    } CASES[] = {{1, {10, 20}, {30, 50}, {10, 20, 30, 50}, {60, 70, 80, 100}},
                 {1, {30, 50}, {10, 20}, {10, 20, 30, 50}, {60, 70, 80, 100}},
                 {3, {20, 20}, {-190, 40}, {-190, 20, 20, 40}, {-47, 23, 23, 30}},
                 {0.5, {20, 180}, {290, 20}, {20, 20, 290, 180}, {-60, -10, 480, 310}}};
    winlite::Picture before;
    for (const auto& [dbZoom, ptPress, ptRelease, rcFrame, rcDetect] : CASES)
    {
        pView->SetZoom(dbZoom);
        pView->SetDispPosition(50, 50);
        before = Screen();
        user->Press(ptPress);
        user->Move(ptRelease);
        ExpectFrame(before, rcFrame, 1, [](std::uint32_t uRgb) { return uRgb ^ 0xFFFFFF; });
        user->Release(ptRelease);
        EXPECT_EQ(Told(), "REDEYE_DETECT ");
        EXPECT_EQ(tool.GetDetectRect(), rcDetect) << dbZoom;
        user->Wait(600); // no double click
    }
    user->Press({10, 10});
    user->Move({50, 50});
    user->Release({10, 10});
    user->Wait(600);
    user->Press({10, 10});
    user->Move({50, 50});
    LoseMouse();
    user->Release({50, 50});
    EXPECT_EQ(Told(), "") << "neither a way back nor a lost capture";
    EXPECT_EQ(Screen().vPixels, before.vPixels);
    EXPECT_EQ(decltype(tool)(tool).GetDetectRect(), CASES[3].rcDetect);
    InsideFirst(Pixtane::PVN_REDEYE_DETECT, [&] { pView->ClearBitmap(FALSE); });
    user->Drag({10, 10}, {50, 50});
    pView->SetBitmap(bitmap.info, bitmap.vBits.data());
    EXPECT_EQ(Screen().vPixels, before.vPixels) << "the drag is over, although the view did not tell";
}

TEST_F(RedeyeReductionTest, TheAmountIsLimitedKeptAndRestored)
{
    const std::string strRefused = "RedeyeReduction::UnserializeToolSettings: Invalid parameter data size ";
    const std::tuple<std::vector<BYTE>, std::string, int> CASES[] = {
        {{1, 0, 0, 0, 50, 0, 0, 0}, "", 50},
        {{1, 0, 0, 0, 200, 0, 0, 0}, "", 100},
        {{1, 9, 9, 9, 0, 0, 0, 128}, "", 1},
        {{0, 0, 0, 0, 77}, "", 30},
        {{1, 0, 0, 0, 50, 0, 0, 0, 0, 0, 0, 0}, strRefused + "for version 1.", 30},
        {{1, 0, 0, 0}, strRefused + "or version.", 30},
        {{2, 0, 0, 0, 50, 0, 0, 0}, strRefused + "or version.", 30}};
    for (const auto& [vBlob, strLogged, iAmount] : CASES)
    {
        tool.SetDarkenAmount(30);
        EXPECT_EQ(Restore(vBlob), strLogged);
        EXPECT_EQ(tool.GetDarkenAmount(), iAmount) << &vBlob - &std::get<0>(CASES[0]);
    }
    tool.SetDarkenAmount(101);
    std::vector<BYTE> vKept(20, 7);
    tool.SerializeToolSettings(vKept);
    EXPECT_EQ(vKept, (std::vector<BYTE>{1, 0, 0, 0, 100, 0, 0, 0}));
}
