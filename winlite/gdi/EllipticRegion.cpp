#include "gdi/EllipticRegion.h"

#include "gdi/EllipseCurve.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace winlite
{

Region EllipticRegion(const RECT& rcBox, int yFirst, int yEnd)
{
    const std::int64_t cx = std::int64_t{rcBox.right} - rcBox.left - 1;
    const std::int64_t cy = std::int64_t{rcBox.bottom} - rcBox.top - 1;
    if (cx <= 0 || cy <= 0)
        return {};
    const EllipseCurve curve(cx, cy, EllipseCurve::Curve::Included);
    std::vector<RECT> vRows;
    for (int y = std::max(rcBox.top, yFirst); y < std::min(rcBox.bottom - 1, yEnd); ++y)
    {
        // Distances from the middle are doubled, to be whole numbers.
        const std::int64_t uReach = curve.ReachAt(std::abs(2 * (std::int64_t{y} - rcBox.top) + 1 - cy));
        const auto nOutside = static_cast<int>((cx - uReach) / 2);
        vRows.push_back({rcBox.left + nOutside, y, rcBox.right - 1 - nOutside, y + 1});
    }
    return Region::FromRects(vRows);
}

} // namespace winlite
