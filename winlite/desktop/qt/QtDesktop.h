#pragma once

#include "base/Desktop.h"
#include "qtdesktop/LivePointer.h"

#include <atomic>
#include <chrono>
#include <map>
#include <QCursor>
#include <QObject>
#include <QTimer>

class QEventLoop;

namespace winlite
{

class QtWindow;

/// The screen of a Qt program. Made after its QApplication and destroyed before it, but after the last QtWindow. Qt
/// runs the event loop: each wake-up dispatches one message, so that winlite lives on in Qt's modal dialogs, too.
class QtDesktop : public QObject, public Desktop
{
public:
    QtDesktop();
    ~QtDesktop() override;

    std::uint64_t TickCount() override;
    double Scale() override;
    SIZE ScreenSize() override;
    RECT VirtualScreen() override;
    void Present(HWND hWnd, const SurfaceView& picture, std::span<const RECT> vDamage) override;
    void ShowPresented() override;
    void WindowChanged(HWND hWnd) override;
    void WaitForRefresh(int iMs) override;
    void CursorChanged(HCURSOR hCursor) override;

    /// Live on X11.
    std::optional<POINT> PointerPosition() override;
    std::optional<bool> IsLeftButtonDown() override;
    void Wake() override;

    /// Runs Qt's events meanwhile.
    bool WaitForInput(int iTimeoutMs) override;

    /// Lets a widget show a top-level window from now on, or no more.
    void Attach(HWND hWnd, QtWindow& window);
    void Detach(HWND hWnd);

    /// Dispatches the pending paint messages and presents what they drew, ahead of all input.
    void PaintNow();

protected:
    bool event(QEvent* pEvent) override;

private:
    void DispatchOne();
    void WaitForTimer();

    const std::chrono::steady_clock::time_point m_Start = std::chrono::steady_clock::now();
    double m_dScale;
    LivePointer m_Pointer;
    QTimer m_Timer;
    std::atomic<bool> m_bWakePosted = false;
    QEventLoop* m_pWaiting = nullptr;
    int m_iWaitingLevel = 0;
    std::map<HWND, QtWindow*> m_Windows;
    QCursor m_Cursor = Qt::ArrowCursor;
};

} // namespace winlite
