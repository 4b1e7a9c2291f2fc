#pragma once

#include "user/User.h"

namespace winlite
{

/// The window procedure of the SCROLLBAR class: keeps the bar's values and draws it.
LRESULT ScrollBarProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam);

/// Enters the SCROLLBAR class.
void RegisterScrollBarClass();

} // namespace winlite
