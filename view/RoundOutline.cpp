#include "view/RoundOutline.h"

#include "view/Rounding.h"

#include "platform/minmax.h"

#include <algorithm>

namespace Pixtane
{

namespace
{

/// The window coordinate where something of iSize bitmap pixels about a bitmap pixel begins.
int BeginInWindow(int iPixel, int iSize, float fZoom, int iDispPos)
{
    const auto fBegin = static_cast<float>(SaturatedSum(iPixel, -static_cast<long long>(iSize / 2)));
    return FloorLike(fBegin * fZoom - static_cast<float>(iDispPos));
}

/// The outline in the square at pt, which iGrown pixels are added to on all sides.
void DrawGrown(Gdiplus::Graphics& graphics, Gdiplus::Color color, CPoint pt, int iScreenSize, int iGrown)
{
    constexpr int SMALLEST_CIRCLE = 5;
    const Gdiplus::Pen pen(color, 1);
    const int x = SaturatedSum(pt.x, -iGrown);
    const int y = SaturatedSum(pt.y, -iGrown);
    const int iSide = iScreenSize + 2 * iGrown;
    if (iScreenSize < SMALLEST_CIRCLE)
        graphics.DrawRectangle(&pen, x, y, iSide, iSide);
    else
        graphics.DrawEllipse(&pen, x, y, iSide, iSide);
}

} // namespace

int RoundScreenSize(int iSize, double dbZoom)
{
    return CeilingLike(static_cast<float>(dbZoom) * static_cast<float>(iSize));
}

void DrawRoundOutline(CDC& dc, const CPixtane& view, CPoint ptBitmap, int iSize, int iScreenSize)
{
    if (iScreenSize >= std::min(::GetSystemMetrics(SM_CXVIRTUALSCREEN), ::GetSystemMetrics(SM_CYVIRTUALSCREEN)))
        return;
    const float fZoom = static_cast<float>(view.dbZoom());
    const Gdiplus::Point ptDisp = view.ptDispPos();
    const CPoint pt(BeginInWindow(ptBitmap.x, iSize, fZoom, ptDisp.X),
                    BeginInWindow(ptBitmap.y, iSize, fZoom, ptDisp.Y));
    Gdiplus::Graphics graphics(dc);
    DrawGrown(graphics, Gdiplus::Color(255, 0, 0, 0), pt, iScreenSize, 0);
    DrawGrown(graphics, Gdiplus::Color(255, 255, 255, 255), pt, iScreenSize, 1);
}

} // namespace Pixtane
