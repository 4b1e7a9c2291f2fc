#pragma once

#include "user/User.h"

#include <optional>

namespace winlite
{

/// A WM_TIMER for a window that the filter admits, when one is due; at most one per timer is ever pending. With bTake
/// it counts as delivered.
std::optional<MSG> NextTimerMessage(HWND hFilter, bool bTake);

/// Whether the window has set this timer.
bool IsTimerSet(HWND hWnd, UINT_PTR uId);

} // namespace winlite
