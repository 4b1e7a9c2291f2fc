#include "host/ViewHost.h"
#include "qt/PixtaneWidget.h"
#include "qtdesktop/QtWindow.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

// What scrolls beside the view's own wheel and keys.

bool CPixtaneWidget::ScrollByInput(QEvent& event)
{
    switch (event.type())
    {
    case QEvent::Wheel:
        return TurnSideways(static_cast<QWheelEvent&>(event));
    case QEvent::KeyPress:
        return ScrollByKey(static_cast<QKeyEvent&>(event));
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        return Pan(static_cast<QMouseEvent&>(event));
    default:
        return false;
    }
}

bool CPixtaneWidget::TurnSideways(QWheelEvent& wheel)
{
    if (wheel.modifiers() != Qt::ShiftModifier || wheel.angleDelta().y() == 0)
        return false;
    ScrollSideways(wheel.pixelDelta().y(), wheel.angleDelta().y());
    return true;
}

void CPixtaneWidget::ScrollSideways(int iPixels, int iAngle)
{
    // Without pixels, one notch moves the picture by a tenth of the view, as a vertical one does.
    CRect rcView;
    View().GetClientRect(&rcView);
    const double dDistance =
        iPixels != 0 ? iPixels * devicePixelRatioF() : iAngle * rcView.Width() / 10.0 / WHEEL_DELTA;
    if (dDistance != 0)
        m_pHost->ScrollByGesture(-qRound(dDistance), 0);
}

bool CPixtaneWidget::ScrollByKey(const QKeyEvent& key)
{
    CRect rcView;
    View().GetClientRect(&rcView);
    const int cyWhole = static_cast<int>(View().ZoomedSize().Height);
    switch (key.modifiers() & ~Qt::KeypadModifier ? 0 : key.key())
    {
    case Qt::Key_PageUp:
        m_pHost->ScrollByGesture(0, -rcView.Height());
        return true;
    case Qt::Key_PageDown:
        m_pHost->ScrollByGesture(0, rcView.Height());
        return true;
    case Qt::Key_Home:
        m_pHost->ScrollByGesture(0, -cyWhole);
        return true;
    case Qt::Key_End:
        m_pHost->ScrollByGesture(0, cyWhole);
        return true;
    default:
        return false;
    }
}

bool CPixtaneWidget::Pan(const QMouseEvent& mouse)
{
    const QPoint ptPixel = m_pWindow->PixelAt(mouse.position());
    if (mouse.type() != QEvent::MouseMove && mouse.button() != Qt::MiddleButton)
        return false;
    if (mouse.type() == QEvent::MouseMove || mouse.type() == QEvent::MouseButtonRelease)
    {
        if (!m_ptPanned)
            return false;
        const QPoint ptFrom = *m_ptPanned;
        m_ptPanned = ptPixel;
        if (ptPixel != ptFrom)
            m_pHost->ScrollByGesture(ptFrom.x() - ptPixel.x(), ptFrom.y() - ptPixel.y());
        if (!(mouse.buttons() & Qt::MiddleButton))
            EndPan();
        return true;
    }
    if (mouse.buttons() != Qt::MiddleButton)
        return false; // In the middle of something else.
    m_ptPanned = ptPixel;
    m_pWindow->setCursor(Qt::ClosedHandCursor);
    return true;
}

void CPixtaneWidget::EndPan()
{
    m_ptPanned.reset();
    m_pHost->ShowCursor();
}
