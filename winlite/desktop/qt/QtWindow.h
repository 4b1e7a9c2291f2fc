#pragma once

#include "base/Desktop.h"
#include "qtdesktop/WheelSteps.h"
#include "user/Input.h"

#include <functional>
#include <map>
#include <QImage>
#include <QPointer>
#include <QRegion>
#include <QWidget>

namespace winlite
{

/// A widget that shows one top-level window: the window has the widget's size in device pixels, each of its pixels is
/// one of the screen, and it follows the widget's place, visibility and minimising. The widget's input goes to the
/// window. Horizontal wheel turns and keys without a code are left to the parent widget.
class QtWindow : public QWidget
{
public:
    /// The window stays its owner's; when it is destroyed first, the widget keeps the last picture.
    QtWindow(HWND hWnd, QWidget* pParent);
    ~QtWindow() override;

    /// Takes over the damaged parts of the window's picture, and repaints them.
    void Present(const SurfaceView& picture, std::span<const RECT> vDamage);

    /// Paints what was taken over since the last time without waiting for Qt's loop.
    void ShowNow();

    /// Says which keys the window gets even where the program has a shortcut on them. None at first.
    void SetKeyClaim(std::function<bool(const KeyEvent& key)> claims) { m_Claims = std::move(claims); }

    /// Converts rows of the window's pixels (0xAARRGGBB; strides in bytes) on their way to the screen: the window's own
    /// stay as they are. Each comes out opaque. None at first; the window is shown anew.
    using Colours = std::function<void(const std::uint32_t* pFrom, std::ptrdiff_t nFromStride, std::uint32_t* pTo,
                                       std::ptrdiff_t nToStride, int cx, int cy)>;
    void SetColours(Colours convert);

    /// The device pixel of the window's client area under a point of the widget.
    QPoint PixelAt(QPointF ptWidget) const;

    bool eventFilter(QObject* pObject, QEvent* pEvent) override;

protected:
    bool event(QEvent* pEvent) override;
    void paintEvent(QPaintEvent* pEvent) override;
    void resizeEvent(QResizeEvent* pEvent) override;
    void moveEvent(QMoveEvent* pEvent) override;
    void showEvent(QShowEvent* pEvent) override;
    void hideEvent(QHideEvent* pEvent) override;
    void changeEvent(QEvent* pEvent) override;

    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseReleaseEvent(QMouseEvent* pEvent) override;
    void mouseDoubleClickEvent(QMouseEvent* pEvent) override;
    void mouseMoveEvent(QMouseEvent* pEvent) override;
    void wheelEvent(QWheelEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;
    void keyReleaseEvent(QKeyEvent* pEvent) override;
    void focusInEvent(QFocusEvent* pEvent) override;
    void focusOutEvent(QFocusEvent* pEvent) override;

private:
    QPoint OffsetInTopLevel() const;
    QRect WidgetRectOf(const RECT& rcDevice) const;
    void CopyPixels(const SurfaceView& picture, const RECT& rc);

    void FollowPlace();
    void FollowVisibility();
    void WatchTopLevel();
    void FollowTopLevel(const QEvent& event);

    POINT ScreenPoint(QPointF ptWidget) const;
    void PassButton(Qt::MouseButton button, bool bDown, QPointF ptWidget);
    void CatchUpButtons(Qt::MouseButtons buttons, QPointF ptWidget);
    void CatchUpModifiers(Qt::KeyboardModifiers modifiers);
    void PassKey(const KeyEvent& key);
    void LoseMouse();
    void ReleaseKeys();

    HWND m_hWnd;
    QImage m_Picture;
    Colours m_Convert;
    QRegion m_rgnPresented; ///< Of the widget, not yet painted.
    bool m_bPainting = false;
    QPointer<QWidget> m_pTopLevel;
    Qt::MouseButtons m_Buttons;          ///< Those the window believes to be down,
    std::map<UINT, KeyEvent> m_KeysDown; ///< and the keys.
    WheelSteps m_Wheel;
    std::function<bool(const KeyEvent& key)> m_Claims;
};

} // namespace winlite
