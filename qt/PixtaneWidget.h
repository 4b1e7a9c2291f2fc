#pragma once

#include "qt/ZoomAnchor.h"

#include <functional>
#include <memory>
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

    /// Sets the zoom so that the bitmap position under a window point stays there. Limited to 5 % and 3200 %.
    void ZoomAbout(double dbZoom, QPointF ptWindow);

    /// The next step of the zoom ladder up or down (which always hits 100 %), about a window point.
    void StepZoom(int nSteps, QPointF ptWindow);

    /// The largest zoom at which the whole bitmap is visible, 100 % at most unless bEnlarge.
    double FitZoom(bool bEnlarge = false);
    void ZoomToFit();

    /// The middle of the view area.
    QPointF ViewCentre();

    /// Says for which keys (virtual codes) the view goes before the program's shortcuts: those that the loaded tool
    /// uses. At first it does so for none.
    void SetToolKeys(std::function<bool(UINT uKey)> uses);

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
    void resizeEvent(QResizeEvent* pEvent) override;

    /// Gets what the view does not take: horizontal turns, which move the picture.
    void wheelEvent(QWheelEvent* pEvent) override;
    void dragEnterEvent(QDragEnterEvent* pEvent) override;
    void dropEvent(QDropEvent* pEvent) override;

private:
    LRESULT OnNotified(UINT uCode);

    std::unique_ptr<CViewHost> m_pHost;
    winlite::QtWindow* m_pWindow;
    CZoomAnchor m_Anchor;
};
