#pragma once

#include "gdi/Dib.h"
#include "gdi/Region.h"
#include "gdi/Surface.h"

#include <span>
#include <vector>

namespace winlite
{

/// Which source pixel each destination pixel of one axis takes: destination iFirst + k takes vSource[k].
struct NearestAxis
{
    int iFirst = 0;
    std::vector<int> vSource;
    int End() const { return iFirst + static_cast<int>(vSource.size()); }

    /// Source pixels 0 to nPixels, one after the other.
    static NearestAxis Unscaled(int iFirst, int nPixels);

    /// Whether each destination pixel takes the source pixel after its neighbour's.
    bool IsUnscaled() const;
};

/// Draws a DIB by two axes of source indices (all within the DIB), limited to a region of the surface. 24- and 16-bit
/// pixels arrive with top byte 0, 32-bit ones whole. Cost follows the pixels drawn, not the DIB. Returns the drawn box.
RECT DrawNearest(Surface& surface, const Region& rgnClip, const Dib& dib, const NearestAxis& axisX,
                 const NearestAxis& axisY);

} // namespace winlite
