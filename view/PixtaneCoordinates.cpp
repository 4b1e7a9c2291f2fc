#include "view/Pixtane.h"
#include "view/Rounding.h"

namespace Pixtane
{

void CPixtane::FromBitmapToWnd(POINT& pt)
{
    if (!m_pBmpData)
        return;
    const float fZoom = static_cast<float>(m_dbZoom);
    pt.x = FloorLike((static_cast<float>(pt.x) + 0.5f) * fZoom - static_cast<float>(m_ptDispPos.X));
    pt.y = FloorLike((static_cast<float>(pt.y) + 0.5f) * fZoom - static_cast<float>(m_ptDispPos.Y));
}

void CPixtane::FromWndToBitmap(POINT& pt)
{
    if (!m_pBmpData)
        return;
    pt = BitmapPixelAt(pt, m_ptDispPos, m_dbZoom);
}

void CPixtane::FromWndToBitmap(Gdiplus::PointF& pt)
{
    if (!m_pBmpData)
        return;
    const float fZoom = static_cast<float>(m_dbZoom);
    pt.X = (static_cast<float>(m_ptDispPos.X) + pt.X) / fZoom;
    pt.Y = (static_cast<float>(m_ptDispPos.Y) + pt.Y) / fZoom;
}

CPoint CPixtane::GetCursorPos(int bToBitmap)
{
    CPoint pt = m_ptMouse;
    if (bToBitmap)
        FromWndToBitmap(pt);
    return pt;
}

} // namespace Pixtane
