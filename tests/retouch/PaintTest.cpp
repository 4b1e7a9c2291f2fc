#include "headless/HeadlessDesktop.h"
#include "program/CommandText.h"
#include "program/Retoucher.h"
#include "support/User.h"

#include <gtest/gtest.h>

namespace
{

/// The program with a photo of columns that are told apart by their colour, and somebody who paints.
class PaintTest : public testing::Test
{
protected:
    void SetUp() override
    {
        host.MoveWindow(0, 0, 600, 400);
        host.ShowWindow(SW_SHOW);
        winlite::QueueActivation(host.m_hWnd, true);
        CPhoto photo(300, 200);
        for (int y = 0; y < 200; ++y)
        {
            for (int x = 0; x < 300; ++x)
                std::fill_n(photo.Row(y) + 4 * x, 4, Original(x, y));
        }
        retoucher.ShowPhoto(std::move(photo));
        retoucher.SetListener(
            [this](const std::string& strError)
            {
                if (!strError.empty())
                    strTold = strError;
            });
        CUser::Settle();
        Do("hardness 100");
        Do("brush-size 11");
    }

    static BYTE Original(int x, int y) { return static_cast<BYTE>(50 + x / 2 + y % 2); }
    int Pixel(int x, int y) { return retoucher.Photo()->Row(y)[4 * x]; }
    void Do(const std::string& strCommands)
    {
        std::string strError;
        const auto vCommands = SplitCommands(strCommands, strError);
        for (const std::string& strCommand : *vCommands)
            EXPECT_TRUE(retoucher.Execute(strCommand, strError)) << strCommand << ": " << strError;
        CUser::Settle();
    }
    std::string Refusal(const std::string& strCommand)
    {
        std::string strError;
        return retoucher.Execute(strCommand, strError) ? "done" : strError;
    }
    CPoint At(int x, int y)
    {
        CPoint pt(x, y);
        host.View().FromBitmapToWnd(pt);
        return pt;
    }
    std::string Undone() { return retoucher.State().strUndo; }

    CViewHost host;
    CRetoucher retoucher{host};
    CUser user{host.View()};
    std::string strTold;
};

TEST_F(PaintTest, EachBrushChangesWhatIsUnderItsStrokeAndNothingElse)
{
    const int iDodged = Original(100, 50) + 26; // A tenth of the scale.
    const struct
    {
        const char* pszCommands;
        int iExpected; ///< At 100, 50.
        const char* pszStep;
    } CASES[] = {
        {"tool dodge-burn; stroke 90,50 110,50 90,50", iDodged, "Dodge"},
        {"tool dodge-burn; range burn; stroke 90,50 110,50", Original(100, 50) - 26, "Burn"},
        {"tool dodge-burn; range dodge; strength 50; stroke 90,50 110,50", Original(100, 50) + 13, "Dodge"},
        {"tool clone; strength 100; clone-source 200 100; stroke 90,50 110,50", Original(210, 100), "Clone"},
        {"aligned off; stroke 80,50 100,50", Original(220, 100), "Clone"},
        {"aligned on; stroke 80,50 100,50; stroke 85,150; stroke 100,50", Original(220, 100), "Clone"},
        {"tool effect; effect mosaic; stroke 100,50", -1, "Effect Brush"},
    };
    for (const auto& test : CASES)
    {
        Do(test.pszCommands);
        EXPECT_EQ(Undone(), test.pszStep) << test.pszCommands;
        if (test.iExpected >= 0)
        {
            EXPECT_NEAR(Pixel(100, 50), test.iExpected, 1) << test.pszCommands;
        }
        EXPECT_NE(Pixel(100, 50), Original(100, 50)) << test.pszCommands;
        EXPECT_EQ(Pixel(100, 60), Original(100, 60)) << test.pszCommands;
        while (!Undone().empty())
            Do("undo");
        EXPECT_EQ(Pixel(100, 50), Original(100, 50)) << test.pszCommands;
    }
}

TEST_F(PaintTest, TheSelectionLimitsAStrokeWhileItIsPaintedAndAfterwards)
{
    Do("tool rectangle; feather 10");
    user.Drag(At(100, 20), At(199, 99));
    const std::vector<BYTE> vMask = host.View().vSelectMask();
    Do("tool dodge-burn; brush-size 31");
    user.Move(At(60, 60));
    user.Press(At(60, 60));
    user.Move(At(180, 60));
    static_cast<winlite::HeadlessDesktop&>(winlite::TheDesktop()).WaitUntilWorkersAskedForPointer(2);
    user.Release(At(180, 60));
    bool bSoft = false;
    for (int x = 70; x < 180; ++x)
    {
        const int iWeight = vMask[60 * 300 + static_cast<std::size_t>(x)];
        bSoft = bSoft || (iWeight > 0 && iWeight < 255);
        EXPECT_NEAR(Pixel(x, 60), Original(x, 60) + 25.5 * iWeight / 255, 1.5) << x << " of weight " << iWeight;
        if (iWeight == 0)
        {
            EXPECT_EQ(Pixel(x, 60), Original(x, 60)) << x;
        }
    }
    EXPECT_TRUE(bSoft);
    EXPECT_EQ(Undone(), "Dodge");
}

TEST_F(PaintTest, WhatInterruptsAStrokeEndsItAndEscDropsIt)
{
    const struct
    {
        const char* pszCommand;
        const char* pszUndone; ///< What can be undone afterwards.
        bool bPainted;
    } CASES[] = {
        {"drop", "", false},
        {"undo", "", false},
        {"tool rectangle", "Dodge", true},
        {"invert", "Invert Selection", true},
        {"auto-contrast", "Auto Contrast", true},
        {"show-original", "", false},
        {"tint", "", false},
    };
    for (const auto& test : CASES)
    {
        Do("tool dodge-burn; show-result; no-tint");
        user.Move(At(100, 50));
        user.Press(At(100, 50));
        EXPECT_TRUE(retoucher.IsPainting()) << test.pszCommand;
        Do(test.pszCommand);
        EXPECT_EQ(Undone(), test.pszUndone) << test.pszCommand;
        EXPECT_EQ(Pixel(100, 50) != Original(100, 50), test.bPainted) << test.pszCommand;
        const bool bGoesOn = retoucher.IsPainting();
        user.Release(At(100, 50));
        EXPECT_EQ(Undone() == "Dodge", bGoesOn || std::string(test.pszUndone) == "Dodge") << test.pszCommand;
        while (!Undone().empty())
            Do("undo");
        Do("select-none");
    }
}

TEST_F(PaintTest, LinesAndDabs)
{
    Do("tool dodge-burn");
    user.Move(At(50, 50));
    user.Click(At(50, 50));
    user.KeyDown(VK_SHIFT);
    user.Move(At(150, 100));
    user.Click(At(150, 100));
    user.KeyUp(VK_SHIFT);
    EXPECT_NE(Pixel(100, 75), Original(100, 75)) << "the line's middle";
    Do("undo");
    const int iOnce = Pixel(50, 50);
    user.Move(At(200, 50));
    user.Click(At(200, 50));
    user.Click(At(200, 50)); // A double click.
    EXPECT_NEAR(Pixel(200, 50) - Original(200, 50), 2 * (iOnce - Original(50, 50)), 3);
}

TEST_F(PaintTest, TheSourceOfTheStamp)
{
    Do("tool clone");
    user.Move(At(50, 50));
    user.Click(At(50, 50));
    EXPECT_EQ(strTold, "set the source first: Alt and a click, or S and a click");
    EXPECT_EQ(Refusal("clone-source 300 10"), "the photo has no pixel 300, 10");
    EXPECT_EQ(Refusal("stroke 10,10"), "the brush cannot paint there, or has no source");
    Do("pick-source");
    EXPECT_EQ(retoucher.State().strHint, "Click the place to copy from");
    user.Move(At(200, 50));
    user.Click(At(200, 50));
    EXPECT_FALSE(retoucher.State().bInSession);
    Do("stroke 100,50");
    EXPECT_EQ(Pixel(100, 50), Original(200, 50));
    retoucher.ShowPhoto(CPhoto(40, 40)); // The source goes with its photo.
    EXPECT_NE(Refusal("stroke 10,10"), "done");
    Do("tool dodge-burn");
    EXPECT_NE(Refusal("pick-source"), "done");
}

TEST_F(PaintTest, SettingsComeBack)
{
    Do("tool effect; brush-size 77; strength 40; effect warm; aligned off; range burn");
    CViewHost other;
    CRetoucher again(other);
    for (const char* pszSettings : {"cloneSettings", "dodgeBurnSettings", "effectSettings"})
        EXPECT_TRUE(again.TakeSettings(pszSettings, retoucher.Settings(pszSettings))) << pszSettings;
    EXPECT_EQ(again.State().vOptions, retoucher.State().vOptions);
}

} // namespace
