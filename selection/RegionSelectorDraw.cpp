#include "selection/RegionSelector.h"
#include "view/Rounding.h"
#include "view/TwoPassOutline.h"

#include <algorithm>

namespace Pixtane::EmbeddedTool
{

namespace
{

void DrawLine(CDC& dc, CPoint ptFrom, CPoint ptTo)
{
    dc.MoveTo(ptFrom);
    dc.LineTo(ptTo);
}

/// Writes black text with a white halo, which shows on any ground.
class CLabelWriter
{
public:
    explicit CLabelWriter(CDC& dc)
        : m_Graphics(dc), m_Tahoma(L"Tahoma"),
          m_Font(m_Tahoma.IsAvailable() ? &m_Tahoma : Gdiplus::FontFamily::GenericSansSerif(), 12,
                 Gdiplus::FontStyleBold, Gdiplus::UnitPixel),
          m_Format(Gdiplus::StringFormatFlagsNoClip | Gdiplus::StringFormatFlagsLineLimit)
    {
        Gdiplus::RectF rcLine;
        m_Graphics.MeasureString(L"(0123456789)", -1, &m_Font, Gdiplus::PointF(0, 0), &m_Format, &rcLine);
        m_fLineHeight = rcLine.Height;
    }

    float LineHeight() const { return m_fLineHeight; }

    /// Near: the text begins at x; Far: it ends there.
    void Write(const CString& strText, Gdiplus::StringAlignment alignment, float x, float y)
    {
        static constexpr POINT HALO[] = {{-1, 0}, {1, 0}, {0, -1}, {0, 1}};
        m_Format.SetAlignment(alignment);
        for (const POINT& pt : HALO)
            Draw(strText, x + static_cast<float>(pt.x), y + static_cast<float>(pt.y), m_White);
        Draw(strText, x, y, m_Black);
    }

private:
    void Draw(const CString& strText, float x, float y, const Gdiplus::Brush& brush)
    {
        m_Graphics.DrawString(strText, -1, &m_Font, Gdiplus::PointF(x, y), &m_Format, &brush);
    }

    Gdiplus::Graphics m_Graphics;
    Gdiplus::FontFamily m_Tahoma;
    Gdiplus::Font m_Font;
    Gdiplus::StringFormat m_Format;
    Gdiplus::SolidBrush m_White{Gdiplus::Color(0xFFFFFFFF)};
    Gdiplus::SolidBrush m_Black{Gdiplus::Color(0xFF000000)};
    float m_fLineHeight = 0;
};

} // namespace

void RegionSelector::DrawSelectingBorder(CDC& dc, CRect&)
{
    const bool bBox = IsSet(ptStart) && IsSet(ptEnd);
    if (arrPoints.IsEmpty() && !bBox)
        return;
    CTwoPassOutline outline(dc);
    if (eSelectMode == SM_POLYGON && !arrPoints.IsEmpty())
        DrawPolygon(outline, dc);
    else if (eSelectMode == SM_LASSO && !arrPoints.IsEmpty())
        outline.DrawInverting([&] { DrawLasso(dc); });
    else if ((eSelectMode == SM_RECTANGLE || eSelectMode == SM_ELLIPSE) && bBox)
        DrawBox(outline, dc);
}

void RegionSelector::DrawPolygon(CTwoPassOutline& outline, CDC& dc) const
{
    const CPoint ptCursor = ToWindow(ToBitmap(CursorInView()));
    const auto edge = [&](CPoint ptFrom, CPoint ptTo) { outline.Draw([&] { DrawLine(dc, ptFrom, ptTo); }); };
    edge(ToWindow(arrPoints[0]), ptCursor);
    for (int i = 1; i < arrPoints.GetSize(); ++i)
        edge(ToWindow(arrPoints[i - 1]), ToWindow(arrPoints[i]));
    edge(ToWindow(arrPoints[arrPoints.GetSize() - 1]), ptCursor);
}

void RegionSelector::DrawLasso(CDC& dc) const
{
    CPoint ptLast = ToWindow(arrPoints[0]);
    dc.MoveTo(ptLast);
    for (int i = 1; i < arrPoints.GetSize(); ++i)
    {
        const CPoint ptNext = ToWindow(arrPoints[i]);
        if (ptNext == ptLast)
            continue;
        dc.LineTo(ptNext);
        ptLast = ptNext;
    }
    if (eSelectingMode == SM_POLYGON)
        dc.LineTo(CursorInView());
}

void RegionSelector::DrawBox(CTwoPassOutline& outline, CDC& dc) const
{
    const CRect rcBmp = ShapeBox();
    const float fZoom = static_cast<float>(pView->dbZoom());
    const auto window = [fZoom](LONG iEdge, int iPos)
    { return static_cast<float>(iEdge) * fZoom - static_cast<float>(iPos); };
    const Gdiplus::Point ptPos = pView->ptDispPos();
    const CRect rcShape(FloorLike(window(rcBmp.left, ptPos.X)), FloorLike(window(rcBmp.top, ptPos.Y)),
                        CeilingLike(window(rcBmp.right + 1, ptPos.X)), CeilingLike(window(rcBmp.bottom + 1, ptPos.Y)));
    const bool bRectangle = eSelectMode == SM_RECTANGLE;
    outline.Draw([&] { bRectangle ? dc.Rectangle(&rcShape) : dc.Ellipse(&rcShape); });
    DrawLabels(dc, rcShape);
}

void RegionSelector::DrawLabels(CDC& dc, const CRect& rcShape) const
{
    const CRect rcBmp = ShapeBox();
    CLabelWriter writer(dc);
    const float fAbove = static_cast<float>(rcShape.top) - writer.LineHeight();
    const float fBelow = static_cast<float>(rcShape.bottom);
    CString strText;
    if (eSelectMode == SM_RECTANGLE)
    {
        // Outside the anchor corner.
        strText.Format(L"(%d, %d)", ptStart.x, ptStart.y);
        const bool bLeft = ptStart.x == rcBmp.left;
        writer.Write(strText, bLeft ? Gdiplus::StringAlignmentFar : Gdiplus::StringAlignmentNear,
                     static_cast<float>(bLeft ? rcShape.left : rcShape.right),
                     ptStart.y == rcBmp.top ? fAbove : fBelow);
    }
    strText.Format(L"(%d\u00D7%d) ", rcBmp.Width() + 1, rcBmp.Height() + 1);
    writer.Write(strText, Gdiplus::StringAlignmentFar, static_cast<float>(CursorInView().x),
                 ptEnd.y == rcBmp.bottom ? fBelow : fAbove);
}

} // namespace Pixtane::EmbeddedTool
