#include "qtdesktop/QtWindow.h"
#include "host/ZoomLadder.h"
#include "qt/PixtaneQt.h"
#include "qt/PixtaneWidget.h"
#include "user/Window.h"
#include "view/Notifications.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPixmap>
#include <QVBoxLayout>
#include <QWheelEvent>

namespace
{

constexpr int SIDE = 2000;

/// A widget of odd size at an odd place in a window, with a bitmap whose pixels all differ from their neighbours.
class CQtWindowTest : public testing::Test
{
protected:
    void SetUp() override
    {
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), SIDE, SIDE, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        for (int i = 0; i < SIDE * SIDE; ++i)
            vPixels.push_back(static_cast<std::uint32_t>(i) * 7919u & 0xFFFFFF);
        window.resize(263, 217);
        widget.setGeometry(3, 5, 251, 203);
        window.show();
        Settle();
        ASSERT_TRUE(widget.View().SetBitmap(info, reinterpret_cast<BYTE*>(vPixels.data())));
        Settle();
        QObject::connect(&widget, &CPixtaneWidget::Notified,
                         [this](UINT uCode) { strLog += std::to_string(uCode) + " "; });
    }

    static void Settle()
    {
        for (int i = 0; i < 100; ++i)
            QCoreApplication::processEvents();
    }

    QWidget& Shown() { return *widget.focusProxy(); }
    HWND HostWindow() { return ::GetParent(widget.View().m_hWnd); }
    double Ratio() { return widget.devicePixelRatioF(); }
    CPoint DispPos() { return {widget.View().ptDispPos().X, widget.View().ptDispPos().Y}; }

    void SendMouse(QEvent::Type type, QPointF pt, Qt::MouseButton button, Qt::MouseButtons buttons)
    {
        QMouseEvent event(type, pt, Shown().mapToGlobal(pt), button, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(&Shown(), &event);
        Settle();
    }
    void SendWheel(QPointF pt, QPoint ptTurn, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QWheelEvent event(pt, Shown().mapToGlobal(pt), {}, ptTurn, Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&Shown(), &event);
        // Qt hands a real event that is left over on to the parent, but not one that a program sends.
        if (!event.isAccepted())
            QCoreApplication::sendEvent(&widget, &event);
        Settle();
    }
    void SendKey(QEvent::Type type, int iKey, Qt::KeyboardModifiers modifiers, bool bRepeats = false)
    {
        QKeyEvent event(type, iKey, modifiers, QString(), bRepeats);
        QCoreApplication::sendEvent(&Shown(), &event);
        Settle();
    }
    void Focus(bool bIn)
    {
        QFocusEvent event(bIn ? QEvent::FocusIn : QEvent::FocusOut);
        QCoreApplication::sendEvent(&Shown(), &event);
        Settle();
    }

    BITMAPINFO info = {};
    std::vector<std::uint32_t> vPixels;
    QWidget window;
    CPixtaneWidget widget{&window};
    std::string strLog;
};

/// How many pixels of the window's picture the toolkit's picture shows otherwise at an offset.
int DifferencesAt(const QImage& image, QPoint ptOffset, const winlite::Picture& picture)
{
    int nDifferent = 0;
    for (int y = 0; y < picture.cy; ++y)
    {
        for (int x = 0; x < picture.cx; ++x)
        {
            const QPoint pt = ptOffset + QPoint(x, y);
            const std::uint32_t uWanted = picture.vPixels[static_cast<std::size_t>(y) * picture.cx + x];
            nDifferent += !image.valid(pt) || (image.pixel(pt) & 0xFFFFFF) != uWanted;
        }
    }
    return nDifferent;
}

TEST_F(CQtWindowTest, EveryPixelOfTheWindowIsOneOfTheScreen)
{
    for (const double dbZoom : {0.06, 1.0, 3.0})
    {
        widget.View().SetZoom(dbZoom);
        Settle();
        const winlite::Picture picture = winlite::WindowPicture(HostWindow());
        EXPECT_EQ(picture.cx, qRound((3 + 251) * Ratio()) - qRound(3 * Ratio()));
        EXPECT_EQ(picture.cy, qRound((5 + 203) * Ratio()) - qRound(5 * Ratio()));
        const QPoint ptOffset = (QPointF(3, 5) * Ratio()).toPoint();
        EXPECT_EQ(DifferencesAt(window.grab().toImage(), ptOffset, picture), 0) << dbZoom;
    }
    widget.resize(111, 97);
    EXPECT_EQ(DifferencesAt(window.grab().toImage(), (QPointF(3, 5) * Ratio()).toPoint(),
                            winlite::WindowPicture(HostWindow())),
              0);
}

TEST_F(CQtWindowTest, ColoursAreConvertedOnTheirWayToTheScreenAlone)
{
    const auto invert = [](const std::uint32_t* pFrom, std::ptrdiff_t nFromStride, std::uint32_t* pTo,
                           std::ptrdiff_t nToStride, int cx, int cy)
    {
        for (int y = 0; y < cy; ++y)
        {
            for (int x = 0; x < cx; ++x)
                pTo[y * nToStride / 4 + x] = ~pFrom[y * nFromStride / 4 + x] | 0xFF000000;
        }
    };
    const auto differences = [&](bool bInverted)
    {
        Settle();
        winlite::Picture picture = winlite::WindowPicture(HostWindow());
        for (std::uint32_t& uPixel : picture.vPixels)
            uPixel = bInverted ? ~uPixel & 0xFFFFFF : uPixel;
        return DifferencesAt(window.grab().toImage(), (QPointF(3, 5) * Ratio()).toPoint(), picture);
    };
    const winlite::Picture before = winlite::WindowPicture(HostWindow());
    widget.SetColours(invert);
    EXPECT_EQ(winlite::WindowPicture(HostWindow()).vPixels, before.vPixels);
    EXPECT_EQ(differences(true), 0);
    widget.View().MoveImage(-13, -7);
    widget.resize(240, 190);
    EXPECT_EQ(differences(true), 0);
    widget.SetColours({});
    EXPECT_EQ(differences(false), 0);
}

TEST_F(CQtWindowTest, MouseEventsReachTheViewInDevicePixels)
{
    QPoint ptMoved;
    QObject::connect(&widget, &CPixtaneWidget::MouseMoved, [&](QPoint pt) { ptMoved = pt; });
    const QPointF pt(40, 30);
    SendMouse(QEvent::MouseMove, pt, Qt::NoButton, Qt::NoButton);
    SendMouse(QEvent::MouseButtonPress, pt, Qt::LeftButton, Qt::LeftButton);
    SendMouse(QEvent::MouseButtonRelease, pt, Qt::LeftButton, Qt::NoButton);
    SendMouse(QEvent::MouseButtonDblClick, pt, Qt::LeftButton, Qt::LeftButton);
    SendMouse(QEvent::MouseButtonRelease, pt, Qt::LeftButton, Qt::NoButton);
    SendMouse(QEvent::MouseButtonPress, pt, Qt::RightButton, Qt::RightButton);
    SendMouse(QEvent::MouseButtonRelease, pt, Qt::RightButton, Qt::NoButton);
    // The second press is the double click's, which the view keeps to itself with its release.
    EXPECT_EQ(strLog, "1 2 3 4 5 ");
    EXPECT_LE(std::abs(ptMoved.x() - 40 * Ratio()), 1);
    EXPECT_LE(std::abs(ptMoved.y() - 30 * Ratio()), 1);
}

TEST_F(CQtWindowTest, AReleaseThatWentElsewhereIsCaughtUp)
{
    SendMouse(QEvent::MouseButtonPress, {40, 30}, Qt::LeftButton, Qt::LeftButton);
    EXPECT_LT(::GetAsyncKeyState(VK_LBUTTON), 0);
    ::SetCapture(widget.View().m_hWnd);
    QEvent deactivated(QEvent::WindowDeactivate);
    QCoreApplication::sendEvent(&window, &deactivated);
    Settle();
    EXPECT_EQ(::GetCapture(), nullptr);
    SendMouse(QEvent::MouseMove, {41, 30}, Qt::NoButton, Qt::NoButton);
    EXPECT_GE(::GetAsyncKeyState(VK_LBUTTON), 0);
}

TEST_F(CQtWindowTest, WheelStepsAreGatheredAndGoWhereTheyBelong)
{
    widget.View().SetZoom(4);
    widget.View().SetDispPosition(400, 400);
    Focus(true);
    const CPoint ptBefore = DispPos();
    SendWheel({50, 50}, {0, -80});
    EXPECT_EQ(DispPos(), ptBefore);
    SendWheel({50, 50}, {0, -80});
    EXPECT_GT(DispPos().y, ptBefore.y);
    SendWheel({50, 50}, {-120, 0});
    EXPECT_GT(DispPos().x, ptBefore.x);
    SendWheel({50, 50}, {0, -120}, Qt::ControlModifier);
    EXPECT_EQ(widget.View().dbZoom(), 3);
    SendWheel({50, 50}, {0, 240}, Qt::ControlModifier);
    EXPECT_EQ(widget.View().dbZoom(), 6);
}

TEST_F(CQtWindowTest, KeysArriveAsCodesAndAreLetGoWithTheFocus)
{
    struct Case
    {
        int iQtKey;
        UINT uKey;
    };
    Focus(true);
    for (const Case& key : {Case{Qt::Key_Left, VK_LEFT}, Case{Qt::Key_Control, VK_CONTROL}, Case{Qt::Key_F5, VK_F1 + 4},
                            Case{Qt::Key_Q, 'Q'}, Case{Qt::Key_7, '7'}, Case{Qt::Key_BraceLeft, VK_OEM_4}})
    {
        SendKey(QEvent::KeyPress, key.iQtKey, Qt::NoModifier);
        SendKey(QEvent::KeyRelease, key.iQtKey, Qt::NoModifier, true);
        EXPECT_LT(::GetKeyState(static_cast<int>(key.uKey)), 0) << key.iQtKey;
        SendKey(QEvent::KeyRelease, key.iQtKey, Qt::NoModifier);
        EXPECT_GE(::GetKeyState(static_cast<int>(key.uKey)), 0) << key.iQtKey;
    }
    SendKey(QEvent::KeyPress, Qt::Key_Q, Qt::ShiftModifier);
    EXPECT_LT(::GetKeyState(VK_SHIFT), 0);
    Focus(false);
    EXPECT_GE(::GetKeyState(VK_SHIFT), 0);
    EXPECT_GE(::GetKeyState('Q'), 0);
}

TEST_F(CQtWindowTest, ADialogOpenedFromANotificationKeepsTheViewAlive)
{
    bool bInside = false;
    bool bMovedInside = false;
    QObject::connect(&widget, &CPixtaneWidget::Notified,
                     [&](UINT uCode)
                     {
                         bMovedInside |= uCode == Pixtane::PVN_MOUSEMOVE && bInside;
                         if (uCode != Pixtane::PVN_RBUTTONDOWN)
                             return;
                         bInside = true;
                         Settle(); // What a dialog's loop does.
                         bInside = false;
                     });
    // Both wait in the queue before the first is dispatched: nothing wakes the dialog's loop any more.
    QMouseEvent press(QEvent::MouseButtonPress, {40, 30}, {40, 30}, Qt::RightButton, Qt::RightButton, Qt::NoModifier);
    QMouseEvent move(QEvent::MouseMove, {41, 30}, {41, 30}, Qt::NoButton, Qt::RightButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&Shown(), &press);
    QCoreApplication::sendEvent(&Shown(), &move);
    Settle();
    EXPECT_TRUE(bMovedInside);
}

TEST_F(CQtWindowTest, ZoomingAboutAPointKeepsItsPixel)
{
    const CPoint ptWindow(70, 60);
    const ExactPoint ptMiddle = {70.5, 60.5};
    constexpr double START = 1.0 / 3;
    widget.View().SetZoom(START);
    widget.View().SetDispPosition(101, 53);
    widget.Zoom().ZoomAbout(START, ptMiddle);
    const CPoint ptStartDisp = DispPos();
    CPoint ptStart = ptWindow;
    widget.View().FromWndToBitmap(ptStart);
    for (int i = 0; i < 40; ++i)
    {
        widget.Zoom().StepZoom(i % 10 < 5 ? 1 : -1, ptMiddle);
        CPoint ptNow = ptWindow;
        widget.View().FromWndToBitmap(ptNow);
        // One pixel of the screen or of the bitmap, whichever is larger.
        const double dPixel = std::max(1.0, 1 / widget.View().dbZoom());
        EXPECT_LE(std::abs(ptNow.x - ptStart.x), dPixel) << i;
        EXPECT_LE(std::abs(ptNow.y - ptStart.y), dPixel) << i;
    }
    EXPECT_EQ(widget.View().dbZoom(), START);
    EXPECT_EQ(DispPos(), ptStartDisp);
}

TEST_F(CQtWindowTest, FittingShowsTheWholeBitmapWithoutBars)
{
    widget.Zoom().ZoomToFit();
    CRect rcView;
    widget.View().GetClientRect(&rcView);
    EXPECT_EQ(rcView.Height(), winlite::WindowPicture(HostWindow()).cy);
    EXPECT_LE(widget.View().ZoomedSize().Height, static_cast<float>(rcView.Height()) + 0.001f);
}

TEST_F(CQtWindowTest, MinimisingTheTopLevelMinimisesTheWindow)
{
    window.showMinimized();
    Settle();
    EXPECT_TRUE(::IsIconic(HostWindow()));
    EXPECT_EQ(AfxGetMainWnd()->m_hWnd, HostWindow());
    window.showNormal();
    Settle();
    EXPECT_FALSE(::IsIconic(HostWindow()));
    window.hide();
    EXPECT_FALSE(::IsWindowVisible(HostWindow()));
}

TEST(ZoomLadderTest, StepsFromAnywhereAndHitsFullSize)
{
    EXPECT_EQ(ZoomLadderStep(0.9, 1), 1);
    EXPECT_EQ(ZoomLadderStep(1.1, -1), 1);
    EXPECT_EQ(ZoomLadderStep(1, 2), 2);
    EXPECT_EQ(ZoomLadderStep(1.0F / 3, 1), 0.5);
    EXPECT_EQ(ZoomLadderStep(0.01, -1), MIN_ZOOM);
    EXPECT_EQ(ZoomLadderStep(0.01, 1), MIN_ZOOM);
    EXPECT_EQ(ZoomLadderStep(20, 5), MAX_ZOOM);
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (GTEST_FLAG_GET(list_tests))
        return RUN_ALL_TESTS(); // The build asks for their names, maybe where there is no display.
    QApplication application(argc, argv);
    const CPixtaneQt library;
    return RUN_ALL_TESTS();
}
