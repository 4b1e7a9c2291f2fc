#pragma once

#include "gdi/DeviceContext.h"
#include "user/User.h"

#include <string>
#include <thread>
#include <vector>

namespace winlite
{

/// A registered window class.
struct WindowClass
{
    std::wstring strName;
    WNDCLASS wndClass;
};

/// What an HWND stands for. Fields are guarded by StateLock; a window belongs to the thread that created it.
class WindowObject : public HandleObject
{
public:
    HWND hWnd = {};
    int iNumber = 0; ///< By order of creation, from 1 on.
    const WindowClass* pClass = nullptr;
    WNDPROC pProc = nullptr;
    DWORD dwStyle = 0;
    LONG_PTR lId = 0;
    std::wstring strTitle;
    std::thread::id thread = std::this_thread::get_id();
    bool bDestroying = false;

    WindowObject* pParent = nullptr;
    std::vector<std::shared_ptr<WindowObject>> vChildren; ///< The topmost first.

    POINT ptPosition = {}; ///< In the parent's client coordinates; of a top-level window in screen coordinates.
    SIZE szClient = {};
    Region rgnUpdate; ///< Client coordinates.
    bool bErase = false;
    bool bFreePaint = false; ///< All of the update region was asked for by workers.

    // Top-level windows only.
    std::shared_ptr<Surface> pSurface;
    Region rgnDamage;     ///< What was drawn and not yet presented.
    HWND hLastFocus = {}; ///< The window in it that had the focus last.

    RECT ClientRect() const { return {0, 0, szClient.cx, szClient.cy}; }
    RECT RectInParent() const;
    bool HasStyle(DWORD dw) const { return (dwStyle & dw) == dw; }

    /// Whether the window and its ancestors have WS_VISIBLE.
    bool IsVisible() const;

    /// Whether it can be drawn: visible, and its top-level window not minimised.
    bool IsDrawable() const;

    WindowObject& TopLevel();
    const WindowObject& TopLevel() const { return const_cast<WindowObject*>(this)->TopLevel(); }

    /// The client origin on the top-level window's surface, and on the screen.
    POINT SurfaceOrigin() const;
    POINT ScreenOrigin() const;

    /// What the window's drawing may reach, in surface coordinates: its client area within its ancestors', less the
    /// siblings above it with WS_CLIPSIBLINGS, less its visible children with WS_CLIPCHILDREN.
    Region VisibleRegion() const;

    /// The surface of a top-level window, of the client area's size.
    const std::shared_ptr<Surface>& EnsureSurface();
};

/// The window of a handle; empty for any other handle.
std::shared_ptr<WindowObject> FindWindowObject(HWND hWnd);

/// All top-level windows, the oldest first. Guarded by StateLock.
std::vector<std::shared_ptr<WindowObject>>& TopLevelWindows();

/// How many windows were ever created. Guarded by StateLock.
int& WindowCount();

/// Window extents and coordinates are limited to this, so that no sum of them overflows.
constexpr int MAX_EXTENT = 32767;
constexpr int MAX_COORDINATE = 1 << 26;

/// The class of a name; NULL when there is none.
const WindowClass* FindWindowClass(LPCWSTR pszName);

/// Adds a region (client coordinates) to the update region of a visible window. A part that was uncovered is due in the
/// children beneath it too; what a program calls invalid is so only without WS_CLIPCHILDREN. Call it with StateLock
/// held.
enum class InvalidReason
{
    Asked,
    Uncovered,
};
void InvalidateTree(WindowObject& window, Region rgnClient, bool bErase, InvalidReason reason);

/// Shows or hides a window where it is, without a word about focus and minimised windows.
void ShowInPlace(WindowObject& window, bool bVisible);

/// Takes a window's timers and posted messages away. Call it with StateLock held.
void ForgetTimersOf(HWND hWnd);
void ForgetMessagesOf(HWND hWnd);

} // namespace winlite
