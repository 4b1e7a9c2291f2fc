#include "gdi/Handles.h"
#include "gdi/RectMath.h"

#include <utility>

using namespace winlite;

namespace
{

bool StaysInRange(int iFirst, int iEnd, int iMove)
{
    return std::int64_t{iFirst} + iMove >= -REGION_COORDINATE_LIMIT &&
           std::int64_t{iEnd} + iMove < REGION_COORDINATE_LIMIT;
}

Region Combined(Region rgn, const Region& rgnOther, int iMode)
{
    switch (iMode)
    {
    case RGN_AND:
        rgn &= rgnOther;
        break;
    case RGN_OR:
        rgn |= rgnOther;
        break;
    case RGN_XOR:
        rgn ^= rgnOther;
        break;
    default:
        rgn -= rgnOther;
        break;
    }
    return rgn;
}

} // namespace

HRGN winlite::OpenRegion(Region rgn)
{
    auto pRegion = std::make_shared<RegionObject>();
    pRegion->rgn = std::move(rgn);
    return OpenTyped<HRGN>(std::move(pRegion));
}

HRGN CreateRectRgn(int iLeft, int iTop, int iRight, int iBottom)
{
    return OpenRegion(Region(Ordered(iLeft, iTop, iRight, iBottom)));
}

BOOL SetRectRgn(HRGN hRgn, int iLeft, int iTop, int iRight, int iBottom)
{
    const auto pRegion = FindRegion(hRgn);
    if (!pRegion)
        return FALSE;
    pRegion->rgn = Region(Ordered(iLeft, iTop, iRight, iBottom));
    return TRUE;
}

int CombineRgn(HRGN hDest, HRGN hSrc1, HRGN hSrc2, int iMode)
{
    if (iMode < RGN_AND || iMode > RGN_COPY)
        return ERROR;
    const auto pDest = FindRegion(hDest);
    const auto pSource1 = FindRegion(hSrc1);
    const auto pSource2 = iMode == RGN_COPY ? pSource1 : FindRegion(hSrc2);
    if (!pDest || !pSource1 || !pSource2)
        return ERROR;
    pDest->rgn = iMode == RGN_COPY ? pSource1->rgn : Combined(pSource1->rgn, pSource2->rgn, iMode);
    return pDest->rgn.Complexity();
}

int OffsetRgn(HRGN hRgn, int dx, int dy)
{
    const auto pRegion = FindRegion(hRgn);
    if (!pRegion)
        return ERROR;
    if (pRegion->rgn.IsEmpty())
        return NULLREGION;
    const RECT rcBox = pRegion->rgn.Box();
    if (!StaysInRange(rcBox.left, rcBox.right, dx) || !StaysInRange(rcBox.top, rcBox.bottom, dy))
        return ERROR;
    pRegion->rgn.Offset(dx, dy);
    return pRegion->rgn.Complexity();
}

int GetRgnBox(HRGN hRgn, LPRECT prc)
{
    const auto pRegion = FindRegion(hRgn);
    if (!pRegion || !prc)
        return ERROR;
    *prc = pRegion->rgn.Box();
    return pRegion->rgn.Complexity();
}

BOOL PtInRegion(HRGN hRgn, int x, int y)
{
    const auto pRegion = FindRegion(hRgn);
    return pRegion && pRegion->rgn.Contains({x, y});
}

BOOL RectInRegion(HRGN hRgn, const RECT* prc)
{
    const auto pRegion = FindRegion(hRgn);
    return pRegion && prc && pRegion->rgn.Intersects(Ordered(prc->left, prc->top, prc->right, prc->bottom));
}

BOOL EqualRgn(HRGN hRgn1, HRGN hRgn2)
{
    const auto pRegion1 = FindRegion(hRgn1);
    const auto pRegion2 = FindRegion(hRgn2);
    return pRegion1 && pRegion2 && pRegion1->rgn == pRegion2->rgn;
}

DWORD GetRegionData(HRGN hRgn, DWORD nBytes, RGNDATA* pData)
{
    const auto pRegion = FindRegion(hRgn);
    if (!pRegion)
        return 0;
    const std::span<const RECT> vRects = pRegion->rgn.Rects();
    const auto nRectBytes = static_cast<DWORD>(vRects.size_bytes());
    const DWORD nNeeded = static_cast<DWORD>(sizeof(RGNDATAHEADER)) + nRectBytes;
    if (!pData)
        return nNeeded;
    if (nBytes < nNeeded)
        return 0;
    pData->rdh = {sizeof(RGNDATAHEADER), RDH_RECTANGLES, static_cast<DWORD>(vRects.size()), nRectBytes,
                  pRegion->rgn.Box()};
    std::copy(vRects.begin(), vRects.end(), reinterpret_cast<RECT*>(pData->Buffer));
    return nNeeded;
}

HRGN ExtCreateRegion(const XFORM* pxForm, DWORD nBytes, const RGNDATA* pData)
{
    if (pxForm || !pData || nBytes < sizeof(RGNDATAHEADER) || pData->rdh.dwSize != sizeof(RGNDATAHEADER))
        return nullptr;
    const std::size_t nRects = pData->rdh.nCount;
    if ((nBytes - sizeof(RGNDATAHEADER)) / sizeof(RECT) < nRects)
        return nullptr;
    return OpenRegion(Region::FromRects({reinterpret_cast<const RECT*>(pData->Buffer), nRects}));
}
