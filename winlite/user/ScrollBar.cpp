#include "user/ScrollBar.h"

#include "user/ScrollBarLayout.h"
#include "user/WindowObject.h"

#include <algorithm>
#include <map>

namespace winlite
{

namespace
{

struct State
{
    ScrollInfo info;
    bool bPictureOld = false; ///< Something visible was changed without asking for a repaint.
};

std::map<HWND, State>& States()
{
    static auto* pStates = new std::map<HWND, State>;
    return *pStates;
}

bool HasStyle(HWND hWnd, DWORD dwStyle) { return (::GetWindowLongPtr(hWnd, GWL_STYLE) & dwStyle) != 0; }

ScrollBarLayout LayoutOf(HWND hWnd, const ScrollInfo& info)
{
    RECT rcClient = {};
    ::GetClientRect(hWnd, &rcClient);
    return {{rcClient.right, rcClient.bottom}, HasStyle(hWnd, SBS_VERT), info};
}

// ---- drawing

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

void DrawThumb(HDC hDC, RECT rc, bool bVertical)
{
    const SolidBrush brush(RGB(0xBC, 0xBC, 0xBC));
    LONG& iNear = bVertical ? rc.left : rc.top;
    LONG& iFar = bVertical ? rc.right : rc.bottom;
    const int nInset = (iFar - iNear) * 2 / 17;
    iNear += nInset;
    iFar -= nInset;
    ::FillRect(hDC, &rc, brush);
}

void Draw(HDC hDC, HWND hWnd, const ScrollInfo& info)
{
    const bool bVertical = HasStyle(hWnd, SBS_VERT);
    const bool bDisabled = info.IsDisabled() || HasStyle(hWnd, WS_DISABLED);
    const ScrollBarLayout layout = LayoutOf(hWnd, info);
    RECT rcClient;
    ::GetClientRect(hWnd, &rcClient);
    ::FillRect(hDC, &rcClient, ::GetSysColorBrush(COLOR_SCROLLBAR));

    const SolidBrush brushArrow(bDisabled ? RGB(0xC4, 0xC4, 0xC4) : RGB(0x60, 0x60, 0x60));
    DrawArrow(hDC, layout.ArrowLess(), bVertical, false, brushArrow);
    DrawArrow(hDC, layout.ArrowMore(), bVertical, true, brushArrow);
    if (const auto rcThumb = layout.Thumb(); rcThumb && !bDisabled)
        DrawThumb(hDC, *rcThumb, bVertical);
}

// ---- messages

/// A bar with an align style takes the standard thickness along that edge of the rectangle it was given.
LRESULT OnCreate(HWND hWnd, State&, WPARAM, LPARAM)
{
    const auto pWindow = FindWindowObject(hWnd);
    if (!pWindow || !pWindow->HasStyle(SBS_RIGHTALIGN))
        return 0;
    RECT rc = pWindow->RectInParent();
    if (pWindow->HasStyle(SBS_VERT))
        rc.left = rc.right - ::GetSystemMetrics(SM_CXVSCROLL);
    else
        rc.top = rc.bottom - ::GetSystemMetrics(SM_CYHSCROLL);
    ::MoveWindow(hWnd, rc.left, rc.top, rc.right - rc.left, rc.bottom - rc.top, FALSE);
    return 0;
}

LRESULT OnSetInfo(HWND hWnd, State& state, WPARAM wParam, LPARAM lParam)
{
    const auto pInfo = reinterpret_cast<const SCROLLINFO*>(lParam);
    if (!pInfo)
        return 0;
    const ScrollInfo infoOld = state.info;
    const int iPosition = state.info.Set(*pInfo);
    const bool bSameThumb = LayoutOf(hWnd, state.info).HasSameThumb(LayoutOf(hWnd, infoOld));
    state.bPictureOld |= !bSameThumb || state.info.IsDisabled() != infoOld.IsDisabled();
    if (state.bPictureOld && wParam)
    {
        state.bPictureOld = false;
        ::InvalidateRect(hWnd, nullptr, FALSE);
    }
    return iPosition;
}

LRESULT OnGetInfo(HWND, State& state, WPARAM, LPARAM lParam)
{
    const auto pInfo = reinterpret_cast<SCROLLINFO*>(lParam);
    if (!pInfo)
        return FALSE;
    state.info.Get(*pInfo);
    return TRUE;
}

LRESULT OnPaint(HWND hWnd, State& state, WPARAM, LPARAM)
{
    PAINTSTRUCT paint;
    if (const HDC hDC = ::BeginPaint(hWnd, &paint))
        Draw(hDC, hWnd, state.info);
    ::EndPaint(hWnd, &paint);
    return 0;
}

/// Every pixel is painted, so nothing needs erasing first.
LRESULT OnEraseBackground(HWND, State&, WPARAM, LPARAM) { return 1; }

LRESULT OnNcDestroy(HWND hWnd, State&, WPARAM, LPARAM)
{
    States().erase(hWnd);
    return 0;
}

constexpr struct
{
    UINT uMessage;
    LRESULT (*pHandler)(HWND, State&, WPARAM, LPARAM);
} HANDLERS[] = {
    {WM_CREATE, &OnCreate},
    {WM_PAINT, &OnPaint},
    {WM_ERASEBKGND, &OnEraseBackground},
    {WM_NCDESTROY, &OnNcDestroy},
    {SBM_SETSCROLLINFO, &OnSetInfo},
    {SBM_GETSCROLLINFO, &OnGetInfo},
};

} // namespace

LRESULT ScrollBarProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    if (uMessage == WM_NCCREATE)
        States()[hWnd] = {};
    const auto itState = States().find(hWnd);
    const auto itHandler =
        std::ranges::find_if(HANDLERS, [&](const auto& entry) { return entry.uMessage == uMessage; });
    if (itState == States().end() || itHandler == std::end(HANDLERS))
        return ::DefWindowProc(hWnd, uMessage, wParam, lParam);
    return itHandler->pHandler(hWnd, itState->second, wParam, lParam);
}

void RegisterScrollBarClass()
{
    WNDCLASS wndClass = {};
    wndClass.style = CS_HREDRAW | CS_VREDRAW | CS_DBLCLKS;
    wndClass.lpfnWndProc = &ScrollBarProc;
    wndClass.hCursor = ::LoadCursor(nullptr, IDC_ARROW);
    wndClass.lpszClassName = L"SCROLLBAR";
    ::RegisterClass(&wndClass);
}

} // namespace winlite

int SetScrollInfo(HWND hWnd, int iBar, LPCSCROLLINFO pInfo, BOOL bRedraw)
{
    if (iBar != SB_CTL)
        return 0;
    return static_cast<int>(
        ::SendMessage(hWnd, SBM_SETSCROLLINFO, static_cast<WPARAM>(bRedraw), reinterpret_cast<LPARAM>(pInfo)));
}

BOOL GetScrollInfo(HWND hWnd, int iBar, LPSCROLLINFO pInfo)
{
    if (iBar != SB_CTL)
        return FALSE;
    return ::SendMessage(hWnd, SBM_GETSCROLLINFO, 0, reinterpret_cast<LPARAM>(pInfo)) != 0;
}
