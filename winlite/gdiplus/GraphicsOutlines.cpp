#include "gdiplus/ClipScope.h"
#include "gdiplus/Coordinates.h"
#include "gdiplus/GdiPlus.h"
#include "gdiplus/Outline.h"
#include "gdiplus/Painting.h"
#include "gdiplus/Startup.h"

namespace Gdiplus
{

namespace
{

// An ellipse takes time by its size, not by what is visible of it.
constexpr int MOST_ELLIPSE_SIZE = 65535;

REAL Real(int iNumber) { return static_cast<REAL>(iNumber); }

/// The border's pixels in surface coordinates, right and bottom inclusive.
RECT BorderBox(const winlite::DeviceContext& dc, REAL x, REAL y, REAL cx, REAL cy)
{
    return dc.ToSurface(RECT{RoundedToPixel(x), RoundedToPixel(y), RoundedToPixel(x + cx), RoundedToPixel(y + cy)});
}

} // namespace

/// Whether the pen can draw with these coordinates.
Status Graphics::CheckPen(const Pen* pPen, std::initializer_list<REAL> vNumbers) const
{
    if (!IsStarted())
        return GdiplusNotInitialized;
    if (!m_pDC || !pPen || pPen->GetLastStatus() != Ok || !AreFinite(vNumbers))
        return InvalidParameter;
    if (pPen->GetWidth() > 1)
        return NotImplemented;
    return AreInRange(vNumbers) ? Ok : ValueOverflow;
}

void Graphics::DrawOutline(const Pen& pen, std::span<const RECT> vPixels) const
{
    const winlite::ClipScope scope(*m_pDC, m_pClip.get());
    Color color;
    pen.GetColor(&color);
    winlite::PaintRegion(*m_pDC, winlite::Region::FromRects(vPixels), color);
}

Status Graphics::DrawLine(const Pen* pPen, REAL x1, REAL y1, REAL x2, REAL y2)
{
    m_Status = CheckPen(pPen, {x1, y1, x2, y2});
    if (m_Status != Ok)
        return m_Status;
    const winlite::ClipScope scope(*m_pDC, m_pClip.get());
    const POINT ptFirst = m_pDC->ToSurface(POINT{RoundedToPixel(x1), RoundedToPixel(y1)});
    const POINT ptLast = m_pDC->ToSurface(POINT{RoundedToPixel(x2), RoundedToPixel(y2)});
    DrawOutline(*pPen, winlite::LinePixels(ptFirst, ptLast, m_pDC->Clip().Box()));
    return m_Status;
}

Status Graphics::DrawLine(const Pen* pPen, int x1, int y1, int x2, int y2)
{
    return DrawLine(pPen, Real(x1), Real(y1), Real(x2), Real(y2));
}

Status Graphics::DrawLine(const Pen* pPen, const Point& ptFirst, const Point& ptLast)
{
    return DrawLine(pPen, ptFirst.X, ptFirst.Y, ptLast.X, ptLast.Y);
}

Status Graphics::DrawLine(const Pen* pPen, const PointF& ptFirst, const PointF& ptLast)
{
    return DrawLine(pPen, ptFirst.X, ptFirst.Y, ptLast.X, ptLast.Y);
}

Status Graphics::DrawRectangle(const Pen* pPen, REAL x, REAL y, REAL cx, REAL cy)
{
    m_Status = CheckPen(pPen, {x, y, cx, cy});
    if (m_Status == Ok && cx > 0 && cy > 0)
        DrawOutline(*pPen, winlite::BorderPixels(BorderBox(*m_pDC, x, y, cx, cy)));
    return m_Status;
}

Status Graphics::DrawRectangle(const Pen* pPen, int x, int y, int cx, int cy)
{
    return DrawRectangle(pPen, Real(x), Real(y), Real(cx), Real(cy));
}

Status Graphics::DrawRectangle(const Pen* pPen, const Rect& rc)
{
    return DrawRectangle(pPen, rc.X, rc.Y, rc.Width, rc.Height);
}

Status Graphics::DrawRectangle(const Pen* pPen, const RectF& rc)
{
    return DrawRectangle(pPen, rc.X, rc.Y, rc.Width, rc.Height);
}

Status Graphics::DrawEllipse(const Pen* pPen, REAL x, REAL y, REAL cx, REAL cy)
{
    m_Status = CheckPen(pPen, {x, y, cx, cy});
    if (m_Status != Ok || cx <= 0 || cy <= 0)
        return m_Status;
    const RECT rcBox = BorderBox(*m_pDC, x, y, cx, cy);
    if (rcBox.right - rcBox.left > MOST_ELLIPSE_SIZE || rcBox.bottom - rcBox.top > MOST_ELLIPSE_SIZE)
        return m_Status = ValueOverflow;
    DrawOutline(*pPen, winlite::EllipsePixels(rcBox));
    return m_Status;
}

Status Graphics::DrawEllipse(const Pen* pPen, int x, int y, int cx, int cy)
{
    return DrawEllipse(pPen, Real(x), Real(y), Real(cx), Real(cy));
}

Status Graphics::DrawEllipse(const Pen* pPen, const Rect& rc)
{
    return DrawEllipse(pPen, rc.X, rc.Y, rc.Width, rc.Height);
}

Status Graphics::DrawEllipse(const Pen* pPen, const RectF& rc)
{
    return DrawEllipse(pPen, rc.X, rc.Y, rc.Width, rc.Height);
}

} // namespace Gdiplus
