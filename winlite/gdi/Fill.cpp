#include "gdi/BrushFill.h"
#include "gdi/Handles.h"

using namespace winlite;

int FillRect(HDC hDC, const RECT* prc, HBRUSH hBrush)
{
    const auto pDC = FindDC(hDC);
    const auto pBrush = FindBrush(hBrush);
    if (!pDC || !pBrush || !prc)
        return FALSE;
    FillWithBrush(*pDC, pDC->Clip() & pDC->ToSurface(*prc), *pBrush);
    return TRUE;
}

BOOL FillRgn(HDC hDC, HRGN hRgn, HBRUSH hBrush)
{
    const auto pDC = FindDC(hDC);
    const auto pBrush = FindBrush(hBrush);
    const auto pRegion = FindRegion(hRgn);
    if (!pDC || !pBrush || !pRegion)
        return FALSE;
    Region rgnDrawn = pRegion->rgn;
    rgnDrawn.Offset(pDC->Origin().x, pDC->Origin().y);
    FillWithBrush(*pDC, rgnDrawn &= pDC->Clip(), *pBrush);
    return TRUE;
}
