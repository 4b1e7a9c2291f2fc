#include "selection/SelectionModifier.h"
#include "platform/vorpix.h"
#include "support/MaskPicture.h"
#include "support/User.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <sstream>

namespace
{

class COpenModifier : public Pixtane::EmbeddedTool::SelectionModifier
{
public:
    using SelectionModifier::bmiCropMask;
    using SelectionModifier::bmiResizedMask;
    using SelectionModifier::iDragMode;
    using SelectionModifier::rcDisplay;
    using SelectionModifier::rcHandle;
    using SelectionModifier::rcHandleHit;
    using SelectionModifier::vResizedMask;

    CRect Rect()
    {
        CRect rc;
        GetRect(rc);
        return rc;
    }
};

/// The places of the handles in the arrays, and the mode, notification, cursor and edges (left, top, right, bottom) of
/// each.
struct Handle
{
    std::size_t nPlace;
    int iMode;
    const char* pszTold;
    UINT uCursor;
    bool bLeft, bTop, bRight, bBottom;
};
constexpr Handle HANDLES[] = {
    {0, 1, "N195 ", 3036, true, true, false, false},  {1, 4, "N195 ", 3037, true, false, false, true},
    {2, 2, "N195 ", 3037, false, true, true, false},  {3, 3, "N194 ", 3036, false, false, true, true},
    {4, 5, "N190 ", 3034, true, false, false, false}, {5, 6, "N191 ", 3035, false, true, false, false},
    {6, 7, "N192 ", 3034, false, false, true, false}, {7, 8, "N193 ", 3035, false, false, false, true},
};

/// A bitmap of 400 x 300, of which a box is selected with weights that all differ from their neighbours', at any zoom
/// about its middle, with the tool loaded.
class SelectionModifierTest : public CViewTest
{
protected:
    static constexpr int CX = 400, CY = 300;

    void SetUp() override
    {
        CViewTest::SetUp();
        pView->SetBitmap(bitmap.info, bitmap.vBits.data());
        user = std::make_unique<CUser>(*pView);
    }
    void TearDown() override
    {
        pView->UnloadEmbeddedTool();
        user.reset();
        CViewTest::TearDown();
    }

    void Select(const CRect& rc, double dbZoom = 1)
    {
        pView->UnloadEmbeddedTool();
        std::vector<BYTE> vMask(CX * CY);
        for (int y = rc.top; y < rc.bottom; ++y)
        {
            for (int x = rc.left; x < rc.right; ++x)
                vMask[y * CX + x] = static_cast<BYTE>(1 + (x * 7 + y * 13) % 255);
        }
        CRgn rgn;
        rgn.CreateRectRgnIndirect(&rc);
        pView->UpdateSelection(rgn, vMask);
        pView->SetZoom(dbZoom);
        CRect rcView;
        pView->GetClientRect(&rcView);
        pView->SetDispPosition(static_cast<int>(CX * dbZoom - rcView.Width()) / 2,
                               static_cast<int>(CY * dbZoom - rcView.Height()) / 2);
        ASSERT_TRUE(pView->LoadEmbeddedTool(tool));
        user->Wait(600); // no double click
        Told();
    }

    /// The tool's notifications since the last time.
    std::string Told()
    {
        std::string strTold;
        std::istringstream stream(TakeLog());
        for (std::string strWord; stream >> strWord;)
            strTold += strWord.starts_with("N19") ? strWord + " " : "";
        return strTold;
    }

    std::vector<BYTE> Weights(const CRect& rc)
    {
        std::vector<BYTE> vWeights;
        for (int y = rc.top; y < rc.bottom; ++y)
            vWeights.insert(vWeights.end(), pView->vSelectMask().begin() + y * CX + rc.left,
                            pView->vSelectMask().begin() + y * CX + rc.right);
        return vWeights;
    }
    static std::vector<BYTE> Resized(const std::vector<BYTE>& vMask, CSize szMask, CSize szNew,
                                     Vorpix::RESIZE_ALGORITHM eAlgorithm)
    {
        BITMAPINFO info = {};
        info.bmiHeader.biBitCount = 8;
        info.bmiHeader.biWidth = szMask.cx;
        info.bmiHeader.biHeight = szMask.cy;
        BITMAPINFO infoNew;
        std::vector<BYTE> vNew;
        EXPECT_TRUE(
            Vorpix::Resize(vMask.data(), vMask.size(), info, vNew, infoNew, szNew.cx, szNew.cy, eAlgorithm, nullptr));
        return vNew;
    }
    CRect Box()
    {
        CRect rc;
        pView->rgnSelect().GetRgnBox(&rc);
        return rc;
    }
    CPoint Middle(const CRect& rc) { return {(rc.left + rc.right) / 2, (rc.top + rc.bottom) / 2}; }
    int Inside(const CRect& rc)
    {
        return static_cast<int>(std::ranges::count_if(Weights(rc), [](BYTE b) { return b; }));
    }
    int Selected() { return Inside({0, 0, CX, CY}); }

    CTestBitmap bitmap = CTestBitmap::Numbered(CX, CY);
    COpenModifier tool;
    std::unique_ptr<CUser> user;
};

struct ZoomCase
{
    double dbZoom;
    CRect rcSelected;
};
const ZoomCase ZOOMS[] = {
    {0.25, {80, 60, 320, 240}}, {1, {150, 110, 250, 190}}, {2.5, {180, 136, 220, 168}}, {8, {194, 145, 206, 155}}};

TEST_F(SelectionModifierTest, EachHandleMovesItsEdgesAndTheReleaseResamplesTheWeightsAtLoad)
{
    for (const auto& [dbZoom, rcSelected] : ZOOMS)
    {
        for (const Handle& handle : HANDLES)
        {
            SCOPED_TRACE(testing::Message() << "zoom " << dbZoom << " mode " << handle.iMode);
            Select(rcSelected, dbZoom);
            const std::vector<BYTE> vAtLoad = Weights(rcSelected);
            const CPoint ptAt = Middle(tool.rcHandle[handle.nPlace]);
            user->Move(ptAt);
            const LPCWSTR pszId = MAKEINTRESOURCE(handle.uCursor);
            EXPECT_EQ(::GetCursor(), ::LoadCursor(AfxFindResourceHandle(pszId, RT_GROUP_CURSOR), pszId));
            user->Press(ptAt);
            EXPECT_EQ(tool.iDragMode, handle.iMode);
            const CPoint ptTo = ptAt + CPoint(5, -7);
            CRect rcWanted = tool.rcDisplay;
            if (handle.bLeft)
                rcWanted.left = ptTo.x;
            if (handle.bTop)
                rcWanted.top = ptTo.y;
            if (handle.bRight)
                rcWanted.right = ptTo.x + 1;
            if (handle.bBottom)
                rcWanted.bottom = ptTo.y + 1;
            user->Move(ptTo);
            EXPECT_EQ(Told(), handle.pszTold);
            EXPECT_EQ(tool.rcDisplay, rcWanted);
            const auto toBitmap = [&](int iEdge, int iPos)
            { return static_cast<int>(std::floor((iEdge + iPos) / dbZoom)); };
            const Gdiplus::Point ptPos = pView->ptDispPos();
            const CRect rcBitmap(toBitmap(rcWanted.left, ptPos.X), toBitmap(rcWanted.top, ptPos.Y),
                                 toBitmap(rcWanted.right, ptPos.X), toBitmap(rcWanted.bottom, ptPos.Y));
            EXPECT_EQ(tool.Rect(), rcBitmap);
            EXPECT_EQ(Box(), rcSelected) << "nothing changes before the release";
            user->Release(ptTo);
            EXPECT_EQ(Told(), "N195 ");
            EXPECT_EQ(tool.Rect(), rcBitmap);
            EXPECT_EQ(Weights(rcBitmap), Resized(vAtLoad, rcSelected.Size(), rcBitmap.Size(), Vorpix::RESIZE_LINEAR));
            EXPECT_EQ(Selected(), Inside(rcBitmap)) << "nothing is left elsewhere";
            EXPECT_EQ(Box(), rcBitmap);
        }
    }
}

TEST_F(SelectionModifierTest, EveryStepOfADragFollowsTheRule)
{
    std::mt19937 random(5);
    const auto within = [&](int iLow, int iHigh) { return iLow + static_cast<int>(random() % (iHigh - iLow + 1U)); };
    int nScrolls = 0;
    for (const auto& [dbZoom, rcSelected] : ZOOMS)
    {
        for (int i = 0; i < 45; ++i)
        {
            const int iMode = i % 9;
            // In a view narrower than its two edges the right one decides.
            const bool bNarrow = dbZoom == 8 && i >= 36;
            pView->MoveWindow(0, 0, bNarrow ? 47 : 300, 200);
            Select(rcSelected, dbZoom);
            const std::vector<BYTE> vAtLoad = Weights(rcSelected);
            const auto it = std::ranges::find(HANDLES, iMode, &Handle::iMode);
            const CPoint ptPress = iMode ? Middle(tool.rcHandle[it->nPlace]) : tool.rcDisplay.CenterPoint();
            user->Press(ptPress);
            const CRect rcStart = tool.rcDisplay;
            CRect rc = rcStart;
            Gdiplus::Point before = pView->ptDispPos();
            CPoint pt;
            pHost->answer = [&](UINT uCode)
            {
                if (uCode < 0x190 || uCode > 0x195)
                    return 0;
                CRect rcView;
                pView->GetClientRect(&rcView);
                const auto step = [](int iAt, int iView) {
                    return iAt > iView - 20 ? std::min(iAt - (iView - 20), 20) : iAt < 20 ? -std::min(20 - iAt, 20) : 0;
                };
                const Gdiplus::Point after = pView->ptDispPos();
                if (!after.Equals(before))
                {
                    ++nScrolls;
                    EXPECT_LE(std::max(std::abs(after.X - before.X), std::abs(after.Y - before.Y)), 20);
                    rc.OffsetRect(-step(pt.x, rcView.Width()), -step(pt.y, rcView.Height()));
                }
                const int iRight = static_cast<int>(CX * dbZoom) - before.X;
                const int iBottom = static_cast<int>(CY * dbZoom) - before.Y;
                const int iLeast = std::max(static_cast<int>(dbZoom), 1);
                if (iMode == 0)
                {
                    const auto move = [](int iMove, int iToLow, int iToHigh)
                    { return iMove < 0 ? std::max(iMove, iToLow) : std::min(iMove, iToHigh); };
                    rc = rcStart;
                    rc.OffsetRect(move(pt.x - ptPress.x, -after.X - rc.left, iRight - rc.right),
                                  move(pt.y - ptPress.y, -after.Y - rc.top, iBottom - rc.bottom));
                }
                else
                {
                    if (it->bLeft)
                        rc.left = std::min<int>(std::max<int>(pt.x, -after.X), rc.right - iLeast);
                    if (it->bTop)
                        rc.top = std::min<int>(std::max<int>(pt.y, -after.Y), rc.bottom - iLeast);
                    if (it->bRight)
                        rc.right = std::max<int>(std::min<int>(pt.x + 1, iRight), rc.left + iLeast);
                    if (it->bBottom)
                        rc.bottom = std::max<int>(std::min<int>(pt.y + 1, iBottom), rc.top + iLeast);
                }
                EXPECT_EQ(tool.rcDisplay, rc) << "zoom " << dbZoom << " mode " << iMode;
                before = after;
                return 0;
            };
            for (int j = 0; j < 4; ++j)
            {
                pt = j % 2 ? CPoint(within(20, 260), within(20, 160))
                           : CPoint(within(-30, bNarrow ? 30 : 330), within(-30, 230));
                user->Move(pt);
            }
            pHost->answer = {};
            user->Release(pt);
            const CRect rcEnd = tool.Rect();
            EXPECT_TRUE(rcEnd.left >= 0 && rcEnd.top >= 0 && rcEnd.right <= CX && rcEnd.bottom <= CY);
            EXPECT_EQ(Selected(), Inside(rcEnd));
            EXPECT_GT(Selected(), 0);
            EXPECT_TRUE(iMode || Weights(rcEnd) == vAtLoad) << "a move keeps the weights";
        }
    }
    EXPECT_GT(nScrolls, 500);
}

TEST_F(SelectionModifierTest, HandlesLieOnTheFrameAndCornersComeFirst)
{
    Select({150, 110, 250, 190});
    const CRect rc = tool.rcDisplay;
    EXPECT_EQ(tool.rcHandle[2], CRect(rc.right - 3, rc.top - 3, rc.right + 3, rc.top + 3));
    EXPECT_EQ(tool.rcHandle[5], CRect(rc.left + 47, rc.top - 3, rc.left + 53, rc.top + 3));
    EXPECT_EQ(tool.rcHandleHit[1], CRect(rc.left - 10, rc.bottom - 10, rc.left + 10, rc.bottom + 10));
    EXPECT_EQ(tool.rcHandleHit[6], CRect(rc.right - 10, rc.top + 10, rc.right + 10, rc.bottom - 10));
    EXPECT_EQ(tool.rcHandleHit[7], CRect(rc.left + 10, rc.bottom - 10, rc.right - 10, rc.bottom + 10));
    pView->Invalidate(FALSE); // The crawling outline lies over the frame until the next paint.
    const winlite::Picture screen = Screen();
    const auto row = [&](int y)
    {
        std::string strRow;
        for (int x = rc.left - 5; x < rc.left + 6; ++x)
        {
            const std::uint32_t uPixel = PixelOf(screen, x, y);
            strRow += uPixel == 0 ? 'b' : uPixel == 0xFFFFFF ? 'w' : '.';
        }
        return strRow;
    };
    EXPECT_EQ(row(rc.top - 4), ".wwwwwwww..") << "the white square around a handle";
    EXPECT_EQ(row(rc.top - 3).substr(1, 8), "wbbbbbbw");
    EXPECT_EQ(row(rc.top + 20)[4], 'w');
    EXPECT_EQ(row(rc.top + 20)[5], 'b') << "the frame, white just outside black";
    Select({195, 145, 206, 154});
    user->Press(tool.rcDisplay.CenterPoint());
    EXPECT_EQ(tool.iDragMode, 1) << "all corners overlap there";
    user->Release(tool.rcDisplay.CenterPoint());
    tool.rcDisplay = {0, 0, 15, 100};
    pView->SetDispPosition(pView->ptDispPos().X + 1, pView->ptDispPos().Y);
    EXPECT_EQ(tool.rcDisplay.Size(), CSize(11, 9)) << "the frame follows the picture";
    pView->SetZoom(2);
    EXPECT_EQ(tool.rcDisplay.Size(), CSize(22, 18));
}

TEST_F(SelectionModifierTest, EveryResizeStartsFromTheWeightsAtLoad)
{
    const CRect rcSelected(150, 110, 250, 190);
    Select(rcSelected);
    const std::vector<BYTE> vAtLoad = Weights(rcSelected);
    const CPoint ptHandle = Middle(tool.rcHandle[3]);
    const CPoint ptSmall(tool.rcDisplay.left, tool.rcDisplay.top);
    user->Drag(ptHandle, ptSmall);
    EXPECT_EQ(tool.Rect(), CRect(150, 110, 151, 111));
    user->Wait(600);
    tool.SetSize(1, 1); // nothing new
    Told();
    user->Press(ptSmall + CPoint(1, 1));
    EXPECT_EQ(tool.iDragMode, 1) << "the first corner of a small frame";
    user->Release(ptSmall + CPoint(1, 1));
    tool.SetRect(150, 110, 100, 80);
    EXPECT_EQ(Box(), rcSelected);
    EXPECT_EQ(Selected(), 1) << "numbers change the region alone";
    tool.ApplyModify();
    EXPECT_EQ(Weights(rcSelected), vAtLoad) << "not a pixel is lost";
    EXPECT_EQ(Told(), "");
    tool.SetSize(50, 40);
    EXPECT_EQ(Told(), "N194 ");
    EXPECT_EQ(Box(), CRect(150, 110, 200, 150));
    tool.SetLeftTop(20, 30);
    EXPECT_EQ(Box(), CRect(20, 30, 70, 70));
    tool.ApplyModify();
    const auto resized = [&](Vorpix::RESIZE_ALGORITHM e) { return Resized(vAtLoad, {100, 80}, {50, 40}, e); };
    EXPECT_EQ(Weights({20, 30, 70, 70}), resized(Vorpix::RESIZE_CUBIC));
    EXPECT_EQ(Selected(), 2000);
    EXPECT_EQ(Told(), "");
    user->Wait(600);
    user->Drag({150, 100}, {160, 110});
    EXPECT_EQ(Weights(tool.Rect()), resized(Vorpix::RESIZE_CUBIC)) << "a move has nothing to resample";
    Select(rcSelected);
    tool.SetSize(50, 40);
    const CPoint ptInside = tool.rcDisplay.CenterPoint();
    user->Drag(ptInside, ptInside + CPoint(5, 0));
    EXPECT_EQ(Weights({155, 110, 205, 150}), resized(Vorpix::RESIZE_LINEAR)) << "a new size does";
    tool.CancelModify();
    EXPECT_EQ(Box(), rcSelected);
    EXPECT_EQ(Selected(), 2000) << "the weights stay";
    user->Wait(600);
    user->Click({5, 5});
    EXPECT_EQ(Told(), "N194 N195 N195 ")
        << "a press beside the frame takes hold of it too, but a click changes nothing";
    EXPECT_EQ(tool.Rect(), CRect(155, 110, 205, 150));
}

TEST_F(SelectionModifierTest, NumbersOfAnyValueEndInsideTheBitmap)
{
    constexpr int MOST = std::numeric_limits<int>::max();
    constexpr int LEAST = std::numeric_limits<int>::min();
    const CRect rcSelected(250, 110, 350, 190);
    const struct
    {
        CRect rcAsked; ///< Left, top, width and height.
        CRect rcApplied;
    } vCases[] = {
        {{-30, -20, 100, 80}, {0, 0, 100, 80}},
        {{380, 290, 50, 40}, {350, 260, 400, 300}},
        {{10, 10, 500, 20}, {0, 10, 400, 30}},
        {{10, 20, 0, 30}, {10, 20, 110, 100}},
        {{10, 20, -5, -5}, {10, 20, 110, 100}},
        {{LEAST, LEAST, MOST, MOST}, {0, 0, CX, CY}},
        {{MOST, MOST, MOST, MOST}, {0, 0, CX, CY}},
        {{MOST, LEAST, 3, 4}, {397, 0, 400, 4}},
        {{LEAST, MOST, LEAST, LEAST}, {0, 220, 100, 300}},
        {{0, 0, 1, MOST}, {0, 0, 1, CY}},
    };
    for (const auto& [rcAsked, rcApplied] : vCases)
    {
        SCOPED_TRACE(testing::PrintToString(rcAsked));
        for (const bool bAtOnce : {true, false})
        {
            Select(rcSelected);
            if (bAtOnce)
                tool.SetRect(rcAsked.left, rcAsked.top, rcAsked.right, rcAsked.bottom);
            else
                tool.SetSize(rcAsked.right, rcAsked.bottom);
            tool.SetLeftTop(rcAsked.left, rcAsked.top);
            Screen();
            tool.ApplyModify();
            EXPECT_EQ(tool.Rect(), rcApplied);
            EXPECT_EQ(Selected(), Inside(rcApplied));
            EXPECT_GT(Selected(), 0);
        }
        user->Drag({150, 100}, {140, 90});
        EXPECT_EQ(tool.Rect().Size(), rcApplied.Size());
        EXPECT_EQ(Selected(), Inside(tool.Rect()));
    }
    Select({150, 110, 151, 111}, 0.25);
    EXPECT_EQ(tool.rcDisplay.Size(), CSize(0, 0)) << "too small to show";
    tool.SetSize(1, 1);
    const Gdiplus::Point ptPos = pView->ptDispPos();
    EXPECT_EQ(tool.rcDisplay, CRect(38 - ptPos.X, 28 - ptPos.Y, 37 - ptPos.X, 27 - ptPos.Y))
        << "the frame is where it would be";
}

TEST_F(SelectionModifierTest, FramesFarFromTheOriginAreExact)
{
    CTestBitmap wide(5000, 90);
    pView->SetBitmap(wide.info, wide.vBits.data());
    CRgn rgn;
    rgn.CreateRectRgn(3000, 20, 3101, 70);
    std::vector<BYTE> vMask;
    Pixtane::CPixtane::CreateSelectMask(rgn, vMask, 5000, 90, 0);
    pView->UpdateSelection(rgn, vMask);
    pView->SetDispPosition(2950, 0);
    ASSERT_TRUE(pView->LoadEmbeddedTool(tool));
    EXPECT_EQ(tool.rcDisplay.left, 50);
    for (int i = 0; i < 3; ++i)
    {
        const CPoint ptInside = tool.rcDisplay.CenterPoint();
        user->Drag(ptInside, ptInside + CPoint(0, 2));
        user->Wait(600);
    }
    EXPECT_EQ(tool.Rect(), CRect(3000, 26, 3101, 76)) << "it does not creep sideways";
    tool.SetRect(1500, 5, 1000, 10);
    EXPECT_EQ(tool.Rect(), CRect(1500, 5, 2500, 15));
}

TEST_F(SelectionModifierTest, OnlyASelectionInsideTheBitmapIsTaken)
{
    EXPECT_FALSE(pView->LoadEmbeddedTool(tool));
    const auto select = [&](const CRect& rc)
    {
        CRgn rgn;
        rgn.CreateRectRgnIndirect(&rc);
        pView->UpdateSelection(rgn, pView->vSelectMask());
    };
    select({-100, 0, 0, 50});
    EXPECT_FALSE(pView->LoadEmbeddedTool(tool));
    select({-100000000, 0, 50, 50});
    EXPECT_TRUE(pView->LoadEmbeddedTool(tool));
    EXPECT_EQ(tool.Rect(), CRect(0, 0, 50, 50));
    std::vector<BYTE> vSettings = {7};
    tool.SerializeToolSettings(vSettings);
    EXPECT_EQ(vSettings, std::vector<BYTE>{7});
    pView->UnloadEmbeddedTool();
    EXPECT_EQ(tool.vResizedMask.capacity(), 0u);
    tool.SetRect(1, 2, 3, 4);
    tool.SetSize(3, 4);
    tool.SetLeftTop(3, 4);
    tool.ApplyModify();
    tool.CancelModify();
    tool.OnZoomChanged();
    tool.OnMouseMove(0, {5, 5});
    EXPECT_EQ(Box(), CRect(-100000000, 0, 50, 50)) << "without a view nothing happens";
}

TEST_F(SelectionModifierTest, AViewWithoutMasksMovesTheRegionAlone)
{
    CTestView view(TRUE);
    ASSERT_TRUE(view.Create(CRect(0, 0, 300, 200), pHost.get(), VIEW_ID + 5, BACKGROUND));
    view.SetBitmap(bitmap.info, bitmap.vBits.data());
    CRgn rgn;
    rgn.CreateRectRgn(10, 10, 30, 30);
    view.UpdateSelection(rgn, {});
    ASSERT_TRUE(view.LoadEmbeddedTool(tool));
    tool.OnLButtonDown(0, {30, 30});
    tool.OnMouseMove(0, {49, 59});
    tool.OnLButtonUp(0, {49, 59});
    EXPECT_EQ(RectsOf(view.rgnSelect()), "10,10,50,60 ");
    tool.SetRect(5, 6, 7, 8);
    tool.ApplyModify();
    EXPECT_EQ(RectsOf(view.rgnSelect()), "5,6,12,14 ");
    view.UnloadEmbeddedTool();
    view.DestroyWindow();
}

TEST_F(SelectionModifierTest, ADragGoesOnWithoutTheCaptureAndHoldsTheOutline)
{
    Select({150, 110, 250, 190});
    user->Press({150, 90});
    const winlite::Picture before = Screen();
    user->Wait(1000);
    EXPECT_EQ(Screen().vPixels, before.vPixels) << "the outline stands still";
    ::SetCapture(pHost->m_hWnd);
    ::ReleaseCapture();
    EXPECT_TRUE(tool.IsMouseDragging());
    user->Move({160, 95});
    EXPECT_EQ(tool.Rect(), CRect(160, 115, 260, 195));
    ::SetCapture(pHost->m_hWnd);
    tool.OnLButtonUp(0, {160, 95});
    EXPECT_EQ(::GetCapture(), pHost->m_hWnd) << "another's capture is left to it";
    ::ReleaseCapture();
    EXPECT_EQ(Box(), CRect(160, 115, 260, 195));
    EXPECT_FALSE(tool.IsMouseDragging());
    const winlite::Picture after = Screen();
    user->Wait(1000);
    EXPECT_NE(Screen().vPixels, after.vPixels) << "it crawls again";
}

TEST_F(SelectionModifierTest, TheHostMayTakeToolOrBitmapAwayInTheMiddle)
{
    CTestBitmap other = CTestBitmap::Numbered(90, 70);
    const std::function<void()> vDoings[] = {
        [&] { pView->UnloadEmbeddedTool(); },
        [&] { pView->ClearBitmap(TRUE); },
        [&] { pView->SetBitmap(other.info, other.vBits.data()); },
        [&] { pView->ClearSelection(); },
    };
    for (const auto& doing : vDoings)
    {
        for (const UINT uCode : {6U, 0x195U, 0x194U})
        {
            for (const CPoint ptTo : {CPoint(295, 195), CPoint(160, 100)})
            {
                pView->SetBitmap(bitmap.info, bitmap.vBits.data());
                Select({150, 110, 250, 190});
                bool bDone = false;
                pHost->answer = [&](UINT uTold)
                {
                    if (uTold == uCode && !std::exchange(bDone, true))
                        doing();
                    return 0;
                };
                user->Drag(uCode == 0x194 ? Middle(tool.rcHandle[3]) : CPoint(150, 90), ptTo);
                EXPECT_TRUE(bDone || uCode == 6);
                EXPECT_EQ(::GetCapture(), nullptr);
                tool.ApplyModify();
                Screen();
                pHost->answer = {};
                EXPECT_EQ(pView->vSelectMask().size(),
                          static_cast<std::size_t>(pView->iBmpWidth()) * pView->iBmpHeight());
            }
        }
    }
    for (const UINT uCode : {6U, 0x195U})
    {
        Select({150, 110, 250, 190});
        pHost->answer = [&](UINT uTold) { return uTold == uCode ? pView->DestroyWindow() : 0; };
        user->Drag({150, 90}, {295, 195});
        EXPECT_EQ(pView->m_hWnd, nullptr);
        pView->UnloadEmbeddedTool();
        user.reset();
        Open(300, 200);
        pView->SetBitmap(bitmap.info, bitmap.vBits.data());
        user = std::make_unique<CUser>(*pView);
    }
    Select({10, 10, 40, 40});
    pView->SetBitmap(other.info, other.vBits.data());
    tool.SetRect(80, 60, 100, 100);
    tool.ApplyModify();
    user->Drag({150, 90}, {100, 50});
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "none") << "it was taken from another bitmap";
    EXPECT_EQ(Told(), "");
}

TEST_F(SelectionModifierTest, AResizeThatFailsPastesNoMoreThanThereIs)
{
    Select({150, 110, 250, 190});
    tool.bmiResizedMask.bmiHeader.biWidth = 10;
    tool.bmiResizedMask.bmiHeader.biHeight = 8;
    tool.vResizedMask.assign(75, 255);
    tool.bmiCropMask.bmiHeader.biBitCount = 0; // no resizing from now on
    user->Drag({150, 90}, {160, 90});
    EXPECT_EQ(Box(), CRect(160, 110, 170, 117));
}

} // namespace
