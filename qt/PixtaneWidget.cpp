#include "qt/PixtaneWidget.h"

#include "qt/ViewHost.h"
#include "qt/ZoomLadder.h"
#include "qtdesktop/QtWindow.h"
#include "view/Notifications.h"

#include <algorithm>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QNativeGestureEvent>
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

/// The middle of a device pixel: what is under the pointer is under its middle.
QPointF MiddleOf(CPoint ptPixel) { return {ptPixel.x + 0.5, ptPixel.y + 0.5}; }

} // namespace

CPixtaneWidget::CPixtaneWidget(QWidget* pParent)
    : QWidget(pParent),
      m_pHost(std::make_unique<CViewHost>(CViewHost::Reports{[this](UINT uCode) { return OnNotified(uCode); },
                                                             [this](int nSteps, CPoint ptWindow)
                                                             { StepZoom(nSteps, MiddleOf(ptWindow)); }})),
      m_pWindow(new winlite::QtWindow(m_pHost->m_hWnd, this)), m_Anchor(m_pHost->View())
{
    setAcceptDrops(true);
    setFocusProxy(m_pWindow);
}

CPixtaneWidget::~CPixtaneWidget()
{
    View().UnloadEmbeddedTool();
    delete m_pWindow; // Before the window that it shows.
}

Pixtane::CPixtane& CPixtaneWidget::View() { return m_pHost->View(); }

LRESULT CPixtaneWidget::OnNotified(UINT uCode)
{
    bool bVeto = false;
    if (uCode == Pixtane::PVN_MOUSEMOVE)
    {
        const CPoint ptWindow = View().GetCursorPos(FALSE);
        emit MouseMoved(QPoint(ptWindow.x, ptWindow.y));
    }
    else if (uCode == Pixtane::PVN_DISPLAYCHANGED)
        emit DisplayChanged();
    else if (uCode == Pixtane::PVN_EFFECTBRUSH_BEGIN)
        emit EffectStrokeBegins(&bVeto);
    emit Notified(uCode);
    return bVeto;
}

// ---- zoom

void CPixtaneWidget::ZoomAbout(double dbZoom, QPointF ptWindow)
{
    m_Anchor.ZoomAbout(std::clamp(dbZoom, MIN_ZOOM, MAX_ZOOM), ptWindow);
}

void CPixtaneWidget::StepZoom(int nSteps, QPointF ptWindow)
{
    if (nSteps != 0)
        ZoomAbout(ZoomLadderStep(View().dbZoom(), nSteps), ptWindow);
}

double CPixtaneWidget::FitZoom(bool bEnlarge)
{
    CRect rcWindow;
    m_pHost->GetClientRect(&rcWindow);
    if (!View().pBmpData() || rcWindow.IsRectEmpty())
        return 1;
    const double dbFit = std::min(static_cast<double>(rcWindow.Width()) / View().iBmpWidth(),
                                  static_cast<double>(rcWindow.Height()) / View().iBmpHeight());
    return bEnlarge ? dbFit : std::min(dbFit, 1.0);
}

void CPixtaneWidget::ZoomToFit() { View().SetZoom(FitZoom()); }

QPointF CPixtaneWidget::ViewCentre()
{
    CRect rcView;
    View().GetClientRect(&rcView);
    return {rcView.Width() / 2.0, rcView.Height() / 2.0};
}

void CPixtaneWidget::SetToolKeys(std::function<bool(UINT uKey)> uses)
{
    m_pWindow->SetKeyClaim([uses = std::move(uses)](const winlite::KeyEvent& key) { return uses && uses(key.uKey); });
}

// ---- events

bool CPixtaneWidget::event(QEvent* pEvent)
{
    if (pEvent->type() != QEvent::NativeGesture)
        return QWidget::event(pEvent);
    const auto& gesture = static_cast<const QNativeGestureEvent&>(*pEvent);
    if (gesture.gestureType() != Qt::ZoomNativeGesture)
        return QWidget::event(pEvent);
    const QPoint ptPixel = m_pWindow->PixelAt(gesture.position());
    ZoomAbout(View().dbZoom() * (1 + gesture.value()), MiddleOf(CPoint(ptPixel.x(), ptPixel.y())));
    return true;
}

void CPixtaneWidget::resizeEvent(QResizeEvent*) { m_pWindow->resize(size()); }

void CPixtaneWidget::wheelEvent(QWheelEvent* pEvent)
{
    // Without pixels, one notch moves the picture by a tenth of the view, as a vertical one does.
    CRect rcView;
    View().GetClientRect(&rcView);
    const bool bPixels = pEvent->pixelDelta().x() != 0;
    const double dDistance = bPixels ? pEvent->pixelDelta().x() * devicePixelRatioF()
                                     : pEvent->angleDelta().x() * rcView.Width() / 10.0 / WHEEL_DELTA;
    if (dDistance != 0)
        View().MoveImage(-qRound(dDistance), 0);
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
