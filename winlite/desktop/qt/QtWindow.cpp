#include "qtdesktop/QtWindow.h"

#include "qtdesktop/QtDesktop.h"
#include "user/Window.h"

#include <algorithm>
#include <cmath>
#include <QPainter>
#include <QPaintEvent>
#include <QScopedValueRollback>
#include <QWindow>
#include <utility>

namespace winlite
{

namespace
{

QtDesktop& TheQtDesktop() { return static_cast<QtDesktop&>(TheDesktop()); }

} // namespace

QtWindow::QtWindow(HWND hWnd, QWidget* pParent) : QWidget(pParent), m_hWnd(hWnd)
{
    setMouseTracking(true);
    // Like a click, a wheel turn brings the keys along: winlite's wheel messages go to the window that has them.
    setFocusPolicy(Qt::WheelFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    TheQtDesktop().Attach(hWnd, *this);
}

QtWindow::~QtWindow()
{
    if (HasDesktop())
        TheQtDesktop().Detach(m_hWnd);
}

// ---- the picture

void QtWindow::Present(const SurfaceView& picture, std::span<const RECT> vDamage)
{
    if (m_Picture.width() != picture.cx || m_Picture.height() != picture.cy)
    {
        m_Picture = QImage(picture.cx, picture.cy, QImage::Format_RGB32);
        CopyPixels(picture, {0, 0, picture.cx, picture.cy});
        m_rgnPresented = rect();
        update();
        return;
    }
    for (const RECT& rc : vDamage)
    {
        CopyPixels(picture, rc);
        m_rgnPresented += WidgetRectOf(rc);
        update(WidgetRectOf(rc));
    }
}

void QtWindow::SetColours(Colours convert)
{
    m_Convert = std::move(convert);
    if (m_Picture.isNull())
        return;
    const Picture picture = WindowPicture(m_hWnd);
    m_Picture = {}; // So that all of it is taken over.
    if (picture.cx > 0 && picture.cy > 0)
        Present({picture.vPixels.data(), picture.cx, picture.cy, picture.cx}, {});
}

void QtWindow::ShowNow()
{
    const QRegion rgn = std::exchange(m_rgnPresented, QRegion());
    if (!rgn.isEmpty() && isVisible() && !m_bPainting)
        repaint(rgn);
}

void QtWindow::CopyPixels(const SurfaceView& picture, const RECT& rc)
{
    if (m_Convert && rc.left < rc.right && rc.top < rc.bottom)
    {
        m_Convert(picture.pPixels + rc.top * picture.nStride + rc.left,
                  static_cast<std::ptrdiff_t>(picture.nStride) * std::ptrdiff_t{sizeof(std::uint32_t)},
                  reinterpret_cast<std::uint32_t*>(m_Picture.scanLine(rc.top)) + rc.left, m_Picture.bytesPerLine(),
                  rc.right - rc.left, rc.bottom - rc.top);
        return;
    }
    constexpr std::uint32_t OPAQUE_ALPHA = 0xFF000000;
    for (LONG y = rc.top; y < rc.bottom; ++y)
    {
        const std::uint32_t* pRow = picture.pPixels + y * picture.nStride;
        auto* pCopy = reinterpret_cast<std::uint32_t*>(m_Picture.scanLine(y));
        std::transform(pRow + rc.left, pRow + rc.right, pCopy + rc.left,
                       [](std::uint32_t uPixel) { return uPixel | OPAQUE_ALPHA; });
    }
}

void QtWindow::paintEvent(QPaintEvent* pEvent)
{
    const QScopedValueRollback<bool> painting(m_bPainting, true);
    m_rgnPresented -= pEvent->region();
    QPainter painter(this);
    // Where edges fall between device pixels, Qt may count one more than the picture has.
    if (m_Picture.isNull() || std::floor(devicePixelRatioF()) != devicePixelRatioF())
        painter.fillRect(pEvent->rect(), palette().window());
    // In device pixels, from a whole one on: so the picture is copied, not scaled.
    const QTransform toDevice = painter.deviceTransform();
    const QTransform wanted = QTransform::fromTranslate(std::round(toDevice.dx()), std::round(toDevice.dy()));
    painter.setWorldTransform(wanted * toDevice.inverted());
    painter.drawImage(QPoint(), m_Picture);
}

QRect QtWindow::WidgetRectOf(const RECT& rcDevice) const
{
    // One pixel more where the widget does not begin on a whole one.
    const double dRatio = devicePixelRatioF();
    const int iMargin = std::floor(dRatio) == dRatio ? 0 : 1;
    const QPoint ptTopLeft(static_cast<int>(std::floor(rcDevice.left / dRatio)) - iMargin,
                           static_cast<int>(std::floor(rcDevice.top / dRatio)) - iMargin);
    const QPoint ptEnd(static_cast<int>(std::ceil(rcDevice.right / dRatio)) + iMargin,
                       static_cast<int>(std::ceil(rcDevice.bottom / dRatio)) + iMargin);
    return {ptTopLeft, ptEnd - QPoint(1, 1)};
}

// ---- place and visibility

QPoint QtWindow::OffsetInTopLevel() const
{
    return (QPointF(mapTo(window(), QPoint())) * devicePixelRatioF()).toPoint();
}

QPoint QtWindow::PixelAt(QPointF ptWidget) const
{
    const QPointF ptDevice = mapTo(window(), ptWidget) * devicePixelRatioF();
    return QPoint(static_cast<int>(std::floor(ptDevice.x())), static_cast<int>(std::floor(ptDevice.y()))) -
           OffsetInTopLevel();
}

void QtWindow::FollowPlace()
{
    const double dRatio = devicePixelRatioF();
    const QPoint ptOffset = OffsetInTopLevel();
    const QPoint ptOrigin = (QPointF(window()->mapToGlobal(QPoint())) * dRatio).toPoint() + ptOffset;
    // Both edges are rounded, not the size: so many device pixels Qt lets the widget paint.
    const QPoint ptEnd = (QPointF(mapTo(window(), QPoint(width(), height()))) * dRatio).toPoint();
    const QSize szDevice(ptEnd.x() - ptOffset.x(), ptEnd.y() - ptOffset.y());
    RECT rcNow = {};
    if (!::GetWindowRect(m_hWnd, &rcNow))
        return;
    const bool bResized = rcNow.right - rcNow.left != szDevice.width() || rcNow.bottom - rcNow.top != szDevice.height();
    if (!bResized && rcNow.left == ptOrigin.x() && rcNow.top == ptOrigin.y())
        return;
    PlaceTopLevel(m_hWnd,
                  {ptOrigin.x(), ptOrigin.y(), ptOrigin.x() + szDevice.width(), ptOrigin.y() + szDevice.height()});
    // Qt paints a new size at once; the picture must have it then.
    if (bResized)
        TheQtDesktop().PaintNow();
}

void QtWindow::FollowVisibility()
{
    const bool bMinimised = window()->isMinimized();
    if (bMinimised != static_cast<bool>(::IsIconic(m_hWnd)))
        ShowTopLevel(m_hWnd, bMinimised ? SW_MINIMIZE : SW_RESTORE);
    if (isVisible() != static_cast<bool>(::IsWindowVisible(m_hWnd)))
        ShowTopLevel(m_hWnd, isVisible() ? SW_SHOW : SW_HIDE);
    if (isVisible() && !bMinimised)
        TheQtDesktop().PaintNow();
}

void QtWindow::WatchTopLevel()
{
    if (m_pTopLevel == window())
        return;
    if (m_pTopLevel)
        m_pTopLevel->removeEventFilter(this);
    m_pTopLevel = window();
    m_pTopLevel->installEventFilter(this);
    // Another screen may have another scale.
    if (const QWindow* pHandle = m_pTopLevel->windowHandle())
        QObject::connect(pHandle, &QWindow::screenChanged, this, [this] { FollowPlace(); });
}

bool QtWindow::eventFilter(QObject* pObject, QEvent* pEvent)
{
    if (pObject == m_pTopLevel)
        FollowTopLevel(*pEvent);
    return QWidget::eventFilter(pObject, pEvent);
}

void QtWindow::FollowTopLevel(const QEvent& event)
{
    switch (event.type())
    {
    case QEvent::Move:
        FollowPlace();
        break;
    case QEvent::WindowStateChange:
        FollowVisibility();
        break;
    case QEvent::WindowDeactivate:
    case QEvent::WindowBlocked:
        LoseMouse();
        break;
    default:
        break;
    }
}

void QtWindow::resizeEvent(QResizeEvent*) { FollowPlace(); }

void QtWindow::moveEvent(QMoveEvent*) { FollowPlace(); }

void QtWindow::showEvent(QShowEvent*)
{
    WatchTopLevel();
    FollowPlace();
    FollowVisibility();
}

void QtWindow::hideEvent(QHideEvent*) { FollowVisibility(); }

void QtWindow::changeEvent(QEvent* pEvent)
{
    if (pEvent->type() == QEvent::EnabledChange)
        EnableTopLevel(m_hWnd, isEnabled());
    QWidget::changeEvent(pEvent);
}

} // namespace winlite
