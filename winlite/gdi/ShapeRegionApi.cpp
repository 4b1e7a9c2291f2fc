#include "gdi/EllipticRegion.h"
#include "gdi/Handles.h"
#include "gdi/PolygonScan.h"
#include "gdi/RectMath.h"

#include <new>

using namespace winlite;

namespace
{

bool IsInRange(LONG iCoordinate)
{
    return iCoordinate >= -REGION_COORDINATE_LIMIT && iCoordinate <= REGION_COORDINATE_LIMIT;
}

} // namespace

HRGN CreatePolygonRgn(const POINT* pPoints, int nPoints, int iMode)
try
{
    if (!pPoints || nPoints < 2 || (iMode != ALTERNATE && iMode != WINDING))
        return nullptr;
    const std::span vPoints(pPoints, static_cast<std::size_t>(nPoints));
    if (!std::ranges::all_of(vPoints, [](POINT pt) { return IsInRange(pt.x) && IsInRange(pt.y); }))
        return nullptr;
    const auto rule = iMode == WINDING ? PolygonScan::Rule::Winding : PolygonScan::Rule::Alternate;
    return OpenRegion(PolygonScan(vPoints, rule).Scan());
}
catch (const std::bad_alloc&)
{
    return nullptr;
}

HRGN CreateEllipticRgn(int iLeft, int iTop, int iRight, int iBottom)
try
{
    const RECT rc = Ordered(iLeft, iTop, iRight, iBottom);
    return SidesFit(rc) ? OpenRegion(EllipticRegion(rc, rc.top, rc.bottom)) : nullptr;
}
catch (const std::bad_alloc&)
{
    return nullptr;
}
