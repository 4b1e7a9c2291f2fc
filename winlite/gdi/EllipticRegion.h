#pragma once

#include "gdi/Region.h"

namespace winlite
{

/// The pixels whose centres lie in the ellipse that touches the sides of a box (in order, with sides that fit 31 bits)
/// less its last row and column: those of the rows from yFirst to yEnd.
Region EllipticRegion(const RECT& rcBox, int yFirst, int yEnd);

} // namespace winlite
