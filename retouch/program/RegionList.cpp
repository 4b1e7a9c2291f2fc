#include "program/RegionList.h"

#include <cstring>

std::vector<RECT> RectsOf(const CRgn& rgn)
{
    std::vector<DWORD> vData(static_cast<std::size_t>(rgn.GetRegionData(nullptr, 0)) / sizeof(DWORD));
    auto* const pData = reinterpret_cast<RGNDATA*>(vData.data());
    if (vData.empty() || !rgn.GetRegionData(pData, static_cast<int>(vData.size() * sizeof(DWORD))))
        return {};
    const auto* const pRects = reinterpret_cast<const RECT*>(pData->Buffer);
    return {pRects, pRects + pData->rdh.nCount};
}

void MakeRegion(CRgn& rgn, const std::vector<RECT>& vRects)
{
    std::vector<BYTE> vData(sizeof(RGNDATAHEADER) + vRects.size() * sizeof(RECT));
    const RGNDATAHEADER header = {sizeof(RGNDATAHEADER), RDH_RECTANGLES, static_cast<DWORD>(vRects.size()), 0, {}};
    std::memcpy(vData.data(), &header, sizeof(header));
    if (!vRects.empty())
        std::memcpy(vData.data() + sizeof(header), vRects.data(), vRects.size() * sizeof(RECT));
    rgn.DeleteObject();
    rgn.CreateFromData(nullptr, static_cast<int>(vData.size()), reinterpret_cast<const RGNDATA*>(vData.data()));
}
