#include "qtdesktop/KeyCodes.h"
#include "qtdesktop/QtWindow.h"
#include "user/User.h"

#include <optional>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <utility>

namespace winlite
{

namespace
{

constexpr Qt::MouseButton BUTTONS[] = {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton};

std::optional<MouseButton> ButtonOf(Qt::MouseButton button)
{
    switch (button)
    {
    case Qt::LeftButton:
        return MouseButton::Left;
    case Qt::RightButton:
        return MouseButton::Right;
    case Qt::MiddleButton:
        return MouseButton::Middle;
    default:
        return std::nullopt;
    }
}

bool IsModifier(UINT uKey) { return uKey == VK_SHIFT || uKey == VK_CONTROL || uKey == VK_MENU; }

/// A wheel turn in 120ths of a notch; touchpads that tell pixels only are taken to move one notch in 60 of them.
int VerticalTurn(const QWheelEvent& event)
{
    constexpr int TURN_PER_PIXEL = WHEEL_DELTA / 60;
    return event.angleDelta().isNull() ? event.pixelDelta().y() * TURN_PER_PIXEL : event.angleDelta().y();
}

} // namespace

bool QtWindow::event(QEvent* pEvent)
{
    switch (pEvent->type())
    {
    case QEvent::UngrabMouse:
        LoseMouse();
        break;
    case QEvent::ShortcutOverride:
        if (const auto key = KeyOf(*static_cast<QKeyEvent*>(pEvent), true); key && m_Claims && m_Claims(*key))
        {
            pEvent->accept();
            return true;
        }
        break;
    default:
        break;
    }
    return QWidget::event(pEvent);
}

// ---- the mouse

POINT QtWindow::ScreenPoint(QPointF ptWidget) const
{
    const QPoint ptPixel = PixelAt(ptWidget);
    POINT ptScreen = {ptPixel.x(), ptPixel.y()};
    ::ClientToScreen(m_hWnd, &ptScreen);
    return ptScreen;
}

void QtWindow::PassButton(Qt::MouseButton qtButton, bool bDown, QPointF ptWidget)
{
    const std::optional<MouseButton> button = ButtonOf(qtButton);
    if (!button)
        return;
    m_Buttons.setFlag(qtButton, bDown);
    QueueButton(m_hWnd, *button, bDown, ScreenPoint(ptWidget));
}

/// A button that came up where Qt did not tell this widget of it is told now.
void QtWindow::CatchUpButtons(Qt::MouseButtons buttons, QPointF ptWidget)
{
    for (const Qt::MouseButton button : BUTTONS)
    {
        if (m_Buttons.testFlag(button) && !buttons.testFlag(button))
            PassButton(button, false, ptWidget);
    }
}

void QtWindow::mousePressEvent(QMouseEvent* pEvent)
{
    FollowPlace();
    CatchUpModifiers(pEvent->modifiers());
    PassButton(pEvent->button(), true, pEvent->position());
}

void QtWindow::mouseReleaseEvent(QMouseEvent* pEvent)
{
    CatchUpModifiers(pEvent->modifiers());
    if (m_Buttons.testFlag(pEvent->button()))
        PassButton(pEvent->button(), false, pEvent->position());
}

void QtWindow::mouseDoubleClickEvent(QMouseEvent* pEvent)
{
    mousePressEvent(pEvent); // winlite makes its double clicks itself.
}

void QtWindow::mouseMoveEvent(QMouseEvent* pEvent)
{
    FollowPlace();
    CatchUpModifiers(pEvent->modifiers());
    CatchUpButtons(pEvent->buttons(), pEvent->position());
    QueuePointerMove(m_hWnd, ScreenPoint(pEvent->position()));
}

void QtWindow::wheelEvent(QWheelEvent* pEvent)
{
    CatchUpModifiers(pEvent->modifiers());
    if (const int nNotches = m_Wheel.Add(VerticalTurn(*pEvent)))
        QueueWheel(nNotches * WHEEL_DELTA, ScreenPoint(pEvent->position()));
    pEvent->setAccepted(pEvent->angleDelta().x() == 0 && pEvent->pixelDelta().x() == 0);
}

void QtWindow::LoseMouse()
{
    if (m_Buttons)
        QueueCaptureLost();
}

// ---- keys

void QtWindow::PassKey(const KeyEvent& key)
{
    if (key.bDown)
        m_KeysDown[key.uKey] = key;
    else
        m_KeysDown.erase(key.uKey);
    QueueKey(key);
}

/// A modifier that was pressed or let go while another widget had the keys is told now.
void QtWindow::CatchUpModifiers(Qt::KeyboardModifiers modifiers)
{
    constexpr std::pair<Qt::KeyboardModifier, UINT> MODIFIERS[] = {
        {Qt::ShiftModifier, VK_SHIFT}, {Qt::ControlModifier, VK_CONTROL}, {Qt::AltModifier, VK_MENU}};
    for (const auto& [modifier, uKey] : MODIFIERS)
    {
        const auto itDown = m_KeysDown.find(uKey);
        if (modifiers.testFlag(modifier) && itDown == m_KeysDown.end())
            PassKey({uKey, true});
        else if (!modifiers.testFlag(modifier) && itDown != m_KeysDown.end())
            PassKey({uKey, false, itDown->second.bExtended, itDown->second.uScanCode});
    }
}

void QtWindow::keyPressEvent(QKeyEvent* pEvent)
{
    const std::optional<KeyEvent> key = KeyOf(*pEvent, true);
    pEvent->setAccepted(key.has_value());
    if (!key)
        return;
    if (!IsModifier(key->uKey))
        CatchUpModifiers(pEvent->modifiers());
    PassKey(*key);
}

void QtWindow::keyReleaseEvent(QKeyEvent* pEvent)
{
    const std::optional<KeyEvent> key = KeyOf(*pEvent, false);
    pEvent->setAccepted(key.has_value());
    // A held key repeats its press; the releases between are Qt's invention.
    if (key && !pEvent->isAutoRepeat() && m_KeysDown.contains(key->uKey))
        PassKey(*key);
}

void QtWindow::focusInEvent(QFocusEvent*) { QueueActivation(m_hWnd, true); }

void QtWindow::focusOutEvent(QFocusEvent*)
{
    QueueActivation(m_hWnd, false);
    ReleaseKeys();
}

/// The releases of held keys will go to another widget.
void QtWindow::ReleaseKeys()
{
    for (const auto& [uKey, key] : std::exchange(m_KeysDown, {}))
        QueueKey({uKey, false, key.bExtended, key.uScanCode});
}

} // namespace winlite
