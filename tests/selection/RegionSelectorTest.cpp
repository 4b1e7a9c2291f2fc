#include "selection/RegionSelector.h"
#include "hostlibs/Quillog.h"
#include "support/MaskPicture.h"
#include "support/User.h"

#include <algorithm>
#include <cmath>
#include <cwchar>
#include <random>

using Pixtane::EmbeddedTool::RegionSelector;

namespace
{

/// A user with the region selector, over a small bitmap enlarged 8 times at the window's middle; pixels are given in
/// bitmap coordinates.
class RegionSelectorTest : public CViewTest
{
protected:
    static constexpr int CX = 12, CY = 8;

    void SetUp() override
    {
        CViewTest::SetUp();
        pView->SetBitmap(bitmap.info, bitmap.vBits.data());
        pView->SetZoom(8);
        user = std::make_unique<CUser>(*pView);
        ASSERT_TRUE(pView->LoadEmbeddedTool(tool));
        tool.SetSelectMode(RegionSelector::SM_RECTANGLE);
        Pump();
        strLog.clear();
        QLSetSink(
            [this](const QLRecord& record)
            {
                for (const wchar_t* p : {static_cast<const wchar_t*>(record.strFunction), L": ",
                                         static_cast<const wchar_t*>(record.strText), L"|"})
                    strRecords.append(p, p + std::wcslen(p));
            });
    }
    void TearDown() override
    {
        QLSetSink({});
        pView->UnloadEmbeddedTool();
        user.reset();
        CViewTest::TearDown();
    }

    /// The window point in the middle of a bitmap pixel.
    CPoint At(int x, int y)
    {
        CPoint pt(x, y);
        pView->FromBitmapToWnd(pt);
        return pt;
    }
    CPoint ToBitmap(CPoint ptWindow)
    {
        pView->FromWndToBitmap(ptWindow);
        return ptWindow;
    }
    CMaskPicture Mask() { return CMaskPicture::Of(pView->vSelectMask(), CX); }

    /// The notifications since the last time, without moves, clicks and layouts.
    std::string Told()
    {
        std::string strTold;
        std::istringstream stream(TakeLog());
        for (std::string strWord; stream >> strWord;)
            strTold += strWord.size() == 4 ? strWord + " " : "";
        return strTold;
    }
    void Select(CPoint ptFrom, CPoint ptTo) { user->Drag(At(ptFrom.x, ptFrom.y), At(ptTo.x, ptTo.y)); }

    /// Region and mask say the same.
    bool Agree()
    {
        CRgn rgn;
        Pixtane::CPixtane::CreateRgnFromMask(rgn, pView->vSelectMask(), CX, CY);
        return RectsOf(rgn) == RectsOf(pView->rgnSelect());
    }

    CTestBitmap bitmap = CTestBitmap::Numbered(CX, CY);
    std::string strRecords; ///< What was logged, without times.
    RegionSelector tool;
    std::unique_ptr<CUser> user;
};

const CMaskPicture SQUARE = {{"............", ".###........", ".###........", ".###........", "............",
                              "............", "............", "............"}};

TEST_F(RegionSelectorTest, RectanglesHoldBothCornersFromWhicheverOneIsDrawn)
{
    for (const auto& [ptFrom, ptTo] : {std::pair{CPoint(1, 1), CPoint(3, 3)}, {{3, 3}, {1, 1}}, {{3, 1}, {1, 3}}})
    {
        pView->UpdateSelection(CRgn(), {});
        Select(ptFrom, ptTo);
        EXPECT_EQ(Mask(), SQUARE);
        EXPECT_EQ(Told(), "N104 N100 ");
    }
    pView->ClearSelection();
    Select({5, 5}, {5, 5});
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "5,5,6,6 ") << "one pixel";
    tool.SetSelectMode(RegionSelector::SM_ELLIPSE);
    tool.SetSelectOverlapMode(RegionSelector::OM_ADD);
    pView->ClearSelection();
    Select({1, 1}, {5, 5});
    CRgn rgnEllipse;
    rgnEllipse.CreateEllipticRgn(1, 1, 7, 7);
    EXPECT_TRUE(pView->rgnSelect().EqualRgn(&rgnEllipse));
}

TEST_F(RegionSelectorTest, RulesCombineShapesAndTellWhatTheyDid)
{
    using enum RegionSelector::emOverlapMode;
    const struct
    {
        RegionSelector::emOverlapMode eRule;
        CPoint ptFrom, ptTo;
        const char* pszTold;
        const char* pszRects;
    } vCases[] = {
        {OM_ADD, {3, 3}, {5, 4}, "N101 ", "1,1,4,3 1,3,6,4 3,4,6,5 "},
        {OM_SUBTRACT, {2, 2}, {9, 9}, "N102 ", "1,1,4,2 1,2,2,4 "},
        {OM_SUBTRACT, {0, 0}, {9, 7}, "N104 N102 ", "none"},
        {OM_INTERSECT, {3, 0}, {9, 2}, "N103 ", "3,1,4,3 "},
        {OM_INTERSECT, {6, 6}, {9, 7}, "N104 N103 ", "none"},
        {OM_NEW, {6, 6}, {9, 7}, "N104 N100 ", "6,6,10,8 "},
    };
    for (const auto& c : vCases)
    {
        tool.SetSelectOverlapMode(OM_NEW);
        pView->ClearSelection();
        Select({1, 1}, {3, 3});
        Told();
        tool.SetSelectOverlapMode(c.eRule);
        Select(c.ptFrom, c.ptTo);
        EXPECT_EQ(Told(), c.pszTold);
        EXPECT_EQ(RectsOf(pView->rgnSelect()), c.pszRects);
    }
}

TEST_F(RegionSelectorTest, WeightsAddSubtractAndMultiply)
{
    using enum RegionSelector::emOverlapMode;
    std::mt19937 random(3);
    for (const auto eRule : {OM_ADD, OM_SUBTRACT, OM_INTERSECT})
    {
        struct Opened : RegionSelector
        {
            using RegionSelector::MergeSelectMask;
        } opened;
        ASSERT_TRUE(pView->LoadEmbeddedTool(opened));
        opened.SetSelectOverlapMode(eRule);
        for (int i = 0; i < 700; ++i)
        {
            std::vector<BYTE> vWanted;
            for (std::size_t j = 0; j < pView->vSelectMask().size(); ++j)
            {
                const int a = pView->vSelectMask()[j] = static_cast<BYTE>(random());
                const int b = pView->vSelectMask_Cur()[j] = static_cast<BYTE>(random() % 4 ? random() : 0);
                vWanted.push_back(static_cast<BYTE>(eRule == OM_ADD        ? std::min(a + b, 255)
                                                    : eRule == OM_SUBTRACT ? std::max(a - b, 0)
                                                                           : a * b / 255));
            }
            opened.MergeSelectMask();
            ASSERT_EQ(pView->vSelectMask(), vWanted);
        }
        pView->UnloadEmbeddedTool();
    }
    pView->LoadEmbeddedTool(tool);
    pView->ClearSelection();
}

TEST_F(RegionSelectorTest, LassoAndPolygonEndInTheirWays)
{
    const CMaskPicture triangle = {{"............", ".#####......", ".####.......", ".###........", ".##.........",
                                    ".#..........", "............", "............"}};
    const auto corners = [&](bool bClick, bool bCtrlAtEnd = false)
    {
        for (const CPoint pt : {CPoint(1, 1), CPoint(5, 1), CPoint(1, 5)})
        {
            if (bCtrlAtEnd && pt.y == 5)
                user->KeyDown(VK_CONTROL);
            bClick ? user->Click(At(pt.x, pt.y)) : user->Move(At(pt.x, pt.y));
        }
    };
    const struct
    {
        const char* pszWay;
        RegionSelector::emSelectMode eShape;
        std::function<void()> draw;
    } vWays[] = {
        {"lasso let go", RegionSelector::SM_LASSO,
         [&]
         {
             user->Press(At(1, 1));
             corners(false);
             user->Release(At(1, 5));
         }},
        {"lasso, goes on as a polygon with Alt", RegionSelector::SM_LASSO,
         [&]
         {
             user->Press(At(1, 1));
             user->Move(At(5, 1));
             user->KeyDown(VK_MENU);
             user->Release(At(5, 1));
             user->Click(At(1, 5));
             EXPECT_EQ(tool.GetSelectingMode(), RegionSelector::SM_POLYGON);
             user->KeyUp(VK_MENU);
         }},
        {"polygon closed near its first vertex", RegionSelector::SM_POLYGON,
         [&]
         {
             corners(true);
             user->Click(At(1, 1) + CPoint(3, 3));
         }},
        {"polygon closed with Ctrl", RegionSelector::SM_POLYGON,
         [&]
         {
             corners(true, true);
             user->KeyUp(VK_CONTROL);
         }},
        {"polygon closed by a double click", RegionSelector::SM_POLYGON,
         [&]
         {
             corners(true);
             user->Press(At(1, 5));
             user->Release(At(1, 5));
         }},
        {"polygon whose capture is taken away", RegionSelector::SM_POLYGON,
         [&]
         {
             corners(true);
             ::SetCapture(pHost->m_hWnd);
         }},
    };
    for (const auto& way : vWays)
    {
        SCOPED_TRACE(way.pszWay);
        tool.SetSelectMode(way.eShape);
        pView->ClearSelection();
        Told();
        way.draw();
        EXPECT_EQ(Told(), "N104 N100 ");
        EXPECT_NE(::GetCapture(), pView->m_hWnd);
        EXPECT_EQ(Mask(), triangle);
        ::ReleaseCapture();
        user->Wait(600);
    }
}

TEST_F(RegionSelectorTest, TooFewVerticesSelectNothing)
{
    tool.SetSelectMode(RegionSelector::SM_LASSO);
    Select({2, 2}, {4, 4});
    EXPECT_EQ(Told(), "N104 ");
    tool.SetSelectMode(RegionSelector::SM_POLYGON);
    user->Click(At(2, 2));
    user->Click(At(8, 2));
    user->Type(VK_DELETE);
    user->Type(VK_DELETE); // the first stays
    user->Press(At(2, 2));
    ::ReleaseCapture();
    EXPECT_EQ(Told(), "N104 ");
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "none");
    user->Release(At(2, 2));
}

TEST_F(RegionSelectorTest, ShiftMakesSquaresAndSpaceMovesTheShape)
{
    user->KeyDown(VK_SHIFT);
    Select({8, 6}, {3, 4});
    user->KeyUp(VK_SHIFT);
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "6,4,9,7 ");
    pView->ClearSelection();
    user->Press(At(1, 1));
    user->Move(At(3, 2));
    user->KeyDown(VK_SPACE);
    user->Move(At(7, 5));
    user->KeyUp(VK_SPACE);
    user->Release(At(7, 5));
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "5,4,8,6 ");
}

TEST_F(RegionSelectorTest, DragsAndArrowsMoveTheSelection)
{
    Select({1, 1}, {3, 3});
    Told();
    Select({2, 2}, {4, 3});
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "3,2,6,5 ");
    EXPECT_EQ(Told(), "N106 ");
    CRgn rgnMask;
    Pixtane::CPixtane::CreateRgnFromMask(rgnMask, pView->vSelectMask(), CX, CY);
    EXPECT_TRUE(rgnMask.EqualRgn(&pView->rgnSelect()));
    user->Type(VK_LEFT);
    user->Type(VK_DOWN);
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "2,3,5,6 ");
    EXPECT_EQ(Told(), "N106 N106 ");
    Select({4, 5}, {11, 7});
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "9,5,12,8 ");
    Select({9, 5}, {10, 6});
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "10,6,12,8 ") << "cut at the bitmap's edge";
    Told();
    user->Press(At(11, 7));
    user->Move(At(11, 7) + CPoint(24, 0));
    ::ReleaseCapture();
    EXPECT_EQ(Told(), "N104 ") << "moved off, by losing the capture";
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "none");
    user->Release(At(11, 7));
    Select({1, 1}, {3, 3});
    Told();
    user->Click(At(2, 2));
    EXPECT_EQ(Told(), "N104 ") << "a click inside removes it";
    pView->SetZoom(0.25);
    tool.SetSelectOverlapMode(RegionSelector::OM_ADD);
    CRgn rgn;
    rgn.CreateRectRgn(0, 0, 2, 2);
    pView->UpdateSelection(rgn, std::vector<BYTE>(CX * CY, 255));
    user->Type(VK_RIGHT);
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "4,0,6,2 ") << "one screen pixel";
}

TEST_F(RegionSelectorTest, AMoveThatIsDisturbedKeepsRegionAndMaskTogether)
{
    Select({1, 1}, {3, 3});
    pHost->answer = [](UINT uCode)
    {
        if (uCode == 0x106)
            ::ReleaseCapture();
        return 0;
    };
    Told();
    Select({2, 2}, {4, 2});
    EXPECT_EQ(Told(), "N106 ") << "ended once, although the capture went in the middle";
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "3,1,6,4 ");
    EXPECT_TRUE(Agree());
    pHost->answer = {};
    user->Wait(600);
    user->Press(At(4, 2));
    user->Move(At(5, 2));
    user->Type(VK_RIGHT);
    user->Move(At(6, 3));
    user->Release(At(6, 3));
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "5,2,8,5 ") << "arrow keys wait for the mouse";
    EXPECT_TRUE(Agree());
    user->Wait(600);
    user->Press(At(6, 3));
    user->Move(At(9, 3));
    pView->UnloadEmbeddedTool();
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "5,2,8,5 ") << "back where it was";
    EXPECT_TRUE(Agree());
    EXPECT_EQ(::GetCapture(), nullptr);
    pView->LoadEmbeddedTool(tool);
    user->Move(At(1, 1));
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "5,2,8,5 ");
    user->Release(At(1, 1));
    pHost->answer = [&](UINT uCode)
    {
        if (uCode == 0x106)
            pView->UnloadEmbeddedTool();
        return 0;
    };
    user->Wait(600);
    Select({6, 3}, {5, 3});
    EXPECT_EQ(pView->pEmbeddedTool(), nullptr);
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "4,2,7,5 ");
}

TEST_F(RegionSelectorTest, AShapeThatIsDisturbedLeavesNothingForTheNext)
{
    CTestBitmap large = CTestBitmap::Numbered(200, 100);
    const std::function<void()> vActs[] = {
        [] { ::ReleaseCapture(); },
        [&] { tool.SetSelectMode(RegionSelector::SM_RECTANGLE); },
        [&] { tool.SetSelectMode(RegionSelector::SM_LASSO); },
        [&] { pView->UnloadEmbeddedTool(); },
        [&] { pView->ClearBitmap(TRUE); },
    };
    for (const auto& act : vActs)
    {
        for (const auto eShape : {RegionSelector::SM_LASSO, RegionSelector::SM_RECTANGLE, RegionSelector::SM_POLYGON})
        {
            pView->SetBitmap(large.info, large.vBits.data());
            pView->SetZoom(8);
            pView->SetDispPosition(400, 300);
            pView->LoadEmbeddedTool(tool);
            tool.SetSelectMode(eShape);
            user->Wait(600);
            user->Press({100, 100});
            user->KeyDown(VK_SHIFT);
            bool bDone = false;
            pHost->answer = [&](UINT uCode)
            {
                if (uCode == 6 && !std::exchange(bDone, true))
                    act();
                return 0;
            };
            user->Move({5, 100}); // scrolls at the edge
            pHost->answer = {};
            user->KeyUp(VK_SHIFT);
            user->Release({100, 100});
            ::ReleaseCapture();
            pView->SetBitmap(bitmap.info, bitmap.vBits.data());
            pView->SetZoom(8);
            pView->LoadEmbeddedTool(tool);
            tool.SetSelectMode(RegionSelector::SM_RECTANGLE);
            user->Wait(600);
            Select({1, 1}, {3, 3});
            EXPECT_EQ(RectsOf(pView->rgnSelect()), "1,1,4,4 ");
            pView->ClearSelection();
            tool.SetSelectMode(RegionSelector::SM_LASSO);
            Select({5, 5}, {6, 6});
            EXPECT_EQ(RectsOf(pView->rgnSelect()), "none") << "two vertices, none left from before";
        }
    }
}

TEST_F(RegionSelectorTest, WithoutAViewOrAWindowNothingHappens)
{
    RegionSelector loose;
    loose.SetSelectMode(RegionSelector::SM_RECTANGLE);
    const auto callAll = [](RegionSelector& called)
    {
        called.OnLButtonDown(MK_LBUTTON, {5, 5});
        called.OnMouseMove(MK_LBUTTON, {9, 9});
        called.OnKeyDown(VK_LEFT, 1, 0);
        called.OnSysKeyUp(VK_MENU, 1, 0);
        called.OnLButtonDblClk(0, {5, 5});
        called.OnLButtonUp(0, {9, 9});
        called.OnSetCursor(nullptr, HTCLIENT, WM_MOUSEMOVE);
        called.OnCaptureChanged(nullptr);
        called.StartMovingSelection({1, 1});
        called.EndMovingSelection({2, 2});
        called.InverseSelect();
    };
    callAll(loose);
    pHost->answer = [&](UINT uCode)
    {
        if (uCode == 0x104)
            pView->DestroyWindow();
        return 0;
    };
    user->Press(At(1, 1));
    pHost->answer = {};
    EXPECT_FALSE(::IsWindow(pView->m_hWnd));
    callAll(tool);
    EXPECT_EQ(::GetCapture(), nullptr);
}

TEST_F(RegionSelectorTest, RecordsSayWhatCameToNothing)
{
    Select({1, 1}, {3, 3});
    strRecords.clear();
    tool.SetSelectOverlapMode(RegionSelector::OM_SUBTRACT);
    Select({0, 0}, {9, 7});
    EXPECT_NE(strRecords.find("RegionSelector::ApplySelection: Failed to create region after feathering."),
              std::string::npos);
    tool.SetSelectOverlapMode(RegionSelector::OM_ADD);
    tool.SetSelectMode(RegionSelector::SM_LASSO);
    user->Press(At(2, 2));
    user->Move(At(4, 2));
    user->Move(At(6, 2));
    user->Release(At(6, 2));
    EXPECT_NE(strRecords.find("RegionSelector::ApplySelection: Failed to create select-mask."), std::string::npos);
    CRgn rgnBack;
    EXPECT_FALSE(pView->GetSelectRegion(rgnBack)) << "an empty region counts as none";
    EXPECT_NE(pView->rgnSelect().GetSafeHandle(), nullptr);
}

TEST_F(RegionSelectorTest, CursorsTellShapeRuleAndWhatAClickWouldDo)
{
    const auto shown = [&]
    {
        user->Move(At(5, 5) + CPoint(1, 0));
        user->Move(At(5, 5));
        return ::GetCursor();
    };
    std::vector<HCURSOR> vSeen;
    for (int iShape = RegionSelector::SM_LASSO; iShape <= RegionSelector::SM_MAGICWAND; ++iShape)
    {
        for (int iRule = RegionSelector::OM_NEW; iRule <= RegionSelector::OM_INTERSECT; ++iRule)
        {
            tool.SetSelectMode(static_cast<RegionSelector::emSelectMode>(iShape));
            tool.SetSelectOverlapMode(static_cast<RegionSelector::emOverlapMode>(iRule));
            vSeen.push_back(shown());
        }
    }
    std::ranges::sort(vSeen);
    EXPECT_EQ(std::ranges::unique(vSeen).size(), 0U) << "each has its own";
    EXPECT_NE(vSeen.front(), nullptr);
    tool.SetSelectMode(RegionSelector::SM_NONE);
    tool.SetSelectOverlapMode(RegionSelector::OM_NEW);
    EXPECT_EQ(shown(), pView->GetDefCursor());
    tool.SetSelectMode(RegionSelector::SM_RECTANGLE);
    const HCURSOR hRectangle = shown();
    Select({4, 4}, {7, 7});
    EXPECT_NE(shown(), hRectangle) << "a drag would move the selection";
    EXPECT_EQ(std::ranges::find(vSeen, ::GetCursor()), vSeen.end());
    pView->ClearSelection();
    tool.SetSelectMode(RegionSelector::SM_POLYGON);
    const HCURSOR hPolygon = shown();
    user->Wait(600);
    user->Click(At(5, 5));
    user->Click(At(10, 5));
    EXPECT_EQ(::GetCursor(), hPolygon);
    EXPECT_NE(shown(), hPolygon) << "near the first vertex: a click closes it";
    ::ReleaseCapture();
}

TEST_F(RegionSelectorTest, AMoveUnderWayPausesTheBorder)
{
    Select({2, 2}, {6, 6});
    user->Press(At(4, 4));
    user->Move(At(5, 4));
    const winlite::Picture before = Screen();
    user->Wait(1100);
    EXPECT_EQ(Screen().vPixels, before.vPixels);
    user->Release(At(5, 4));
    user->Wait(600);
    EXPECT_NE(Screen().vPixels, before.vPixels);
}

TEST_F(RegionSelectorTest, FeatheredShapesAreSoftAndLargerThanDrawn)
{
    tool.SetFeatherRadius(2);
    Select({4, 3}, {7, 5});
    EXPECT_EQ(Mask().vRows[4].substr(2, 8).find('+'), 0U);
    CRect rcBox;
    pView->rgnSelect().GetRgnBox(&rcBox);
    EXPECT_GT(rcBox.Width(), 4);
    EXPECT_EQ(Told(), "N104 N100 ");
}

TEST_F(RegionSelectorTest, TheViewFollowsAShapeThatLeavesIt)
{
    CTestBitmap large = CTestBitmap::Numbered(200, 100);
    pView->SetBitmap(large.info, large.vBits.data());
    pView->SetZoom(8);
    pView->SetDispPosition(400, 300);
    user->Press({100, 100});
    const DWORD dwStart = ::GetTickCount();
    user->Move({10, 100});
    EXPECT_EQ(pView->ptDispPos(), Gdiplus::Point(0, 300)) << "the pointer stays near the edge";
    EXPECT_GE(::GetTickCount() - dwStart, 400 / 10 * 16U) << "ten pixels a step, and a person can follow";
    user->Move({120, 100});
    const DWORD dwInside = ::GetTickCount();
    user->Move({121, 100});
    EXPECT_EQ(::GetTickCount(), dwInside) << "away from the edges nothing waits";
    user->Move({500, 199});
    EXPECT_EQ(pView->ptDispPos(), Gdiplus::Point(1600 - 283, 800 - 183));
    user->Release({282, 182});
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "62,50,200,100 ");
}

TEST_F(RegionSelectorTest, ShapesMeanBitmapPixelsAtEveryZoomAndPlace)
{
    CTestBitmap large = CTestBitmap::Numbered(400, 300);
    pView->SetBitmap(large.info, large.vBits.data());
    for (const double dbZoom : {0.25, 1.0, 2.5, 8.0})
    {
        for (const int iFeather : {0, 3})
        {
            tool.SetFeatherRadius(iFeather);
            pView->SetZoom(dbZoom);
            pView->SetDispPosition(static_cast<int>(90 * dbZoom), static_cast<int>(80 * dbZoom));
            pView->ClearSelection();
            user->Wait(600); // no double click
            const CPoint ptFrom(120, 80), ptTo(150, 110);
            const CPoint ptFirst = ToBitmap(ptFrom), ptLast = ToBitmap(ptTo);
            user->Drag(ptFrom, ptTo);
            CRect rcBox;
            pView->rgnSelect().GetRgnBox(&rcBox);
            const int iReach = iFeather ? 4 : 0;
            EXPECT_EQ(rcBox,
                      CRect(ptFirst.x - iReach, ptFirst.y - iReach, ptLast.x + 1 + iReach, ptLast.y + 1 + iReach))
                << dbZoom;
            EXPECT_EQ(ptFirst.x, std::floor((120 + pView->ptDispPos().X) / dbZoom));
        }
    }
}

TEST_F(RegionSelectorTest, SettingsAreCheckedKeptAndRestored)
{
    EXPECT_EQ(tool.SetSelectMode(static_cast<RegionSelector::emSelectMode>(6)), RegionSelector::SM_RECTANGLE);
    EXPECT_EQ(tool.SetSelectOverlapMode(static_cast<RegionSelector::emOverlapMode>(0)), RegionSelector::OM_NEW);
    EXPECT_EQ(tool.SetTorlerance(256), -1);
    EXPECT_EQ(tool.SetTorlerance(-1), -1);
    EXPECT_EQ(tool.SetFeatherRadius(-1), -1);
    EXPECT_EQ(tool.SetTorlerance(9), 50);
    EXPECT_EQ(tool.SetFeatherRadius(7), 0);
    tool.SetSelectOverlapMode(RegionSelector::OM_SUBTRACT);
    std::vector<BYTE> vData = {1};
    tool.SerializeToolSettings(vData);
    EXPECT_EQ(vData, (std::vector<BYTE>{3, 0, 0, 0, 3, 0, 0, 0, 7, 0, 0, 0, 9, 0, 0, 0}));
    RegionSelector other;
    vData[1] = 77; // only the low byte is the version
    EXPECT_TRUE(other.UnserializeToolSettings(vData));
    EXPECT_EQ(other.GetSelectOverlapMode(), RegionSelector::OM_SUBTRACT);
    EXPECT_EQ(other.GetFeatherRadius(), 7);
    EXPECT_EQ(other.GetTorlerance(), 9);
    EXPECT_TRUE(other.UnserializeToolSettings({1, 0, 0, 0, 0, 0, 0, 0, 4, 0, 0, 0}));
    EXPECT_EQ(other.GetSelectOverlapMode(), RegionSelector::OM_NEW) << "counted from 0 then";
    EXPECT_EQ(other.GetFeatherRadius(), 4);
    for (std::size_t nBytes = 0; nBytes < 24; ++nBytes)
    {
        for (const auto uVersion : {BYTE{1}, BYTE{2}, BYTE{3}, BYTE{4}})
        {
            std::vector<BYTE> vWrong(nBytes, 1);
            if (nBytes > 0)
                vWrong[0] = uVersion;
            const bool bRight = uVersion <= 3 && nBytes == (uVersion == 3 ? 16 : 12);
            EXPECT_EQ(RegionSelector().UnserializeToolSettings(vWrong), bRight) << nBytes << " " << int{uVersion};
        }
    }
}

/// Whatever the host does inside a notification, nothing is out of bounds and the tool can go on.
TEST_F(RegionSelectorTest, TheHostMayTakeEverythingAwayInTheMiddle)
{
    CTestBitmap other = CTestBitmap::Numbered(5, 5);
    const std::function<void()> vActs[] = {
        [&] { pView->UnloadEmbeddedTool(); },
        [&] { pView->ClearBitmap(TRUE); },
        [&] { pView->SetBitmap(other.info, other.vBits.data()); },
        [&] { pView->ClearSelection(); },
        [&] { ::ReleaseCapture(); },
        [&] { pView->SetZoom(3); },
    };
    for (const UINT uCode : {0x100U, 0x104U, 0x106U, 6U, 1U, 2U, 3U})
    {
        for (const auto& act : vActs)
        {
            for (int iShape = RegionSelector::SM_LASSO; iShape <= RegionSelector::SM_MAGICWAND; ++iShape)
            {
                pHost->answer = {};
                pView->SetBitmap(bitmap.info, bitmap.vBits.data());
                pView->SetZoom(8);
                pView->LoadEmbeddedTool(tool);
                tool.SetSelectMode(static_cast<RegionSelector::emSelectMode>(iShape));
                bool bDone = false;
                pHost->answer = [&](UINT uTold)
                {
                    if (uTold == uCode && !std::exchange(bDone, true))
                        act();
                    return 0;
                };
                Select({1, 1}, {6, 6});
                user->Click(At(9, 1));
                user->Click(At(1, 6));
                user->Click(At(1, 1));
                Select({3, 3}, {4, 4});
                user->Type(VK_DELETE);
                user->Type(VK_RIGHT);
                ::ReleaseCapture();
                EXPECT_LE(pView->iSelectMaskSize(), CX * CY);
            }
        }
    }
    pHost->answer = {};
    EXPECT_TRUE(pView->LoadEmbeddedTool(tool));
}

} // namespace
