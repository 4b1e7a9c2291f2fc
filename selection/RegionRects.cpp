#include "selection/RegionRects.h"

#include "platform/minmax.h"

#include <limits>
#include <new>

namespace Pixtane
{

namespace
{

constexpr std::size_t HEADER_BYTES = sizeof(RGNDATAHEADER);
constexpr std::size_t MOST_RECTS = (std::numeric_limits<int>::max() - HEADER_BYTES) / sizeof(RECT);

std::vector<DWORD> Buffer(std::size_t nBytes) { return std::vector<DWORD>((nBytes + 3) / sizeof(DWORD)); }

} // namespace

CRegionRects::CRegionRects(std::size_t nRects)
{
    if (nRects > MOST_RECTS)
        throw std::bad_alloc();
    m_vData = Buffer(HEADER_BYTES + nRects * sizeof(RECT));
    const auto nCount = static_cast<DWORD>(nRects);
    Data().rdh = {HEADER_BYTES, RDH_RECTANGLES, nCount, nCount * static_cast<DWORD>(sizeof(RECT)), {}};
}

std::optional<CRegionRects> CRegionRects::Read(const CRgn& rgn)
{
    const int nBytes = rgn.GetRegionData(nullptr, 0);
    if (nBytes < static_cast<int>(HEADER_BYTES))
        return std::nullopt;
    CRegionRects rects(Buffer(static_cast<std::size_t>(nBytes)));
    if (rgn.GetRegionData(&rects.Data(), nBytes) != nBytes)
        return std::nullopt;
    return rects;
}

bool CRegionRects::CreateRegion(CRgn& rgn)
{
    const std::size_t nBytes = HEADER_BYTES + Rects().size_bytes();
    return rgn.CreateFromData(nullptr, static_cast<int>(nBytes), &Data());
}

} // namespace Pixtane
