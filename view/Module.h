#pragma once

#include "platform/framework.h"

namespace Pixtane
{

/// The library's own instance handle; its cursors are loaded from it.
HINSTANCE ModuleInstance();

/// Shows a cursor of the library's own resources; FALSE, and the cursor stays, when there is none with that number.
int ShowOwnCursor(UINT uId);

/// Width of a vertical and height of a horizontal scroll bar, as they were when the library was loaded.
int VerticalBarWidth();
int HorizontalBarHeight();

} // namespace Pixtane
