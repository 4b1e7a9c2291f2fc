#include "user/ScrollBarState.h"

#include <algorithm>

namespace winlite
{

namespace
{

/// A brush that goes with its scope.
class SolidBrush
{
public:
    explicit SolidBrush(COLORREF cr) : m_hBrush(::CreateSolidBrush(cr)) {}
    ~SolidBrush() { ::DeleteObject(m_hBrush); }
    SolidBrush(const SolidBrush&) = delete;
    SolidBrush& operator=(const SolidBrush&) = delete;
    operator HBRUSH() const { return m_hBrush; }

private:
    HBRUSH m_hBrush;
};

/// An upright rectangle for a vertical bar, and the same lying on its side for a horizontal one.
RECT Oriented(bool bVertical, int iAlong, int nAlong, int iAcross, int nAcross)
{
    return bVertical ? RECT{iAcross, iAlong, iAcross + nAcross, iAlong + nAlong}
                     : RECT{iAlong, iAcross, iAlong + nAlong, iAcross + nAcross};
}

/// Draws a triangle in the middle of an arrow's rectangle, a line at a time from its tip. Its height and base have the
/// parity of the rectangle's sides, so that it stands exactly in the middle.
void DrawArrow(HDC hDC, const RECT& rc, bool bVertical, bool bMore, HBRUSH hBrush)
{
    const int iStart = bVertical ? rc.top : rc.left;
    const int nAlong = (bVertical ? rc.bottom : rc.right) - iStart;
    const int nAcross = bVertical ? rc.right : rc.bottom;
    int nLines = std::min(nAlong, nAcross) * 5 / 17;
    nLines += (nAlong - nLines) % 2;
    for (int i = 0; i < nLines; ++i)
    {
        const int iLine = iStart + (nAlong - nLines) / 2 + (bMore ? nLines - 1 - i : i);
        const int nWidth = 2 * i + 2 - nAcross % 2;
        const RECT rcLine = Oriented(bVertical, iLine, 1, (nAcross - nWidth) / 2, nWidth);
        ::FillRect(hDC, &rcLine, hBrush);
    }
}

void DrawThumb(HDC hDC, RECT rc, bool bVertical, bool bHeld)
{
    const SolidBrush brush(bHeld ? RGB(0x90, 0x90, 0x90) : RGB(0xBC, 0xBC, 0xBC));
    LONG& iNear = bVertical ? rc.left : rc.top;
    LONG& iFar = bVertical ? rc.right : rc.bottom;
    const int nInset = (iFar - iNear) * 2 / 17;
    iNear += nInset;
    iFar -= nInset;
    ::FillRect(hDC, &rc, brush);
}

} // namespace

void DrawScrollBar(HDC hDC, HWND hWnd, const ScrollBarState& state)
{
    const bool bVertical = IsVerticalBar(hWnd);
    const bool bDisabled = state.info.IsDisabled() || !::IsWindowEnabled(hWnd);
    const ScrollBarLayout layout = LayoutOfBar(hWnd, state.info);
    RECT rcClient;
    ::GetClientRect(hWnd, &rcClient);
    ::FillRect(hDC, &rcClient, ::GetSysColorBrush(COLOR_SCROLLBAR));

    const SolidBrush brushArrow(bDisabled ? RGB(0xC4, 0xC4, 0xC4) : RGB(0x60, 0x60, 0x60));
    DrawArrow(hDC, layout.ArrowLess(), bVertical, false, brushArrow);
    DrawArrow(hDC, layout.ArrowMore(), bVertical, true, brushArrow);
    if (const auto rcThumb = layout.Thumb(); rcThumb && !bDisabled)
        DrawThumb(hDC, *rcThumb, bVertical, state.partHeld == ScrollBarPart::Thumb);
}

} // namespace winlite
