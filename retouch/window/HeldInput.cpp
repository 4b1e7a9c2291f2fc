#include "window/HeldInput.h"

#include "qt/PixtaneWidget.h"

#include <memory>
#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>

namespace
{

bool Scrolls(const QKeyEvent& key)
{
    return (key.modifiers() & Qt::ControlModifier) && key.key() >= Qt::Key_Left && key.key() <= Qt::Key_Down;
}

} // namespace

CHeldInput::CHeldInput(CPixtaneWidget& view, std::function<bool()> isBusy, std::function<bool()> isWorking,
                       std::function<void(std::function<void()>)> whenIdle)
    : m_view(view), m_IsBusy(std::move(isBusy)), m_IsWorking(std::move(isWorking)), m_WhenIdle(std::move(whenIdle))
{
    qApp->installEventFilter(this);
}

bool CHeldInput::IsInPicture(QObject* pWatched, const QMouseEvent& event) const
{
    CRect rcView;
    m_view.View().GetClientRect(&rcView);
    const QPoint ptPixel = (event.position() * static_cast<QWidget*>(pWatched)->devicePixelRatioF()).toPoint();
    return ptPixel.x() < rcView.Width() && ptPixel.y() < rcView.Height();
}

bool CHeldInput::IsToHold(QObject* pWatched, const QEvent& event)
{
    switch (event.type())
    {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        m_bButtonHeld = m_IsBusy() && IsInPicture(pWatched, static_cast<const QMouseEvent&>(event));
        return m_bButtonHeld;
    case QEvent::MouseMove:
        return m_bButtonHeld && m_IsBusy();
    case QEvent::MouseButtonRelease:
        return std::exchange(m_bButtonHeld, false) && m_IsBusy();
    case QEvent::ShortcutOverride:
        // Whether there is such a shortcut may depend on the command that waits.
        return m_IsBusy() && !m_IsWorking();
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return m_IsBusy() && !Scrolls(static_cast<const QKeyEvent&>(event));
    default:
        return false;
    }
}

bool CHeldInput::eventFilter(QObject* pWatched, QEvent* pEvent)
{
    const auto* const pWidget = qobject_cast<QWidget*>(pWatched);
    if (m_bDelivering || !pWidget || !m_view.isAncestorOf(pWidget) || !IsToHold(pWatched, *pEvent))
        return false;
    pEvent->accept();
    if (pEvent->type() == QEvent::ShortcutOverride)
        return true; // Accepted, it comes again as a key.
    const std::shared_ptr<QEvent> pHeld(pEvent->clone());
    m_WhenIdle(
        [this, pThere = QPointer(pWatched), pHeld]
        {
            if (pThere)
                Deliver(*pThere, *pHeld);
        });
    return true;
}

void CHeldInput::Deliver(QObject& target, QEvent& event)
{
    if (event.type() == QEvent::KeyPress)
    {
        const QKeySequence keys(static_cast<const QKeyEvent&>(event).keyCombination());
        for (QAction* const pAction : m_view.window()->findChildren<QAction*>())
        {
            if (pAction->isEnabled() && pAction->isVisible() && pAction->shortcuts().contains(keys))
                return pAction->trigger();
        }
    }
    const bool bOuter = std::exchange(m_bDelivering, true);
    QCoreApplication::sendEvent(&target, &event);
    m_bDelivering = bOuter;
}
