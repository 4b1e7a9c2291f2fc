#include "program/Retoucher.h"
#include "headless/HeadlessDesktop.h"
#include "support/User.h"

#include <gtest/gtest.h>
#include <QTemporaryDir>
#include <random>

namespace
{

/// The program without its window, and a person at it.
class RetoucherTest : public testing::Test
{
protected:
    void SetUp() override
    {
        host.MoveWindow(0, 0, 600, 400);
        host.ShowWindow(SW_SHOW);
        CPhoto photo(300, 200);
        std::fill_n(photo.Pixels(), photo.ByteCount(), BYTE{100});
        retoucher.ShowPhoto(std::move(photo));
        CUser::Settle();
    }

    void Do(const std::string& strCommand)
    {
        std::string strError;
        EXPECT_TRUE(retoucher.Execute(strCommand, strError)) << strCommand << ": " << strError;
        CUser::Settle();
    }
    std::string Refusal(const std::string& strCommand)
    {
        std::string strError;
        return retoucher.Execute(strCommand, strError) ? "done" : strError;
    }

    /// A window point over a bitmap pixel.
    CPoint At(int x, int y)
    {
        CPoint pt(x, y);
        host.View().FromBitmapToWnd(pt);
        return pt;
    }
    void Drag(CPoint ptFrom, CPoint ptTo) { user.Drag(At(ptFrom.x, ptFrom.y), At(ptTo.x, ptTo.y)); }
    std::string Box()
    {
        const CRect rc = retoucher.State().rcSelection;
        return rc.IsRectEmpty() ? "none"
                                : std::to_string(rc.left) + "," + std::to_string(rc.top) + "," +
                                      std::to_string(rc.right) + "," + std::to_string(rc.bottom);
    }
    int Pixel(int x, int y) { return retoucher.Photo()->Row(y)[4 * x]; }

    CViewHost host;
    CRetoucher retoucher{host};
    CUser user{host.View()};
};

TEST_F(RetoucherTest, EverySelectionIsOneStepToUndoAndRedo)
{
    Do("tool rectangle");
    Drag({10, 10}, {49, 29});
    Drag({100, 100}, {109, 109}); // clears the first on its way
    Do("rule add");
    Drag({110, 100}, {119, 109});
    user.Type(VK_RIGHT);
    EXPECT_EQ(Box(), "101,100,121,110");
    EXPECT_EQ(retoucher.State().strUndo, "Move Selection");
    Do("select-none");
    for (const char* pszBox : {"101,100,121,110", "100,100,120,110", "100,100,110,110", "10,10,50,30", "none"})
    {
        Do("undo");
        EXPECT_EQ(Box(), pszBox);
    }
    EXPECT_EQ(retoucher.State().strUndo, "");
    Do("undo");
    for (const char* pszBox : {"10,10,50,30", "100,100,110,110"})
    {
        Do("redo");
        EXPECT_EQ(Box(), pszBox);
    }
    EXPECT_EQ(retoucher.State().strRedo, "Add Rectangle");
    Do("select-all");
    EXPECT_EQ(retoucher.State().strRedo, "") << "what was undone is gone";
    Do("select-none");
    Do("reselect");
    EXPECT_EQ(Box(), "0,0,300,200");
}

TEST_F(RetoucherTest, AnAdjustmentGoesAsFarAsTheSelectionSaysAndComesBack)
{
    Do("tool rectangle");
    Do("feather 20");
    Drag({100, 50}, {199, 149});
    Do("brightness-contrast 60 0");
    EXPECT_EQ(Pixel(150, 100), 160);
    EXPECT_EQ(Pixel(5, 5), 100);
    EXPECT_NEAR(Pixel(100, 100), 130, 3) << "half way on the edge";
    Do("undo");
    EXPECT_EQ(Pixel(150, 100), 100);
    EXPECT_EQ(Pixel(100, 100), 100);
    Do("redo");
    EXPECT_EQ(Pixel(150, 100), 160);
    Do("preview-brightness-contrast 0 100");
    EXPECT_EQ(Pixel(150, 100), 160) << "a preview changes nothing";
    Do("end-preview");
    Do("select-none");
    Do("brightness-contrast 0 -100");
    EXPECT_EQ(Pixel(5, 5), 128) << "without a selection it is all of it";
    Do("revert");
    EXPECT_EQ(Pixel(150, 100), 100);
    Do("undo");
    EXPECT_EQ(Pixel(5, 5), 128);
}

TEST_F(RetoucherTest, APhotoIsUnsavedWhileItsPixelsAreNotThoseOfItsFile)
{
    const QTemporaryDir folder;
    const std::string strSave = "save " + folder.path().toStdString() + "/a b.png";
    const struct
    {
        std::string strCommand;
        bool bUnsaved;
    } vSteps[] = {
        {"select-all", false},
        {"brightness-contrast 60 0", true},
        {"undo", false},
        {"redo", true},
        {strSave, false},
        {"select-none", false},
        {"undo", false},
        {"undo", true},
        {"brightness-contrast 60 0", true}, // The same pixels by another way may be said to differ.
        {strSave + " --overwrite", false},
        {"revert", true},
        {"open-sample", false},
    };
    for (const auto& step : vSteps)
    {
        Do(step.strCommand);
        EXPECT_EQ(retoucher.State().bUnsaved, step.bUnsaved) << step.strCommand;
    }
    EXPECT_NE(Refusal("save {name}.png").find("comes from no file"), std::string::npos);
}

TEST_F(RetoucherTest, ClicksSelectNothingAndADroppedShapeBringsBackWhatWas)
{
    const struct
    {
        const char* pszTool;
        CSize szMove; ///< Between press and release, in screen pixels.
        const char* pszNew;
        const char* pszAdded;
    } vCases[] = {{"rectangle", {0, 0}, "none", "10,10,50,30"},
                  {"rectangle", {1, 1}, "none", "10,10,50,30"},
                  {"rectangle", {2, 0}, "200,100,203,101", "10,10,203,101"},
                  {"ellipse", {1, 0}, "none", "10,10,50,30"},
                  {"lasso", {1, 1}, "none", "10,10,50,30"}};
    for (const auto& c : vCases)
    {
        for (const bool bAdd : {false, true})
        {
            SCOPED_TRACE(c.pszTool);
            Do("rule new");
            Do("tool rectangle");
            Do("select-none");
            Drag({10, 10}, {49, 29});
            Do(bAdd ? "rule add" : "rule new");
            Do(std::string("tool ") + c.pszTool);
            const std::string strBefore = retoucher.State().strUndo;
            user.Wait(600);
            user.Drag(At(200, 100), At(200, 100) + c.szMove);
            EXPECT_EQ(Box(), bAdd ? c.pszAdded : c.pszNew);
            if (Box() == "none" || Box() == "10,10,50,30")
            {
                EXPECT_EQ(retoucher.State().strUndo, bAdd ? strBefore : "Deselect");
            }
        }
    }
    Do("rule new");
    for (const char* pszTool : {"rectangle", "lasso", "polygon"})
    {
        Do(std::string("tool ") + pszTool);
        const std::string strUndo = retoucher.State().strUndo;
        user.Wait(600);
        user.Press(At(100, 100));
        if (pszTool == std::string("polygon"))
            user.Release(At(100, 100));
        user.Move(At(150, 150));
        EXPECT_TRUE(retoucher.CanDrop());
        Do("drop");
        user.Release(At(150, 150));
        EXPECT_EQ(Box(), "10,10,50,30") << pszTool;
        EXPECT_EQ(retoucher.State().strUndo, strUndo);
    }
    Do("pick-colour");
    EXPECT_TRUE(retoucher.CanDrop());
    Do("drop");
    EXPECT_EQ(retoucher.State().strTool, "polygon");
    EXPECT_FALSE(retoucher.State().bInSession);
    Do("select-none");
    const std::string strHint = retoucher.State().strHint;
    Do("rule intersect");
    EXPECT_NE(retoucher.State().strHint, strHint) << "there is nothing to intersect with";
}

TEST_F(RetoucherTest, TheSelectionMenuGrowsShrinksAndSoftens)
{
    Do("tool rectangle");
    Drag({100, 50}, {199, 149});
    Do("grow 10");
    EXPECT_EQ(Box(), "90,40,210,160");
    EXPECT_EQ(host.View().vSelectMask()[41 * 300 + 91], 0) << "corners become round";
    Do("undo");
    Do("shrink 10");
    EXPECT_EQ(Box(), "110,60,190,140");
    Do("feather-selection 4");
    EXPECT_EQ(Box(), "105,55,195,145");
    Do("shrink 500");
    EXPECT_EQ(Box(), "none");
    Do("grow 5");
    EXPECT_NE(Refusal("grow 0").find("from 1 to 500"), std::string::npos);
    EXPECT_NE(Refusal("feather -1").find("\"-1\""), std::string::npos);
    EXPECT_NE(Refusal("feather 5x").find("\"5x\""), std::string::npos);
    EXPECT_NE(Refusal("tool brush").find("\"brush\""), std::string::npos);
    EXPECT_NE(Refusal("rule xor").find("\"xor\""), std::string::npos);
    EXPECT_NE(Refusal("brightness-contrast 1 101").find("-100 to 100"), std::string::npos);
    EXPECT_NE(Refusal("dance").find("\"dance\""), std::string::npos);
    EXPECT_NE(Refusal("open /no/such/file.png").find("/no/such/file.png"), std::string::npos);
    EXPECT_EQ(retoucher.Photo()->Width(), 300);
}

TEST_F(RetoucherTest, TheToleranceChangesWhatTheWandPickedLast)
{
    for (int x = 0; x < 300; ++x)
    {
        for (int y = 0; y < 200; ++y)
            std::fill_n(retoucher.Photo()->Row(y) + 4 * x, 3, static_cast<BYTE>(x / 2));
    }
    Do("tool wand");
    Do("tolerance 10");
    user.Click(At(100, 100));
    EXPECT_EQ(Box(), "80,0,122,200");
    Do("tolerance 20");
    EXPECT_EQ(Box(), "60,0,142,200");
    Do("tolerance 5");
    EXPECT_EQ(Box(), "90,0,112,200");
    Do("undo");
    EXPECT_EQ(Box(), "none") << "one step all the same";
    Do("redo");
    Do("tolerance 30");
    EXPECT_EQ(Box(), "90,0,112,200") << "something else happened since";
    Do("rule add");
    user.Click(At(100, 100));
    const std::string strSame = retoucher.State().strUndo;
    user.Wait(600);
    user.Click(At(100, 100));
    Do("tolerance 5");
    EXPECT_EQ(retoucher.State().strUndo, strSame) << "a pick that changed nothing is no step to take back";
    Do("rule new");
    Do("undo");
    Do("invert");
    EXPECT_EQ(retoucher.State().strUndo, "Invert Selection");
    EXPECT_EQ(Box(), "0,0,300,200");
    Do("select-none");
    Do("tolerance 0");
    Do("pick-colour");
    EXPECT_TRUE(retoucher.State().bInSession);
    user.Wait(600); // no double click
    user.Click(At(50, 50));
    EXPECT_EQ(Box(), "50,0,52,200");
    EXPECT_FALSE(retoucher.State().bInSession);
    Do("tolerance 1");
    EXPECT_GT(retoucher.State().rcSelection.Width(), 4) << "the colour range follows too";
    Do("undo");
    EXPECT_EQ(Box(), "none");
    EXPECT_NE(Refusal("select-colour 300 0").find("no pixel"), std::string::npos);
    EXPECT_NE(Refusal("tolerance 256").find("from 0 to 255"), std::string::npos);
}

TEST_F(RetoucherTest, ATransformIsOneStepOrNone)
{
    const auto weights = [&] { return host.View().vSelectMask(); };
    EXPECT_EQ(Refusal("tool transform"), "there is no selection to transform");
    EXPECT_NE(Refusal("transform-to 1 1 1 1").find("no selection"), std::string::npos);
    Do("tool ellipse");
    Drag({100, 50}, {199, 149});
    Do("feather-selection 6");
    const auto before = weights();
    const std::string strBox = Box();
    Do("hide-outline");
    Do("tool transform");
    EXPECT_FALSE(retoucher.State().bOutlineHidden);
    EXPECT_NE(Refusal("transform-to 1 1 301 10").find("301"), std::string::npos);
    for (const char* pszEnd : {"cancel-transform", "undo", "apply-transform"})
    {
        if (!retoucher.State().frame.has_value())
            Do("tool transform");
        Drag({150, 100}, {170, 110});
        Do("fit");
        Do("transform-to 10 10 40 30");
        EXPECT_TRUE(retoucher.State().frame.has_value());
        EXPECT_EQ(Box(), "10,10,50,40");
        user.Type(VK_RIGHT);
        EXPECT_EQ(Box(), "11,10,51,40");
        Do(pszEnd);
        EXPECT_EQ(retoucher.State().strTool, "ellipse");
        if (pszEnd[0] == 'a')
            break;
        EXPECT_EQ(Box(), strBox);
        EXPECT_EQ(weights(), before);
        EXPECT_EQ(retoucher.State().strUndo, "Feather Selection");
        EXPECT_EQ(retoucher.State().strRedo, "");
    }
    EXPECT_EQ(retoucher.State().strUndo, "Transform Selection");
    Do("undo");
    EXPECT_EQ(weights(), before);
    Do("tool transform");
    Do("transform-to 250 150 100 100");
    Do("grow 5");
    EXPECT_EQ(Box(), "200,100,300,200") << "shifted back inside, applied, then grown";
    Do("undo");
    EXPECT_EQ(retoucher.State().strUndo, "Transform Selection");
    Do("tool transform");
    const CRect rc = retoucher.State().frame.value_or(CRect());
    Do("transform-to 0 0 10 10");
    Do("transform-to " + std::to_string(rc.left) + " " + std::to_string(rc.top) + " " + std::to_string(rc.Width()) +
       " " + std::to_string(rc.Height()));
    Do("undo");
    EXPECT_EQ(retoucher.State().strUndo, "Transform Selection");
}

TEST_F(RetoucherTest, TheTransformsFrameFollowsTheWindowAndAScrolledPicture)
{
    Do("tool rectangle");
    Drag({100, 50}, {199, 149});
    Do("tool transform");
    Do("one-to-one"); // fitting again would be another zoom
    host.MoveWindow(0, 0, 701, 501);
    CUser::Settle();
    user.Drag(At(199, 100), At(219, 100));
    EXPECT_EQ(Box(), "100,50,220,150") << "the handle is where the picture is";
    host.Zoom().ZoomAbout(8, host.Zoom().ViewCentre());
    CUser::Settle();
    user.Press({300, 200});
    user.Move({310, 200});
    host.View().MoveImage(-160, 0);
    user.Move({300, 200});
    user.Release({300, 200});
    EXPECT_EQ(Box(), "80,50,200,150") << "back in the window, not in the picture";
}

TEST_F(RetoucherTest, AHiddenOutlineStaysHiddenAndSpaceIsAHand)
{
    const auto picture = [&]
    {
        CUser::Settle();
        return winlite::WindowPicture(host.m_hWnd).vPixels;
    };
    Do("one-to-one");
    host.Zoom().ZoomAbout(4, {0, 0});
    const auto plain = picture();
    Do("tool rectangle");
    Drag({10, 10}, {80, 80});
    const auto outlined = picture();
    EXPECT_NE(outlined, plain);
    Do("hide-outline");
    EXPECT_EQ(picture(), plain);
    user.KeyDown(VK_SPACE);
    user.Drag({100, 100}, {60, 100});
    EXPECT_EQ(host.View().ptDispPos().X, 40);
    EXPECT_EQ(Box(), "10,10,81,81") << "the hand selects nothing";
    user.KeyUp(VK_SPACE);
    const auto panned = picture();
    host.View().ShowSelection(FALSE);
    EXPECT_EQ(picture(), panned) << "still hidden";
    Do("show-outline");
    Do("still-outline");
    const auto still = picture();
    user.Wait(1000);
    EXPECT_EQ(picture(), still);
    Do("crawling-outline");
    user.Wait(600);
    EXPECT_NE(picture(), still);
    Drag({90, 20}, {95, 25});
    EXPECT_EQ(Box(), "90,20,96,26") << "the tool is back";
    Do("tint");
    const auto tinted = picture();
    Do("no-tint");
    EXPECT_NE(picture(), tinted);
}

TEST_F(RetoucherTest, TheSelectorsSettingsComeBack)
{
    Do("rule subtract");
    Do("feather 7");
    Do("tolerance 33");
    const std::vector<BYTE> vSettings = retoucher.Settings("selectorSettings");
    CRetoucher other(host);
    EXPECT_TRUE(other.TakeSettings("selectorSettings", vSettings));
    EXPECT_EQ(other.State().vOptions["rule"], Pixtane::EmbeddedTool::RegionSelector::OM_NEW) << "it would surprise";
    EXPECT_EQ(other.State().vOptions["feather"], 7);
    EXPECT_EQ(other.State().vOptions["tolerance"], 33);
    EXPECT_FALSE(other.TakeSettings("selectorSettings", {}));
}

TEST(TiledSnapshotTest, SnapshotsShareWhatDidNotChange)
{
    std::mt19937 random(1);
    std::vector<BYTE> vBytes(700 * 900);
    std::vector<CTiledSnapshot> vSnapshots(1);
    std::vector<std::vector<BYTE>> vStates;
    for (int i = 0; i < 10; ++i)
    {
        for (int j = 0; j < 50; ++j)
            vBytes[random() % 256 * 700 + random() % 256] = static_cast<BYTE>(random());
        vStates.push_back(vBytes);
        vSnapshots.emplace_back(vBytes, 700, vSnapshots.back());
    }
    EXPECT_LT(vSnapshots[1].BytesBeyond(vSnapshots[0]), 70000U) << "one tile and eleven of one value";
    EXPECT_NEAR(static_cast<double>(vSnapshots[5].BytesBeyond(vSnapshots[4])), 65536, 2000);
    for (std::size_t i = 0; i < vStates.size(); ++i)
    {
        vSnapshots[i + 1].Restore(vBytes);
        EXPECT_EQ(vBytes, vStates[i]);
    }
    EXPECT_TRUE(CTiledSnapshot(vBytes, 700, vSnapshots.back()).IsSameAs(vSnapshots.back()));
}

TEST_F(RetoucherTest, CroppingTakesTheSelectionAlongAndIsOneStep)
{
    retoucher.Photo()->Row(30)[4 * 50] = 7; // A pixel to be found again.
    Do("tool rectangle");
    Drag({40, 20}, {89, 59});
    Do("tool dodge-burn");
    Do("stroke 200,150");
    const int iDodged = Pixel(200, 150);
    EXPECT_NE(Refusal("crop 400 10 20 20"), "done");
    Do("crop 30 10 100 80");
    const auto size = [&]
    { return std::to_string(retoucher.State().szPhoto.cx) + "x" + std::to_string(retoucher.State().szPhoto.cy); };
    EXPECT_EQ(size() + " " + Box(), "100x80 10,10,60,50");
    EXPECT_EQ(Pixel(20, 20), 7);
    Do("crop-to-selection");
    EXPECT_EQ(size() + " " + Box(), "50x40 0,0,50,40");
    Do("undo");
    Do("undo");
    EXPECT_EQ(size() + " " + Box(), "300x200 40,20,90,60");
    EXPECT_EQ(Pixel(50, 30), 7);
    EXPECT_EQ(Pixel(200, 150), iDodged);
    Do("redo");
    EXPECT_EQ(size() + " " + Box(), "100x80 10,10,60,50");
    // The whole list, and steps by their numbers.
    std::string strSteps;
    for (const auto& step : retoucher.State().vSteps)
        strSteps += step.strName + ",";
    EXPECT_EQ(strSteps, ",Rectangle Selection,Crop,Crop,");
    for (const int iStep : {0, 3, 1, 2})
        Do("history " + std::to_string(iStep));
    EXPECT_EQ(size() + " " + Box() + " " + std::to_string(retoucher.State().iStep), "100x80 10,10,60,50 2");
    EXPECT_NE(Refusal("history 4"), "done");
    Do("show-original"); // Of another size: as large as it fits.
    const auto& vCover = host.View().vCoverBmpData();
    const SIZE szCover = host.View().rcCoverBmp().Size();
    ASSERT_EQ(vCover.size(), static_cast<std::size_t>(szCover.cx) * szCover.cy * 4);
    EXPECT_EQ(vCover[(static_cast<std::size_t>(szCover.cy) / 2 * szCover.cx + szCover.cx / 2) * 4], 100);
    EXPECT_NE(vCover[static_cast<std::size_t>(szCover.cx) * 2], 100) << "beyond it";
    for (const char* pszCommand : {"undo", "redo"}) // Between sizes while it is shown.
        Do(pszCommand);
    Do("show-result");
    EXPECT_TRUE(vCover.empty());
    Do("revert");
    EXPECT_EQ(size() + " " + Box(), "300x200 none");
    EXPECT_EQ(Pixel(200, 150), 100);
    Do("undo");
    EXPECT_EQ(size() + " " + Box() + " " + retoucher.State().strUndo, "100x80 10,10,60,50 Crop");
    Do("turn-right");
    EXPECT_EQ(size() + " " + Box(), "80x100 30,10,70,60");
    EXPECT_EQ(Pixel(59, 20), 7);
    Do("mirror");
    EXPECT_EQ(Box(), "10,10,50,60");
    Do("straighten -90 whole");
    EXPECT_EQ(size(), "80x100");
    EXPECT_NE(Refusal("straighten nan crop"), "done");
    Do("tool straighten");
    Drag({10, 20}, {10, 20}); // A click turns nothing.
    EXPECT_EQ(retoucher.State().angle, 0);
    Drag({10, 20}, {60, 30});
    Do("apply-straighten");
    EXPECT_EQ(retoucher.State().strUndo, "Straighten");
    EXPECT_LT(retoucher.State().szPhoto.cx, 80);
    Do("undo");
    EXPECT_EQ(size(), "80x100");
}

TEST_F(RetoucherTest, StraighteningIsShownUntilItEndsOneWayOrTheOther)
{
    for (int y = 0; y < 200; ++y)
        std::fill_n(retoucher.Photo()->Row(y), 4 * (y < 90 ? 300 : 0), BYTE{220});
    const std::vector<BYTE> vBefore(retoucher.Photo()->Pixels(),
                                    retoucher.Photo()->Pixels() + retoucher.Photo()->ByteCount());
    Do("straighten 3 crop");
    const CSize szCropped = retoucher.State().szPhoto;
    const int iEdge = Pixel(40, 85);
    Do("undo");
    EXPECT_NE(Refusal("straighten-to 3"), "done") << "nothing is being straightened";
    const struct
    {
        const char* pszEnd;
        const char* pszStep;
        bool bApplied;
    } ENDS[] = {{"apply-straighten", "Straighten", true},
                {"cancel-straighten", "", false},
                {"undo", "", false},
                {"select-all", "Select All", true},
                {"tool rectangle", "Straighten", true}};
    for (const auto& end : ENDS)
    {
        Do("tool straighten");
        Drag({20, 50}, {220, 60});
        Drag({280, 90}, {80, 100}); // Lines add up.
        EXPECT_NEAR(*retoucher.State().angle, 0, 0.5);
        Do("straighten-to 3");
        Do("zoom-in");
        Do("zoom-out");
        EXPECT_NE(Refusal("straighten-to nan"), "done");
        EXPECT_EQ(retoucher.State().angle, 3);
        EXPECT_FALSE(host.View().vCoverBmpData().empty()) << "it is shown";
        EXPECT_TRUE(std::equal(vBefore.begin(), vBefore.end(), retoucher.Photo()->Pixels())) << "nothing has changed";
        Do(end.pszEnd);
        EXPECT_TRUE(host.View().vCoverBmpData().empty());
        EXPECT_FALSE(retoucher.State().angle);
        EXPECT_EQ(retoucher.State().strUndo, end.pszStep) << end.pszEnd;
        EXPECT_EQ(retoucher.State().szPhoto, end.bApplied ? szCropped : CSize(300, 200)) << end.pszEnd;
        if (end.bApplied)
        {
            EXPECT_EQ(Pixel(40, 85), iEdge);
        }
        Do("revert");
        while (!retoucher.State().strUndo.empty())
            Do("undo");
    }
}

TEST_F(RetoucherTest, AClickRemovesASpotAsOneStep)
{
    const auto dot = [&](int x, int y) { std::fill_n(retoucher.Photo()->Row(y) + 4 * x, 12, BYTE{10}); };
    for (const CPoint pt : {CPoint(50, 60), CPoint(150, 60), CPoint(250, 60)})
        dot(pt.x - 1, pt.y);
    std::fill_n(retoucher.Photo()->Row(100) + 4 * 298, 8, BYTE{10});
    Do("spot-size 9");
    Do("tool spot");
    const auto click = [&](int x, int y) { user.Click(At(x, y)); };
    click(50, 60);
    EXPECT_EQ(Pixel(50, 60), 100);
    EXPECT_EQ(retoucher.State().strUndo, "Remove Spot");
    Do("undo");
    EXPECT_EQ(Pixel(50, 60), 10);
    EXPECT_EQ(retoucher.State().strUndo, "");
    click(20, 120); // Nothing was there: no step.
    click(400, 60);
    EXPECT_EQ(retoucher.State().strUndo, "");
    Do("heal 301 100 7"); // About a place beyond the edge.
    EXPECT_EQ(Pixel(298, 100), 100);
    Do("tool rectangle");
    Drag({140, 10}, {149, 189});
    Do("tool spot");
    click(150, 60);
    EXPECT_EQ(Pixel(149, 60), 100);
    EXPECT_EQ(Pixel(150, 60), 10) << "it is not selected";
    EXPECT_EQ(Box(), "140,10,150,190");
    for (const char* pszCommand : {"heal 1 1 0", "heal 1 1 501", "heal 1 1", "spot-size 501", "spot-size 0"})
        EXPECT_NE(Refusal(pszCommand), "done") << pszCommand;
    Do("heal 2000000000 -2000000000 500");
}

} // namespace
