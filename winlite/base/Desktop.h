#pragma once

#include "base/Types.h"

#include <optional>
#include <span>

namespace winlite
{

/// A finished picture of a top-level window's client area: 32-bit pixels 0xAARRGGBB (AA without meaning), top row
/// first, nStride pixels from row to row.
struct SurfaceView
{
    const std::uint32_t* pPixels;
    int cx;
    int cy;
    std::ptrdiff_t nStride;
};

/// What a backend gives winlite: a screen to present on, a clock and a way to wake the program. Positions are device
/// pixels of the screen. Every call comes on the user-interface thread and without winlite's lock held, except those
/// marked "any thread".
class Desktop
{
public:
    virtual ~Desktop() = default;

    // ---- must provide

    /// Milliseconds since some start, never running backwards: timers, tick counts and double clicks live by it. Any
    /// thread.
    virtual std::uint64_t TickCount() = 0;

    /// Scale of the screen: 1 for 96 dpi. Read once when the program starts.
    virtual double Scale() = 0;

    /// Size of the screen in device pixels.
    virtual SIZE ScreenSize() = 0;

    /// Shows the damaged rectangles (client coordinates of the top-level window) of a window's picture. The view is
    /// valid only during the call.
    virtual void Present(HWND hWnd, const SurfaceView& picture, std::span<const RECT> vDamage) = 0;

    // ---- may provide

    /// The box around all screens; the one above, which begins at (0, 0), when there are no more.
    virtual RECT VirtualScreen();

    /// A top-level window was created, shown or hidden, moved or resized, minimised or restored, renamed, or destroyed.
    virtual void WindowChanged(HWND) {}

    /// What was presented must come to the screen now: the program is in a handler that may take long.
    virtual void ShowPresented() {}

    /// Lets the time pass until the screen can show another picture: the program follows the pointer in one handler,
    /// and a person must be able to follow, too.
    virtual void WaitForRefresh(int) {}

    /// The program chose another cursor; NULL hides it.
    virtual void CursorChanged(HCURSOR) {}

    /// Where the pointer is now, in screen coordinates; nothing when the last event is all that is known. Any thread.
    virtual std::optional<POINT> PointerPosition() { return std::nullopt; }

    /// Whether the left button is down now; nothing when the last event is all that is known. Any thread.
    virtual std::optional<bool> IsLeftButtonDown() { return std::nullopt; }

    /// Something was put into the message queue, or a timer set: the program should fetch messages soon. Any thread.
    virtual void Wake() {}

    /// Waits until something may have happened, at most iTimeoutMs of the desktop's clock; -1 means without limit.
    /// FALSE when nothing can happen any more, which ends a message loop that would wait for ever.
    virtual bool WaitForInput(int iTimeoutMs) = 0;
};

/// Makes the desktop the program's screen; it stays the caller's and outlives every window. NULL takes it away.
void SetDesktop(Desktop* pDesktop);

/// The program's desktop. Asserts that there is one.
Desktop& TheDesktop();
bool HasDesktop();

/// How many desktops the program has had: what is remembered of one holds for that one only.
int DesktopCount();

} // namespace winlite
