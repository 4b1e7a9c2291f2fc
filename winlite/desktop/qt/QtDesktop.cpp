#include "qtdesktop/QtDesktop.h"

#include "qtdesktop/CursorShape.h"
#include "qtdesktop/QtWindow.h"
#include "user/Window.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QGuiApplication>
#include <QScreen>
#include <QThread>
#include <utility>

namespace winlite
{

namespace
{

QEvent::Type WakeEventType()
{
    static const auto s_Type = static_cast<QEvent::Type>(QEvent::registerEventType());
    return s_Type;
}

} // namespace

QtDesktop::QtDesktop() : m_dScale(QGuiApplication::primaryScreen()->devicePixelRatio())
{
    m_Timer.setSingleShot(true);
    m_Timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_Timer, &QTimer::timeout, this, [this] { Wake(); });
    SetDesktop(this);
}

QtDesktop::~QtDesktop() { SetDesktop(nullptr); }

std::uint64_t QtDesktop::TickCount()
{
    using namespace std::chrono;
    return static_cast<std::uint64_t>(duration_cast<milliseconds>(steady_clock::now() - m_Start).count());
}

double QtDesktop::Scale() { return m_dScale; }

SIZE QtDesktop::ScreenSize()
{
    const QSize szScreen = (QSizeF(QGuiApplication::primaryScreen()->size()) * m_dScale).toSize();
    return {szScreen.width(), szScreen.height()};
}

RECT QtDesktop::VirtualScreen()
{
    const QRectF rcAll = QGuiApplication::primaryScreen()->virtualGeometry();
    const QRect rc = QRectF(rcAll.topLeft() * m_dScale, rcAll.size() * m_dScale).toAlignedRect();
    return {rc.x(), rc.y(), rc.x() + rc.width(), rc.y() + rc.height()};
}

void QtDesktop::Attach(HWND hWnd, QtWindow& window)
{
    m_Windows[hWnd] = &window;
    window.setCursor(m_Cursor);
}

void QtDesktop::Detach(HWND hWnd) { m_Windows.erase(hWnd); }

void QtDesktop::Present(HWND hWnd, const SurfaceView& picture, std::span<const RECT> vDamage)
{
    if (const auto it = m_Windows.find(hWnd); it != m_Windows.end())
        it->second->Present(picture, vDamage);
}

void QtDesktop::ShowPresented()
{
    for (const auto& [hWnd, pWindow] : m_Windows)
        pWindow->ShowNow();
}

void QtDesktop::WaitForRefresh(int iMs) { QThread::msleep(static_cast<unsigned long>(iMs)); }

void QtDesktop::WindowChanged(HWND hWnd)
{
    if (!::IsWindow(hWnd))
        Detach(hWnd);
}

void QtDesktop::CursorChanged(HCURSOR hCursor)
{
    // There is one cursor for all windows, so all of them show it: it is not told again when the pointer changes
    // windows.
    m_Cursor = CursorShape(hCursor, m_dScale);
    for (const auto& [hWnd, pWindow] : m_Windows)
        pWindow->setCursor(m_Cursor);
}

std::optional<POINT> QtDesktop::PointerPosition()
{
    const auto state = m_Pointer.Query();
    return state ? std::optional(state->ptScreen) : std::nullopt;
}

std::optional<bool> QtDesktop::IsLeftButtonDown()
{
    const auto state = m_Pointer.Query();
    return state ? std::optional(state->bLeftDown) : std::nullopt;
}

void QtDesktop::Wake()
{
    if (!m_bWakePosted.exchange(true))
        QCoreApplication::postEvent(this, new QEvent(WakeEventType()));
}

bool QtDesktop::event(QEvent* pEvent)
{
    if (pEvent->type() != WakeEventType())
        return QObject::event(pEvent);
    m_bWakePosted = false;
    // A loop that waits fetches its messages itself, unless Qt runs a further loop inside it.
    if (m_pWaiting && QThread::currentThread()->loopLevel() == m_iWaitingLevel)
        m_pWaiting->quit();
    else
        DispatchOne();
    return true;
}

void QtDesktop::DispatchOne()
{
    MSG msg;
    const bool bPending = ::PeekMessage(&msg, nullptr, 0, 0, PM_NOREMOVE);
    // The next wake-up is posted first: should this message open a dialog, the dialog's loop goes on with the others.
    if (bPending)
        Wake();
    PumpOneMessage();
    if (bPending)
        return;
    PresentDamage();
    WaitForTimer();
}

void QtDesktop::WaitForTimer()
{
    const int iMs = MsToNextTimer();
    if (iMs < 0)
        m_Timer.stop();
    else
        m_Timer.start(iMs);
}

bool QtDesktop::WaitForInput(int iTimeoutMs)
{
    QEventLoop loop;
    QTimer timer;
    timer.setSingleShot(true);
    QObject::connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit);
    if (iTimeoutMs >= 0)
        timer.start(iTimeoutMs);
    QEventLoop* const pOuter = std::exchange(m_pWaiting, &loop);
    const int iOuterLevel = std::exchange(m_iWaitingLevel, QThread::currentThread()->loopLevel() + 1);
    const int iResult = loop.exec();
    m_pWaiting = pOuter;
    m_iWaitingLevel = iOuterLevel;
    return iResult == 0; // Otherwise the program is being quit.
}

void QtDesktop::PaintNow()
{
    // A window that never validates would be painted for ever.
    constexpr int MAX_PAINTS = 100;
    MSG msg;
    for (int i = 0; i < MAX_PAINTS && ::PeekMessage(&msg, nullptr, 0, 0, PM_REMOVE | PM_QS_PAINT); ++i)
        ::DispatchMessage(&msg);
    PresentDamage();
}

} // namespace winlite
