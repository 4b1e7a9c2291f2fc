#pragma once

#include "gdi/DeviceContext.h"

namespace winlite
{

/// Fills a part of what may be drawn with a brush, combined with what stands there by a raster operation, and reports
/// the damage. A null brush fills nothing.
void FillWithBrush(const DeviceContext& dc, const Region& rgnDrawn, const BrushObject& brush, int iRop2 = R2_COPYPEN);

} // namespace winlite
