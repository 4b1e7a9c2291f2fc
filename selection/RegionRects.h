#pragma once

#include "platform/framework.h"

#include <optional>
#include <span>
#include <vector>

namespace Pixtane
{

/// A region as its list of rectangles, in the layout that regions are read and made in. The list starts out with a
/// number of rectangles to fill in, or as a copy of a region's.
class CRegionRects
{
public:
    /// Room for nRects rectangles. Throws std::bad_alloc, also when a region cannot have as many.
    explicit CRegionRects(std::size_t nRects);

    /// A region's list and box; nothing when it cannot be read in full. Throws std::bad_alloc.
    static std::optional<CRegionRects> Read(const CRgn& rgn);

    std::span<RECT> Rects() { return {reinterpret_cast<RECT*>(Data().Buffer), Data().rdh.nCount}; }
    RECT& Box() { return Data().rdh.rcBound; }

    /// Makes the region of all rectangles, which may overlap; those without area count for nothing. rgn must have no
    /// handle. FALSE, and no handle, on failure.
    bool CreateRegion(CRgn& rgn);

private:
    explicit CRegionRects(std::vector<DWORD> vData) : m_vData(std::move(vData)) {}
    RGNDATA& Data() { return *reinterpret_cast<RGNDATA*>(m_vData.data()); }

    std::vector<DWORD> m_vData; ///< RGNDATA
};

} // namespace Pixtane
