#pragma once

#include "platform/framework.h"

namespace Pixtane
{

/// The library's own instance handle; its cursors are loaded from it.
HINSTANCE ModuleInstance();

/// Width of a vertical and height of a horizontal scroll bar, as they were when the library was loaded.
int VerticalBarWidth();
int HorizontalBarHeight();

} // namespace Pixtane
