#pragma once

#include "gdi/DeviceContext.h"
#include "gdiplus/Types.h"

namespace winlite
{

/// How opaque each pixel of a box is; rows from the top, without gaps between them.
struct CoverageMask
{
    RECT rcBox = {};
    std::vector<BYTE> vCoverage;
};

/// Lays the colour over the region (surface coordinates) as far as the device context may be drawn on, and reports it.
void PaintRegion(const DeviceContext& dc, Region rgn, const Gdiplus::Color& color);

/// The same for a mask that begins at a point of the surface, by its coverage.
void PaintMask(const DeviceContext& dc, const CoverageMask& mask, POINT ptSurface, const Gdiplus::Color& color);

} // namespace winlite
