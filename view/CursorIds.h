#pragma once

#include "platform/framework.h"

namespace Pixtane
{

// The library's cursors, by their numbers among its resources (resources/pixtane.rc).

constexpr UINT CURSOR_EYEDROPPER = 3004;
constexpr UINT CURSOR_CROSSHAIR = 3005;    ///< The view's own.
constexpr UINT CURSOR_CLONE_SOURCE = 3006; ///< The next click sets where to clone from.

// The cursors of a shape that makes a new selection. Those that intersect, subtract and add follow each.
constexpr UINT CURSOR_ELLIPSE = 3007;
constexpr UINT CURSOR_LASSO = 3011;
constexpr UINT CURSOR_WAND = 3015;
constexpr UINT CURSOR_POLYGON = 3019;
constexpr UINT CURSOR_RECTANGLE = 3024;

constexpr UINT CURSOR_CLOSES_POLYGON = 3023; ///< The next click closes the polygon.
constexpr UINT CURSOR_OPEN_HAND = 3028;
constexpr UINT CURSOR_CLOSED_HAND = 3029;
constexpr UINT CURSOR_MOVES_SELECTION = 3030;
constexpr UINT CURSOR_ZOOM_IN = 3031; ///< Carried for hosts, as is the next.
constexpr UINT CURSOR_ZOOM_OUT = 3032;
constexpr UINT CURSOR_PEN = 3033;
constexpr UINT CURSOR_SIZE_HORIZONTAL = 3034;
constexpr UINT CURSOR_SIZE_VERTICAL = 3035;
constexpr UINT CURSOR_SIZE_FALLING = 3036; ///< From the left top to the right bottom.
constexpr UINT CURSOR_SIZE_RISING = 3037;

} // namespace Pixtane
