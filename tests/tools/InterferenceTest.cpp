#include "brushes/CloneStamp.h"
#include "brushes/DodgeBurn.h"
#include "brushes/EffectBrush.h"
#include "selection/RegionSelector.h"
#include "selection/SelectionModifier.h"
#include "support/InvertBrush.h"
#include "support/RecordingTool.h"
#include "support/ToolTest.h"
#include "tools/ColorPicker.h"
#include "tools/HoriLinePen.h"
#include "tools/ImageMover.h"
#include "tools/MovableRectangle.h"
#include "tools/RedeyeReduction.h"
#include "tools/SpotRemover.h"
#include "view/Notifications.h"

#include <numeric>

using namespace Pixtane::EmbeddedTool;

namespace
{

/// A clone stamp whose source is always set.
class CSourcedStamp : public CloneStamp
{
public:
    int OnLoad(Pixtane::CPixtane& view) override
    {
        Reset();
        m_ptSource = CPoint(20, 20);
        return CloneStamp::OnLoad(view);
    }
};

/// What a host may do inside a notification, against the gestures of every tool.
class InterferenceTest : public CViewTest
{
protected:
    using Tool = Pixtane::CPixtane::IEmbeddedTool;

    void SetUp() override
    {
        CViewTest::SetUp();
        for (Sketcher* const pBrush : std::initializer_list<Sketcher*>{&brush, &stamp, &dodge, &effect})
            pBrush->SetPen(CInvertBrush::SketchPen::COMPUTED, 9, 100, 100);
    }
    void TearDown() override
    {
        pHost->answer = {};
        pView->UnloadEmbeddedTool();
        CViewTest::TearDown();
    }

    /// Whatever went on before: the view with bitmap, selection and tool, and everything let go.
    void Begin(Tool& tool)
    {
        pHost->answer = {};
        CUser::Settle();
        pView->UnloadEmbeddedTool();
        if (!pView->m_hWnd)
            Open(300, 200);
        ::ReleaseCapture();
        CUser(*pView).Release({1, 1});
        pView->SetBitmap(bitmap.info, bitmap.vBits.data());
        pView->SetZoom(1);
        pView->SetDispPosition(50, 50);
        Select({100, 100, 200, 160});
        ASSERT_TRUE(pView->LoadEmbeddedTool(tool));
        pView->SetFocus();
        CUser(*pView).Wait(600); // no double click
        TakeLog();
    }

    /// Plays the gesture, with the act inside the notification of that number; that one's code, and the log since.
    UINT Disturb(const std::function<void(CUser&)>& gesture, int iNotification, const std::function<void()>& act)
    {
        int nTold = 0;
        UINT uInside = 0;
        pHost->answer = [&](UINT uCode)
        {
            if (nTold++ == iNotification)
            {
                uInside = uCode;
                act();
                TakeLog();
            }
            return 0;
        };
        CUser user(*pView);
        gesture(user);
        pHost->answer = {};
        EXPECT_GT(nTold, iNotification);
        return uInside;
    }

    /// What everybody was told, and where it ended.
    std::string Outcome()
    {
        const Gdiplus::Point pt = pView->ptDispPos();
        const std::vector<BYTE>& vMask = pView->vSelectMask();
        return TakeLog() + RectsOf(pView->rgnSelect()) + std::to_string(pt.X) + "," + std::to_string(pt.Y) + " " +
               std::to_string(std::accumulate(vMask.begin(), vMask.end(), 0));
    }

    CLogRecorder records; // Shapes of which nothing is left are no news here.
    CTestBitmap bitmap = CTestBitmap::Numbered(400, 300);
    CTestBitmap smaller = CTestBitmap::Numbered(90, 70);
    std::string strNobody;
    CRecordingTool idle{strNobody}, other{strNobody};
    ImageMover hand;
    RegionSelector selector;
    SelectionModifier modifier;
    CInvertBrush brush;
    CSourcedStamp stamp;
    DodgeBurn dodge;
    EffectBrush effect;
    ColorPicker picker;
    MovableRectangle navigator;
    HoriLinePen level;
    RedeyeReduction redeye;
    SpotRemover spot;
};

TEST_F(InterferenceTest, AToolThatIsNotLoadedLeavesTheViewAlone)
{
    CClientDC dc(pView.get());
    CRect rc(0, 0, 300, 200);
    for (Tool* pTool : std::initializer_list<Tool*>{&hand, &picker, &navigator, &level, &redeye, &spot})
    {
        const auto callAll = [&]
        {
            pTool->OnLButtonDown(MK_LBUTTON, {10, 10});
            pTool->OnMouseMove(MK_LBUTTON, {20, 20});
            pTool->OnPostPaint(dc, rc);
            pTool->OnZoomChanged();
            pTool->OnSetCursor(pView.get(), HTCLIENT, WM_MOUSEMOVE);
            pTool->OnLButtonUp(0, {20, 20});
            pTool->OnCaptureChanged(nullptr);
            spot.SetSize(20);
            navigator.SetRectangle(rc);
        };
        callAll();
        Begin(*pTool);
        pTool->OnLButtonDown(MK_LBUTTON, {10, 10});
        pView->UnloadEmbeddedTool();
        TakeLog();
        callAll();
        EXPECT_EQ(Told(), "");
        EXPECT_TRUE(pTool == &hand || !::GetCapture()) << pTool->GetToolName();
    }
}

TEST_F(InterferenceTest, WhateverTheHostDoesInsideANotificationTheNextGestureIsAsEver)
{
    const auto drag = [](CPoint ptFrom, CPoint ptTo) { return [=](CUser& user) { user.Drag(ptFrom, ptTo); }; };
    const auto draw = [&](RegionSelector::emSelectMode eMode)
    {
        return [this, eMode](CUser& user)
        {
            selector.SetSelectMode(eMode);
            user.Press({200, 130});
            user.Move({200, 20});
            user.Move({295, 60}); // scrolls
            user.Release({270, 60});
            user.Click({150, 150});
            user.Type(VK_DELETE);
            user.Click({200, 130});
            user.Type(VK_RIGHT);
        };
    };
    const auto stroke = [](CUser& user) { user.Drag({100, 100}, {160, 90}), user.Wait(300); };
    const struct
    {
        const char* pszName;
        Tool& tool;
        std::function<void(CUser&)> gesture; ///< Tells the host whatever the tool has to tell.
        bool bMayKeepMouse = false;          ///< Until the host or the next gesture ends the capture.
    } vTools[] = {
        {"a tool that leaves all to the view", idle,
         [](CUser& user)
         {
             user.Click({7, 8});
             user.Wheel(-120);
             user.Press({7, 8}, winlite::MouseButton::Right);
             user.Release({7, 8}, winlite::MouseButton::Right);
         }},
        {"image mover", hand, drag({100, 100}, {60, 90}), true},
        {"lasso", selector, draw(RegionSelector::SM_LASSO), true},
        {"rectangle", selector, draw(RegionSelector::SM_RECTANGLE), true},
        {"ellipse", selector, draw(RegionSelector::SM_ELLIPSE), true},
        {"polygon", selector, draw(RegionSelector::SM_POLYGON), true},
        {"magic wand", selector, draw(RegionSelector::SM_MAGICWAND), true},
        {"move of a selection", selector, drag({100, 80}, {110, 90})},
        {"move of the modifier's frame", modifier, drag({75, 65}, {295, 195})},
        {"modifier's corner", modifier, drag({149, 109}, {295, 195})},
        {"brush", brush, stroke},
        {"clone stamp", stamp, stroke, true},
        {"dodge and burn", dodge, stroke},
        {"effect brush", effect, stroke},
        {"colour picker", picker, drag({100, 100}, {60, 90})},
        {"movable rectangle", navigator, drag({100, 100}, {60, 90})},
        {"horizon line", level, drag({100, 100}, {60, 90})},
        {"red-eye frame", redeye, drag({100, 100}, {60, 90})},
        {"spot", spot, drag({100, 100}, {60, 90})},
        {"modifier's numbers", modifier, [&](CUser&) { modifier.SetSize(30, 20), modifier.ApplyModify(); }},
    };
    Tool* pTool = nullptr;
    const std::pair<const char*, std::function<void()>> vActs[] = {
        {"unloads", [&] { pView->UnloadEmbeddedTool(); }},
        {"loads again", [&] { pView->LoadEmbeddedTool(*pTool); }},
        {"loads another", [&] { pView->LoadEmbeddedTool(other); }},
        {"resets", [&] { pView->ResetEmbeddedTool(); }},
        {"changes the shape", [&] { selector.SetSelectMode(RegionSelector::SM_RECTANGLE); }},
        {"changes the shape to vertices", [&] { selector.SetSelectMode(RegionSelector::SM_LASSO); }},
        {"clears the bitmap", [&] { pView->ClearBitmap(TRUE); }},
        {"replaces the bitmap", [&] { pView->SetBitmap(smaller.info, smaller.vBits.data()); }},
        {"clears the selection", [&] { pView->ClearSelection(); }},
        {"zooms", [&] { pView->SetZoom(3); }},
        {"ends the capture", [&] { ::ReleaseCapture(); }},
        {"takes the capture", [&] { ::SetCapture(pHost->m_hWnd); }},
        {"destroys the window", [&] { pView->DestroyWindow(); }},
    };
    for (const auto& [pszName, tool, gesture, bMayKeepMouse] : vTools)
    {
        pTool = &tool;
        Begin(tool);
        int nNotifications = 0;
        pHost->answer = [&](UINT) { return ++nNotifications, 0; };
        CUser user(*pView);
        gesture(user);
        const std::string strUsual = Outcome();
        EXPECT_GT(nNotifications, 0) << pszName;
        for (const auto& [pszAct, act] : vActs)
        {
            for (int i = 0; i < nNotifications; ++i)
            {
                Begin(tool);
                const UINT uInside = Disturb(gesture, i, act);
                // Between a view without a bitmap and its tool no mouse message passes that would end the gesture.
                const bool bUnheard = uInside < Pixtane::PVN_DISPLAYCHANGED && !pView->pBmpData();
                EXPECT_TRUE(bMayKeepMouse || bUnheard || !::GetCapture() || ::GetCapture() == pHost->m_hWnd)
                    << pszName << " keeps the mouse when the host " << pszAct << " inside notification " << i;
                EXPECT_TRUE(pView->pEmbeddedTool() == &tool || Told().empty())
                    << pszName << " goes on telling when the host " << pszAct << " inside notification " << i;
                EXPECT_EQ(pView->iSelectMaskSize(), pView->iBmpWidth() * pView->iBmpHeight());
                Begin(tool);
                CUser next(*pView);
                gesture(next);
                ASSERT_EQ(Outcome(), strUsual) << pszName << ": the host " << pszAct << " inside notification " << i;
            }
        }
    }
}

} // namespace
