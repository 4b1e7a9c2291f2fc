#include "program/ShapeTool.h"

#include <algorithm>
#include <cstdlib>

namespace
{

constexpr int LEAST_PIXELS = 2; // of the screen

bool IsSmall(SIZE sz, double dbZoom) { return std::max(sz.cx, sz.cy) * dbZoom < LEAST_PIXELS; }

} // namespace

bool CShapeTool::IsClick(CPoint ptWindow) const
{
    const double dbZoom = pView->dbZoom();
    if (eSelectMode == SM_RECTANGLE || eSelectMode == SM_ELLIPSE)
    {
        const CSize szApart(std::abs(ptEnd.x - ptStart.x), std::abs(ptEnd.y - ptStart.y));
        const CSize szMove(std::abs(ptWindow.x - ptDown.x), std::abs(ptWindow.y - ptDown.y));
        // The pointer may be back where it was although the view has scrolled.
        return IsSmall({szApart.cx + 1, szApart.cy + 1}, dbZoom) || (IsSmall(szMove, 1) && IsSmall(szApart, dbZoom));
    }
    if (eSelectMode != SM_LASSO || arrPoints.IsEmpty() || ::GetKeyState(VK_MENU) < 0)
        return false;
    CRect rcPath(arrPoints[0], CSize(1, 1));
    for (INT_PTR i = 1; i < arrPoints.GetSize(); ++i)
        rcPath.UnionRect(rcPath, CRect(arrPoints[i], CSize(1, 1)));
    return IsSmall(rcPath.Size(), dbZoom);
}

int CShapeTool::OnLButtonUp(UINT nFlags, CPoint point)
{
    if (pView && bSelecting && GetSelectingMode() != SM_POLYGON && IsClick(point))
    {
        arrPoints.RemoveAll();
        CloseSelection(); // Without vertices the shape is dropped.
        return FALSE;
    }
    return RegionSelector::OnLButtonUp(nFlags, point);
}
