#include "selection/SelectionModifier.h"
#include "platform/vorpix.h"
#include "support/ToolTest.h"
#include "view/Notifications.h"

#include <algorithm>
#include <limits>

namespace
{

class COpenModifier : public Pixtane::EmbeddedTool::SelectionModifier
{
public:
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

/// What a drag in each mode shows and tells: all of the frame, then the handles.
struct Handle
{
    std::size_t nPlace; ///< In the arrays.
    UINT uCursor;
    const char* pszTold;
};
constexpr Handle HANDLES[] = {
    {8, 3030, "SELMOD_RECT "}, {0, 3036, "SELMOD_RECT "},  {2, 3037, "SELMOD_RECT "},
    {3, 3036, "SELMOD_SIZE "}, {1, 3037, "SELMOD_RECT "},  {4, 3034, "SELMOD_LEFT "},
    {5, 3035, "SELMOD_TOP "},  {6, 3034, "SELMOD_RIGHT "}, {7, 3035, "SELMOD_BOTTOM "},
};

/// A bitmap of 400 x 300, of which a box is selected with weights that all differ from their neighbours', at any zoom
/// about its middle, with the tool loaded.
class SelectionModifierTest : public CToolTest<COpenModifier>
{
protected:
    static constexpr int CX = 400, CY = 300;

    SelectionModifierTest() : CToolTest(CX, CY) {}

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
    CPoint Middle(const CRect& rc) { return {(rc.left + rc.right) / 2, (rc.top + rc.bottom) / 2}; }
    int Inside(const CRect& rc)
    {
        return static_cast<int>(std::ranges::count_if(Weights(rc), [](BYTE b) { return b; }));
    }
    int Selected() { return Inside({0, 0, CX, CY}); }
};

struct ZoomCase
{
    double dbZoom;
    CRect rcSelected;
};
const ZoomCase ZOOMS[] = {
    {0.25, {80, 60, 320, 240}}, {1, {150, 110, 250, 190}}, {2.5, {180, 136, 220, 168}}, {8, {194, 145, 206, 155}}};

/// Drags end at the image's border and at the least size, scroll at the view's edges, and resample on the release.
TEST_F(SelectionModifierTest, DragsEndAtTheImageAndTheLeastSizeAndScrollAtTheEdges)
{
    const struct
    {
        int iMode;
        double dbZoom;
        int cxView;
        CPoint ptVia;
        CRect rcVia; ///< The frame in the window, after all steps there.
        CPoint ptTo;
        CRect rcTo;
        CRect rcEnd; ///< In the bitmap.
        int nSteps;
    } vDrags[] = {
        {0, 1, 300, {320, 215}, {183, 103, 283, 183}, {130, 60}, {80, 20, 180, 100}, {197, 137, 297, 217}, 5},
        {0, 0.25, 300, {160, 75}, {130, 63, 190, 108}, {40, 200}, {100, 93, 160, 138}, {0, 120, 240, 300}, 2},
        {0, 8, 47, {30, 100}, {-66, 60, 30, 140}, {40, 100}, {-66, 60, 30, 140}, {388, 146, 400, 156}, 82},
        {1, 1, 300, {15, -5}, {15, 0, 252, 372}, {290, 190}, {131, 190, 132, 252}, {248, 299, 249, 300}, 20},
        {2, 0.25, 300, {290, 3}, {120, 63, 200, 123}, {60, 150}, {120, 122, 121, 123}, {80, 236, 84, 240}, 2},
        {2, 2.5, 300, {310, 60}, {-268, 60, 283, 137}, {60, 195}, {-268, -165, 61, -163}, {179, 160, 311, 161}, 35},
        {3, 1, 300, {295, 195}, {32, -8, 283, 183}, {30, 30}, {32, -8, 33, 31}, {149, 109, 150, 148}, 5},
        {4, 1, 300, {5, 195}, {5, -28, 252, 183}, {270, 30}, {132, -28, 133, 31}, {249, 89, 250, 148}, 23},
        {4, 0.25, 300, {30, 190}, {100, 78, 180, 138}, {250, 50}, {179, 78, 180, 79}, {316, 60, 320, 64}, 2},
        {5, 2.5, 300, {-20, 100}, {0, 57, 552, 137}, {290, 100}, {-170, 57, -168, 137}, {218, 136, 219, 168}, 56},
        {6, 1, 300, {100, -20}, {92, 0, 192, 192}, {100, 190}, {92, 71, 192, 72}, {150, 188, 250, 189}, 11},
        {6, 2.5, 300, {-20, 199}, {452, -225, 552, -223}, {310, 199}, {-268, -945, -168, -943}, {179, 0, 219, 1}, 56},
        {7, 8, 300, {270, 100}, {-1369, 52, 271, 132}, {20, 100}, {-1369, 52, 21, 132}, {193, 145, 367, 155}, 211},
        {8, 2.5, 300, {100, 199}, {92, -243, 192, 183}, {100, 40}, {92, -243, 192, 41}, {180, 129, 220, 243}, 17},
        {8, 2.5, 300, {310, -5}, {-268, 417, -168, 419}, {-20, -5}, {452, 1137, 552, 1139}, {180, 299, 220, 300}, 56},
    };
    for (const auto& c : vDrags)
    {
        SCOPED_TRACE(testing::Message() << "mode " << c.iMode << " zoom " << c.dbZoom);
        pView->MoveWindow(0, 0, c.cxView, 200);
        const CRect rcSelected = std::ranges::find(ZOOMS, c.dbZoom, &ZoomCase::dbZoom)->rcSelected;
        Select(rcSelected, c.dbZoom);
        const std::vector<BYTE> vAtLoad = Weights(rcSelected);
        const Handle& handle = HANDLES[c.iMode];
        const CPoint ptPress = c.iMode ? Middle(tool.rcHandle[handle.nPlace]) : tool.rcDisplay.CenterPoint();
        user->Move(ptPress);
        const LPCWSTR pszId = MAKEINTRESOURCE(handle.uCursor);
        EXPECT_EQ(::GetCursor(), ::LoadCursor(AfxFindResourceHandle(pszId, RT_GROUP_CURSOR), pszId));
        user->Press(ptPress);
        EXPECT_EQ(tool.iDragMode, c.iMode);
        user->Move(c.ptVia);
        EXPECT_EQ(tool.rcDisplay, c.rcVia);
        user->Move(c.ptTo);
        EXPECT_EQ(tool.rcDisplay, c.rcTo);
        EXPECT_EQ(Box(), rcSelected) << "nothing changes before the release";
        std::string strTold;
        for (int i = 0; i < c.nSteps; ++i)
            strTold += handle.pszTold;
        EXPECT_EQ(Told(), strTold);
        user->Release(c.ptTo);
        EXPECT_EQ(Told(), "SELMOD_RECT ");
        EXPECT_EQ(tool.Rect(), c.rcEnd);
        EXPECT_EQ(Box(), c.rcEnd);
        EXPECT_EQ(Weights(c.rcEnd),
                  c.iMode ? Resized(vAtLoad, rcSelected.Size(), c.rcEnd.Size(), Vorpix::RESIZE_LINEAR) : vAtLoad);
        EXPECT_EQ(Selected(), Inside(c.rcEnd)) << "nothing is left elsewhere";
    }
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
    EXPECT_EQ(Told(), "SELMOD_SIZE ");
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
    EXPECT_EQ(Told(), "SELMOD_SIZE SELMOD_RECT SELMOD_RECT ")
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
    Select({0, 0, 8, 10});
    CRgn rgn, rgnApart;
    rgn.CreateRectRgn(0, 0, 8, 10);
    rgnApart.CreateRectRgn(10, 0, 11, 1);
    rgn.CombineRgn(&rgn, &rgnApart, RGN_OR);
    pView->UnloadEmbeddedTool();
    pView->UpdateSelection(rgn, pView->vSelectMask());
    ASSERT_TRUE(pView->LoadEmbeddedTool(tool));
    tool.SetSize(5, 10);
    EXPECT_EQ(tool.Rect(), CRect(0, 0, 4, 10)) << "the pixel apart is lost";
}

TEST_F(SelectionModifierTest, TheFrameStaysWhereNothingTellsItToMove)
{
    const CRect rcSelected(150, 110, 250, 190);
    Select(rcSelected);
    const CRect rcStart = tool.rcDisplay;
    const CPoint ptPress = rcStart.CenterPoint();
    const int xStart = pView->ptDispPos().X;
    user->Press(ptPress);
    user->Move({283, 100});
    user->Move(ptPress);
    user->Release(ptPress);
    EXPECT_GT(pView->ptDispPos().X, xStart + 20);
    EXPECT_EQ(tool.rcDisplay, rcStart) << "a drag that scrolled and came back";
    EXPECT_EQ(tool.Rect(), rcSelected);
    Select(rcSelected, 0.5);
    const CRect rcSmall = tool.rcDisplay;
    pView->MoveWindow(0, 0, 340, 200);
    EXPECT_EQ(pView->ptDispPos().X, -70);
    EXPECT_EQ(tool.rcDisplay, rcSmall) << "a resize";
    pView->MoveWindow(0, 0, 300, 200);
    Select(rcSelected);
    pHost->answer = [&](UINT uCode)
    {
        if (uCode == 0x195)
            winlite::QueueButton(pHost->m_hWnd, winlite::MouseButton::Left, false, {283, 100});
        return 0;
    };
    user->Press(ptPress);
    user->Move({283, 100});
    EXPECT_EQ(pView->ptDispPos().X, xStart + 20) << "an edge scroll ends with the button";
    pHost->answer = {};
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
    const int nPaints = pView->nPaints;
    user->Move({160, 95});
    EXPECT_EQ(tool.Rect(), CRect(160, 115, 260, 195));
    EXPECT_EQ(pView->nPaints, nPaints + 2) << "the view is asked for its position also where that stays";
    ::SetCapture(pHost->m_hWnd);
    tool.OnLButtonUp(0, {160, 95});
    EXPECT_EQ(::GetCapture(), pHost->m_hWnd) << "another's capture is left to it";
    ::ReleaseCapture();
    EXPECT_EQ(Box(), CRect(160, 115, 260, 195));
    EXPECT_FALSE(tool.IsMouseDragging());
    const winlite::Picture after = Screen();
    user->Wait(1000);
    EXPECT_NE(Screen().vPixels, after.vPixels) << "it crawls again";
    user->Press({280, 95});
    const Gdiplus::Point ptBefore = pView->ptDispPos();
    pHost->ShowWindow(SW_MINIMIZE);
    tool.OnMouseMove(MK_LBUTTON, {283, 95});
    EXPECT_EQ(pView->ptDispPos().X, ptBefore.X + 20) << "minimised, when nothing limits it, one step is all";
    pHost->ShowWindow(SW_RESTORE);
    user->Release({280, 95});
}

TEST_F(SelectionModifierTest, AnotherBitmapIsLeftAlone)
{
    CTestBitmap other = CTestBitmap::Numbered(90, 70);
    Select({10, 10, 40, 40});
    pView->SetBitmap(other.info, other.vBits.data());
    tool.SetRect(80, 60, 100, 100);
    tool.ApplyModify();
    user->Drag({150, 90}, {100, 50});
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "none") << "it was taken from another bitmap";
    EXPECT_EQ(Told(), "");
}

} // namespace
