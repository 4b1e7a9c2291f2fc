#pragma once

#include "user/User.h"

namespace winlite
{

// How a desktop hands input over. These only put events into the queue, in order; windows hear of them when the program
// fetches messages. Positions are screen coordinates in device pixels. User-interface thread.

enum class MouseButton
{
    Left,
    Right,
    Middle,
};

/// The pointer moved over a top-level window, or anywhere while a button is held. A move right after another replaces
/// it.
void QueuePointerMove(HWND hTopLevel, POINT ptScreen);
void QueueButton(HWND hTopLevel, MouseButton button, bool bDown, POINT ptScreen);

/// A wheel step; 120 is one notch, positive away from the user.
void QueueWheel(int zDelta, POINT ptScreen);

/// A key by its neutral virtual code (VK_MENU, not VK_LMENU). bExtended tells the right one of two keys, and the
/// arrows.
struct KeyEvent
{
    UINT uKey;
    bool bDown;
    bool bExtended = false;
    BYTE uScanCode = 0;
};
void QueueKey(const KeyEvent& key);

/// A top-level window became the one that gets the keys, or stopped being it. The window in it that had the focus last
/// gets it again.
void QueueActivation(HWND hTopLevel, bool bActive);

/// The desktop places, shows (SW_ codes) or enables the window that it shows a top-level window in. These take effect
/// at once.
void PlaceTopLevel(HWND hTopLevel, const RECT& rcScreen);
void ShowTopLevel(HWND hTopLevel, int iShow);
void EnableTopLevel(HWND hTopLevel, BOOL bEnable);

/// The desktop took the mouse away from the window that had captured it.
void QueueCaptureLost();

} // namespace winlite
