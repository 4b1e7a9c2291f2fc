#pragma once

#include "user/User.h"

namespace winlite
{

/// The first window, parents before their children, that is due a WM_PAINT and passes the filter; NULL when there is
/// none.
HWND NextWindowToPaint(HWND hFilter);

/// Whether only workers asked for the paint that the window is due.
bool IsFreePaint(HWND hWnd);

} // namespace winlite
