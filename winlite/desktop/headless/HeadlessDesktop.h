#pragma once

#include "base/Desktop.h"

#include <atomic>
#include <chrono>
#include <map>
#include <vector>

namespace winlite
{

/// A desktop without a screen, for tests and servers: pictures are kept in memory, and the clock stands still until the
/// program moves it. Made before the first window and destroyed after the last; it is the program's desktop meanwhile.
class HeadlessDesktop : public Desktop
{
public:
    explicit HeadlessDesktop(SIZE szScreen = {1920, 1080}, double dScale = 1.0);
    ~HeadlessDesktop() override;

    std::uint64_t TickCount() override;
    double Scale() override;
    SIZE ScreenSize() override;
    void Present(HWND hWnd, const SurfaceView& picture, std::span<const RECT> vDamage) override;
    void WindowChanged(HWND hWnd) override;
    void WaitForRefresh(int iMs) override { Advance(iMs); }

    void Wake() override;

    /// Counts the workers' questions; the answer is always that of the last event.
    std::optional<POINT> PointerPosition() override;

    /// Waits until workers have asked for the pointer nTimes more; false when none can run any more before.
    bool WaitUntilWorkersAskedForPointer(int nTimes);

    /// Waits until something wakes the program, in real time; false when no worker can run any more that would, or the
    /// time is over.
    bool WaitForWake(std::chrono::milliseconds limit);

    /// Moves the clock to the next timer, or says that nothing can happen when there is none. While a worker can run it
    /// waits first, as long in real time, until something wakes the program.
    bool WaitForInput(int iTimeoutMs) override;

    /// Moves the clock on without dispatching anything.
    void Advance(int iMs);

    /// Dispatches all pending messages through the class library's or a plain loop, paints included, and presents.
    void DispatchPending();

    /// How often a window was presented, for tests of the presenting rules.
    int PresentCount(HWND hWnd) const;

private:
    SIZE m_szScreen;
    double m_dScale;
    std::atomic<std::uint64_t> m_uNow = 0;
    std::atomic<bool> m_bWoken = false;
    std::atomic<int> m_nPointerAsked = 0;
    std::map<HWND, int> m_PresentCounts;
};

} // namespace winlite
