#pragma once

#include "host/ViewZoom.h"

#include <functional>
#include <memory>
#include <optional>
#include <QPoint>
#include <QWidget>

class CViewHost;

namespace winlite
{
class QtWindow;
}

/// A widget that shows a Pixtane view: what a Qt program needs to embed one. It owns the view and the view's parent
/// window, turns the view's notifications into signals, zooms about a point and gathers wheel steps. Positions in
/// signals and operations are window coordinates of the view in device pixels unless a name says bitmap. GUI thread
/// only.
///
/// A program makes a CPixtaneQt object (qt/PixtaneQt.h) right after its QApplication, then any number of widgets. A
/// tool that is still loaded when the widget is destroyed is unloaded then and must live until there. Signals come from
/// inside the view's notifications, so none may delete the widget.
class CPixtaneWidget : public QWidget
{
    Q_OBJECT

public:
    /// Throws std::runtime_error when the view cannot be made.
    explicit CPixtaneWidget(QWidget* pParent = nullptr);
    ~CPixtaneWidget() override;

    /// The view, for everything it offers.
    Pixtane::CPixtane& View();

    /// Zooming about a point, by steps and to fit.
    CViewZoom& Zoom();

    /// The view's parent window.
    CViewHost& Host() { return *m_pHost; }

    /// Says for which keys (virtual codes) the view goes before the program's shortcuts: those that the loaded tool
    /// uses. At first it does so for none.
    void SetToolKeys(std::function<bool(UINT uKey)> uses);

    /// Converts rows of pixels (0xAARRGGBB; strides in bytes) on their way to the screen, to opaque ones. What the view
    /// draws and reads back stays as it is. None at first.
    using Colours = std::function<void(const std::uint32_t* pFrom, std::ptrdiff_t nFromStride, std::uint32_t* pTo,
                                       std::ptrdiff_t nToStride, int cx, int cy)>;
    void SetColours(Colours convert);

    /// Leaves a frame of that many pixels of Qt around the view, which shows whether it has the focus. None at first.
    void SetFocusFrame(int cxFrame);

signals:
    /// Any notification of the view, by its code (view/Notifications.h).
    void Notified(unsigned int uCode);

    /// The mouse moved; window coordinates.
    void MouseMoved(QPoint ptWindow);

    /// Zoom, position or size of the picture changed.
    void DisplayChanged();

    /// An effect stroke is about to start; setting *pbVeto cancels it.
    void EffectStrokeBegins(bool* pbVeto);

    /// Files were dropped on the widget.
    void FilesDropped(const QStringList& vPaths);

protected:
    bool event(QEvent* pEvent) override;
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;
    void resizeEvent(QResizeEvent* pEvent) override;
    void paintEvent(QPaintEvent* pEvent) override;

    /// Gets what the view does not take: horizontal turns, which move the picture.
    void wheelEvent(QWheelEvent* pEvent) override;
    void dragEnterEvent(QDragEnterEvent* pEvent) override;
    void dropEvent(QDropEvent* pEvent) override;

private:
    LRESULT OnNotified(UINT uCode, CPoint ptWindow);
    void PlaceWindow();

    /// Shift and the wheel, the middle button and the keys of pages scroll; FALSE for other input.
    bool ScrollByInput(QEvent& event);
    bool TurnSideways(QWheelEvent& wheel);
    void ScrollSideways(int iPixels, int iAngle);
    bool ScrollByKey(const QKeyEvent& key);
    bool Pan(const QMouseEvent& mouse);
    void EndPan();

    std::unique_ptr<CViewHost> m_pHost;
    std::shared_ptr<const void> m_pSubscription;
    winlite::QtWindow* m_pWindow;
    int m_cxFrame = 0;
    std::optional<QPoint> m_ptPanned; ///< The pixel that the middle button has drawn the picture to so far.
};
