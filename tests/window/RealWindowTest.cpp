#include "qt/PixtaneQt.h"
#include "qt/PixtaneWidget.h"
#include "user/Window.h"
#include "window/HintLabel.h"
#include "window/MainWindow.h"
#include "window/RecentFiles.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QScreen>
#include <QSpinBox>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTimer>
#include <QWindow>
#include <tuple>

namespace
{

/// The program's real window on a real X display, driven by real X events.
class RealWindowTest : public testing::Test
{
protected:
    void SetUp() override
    {
        window.move(40, 30);
        window.resize(801, 603); // odd on purpose
        window.show();
        window.OpenFile({});
        ASSERT_TRUE(
            WaitFor([this] { return View().pBmpData() && window.windowHandle()->isExposed() && ScreenShowsView(); }));
        // Without a window manager nobody else gives the window the keys.
        Xdo({"windowfocus", "--sync", QString::number(window.winId())});
    }

    /// Runs events until the condition holds; FALSE after a long time.
    static bool WaitFor(const std::function<bool()>& condition)
    {
        constexpr int GENEROUS_MS = 20000;
        QElapsedTimer timer;
        for (timer.start(); !condition(); QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20))
        {
            if (timer.elapsed() > GENEROUS_MS)
                return false;
        }
        return true;
    }

    static void Xdo(const QStringList& vArguments)
    {
        QProcess process;
        process.start("xdotool", vArguments);
        WaitFor([&] { return process.state() == QProcess::NotRunning; });
        EXPECT_EQ(process.exitCode(), 0) << vArguments.join(' ').toStdString();
    }

    /// Moves the pointer to a device pixel of the view.
    void PointTo(int x, int y)
    {
        const QPoint ptOrigin = OnScreen();
        Xdo({"mousemove", QString::number(ptOrigin.x() + x), QString::number(ptOrigin.y() + y)});
    }

    CPixtaneWidget& Widget() { return *static_cast<CPixtaneWidget*>(window.centralWidget()); }
    Pixtane::CPixtane& View() { return Widget().View(); }
    /// Where the view's first pixel is on the X screen. At scale 2 a window manager may put the window between two of
    /// Qt's pixels, which Qt does not tell: m_ptOffset holds what is missing.
    QPoint OnScreen()
    {
        CPoint pt;
        View().ClientToScreen(&pt);
        return QPoint(pt.x, pt.y) + m_ptOffset;
    }

    static bool Shows(const QImage& screen, const winlite::Picture& picture, QPoint ptOrigin)
    {
        if (!picture.cx || !screen.rect().contains(QRect(ptOrigin, QSize(picture.cx, picture.cy))))
            return false;
        for (int y = 0; y < picture.cy; ++y)
        {
            const auto* pRow = reinterpret_cast<const QRgb*>(screen.constScanLine(ptOrigin.y() + y)) + ptOrigin.x();
            const std::uint32_t* pWanted = &picture.vPixels[static_cast<std::size_t>(y) * picture.cx];
            if (!std::equal(pWanted, pWanted + picture.cx, pRow,
                            [](std::uint32_t a, QRgb b) { return a == (b & 0xFFFFFF); }))
                return false;
        }
        return true;
    }

    /// Whether the X screen shows exactly what the view's top-level window holds, pixel for pixel.
    bool ScreenShowsView()
    {
        const winlite::Picture picture = winlite::WindowPicture(View().GetParent()->m_hWnd);
        const QImage screen =
            QGuiApplication::primaryScreen()->grabWindow(0).toImage().convertToFormat(QImage::Format_RGB32);
        const QPoint ptTold = OnScreen() - m_ptOffset;
        for (const QPoint ptOffset : {m_ptOffset, QPoint(0, 0), QPoint(1, 0), QPoint(0, 1), QPoint(1, 1), QPoint(-1, 0),
                                      QPoint(0, -1), QPoint(-1, -1), QPoint(1, -1), QPoint(-1, 1)})
        {
            if (Shows(screen, picture, ptTold + ptOffset))
            {
                m_ptOffset = ptOffset;
                return true;
            }
        }
        return false;
    }
    void ExpectShown()
    {
        EXPECT_TRUE(WaitFor([this] { return ScreenShowsView(); }));
    }

    /// Waits for a question, and presses a button of it.
    static void Answer(QMessageBox::StandardButton button)
    {
        ASSERT_TRUE(WaitFor([] { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); }));
        qobject_cast<QMessageBox*>(QApplication::activeModalWidget())->button(button)->click();
        ASSERT_TRUE(WaitFor([] { return !QApplication::activeModalWidget(); }));
    }

    CMainWindow window;

private:
    QPoint m_ptOffset;
};

TEST_F(RealWindowTest, TheWheelZoomsAboutThePointerAndScrolls)
{
    PointTo(200, 150);
    Gdiplus::PointF ptAnchor(200.5f, 150.5f);
    View().FromWndToBitmap(ptAnchor);
    // One pixel of the screen, where that is more than one of the bitmap.
    const double dTolerance = std::max(1.0, 1 / View().GetZoom());
    for (int i = 1; i <= 6; ++i)
    {
        const double dbBefore = View().GetZoom();
        Xdo({"keydown", "ctrl", "click", "4", "keyup", "ctrl"});
        ASSERT_TRUE(WaitFor([&] { return View().GetZoom() > dbBefore; }));
    }
    Gdiplus::PointF ptNow(200.5f, 150.5f);
    View().FromWndToBitmap(ptNow);
    EXPECT_NEAR(ptNow.X, ptAnchor.X, dTolerance);
    EXPECT_NEAR(ptNow.Y, ptAnchor.Y, dTolerance);
    ExpectShown();
    const Gdiplus::Point ptBefore = View().ptDispPos();
    Xdo({"click", "5"});
    ASSERT_TRUE(WaitFor([&] { return View().ptDispPos().Y > ptBefore.Y; }));
    ExpectShown();
}

TEST_F(RealWindowTest, KeysShowTheOriginalScrollAndZoom)
{
    Xdo({"key", "ctrl+1"});
    ASSERT_TRUE(WaitFor([&] { return View().GetZoom() == 1; }));
    const auto before = winlite::WindowPicture(View().GetParent()->m_hWnd).vPixels;
    const auto shown = [this] { return winlite::WindowPicture(View().GetParent()->m_hWnd).vPixels; };
    Xdo({"key", "ctrl+shift+l"});
    ASSERT_TRUE(WaitFor([&] { return shown() != before; }));
    const auto changed = shown();
    Xdo({"keydown", "b"});
    ASSERT_TRUE(WaitFor([&] { return shown() == before; }));
    ExpectShown();
    Xdo({"keyup", "b"});
    ASSERT_TRUE(WaitFor([&] { return shown() == changed; }));
    Xdo({"keydown", "b"});
    ASSERT_TRUE(WaitFor([&] { return shown() == before; }));
    {
        QWidget other; // It gets the release.
        other.show();
        ASSERT_TRUE(WaitFor([&] { return other.windowHandle()->isExposed(); })); // before, X gives it no focus
        Xdo({"windowfocus", "--sync", QString::number(other.winId()), "keyup", "b"});
        EXPECT_TRUE(WaitFor([&] { return shown() == changed; }));
    }
    Xdo({"windowfocus", "--sync", QString::number(window.winId())});
    const Gdiplus::Point ptBefore = View().ptDispPos();
    Xdo({"key", "ctrl+Right"});
    Xdo({"key", "ctrl+Down"});
    ASSERT_TRUE(WaitFor([&] { return View().ptDispPos().X > ptBefore.X && View().ptDispPos().Y > ptBefore.Y; }));
    ExpectShown();
    Xdo({"key", "ctrl+0"});
    ASSERT_TRUE(WaitFor([&] { return View().GetZoom() < 1; }));
    ExpectShown();
}

TEST_F(RealWindowTest, WheelButtonsAndKeysScrollAndFittingGoesOn)
{
    for (const QSize sz : {QSize(700, 500), QSize(900, 640)})
    {
        window.resize(sz);
        ASSERT_TRUE(WaitFor([&] { return View().dbZoom() == Widget().Zoom().FitZoom(); }));
    }
    Widget().Zoom().ZoomAbout(8, Widget().Zoom().ViewCentre());
    PointTo(300, 200);
    const auto pos = [this] { return std::pair(View().ptDispPos().X, View().ptDispPos().Y); };
    const auto [xFirst, yFirst] = pos();
    Xdo({"keydown", "shift", "click", "5", "keyup", "shift"});
    ASSERT_TRUE(WaitFor([&] { return pos().first > xFirst && pos().second == yFirst; }));
    const auto [xTurned, yTurned] = pos();
    const QPoint ptTo = OnScreen() + QPoint(250, 230);
    Xdo({"mousedown", "2", "mousemove", QString::number(ptTo.x()), QString::number(ptTo.y()), "mouseup", "2"});
    // Where a window manager puts the window between two of Qt's pixels, a place may be rounded to either side.
    const auto isNear = [](int iThere, int iWanted) { return std::abs(iThere - iWanted) <= 1; };
    ASSERT_TRUE(WaitFor([&] { return isNear(pos().first, xTurned + 50) && isNear(pos().second, yTurned - 30); }));
    Xdo({"key", "Home"});
    ASSERT_TRUE(WaitFor([&] { return pos().second == 0; }));
    Xdo({"key", "Next"});
    ASSERT_TRUE(WaitFor([&] { return pos().second > 0; }));
    ExpectShown();
}

TEST_F(RealWindowTest, TheCursorFollowsKeysWhileThePointerStands)
{
    PointTo(200, 150);
    ASSERT_TRUE(WaitFor([&] { return Widget().focusProxy()->cursor().shape() == Qt::BitmapCursor; }));
    for (const QStringList& vKeys :
         {QStringList{"key", "m"}, {"key", "3"}, {"key", "w"}, {"keydown", "space"}, {"keyup", "space"}})
    {
        const QCursor before = Widget().focusProxy()->cursor();
        Xdo(vKeys);
        EXPECT_TRUE(WaitFor([&] { return Widget().focusProxy()->cursor() != before; })) << vKeys[1].toStdString();
    }
}

TEST_F(RealWindowTest, TheStatusLineSaysWhatHeldKeysWouldDo)
{
    const auto* const pHint = window.statusBar()->findChild<CHintLabel*>();
    const std::tuple<const char*, const char*, QString> CASES[] = {
        {"m", "shift", "Shift: equal sides, Shift+wheel: sideways"},
        {"c", "alt", "Alt: the next click sets where to copy from"},
        {"h", "ctrl", "Ctrl+wheel: zoom"}};
    for (const auto& [pszTool, pszHeld, strHeld] : CASES)
    {
        const QString strBefore = pHint->text();
        Xdo({"key", pszTool});
        ASSERT_TRUE(WaitFor([&] { return pHint->text() != strBefore; })) << pszTool;
        const QString strTool = pHint->text();
        Xdo({"keydown", pszHeld});
        EXPECT_TRUE(WaitFor([&, strWanted = strHeld] { return pHint->text() == strWanted; })) << pszHeld;
        Xdo({"keyup", pszHeld});
        EXPECT_TRUE(WaitFor([&] { return pHint->text() == strTool; })) << pszHeld;
    }
}

TEST_F(RealWindowTest, MenusAreReachedByKeysAndOfferWhatIsPossible)
{
    for (const QAction* const pMenu : window.menuBar()->actions())
    {
        QString strLetters;
        for (const QAction* const pAction : pMenu->menu()->actions())
        {
            const qsizetype iMark = QString(pAction->text()).replace("&&", "  ").indexOf('&');
            if (iMark < 0)
                continue;
            const QChar letter = pAction->text()[iMark + 1].toLower();
            EXPECT_FALSE(strLetters.contains(letter)) << pAction->text().toStdString();
            strLetters += letter;
        }
    }
    QAction* const pGrow = window.menuBar()->actions()[3]->menu()->actions()[6];
    ASSERT_EQ(pGrow->text(), "&Grow...");
    for (const auto& [pszKeys, bPossible] : {std::pair("ctrl+a", true), std::pair("ctrl+d", false)})
    {
        Xdo({"key", pszKeys});
        ASSERT_TRUE(WaitFor([&, bWanted = bPossible] { return pGrow->isEnabled() == bWanted; })) << pszKeys;
    }
}

TEST_F(RealWindowTest, TabReachesEveryOptionAndNumbersOutOfRangeAreNamed)
{
    QStringList vReached;
    Widget().setFocus();
    const auto press = [](const char* pszKey)
    {
        const QWidget* const pBefore = QApplication::focusWidget();
        Xdo({"key", pszKey});
        return WaitFor([&] { return QApplication::focusWidget() != pBefore; });
    };
    do
    {
        ASSERT_TRUE(press("Tab"));
        auto* const pNumber = qobject_cast<QSpinBox*>(QApplication::focusWidget());
        if (!pNumber)
            continue;
        vReached += pNumber->text();
        const int iBefore = pNumber->value();
        Xdo({"key", "ctrl+a", "9", "9", "9"});
        ASSERT_TRUE(press("Tab"));
        EXPECT_TRUE(window.statusBar()->currentMessage().startsWith("999 "));
        EXPECT_EQ(pNumber->value(), pNumber->maximum());
        window.statusBar()->clearMessage();
        pNumber->setValue(iBefore); // It is kept for the next window.
        ASSERT_TRUE(press("shift+Tab"));
    } while (QApplication::focusWidget() != Widget().focusProxy());
    EXPECT_EQ(vReached, QStringList({"0 px", "50"}));
}

TEST(RecentFilesTest, EqualNamesComeWithTheirFolders)
{
    QStringList vTexts;
    for (const RecentFile& file : Told({"/a/x.png", "/b/y.png", "/b/x.png"}))
        vTexts += file.strText;
    EXPECT_EQ(vTexts, QStringList({"x.png  (/a)", "y.png", "x.png  (/b)"}));
}

TEST_F(RealWindowTest, DrawingAtTheEdgeScrollsForAsLongAsThePointerIsThere)
{
    Xdo({"key", "m"});
    Xdo({"key", "ctrl+1"});
    Widget().Zoom().ZoomAbout(8, Widget().Zoom().ViewCentre());
    CRect rcView;
    View().GetClientRect(&rcView);
    PointTo(rcView.right / 2, rcView.bottom / 2);
    const Gdiplus::Point ptStart = View().ptDispPos();
    Xdo({"mousedown", "1"});
    // The scrolling goes on inside the handler of one move: only what moves the pointer away, here a process of its
    // own, ends it. The person holds it there for a moment.
    const QPoint ptEdge = OnScreen() + QPoint(2, rcView.bottom / 2);
    const QPoint ptInside = OnScreen() + QPoint(rcView.right / 2, rcView.bottom / 2);
    Xdo({"mousemove", QString::number(ptEdge.x()), QString::number(ptEdge.y()), "sleep", "0.3", "mousemove",
         QString::number(ptInside.x()), QString::number(ptInside.y()), "mouseup", "1"});
    ASSERT_TRUE(WaitFor([&] { return View().rgnSelect().GetSafeHandle() && ::GetCapture() != View().m_hWnd; }));
    EXPECT_LT(View().ptDispPos().X, ptStart.X);
    CRect rcBox;
    View().rgnSelect().GetRgnBox(&rcBox);
    EXPECT_FALSE(rcBox.IsRectEmpty());
    ExpectShown();
}

TEST_F(RealWindowTest, ABrokenFileGivesAMessageAndKeepsThePicture)
{
    const BYTE* pBefore = View().pBmpData();
    window.OpenFile("/no/such/photo.jpg");
    QString strMessage;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout,
                     [&]
                     {
                         if (auto* const pBox = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
                         {
                             strMessage = pBox->text();
                             pBox->accept();
                         }
                     });
    timer.start(10);
    ASSERT_TRUE(WaitFor([&] { return !strMessage.isEmpty(); }));
    EXPECT_TRUE(strMessage.contains("/no/such/photo.jpg"));
    EXPECT_EQ(View().pBmpData(), pBefore);
    ExpectShown();
}

TEST_F(RealWindowTest, ChangesAreMarkedSavedAndAskedAbout)
{
    const QTemporaryDir folder;
    const QString strPath = folder.filePath("a photo.png");
    const auto bytes = [&]
    {
        QFile file(strPath);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    QImage grey(60, 40, QImage::Format_RGB32);
    grey.fill(qRgb(100, 100, 100));
    for (int x = 0; x < 60; ++x)
        grey.setPixel(x, 5, qRgb(200, 200, 200));
    ASSERT_TRUE(grey.save(strPath));
    const QByteArray before = bytes();
    window.OpenFile(strPath);
    ASSERT_TRUE(WaitFor([&] { return window.windowTitle() == "a photo.png[*] - retouch"; }));
    const std::pair<const char*, bool> vSteps[] = {
        {"ctrl+a", false}, {"ctrl+shift+i", false}, {"ctrl+z", false}, {"ctrl+shift+l", true},
        {"ctrl+z", false}, {"ctrl+y", true},        {"ctrl+s", false}, {"ctrl+z", true},
    };
    for (const auto& [pszKeys, bModified] : vSteps)
    {
        Xdo({"key", pszKeys});
        ASSERT_TRUE(WaitFor([&] { return window.isWindowModified() == bModified; })) << pszKeys;
    }
    EXPECT_NE(bytes(), before);
    window.OpenFile({});
    Answer(QMessageBox::Cancel);
    EXPECT_EQ(window.windowTitle(), "a photo.png[*] - retouch");
    window.close();
    Answer(QMessageBox::Save);
    ASSERT_TRUE(WaitFor([&] { return !window.isVisible(); }));
    EXPECT_EQ(QImage(strPath), grey);
}

TEST_F(RealWindowTest, ResizingKeepsEveryPixelOnAPixel)
{
    for (const QSize sz : {QSize(640, 480), QSize(901, 707), QSize(333, 251)})
    {
        window.resize(sz);
        ExpectShown();
    }
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    QTemporaryDir settings; // The recent files of the tests are not the user's.
    qputenv("XDG_CONFIG_HOME", settings.path().toUtf8());
    QApplication application(argc, argv);
    const CPixtaneQt library;
    return RUN_ALL_TESTS();
}
