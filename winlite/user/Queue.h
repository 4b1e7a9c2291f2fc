#pragma once

#include "user/User.h"

namespace winlite
{

/// Whether a message for hWnd passes a filter: none, the window itself, or an ancestor of it.
bool PassesFilter(HWND hWnd, HWND hFilter);

} // namespace winlite
