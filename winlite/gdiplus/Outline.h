#pragma once

#include "base/Types.h"

#include <vector>

namespace winlite
{

// The pixels of shapes drawn with a pen one pixel wide, as rectangles without common pixels. Coordinates are within
// 2^27, and a box's edges are inclusive, right and bottom too, in order.

/// The line with both ends, x-major when it is at least as wide as high: every step takes the nearest pixel, the left
/// or upper one of two. Only what can be in rcClip is made, which never changes what is.
std::vector<RECT> LinePixels(POINT ptFirst, POINT ptLast, const RECT& rcClip);

std::vector<RECT> BorderPixels(const RECT& rcInclusive);

/// The midpoint ellipse in the box, four-way symmetric and without gaps. Takes time by the box's width and height.
std::vector<RECT> EllipsePixels(const RECT& rcInclusive);

} // namespace winlite
