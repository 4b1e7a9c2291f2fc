#include "gdi/Handles.h"

#include <utility>

using namespace winlite;

HDC CreateCompatibleDC(HDC hDC)
{
    if (hDC && !FindDC(hDC))
        return nullptr;
    return OpenTyped<HDC>(std::make_shared<DeviceContext>());
}

BOOL DeleteDC(HDC hDC)
{
    const auto pDC = FindDC(hDC);
    if (!pDC || !pDC->IsMemory())
        return FALSE;
    if (const auto pBitmap = FindBitmap(pDC->hBitmap))
        pBitmap->hSelectedIn = nullptr;
    CloseHandleEntry(hDC);
    return TRUE;
}

COLORREF SetBkColor(HDC hDC, COLORREF cr)
{
    const auto pDC = FindDC(hDC);
    return pDC ? std::exchange(pDC->crBackground, cr) : CLR_INVALID;
}

COLORREF GetBkColor(HDC hDC)
{
    const auto pDC = FindDC(hDC);
    return pDC ? pDC->crBackground : CLR_INVALID;
}

int SetBkMode(HDC hDC, int iMode)
{
    const auto pDC = FindDC(hDC);
    if (!pDC || (iMode != TRANSPARENT && iMode != OPAQUE))
        return 0;
    return std::exchange(pDC->iBkMode, iMode);
}

int GetBkMode(HDC hDC)
{
    const auto pDC = FindDC(hDC);
    return pDC ? pDC->iBkMode : 0;
}

int SetROP2(HDC hDC, int iRop2)
{
    const auto pDC = FindDC(hDC);
    if (!pDC || iRop2 < R2_BLACK || iRop2 > R2_WHITE)
        return 0;
    return std::exchange(pDC->iRop2, iRop2);
}

int GetROP2(HDC hDC)
{
    const auto pDC = FindDC(hDC);
    return pDC ? pDC->iRop2 : 0;
}

BOOL SetBrushOrgEx(HDC hDC, int x, int y, LPPOINT pptOld)
{
    const auto pDC = FindDC(hDC);
    if (!pDC)
        return FALSE;
    const POINT ptOld = std::exchange(pDC->ptBrushOrigin, {x, y});
    if (pptOld)
        *pptOld = ptOld;
    return TRUE;
}

int SelectClipRgn(HDC hDC, HRGN hRgn)
{
    const auto pDC = FindDC(hDC);
    if (!pDC)
        return ERROR;
    if (!hRgn)
    {
        pDC->SetClip(std::nullopt);
        return SIMPLEREGION;
    }
    const auto pRegion = FindRegion(hRgn);
    if (!pRegion)
        return ERROR;
    pDC->SetClip(pRegion->rgn);
    return pRegion->rgn.Complexity();
}

COLORREF GetPixel(HDC hDC, int x, int y)
{
    const auto pDC = FindDC(hDC);
    if (!pDC)
        return CLR_INVALID;
    const POINT pt = pDC->ToSurface(POINT{x, y});
    if (!pDC->Clip().Contains(pt))
        return CLR_INVALID;
    const Surface& surface = pDC->Target();
    return ColorRefFromPixel(surface.Pixels()[pt.y * surface.Stride() + pt.x] & 0xFFFFFF);
}
