#include "selection/RegionSelector.h"
#include "support/ToolTest.h"
#include "view/Notifications.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <random>
#include <sstream>

using Pixtane::EmbeddedTool::RegionSelector;

namespace
{

class COpenSelector : public RegionSelector
{
public:
    using RegionSelector::MergeSelectMask;
};

/// A user with the region selector, over a small bitmap enlarged 8 times at the window's middle; pixels are given in
/// bitmap coordinates.
class RegionSelectorTest : public CToolTest<COpenSelector>
{
protected:
    static constexpr int CX = 12, CY = 8;

    RegionSelectorTest() : CToolTest(CX, CY) {}
    void SetUp() override
    {
        CToolTest::SetUp();
        pView->SetZoom(8);
        tool.SetSelectMode(RegionSelector::SM_RECTANGLE);
        Pump();
        strLog.clear();
    }

    using CViewTest::Select;
    void Select(CPoint ptFrom, CPoint ptTo) { user->Drag(At(ptFrom.x, ptFrom.y), At(ptTo.x, ptTo.y)); }

    /// A gesture as text: the user's verbs, each with a bitmap pixel or a key.
    void Play(const std::string& strGesture)
    {
        std::istringstream gesture(strGesture);
        const auto point = [&]
        {
            int x = 0, y = 0;
            gesture >> x >> y;
            return At(x, y);
        };
        const auto key = [&]
        {
            static const std::map<std::string, UINT> s_Keys = {
                {"Alt", VK_MENU},      {"Ctrl", VK_CONTROL}, {"Shift", VK_SHIFT}, {"Space", VK_SPACE},
                {"Delete", VK_DELETE}, {"Left", VK_LEFT},    {"Right", VK_RIGHT}, {"Down", VK_DOWN},
            };
            std::string strKey;
            gesture >> strKey;
            return s_Keys.at(strKey);
        };
        const std::map<std::string, std::function<void()>> verbs = {
            {"press", [&] { user->Press(point()); }},
            {"move", [&] { user->Move(point()); }},
            {"release", [&] { user->Release(point()); }},
            {"click", [&] { user->Click(point()); }},
            {"click-near", [&] { user->Click(point() + CPoint(3, 3)); }},
            {"hold", [&] { user->KeyDown(key()); }},
            {"let", [&] { user->KeyUp(key()); }},
            {"type", [&] { user->Type(key()); }},
            {"pause", [&] { user->Wait(600); }}, // The next press is no double click.
            {"capture", [&] { ::SetCapture(pHost->m_hWnd); }},
        };
        for (std::string strVerb; gesture >> strVerb;)
            verbs.at(strVerb)();
    }

    /// Region and mask say the same.
    bool Agree()
    {
        CRgn rgn;
        Pixtane::CPixtane::CreateRgnFromMask(rgn, pView->vSelectMask(), CX, CY);
        return RectsOf(rgn) == RectsOf(pView->rgnSelect());
    }
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
        EXPECT_EQ(Told(), "SELECTION_CLEARED SELECT_NEW ");
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
        {OM_ADD, {3, 3}, {5, 4}, "SELECT_ADD ", "1,1,4,3 1,3,6,4 3,4,6,5 "},
        {OM_SUBTRACT, {2, 2}, {9, 9}, "SELECT_SUBTRACT ", "1,1,4,2 1,2,2,4 "},
        {OM_SUBTRACT, {0, 0}, {9, 7}, "SELECTION_CLEARED SELECT_SUBTRACT ", "none"},
        {OM_INTERSECT, {3, 0}, {9, 2}, "SELECT_INTERSECT ", "3,1,4,3 "},
        {OM_INTERSECT, {6, 6}, {9, 7}, "SELECTION_CLEARED SELECT_INTERSECT ", "none"},
        {OM_NEW, {6, 6}, {9, 7}, "SELECTION_CLEARED SELECT_NEW ", "6,6,10,8 "},
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
        tool.SetSelectOverlapMode(eRule);
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
            tool.MergeSelectMask();
            ASSERT_EQ(pView->vSelectMask(), vWanted);
        }
    }
}

TEST_F(RegionSelectorTest, LassoAndPolygonEndInTheirWays)
{
    const CMaskPicture triangle = {{"............", ".#####......", ".####.......", ".###........", ".##.........",
                                    ".#..........", "............", "............"}};
    const struct
    {
        const char* pszWay;
        RegionSelector::emSelectMode eShape;
        const char* pszGesture;
    } vWays[] = {
        {"lasso let go", RegionSelector::SM_LASSO, "press 1 1 move 5 1 move 1 5 release 1 5"},
        {"lasso, goes on as a polygon with Alt", RegionSelector::SM_LASSO,
         "press 1 1 move 5 1 hold Alt release 5 1 press 1 5 release 1 5 let Alt"},
        {"polygon closed near its first vertex", RegionSelector::SM_POLYGON,
         "click 1 1 click 5 1 click 1 5 click-near 1 1"},
        {"polygon closed with Ctrl", RegionSelector::SM_POLYGON, "click 1 1 click 5 1 hold Ctrl click 1 5 let Ctrl"},
        {"polygon closed by a double click", RegionSelector::SM_POLYGON, "click 1 1 click 5 1 click 1 5 click 1 5"},
        {"polygon whose capture is taken away", RegionSelector::SM_POLYGON, "click 1 1 click 5 1 click 1 5 capture"},
    };
    for (const auto& way : vWays)
    {
        SCOPED_TRACE(way.pszWay);
        tool.SetSelectMode(way.eShape);
        pView->ClearSelection();
        Told();
        Play(way.pszGesture);
        EXPECT_EQ(Told(), "SELECTION_CLEARED SELECT_NEW ");
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
    EXPECT_EQ(Told(), "SELECTION_CLEARED ");
    tool.SetSelectMode(RegionSelector::SM_POLYGON);
    Play("click 2 2 click 8 2 type Delete type Delete press 2 2"); // The first vertex stays.
    ::ReleaseCapture();
    EXPECT_EQ(Told(), "SELECTION_CLEARED ");
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "none");
    user->Release(At(2, 2));
}

TEST_F(RegionSelectorTest, ShiftMakesSquaresAndSpaceMovesTheShape)
{
    Play("hold Shift press 8 6 move 3 4 release 3 4 let Shift");
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "6,4,9,7 ");
    pView->ClearSelection();
    Play("press 1 1 move 3 2 hold Space move 7 5 let Space release 7 5");
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "5,4,8,6 ");
}

TEST_F(RegionSelectorTest, DragsAndArrowsMoveTheSelection)
{
    Select({1, 1}, {3, 3});
    Told();
    Select({2, 2}, {4, 3});
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "3,2,6,5 ");
    EXPECT_EQ(Told(), "SELECTION_MOVED ");
    EXPECT_TRUE(Agree());
    Play("type Left type Down");
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "2,3,5,6 ");
    EXPECT_EQ(Told(), "SELECTION_MOVED SELECTION_MOVED ");
    Select({4, 5}, {11, 7});
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "9,5,12,8 ");
    Select({9, 5}, {10, 6});
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "10,6,12,8 ") << "cut at the bitmap's edge";
    Told();
    user->Press(At(11, 7));
    user->Move(At(11, 7) + CPoint(24, 0));
    ::ReleaseCapture();
    EXPECT_EQ(Told(), "SELECTION_CLEARED ") << "moved off, by losing the capture";
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "none");
    user->Release(At(11, 7));
    Select({1, 1}, {3, 3});
    Told();
    user->Click(At(2, 2));
    EXPECT_EQ(Told(), "SELECTION_CLEARED ") << "a click inside removes it";
    pView->SetZoom(0.25);
    tool.SetSelectOverlapMode(RegionSelector::OM_ADD);
    Select({0, 0, 2, 2});
    user->Type(VK_RIGHT);
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "4,0,6,2 ") << "one screen pixel";
}

TEST_F(RegionSelectorTest, AMoveThatIsDisturbedKeepsRegionAndMaskTogether)
{
    Select({1, 1}, {3, 3});
    InsideFirst(Pixtane::PVN_SELECTION_MOVED, [] { ::ReleaseCapture(); });
    Told();
    Select({2, 2}, {4, 2});
    EXPECT_EQ(Told(), "SELECTION_MOVED ") << "ended once, although the capture went in the middle";
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "3,1,6,4 ");
    EXPECT_TRUE(Agree());
    pHost->answer = {};
    Play("pause press 4 2 move 5 2 type Right move 6 3 release 6 3");
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "5,2,8,5 ") << "arrow keys wait for the mouse";
    EXPECT_TRUE(Agree());
    Play("pause press 6 3 move 9 3");
    pView->UnloadEmbeddedTool();
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "5,2,8,5 ") << "back where it was";
    EXPECT_TRUE(Agree());
    EXPECT_EQ(::GetCapture(), nullptr);
    pView->LoadEmbeddedTool(tool);
    user->Move(At(1, 1));
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "5,2,8,5 ");
    user->Release(At(1, 1));
    InsideFirst(Pixtane::PVN_SELECTION_MOVED, [&] { pView->UnloadEmbeddedTool(); });
    user->Wait(600);
    Select({6, 3}, {5, 3});
    EXPECT_EQ(pView->pEmbeddedTool(), nullptr);
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "4,2,7,5 ");
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
    InsideFirst(Pixtane::PVN_SELECTION_CLEARED, [&] { pView->DestroyWindow(); });
    user->Press(At(1, 1));
    pHost->answer = {};
    EXPECT_FALSE(::IsWindow(pView->m_hWnd));
    callAll(tool);
    EXPECT_EQ(::GetCapture(), nullptr);
}

TEST_F(RegionSelectorTest, RecordsSayWhatCameToNothing)
{
    Select({1, 1}, {3, 3});
    records.Take();
    tool.SetSelectOverlapMode(RegionSelector::OM_SUBTRACT);
    Select({0, 0}, {9, 7});
    EXPECT_STREQ(records.vRecords.back().strFunction, L"RegionSelector::ApplySelection");
    EXPECT_NE(records.Take().find("Failed to create region after feathering."), std::string::npos);
    tool.SetSelectOverlapMode(RegionSelector::OM_ADD);
    tool.SetSelectMode(RegionSelector::SM_LASSO);
    Play("press 2 2 move 4 2 move 6 2 release 6 2");
    EXPECT_NE(records.Take().find("Failed to create select-mask."), std::string::npos);
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
    Play("pause click 5 5 click 10 5");
    EXPECT_EQ(::GetCursor(), hPolygon);
    EXPECT_NE(shown(), hPolygon) << "near the first vertex: a click closes it";
    ::ReleaseCapture();
}

TEST_F(RegionSelectorTest, AMoveUnderWayPausesTheBorder)
{
    Select({2, 2}, {6, 6});
    Play("press 4 4 move 5 4");
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
    EXPECT_GT(Box().Width(), 4);
    EXPECT_EQ(Told(), "SELECTION_CLEARED SELECT_NEW ");
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

} // namespace
