#include "gdi/Handles.h"
#include "gdi/Stroke.h"

#include <utility>

using namespace winlite;

BOOL MoveToEx(HDC hDC, int x, int y, LPPOINT pptOld)
{
    const auto pDC = FindDC(hDC);
    if (!pDC)
        return FALSE;
    const POINT ptOld = std::exchange(pDC->ptCurrent, {x, y});
    pDC->nDashPosition = 0;
    if (pptOld)
        *pptOld = ptOld;
    return TRUE;
}

BOOL LineTo(HDC hDC, int x, int y)
{
    const auto pDC = FindDC(hDC);
    if (!pDC)
        return FALSE;
    const POINT ptFrom = std::exchange(pDC->ptCurrent, {x, y});
    Stroke stroke(*pDC, pDC->nDashPosition);
    stroke.Line(pDC->ToSurface(ptFrom), pDC->ToSurface(pDC->ptCurrent));
    stroke.Finish();
    pDC->nDashPosition = stroke.DashPosition();
    return TRUE;
}

BOOL Polyline(HDC hDC, const POINT* pPoints, int nPoints)
{
    const auto pDC = FindDC(hDC);
    if (!pDC || !pPoints || nPoints < 2)
        return FALSE;
    Stroke stroke(*pDC);
    for (int i = 1; i < nPoints; ++i)
        stroke.Line(pDC->ToSurface(pPoints[i - 1]), pDC->ToSurface(pPoints[i]));
    stroke.Finish();
    return TRUE;
}
