#include "gdi/NearestScaler.h"

#include "gdi/PixelRows.h"

#include <numeric>

namespace winlite
{

NearestAxis NearestAxis::Unscaled(int iFirst, int nPixels)
{
    NearestAxis axis;
    axis.iFirst = iFirst;
    axis.vSource.resize(static_cast<std::size_t>(nPixels));
    std::iota(axis.vSource.begin(), axis.vSource.end(), 0);
    return axis;
}

bool NearestAxis::IsUnscaled() const { return OrderOf(vSource) == Order::Ascending; }

RECT DrawNearest(Surface& surface, const Region& rgnClip, const Dib& dib, const NearestAxis& axisX,
                 const NearestAxis& axisY)
{
    const PixelRows rows = {dib.Row(0), -dib.Stride(), dib.BitsPixel()};
    return DrawRows(surface, rgnClip, rows, axisX, axisY);
}

} // namespace winlite
