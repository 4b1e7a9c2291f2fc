#pragma once

#include "user/ScrollBarLayout.h"

namespace winlite
{

/// What a scroll-bar control remembers.
struct ScrollBarState
{
    ScrollInfo info;
    bool bPictureOld = false; ///< Something visible was changed without asking for a repaint.

    // While a button is held on it.
    ScrollBarPart partHeld = ScrollBarPart::None;
    POINT ptPointer = {};    ///< Client coordinates.
    int iGrabOffset = 0;     ///< From the thumb's beginning to where it was grasped.
    int iPositionBefore = 0; ///< To snap back to.
};

/// The state of a scroll-bar window; NULL when it is none, or gone. Everything that sends a message may end the window:
/// ask again after it.
ScrollBarState* FindScrollBarState(HWND hWnd);

bool IsVerticalBar(HWND hWnd);
ScrollBarLayout LayoutOfBar(HWND hWnd, const ScrollInfo& info);

void DrawScrollBar(HDC hDC, HWND hWnd, const ScrollBarState& state);

// What the mouse and the keys do with a bar.
LRESULT OnScrollBarPress(HWND hWnd, ScrollBarState& state, WPARAM wParam, LPARAM lParam);
LRESULT OnScrollBarMove(HWND hWnd, ScrollBarState& state, WPARAM wParam, LPARAM lParam);
LRESULT OnScrollBarRelease(HWND hWnd, ScrollBarState& state, WPARAM wParam, LPARAM lParam);
LRESULT OnScrollBarRepeat(HWND hWnd, ScrollBarState& state, WPARAM wParam, LPARAM lParam);
LRESULT OnScrollBarCaptureLost(HWND hWnd, ScrollBarState& state, WPARAM wParam, LPARAM lParam);
LRESULT OnScrollBarKeyDown(HWND hWnd, ScrollBarState& state, WPARAM wParam, LPARAM lParam);
LRESULT OnScrollBarKeyUp(HWND hWnd, ScrollBarState& state, WPARAM wParam, LPARAM lParam);

} // namespace winlite
