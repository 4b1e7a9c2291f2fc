#include "mfc/Geometry.h"

#include <algorithm>

void CRect::OffsetRect(int dx, int dy)
{
    left += dx;
    right += dx;
    top += dy;
    bottom += dy;
}

void CRect::InflateRect(int dx, int dy)
{
    left -= dx;
    right += dx;
    top -= dy;
    bottom += dy;
}

void CRect::NormalizeRect()
{
    if (left > right)
        std::swap(left, right);
    if (top > bottom)
        std::swap(top, bottom);
}

BOOL CRect::IntersectRect(LPCRECT prc1, LPCRECT prc2)
{
    const CRect rc(std::max(prc1->left, prc2->left), std::max(prc1->top, prc2->top), std::min(prc1->right, prc2->right),
                   std::min(prc1->bottom, prc2->bottom));
    *this = rc.IsRectEmpty() ? CRect(0, 0, 0, 0) : rc;
    return !rc.IsRectEmpty();
}

BOOL CRect::UnionRect(LPCRECT prc1, LPCRECT prc2)
{
    const CRect rc1(*prc1);
    const CRect rc2(*prc2);
    if (rc1.IsRectEmpty() || rc2.IsRectEmpty())
    {
        *this = rc2.IsRectEmpty() ? (rc1.IsRectEmpty() ? CRect(0, 0, 0, 0) : rc1) : rc2;
        return !IsRectEmpty();
    }
    *this = CRect(std::min(rc1.left, rc2.left), std::min(rc1.top, rc2.top), std::max(rc1.right, rc2.right),
                  std::max(rc1.bottom, rc2.bottom));
    return TRUE;
}
