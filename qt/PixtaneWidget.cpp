#include "qt/PixtaneWidget.h"

#include "host/ViewHost.h"
#include "qtdesktop/QtWindow.h"
#include "view/Notifications.h"

#include <QDragEnterEvent>
#include <QMimeData>
#include <QNativeGestureEvent>
#include <QPainter>
#include <QUrl>
#include <QWheelEvent>

namespace
{

QStringList LocalFiles(const QMimeData& data)
{
    QStringList vPaths;
    for (const QUrl& url : data.urls())
    {
        if (url.isLocalFile())
            vPaths += url.toLocalFile();
    }
    return vPaths;
}

} // namespace

CPixtaneWidget::CPixtaneWidget(QWidget* pParent)
    : QWidget(pParent), m_pHost(std::make_unique<CViewHost>()), m_pWindow(new winlite::QtWindow(m_pHost->m_hWnd, this))
{
    m_pSubscription = m_pHost->Listen([this](UINT uCode, CPoint ptWindow) { return OnNotified(uCode, ptWindow); });
    setAcceptDrops(true);
    setFocusProxy(m_pWindow);
    m_pWindow->installEventFilter(this);
}

CPixtaneWidget::~CPixtaneWidget()
{
    View().UnloadEmbeddedTool();
    delete m_pWindow; // Before the window that it shows.
}

Pixtane::CPixtane& CPixtaneWidget::View() { return m_pHost->View(); }

CViewZoom& CPixtaneWidget::Zoom() { return m_pHost->Zoom(); }

LRESULT CPixtaneWidget::OnNotified(UINT uCode, CPoint ptWindow)
{
    bool bVeto = false;
    if (uCode == Pixtane::PVN_MOUSEMOVE)
        emit MouseMoved(QPoint(ptWindow.x, ptWindow.y));
    else if (uCode == Pixtane::PVN_DISPLAYCHANGED)
        emit DisplayChanged();
    else if (uCode == Pixtane::PVN_EFFECTBRUSH_BEGIN)
        emit EffectStrokeBegins(&bVeto);
    emit Notified(uCode);
    return bVeto;
}

void CPixtaneWidget::SetToolKeys(std::function<bool(UINT uKey)> uses)
{
    m_pWindow->SetKeyClaim([uses = std::move(uses)](const winlite::KeyEvent& key) { return uses && uses(key.uKey); });
}

void CPixtaneWidget::SetColours(Colours convert) { m_pWindow->SetColours(std::move(convert)); }

// ---- events

bool CPixtaneWidget::event(QEvent* pEvent)
{
    if (pEvent->type() != QEvent::NativeGesture)
        return QWidget::event(pEvent);
    const auto& gesture = static_cast<const QNativeGestureEvent&>(*pEvent);
    if (gesture.gestureType() != Qt::ZoomNativeGesture)
        return QWidget::event(pEvent);
    const QPoint ptPixel = m_pWindow->PixelAt(m_pWindow->mapFrom(this, gesture.position()));
    m_pHost->ZoomByGesture(View().dbZoom() * (1 + gesture.value()), ExactPoint::MiddleOf(ptPixel.x(), ptPixel.y()));
    return true;
}

bool CPixtaneWidget::eventFilter(QObject* pWatched, QEvent* pEvent)
{
    if (pWatched == m_pWindow && pEvent->type() == QEvent::Leave)
        m_pHost->PointerLeft();
    if (pWatched == m_pWindow && (pEvent->type() == QEvent::FocusIn || pEvent->type() == QEvent::FocusOut))
        update();
    return (pWatched == m_pWindow && ScrollByInput(*pEvent)) || QWidget::eventFilter(pWatched, pEvent);
}

void CPixtaneWidget::resizeEvent(QResizeEvent*) { PlaceWindow(); }

void CPixtaneWidget::PlaceWindow()
{
    m_pWindow->setGeometry(rect().marginsRemoved({m_cxFrame, m_cxFrame, m_cxFrame, m_cxFrame}));
}

void CPixtaneWidget::SetFocusFrame(int cxFrame)
{
    m_cxFrame = cxFrame;
    PlaceWindow();
}

void CPixtaneWidget::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), palette().color(m_pWindow->hasFocus() ? QPalette::Highlight : QPalette::Window));
}

void CPixtaneWidget::wheelEvent(QWheelEvent* pEvent)
{
    ScrollSideways(pEvent->pixelDelta().x(), pEvent->angleDelta().x());
}

void CPixtaneWidget::dragEnterEvent(QDragEnterEvent* pEvent)
{
    if (!LocalFiles(*pEvent->mimeData()).isEmpty())
        pEvent->acceptProposedAction();
}

void CPixtaneWidget::dropEvent(QDropEvent* pEvent)
{
    pEvent->acceptProposedAction();
    emit FilesDropped(LocalFiles(*pEvent->mimeData()));
}
