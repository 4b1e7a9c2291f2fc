#pragma once

#include "base/Types.h"

namespace winlite
{

// What the default constructors below put into each field. The framework leaves them unset; a build with
// PIXTANE_PATTERN_FILL shows by this number where somebody relies on zeros.
#ifdef PIXTANE_PATTERN_FILL
constexpr LONG UNSET_FIELD = static_cast<LONG>(0xCDCDCDCD);
#else
constexpr LONG UNSET_FIELD = 0;
#endif

} // namespace winlite

class CSize : public SIZE
{
public:
    CSize() : SIZE{winlite::UNSET_FIELD, winlite::UNSET_FIELD} {}
    CSize(int x, int y) : SIZE{x, y} {}
    CSize(const SIZE& sz) : SIZE(sz) {}
    bool operator==(const SIZE& sz) const { return cx == sz.cx && cy == sz.cy; }
};

/// A point. Code must not rely on what the default constructors of these classes leave in the fields.
class CPoint : public POINT
{
public:
    CPoint() : POINT{winlite::UNSET_FIELD, winlite::UNSET_FIELD} {}
    CPoint(int xPoint, int yPoint) : POINT{xPoint, yPoint} {}
    CPoint(const POINT& pt) : POINT(pt) {}
    CPoint(const SIZE& sz) : POINT{sz.cx, sz.cy} {}

    void Offset(int dx, int dy)
    {
        x += dx;
        y += dy;
    }
    bool operator==(const POINT& pt) const { return x == pt.x && y == pt.y; }
    CPoint operator+(const POINT& pt) const { return {x + pt.x, y + pt.y}; }
    CPoint operator+(const SIZE& sz) const { return {x + sz.cx, y + sz.cy}; }
    CSize operator-(const POINT& pt) const { return {x - pt.x, y - pt.y}; }
};

/// A half-open rectangle. Width and height may be negative.
class CRect : public RECT
{
public:
    CRect() : CRect(winlite::UNSET_FIELD, winlite::UNSET_FIELD, winlite::UNSET_FIELD, winlite::UNSET_FIELD) {}
    CRect(int l, int t, int r, int b) : RECT{l, t, r, b} {}
    CRect(const RECT& rc) : RECT(rc) {}
    CRect(const POINT& pt, const SIZE& sz) : RECT{pt.x, pt.y, pt.x + sz.cx, pt.y + sz.cy} {}

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    CSize Size() const { return {Width(), Height()}; }
    CPoint TopLeft() const { return {left, top}; }
    CPoint CenterPoint() const { return {(left + right) / 2, (top + bottom) / 2}; }
    operator LPRECT() { return this; }
    operator LPCRECT() const { return this; }

    /// Whether it has no area.
    BOOL IsRectEmpty() const { return right <= left || bottom <= top; }
    BOOL IsRectNull() const { return left == 0 && top == 0 && right == 0 && bottom == 0; }
    BOOL PtInRect(const POINT& pt) const { return pt.x >= left && pt.x < right && pt.y >= top && pt.y < bottom; }
    void SetRectEmpty() { *this = CRect(0, 0, 0, 0); }
    void SetRect(int l, int t, int r, int b) { *this = CRect(l, t, r, b); }
    void OffsetRect(int dx, int dy);
    void InflateRect(int dx, int dy);
    void DeflateRect(int dx, int dy) { InflateRect(-dx, -dy); }
    void NormalizeRect();

    /// The common part of two ordered rectangles; FALSE and all 0 when there is none.
    BOOL IntersectRect(LPCRECT prc1, LPCRECT prc2);

    /// The smallest rectangle around both, empty ones not counted; FALSE when both are empty.
    BOOL UnionRect(LPCRECT prc1, LPCRECT prc2);

    bool operator==(const RECT& rc) const
    {
        return left == rc.left && top == rc.top && right == rc.right && bottom == rc.bottom;
    }
};
