#include "user/ScrollBarState.h"

#include <algorithm>
#include <iterator>

namespace winlite
{

namespace
{

constexpr UINT_PTR REPEAT_TIMER = 1;
constexpr UINT FIRST_REPEAT_MS = 300;
constexpr UINT NEXT_REPEAT_MS = 50;

// Farther than this many thicknesses beside the bar a dragged thumb snaps back.
constexpr int SNAP_BACK_THICKNESSES = 8;

POINT PointOf(LPARAM lParam)
{
    const auto dw = static_cast<DWORD_PTR>(lParam);
    return {static_cast<SHORT>(LOWORD(dw)), static_cast<SHORT>(HIWORD(dw))};
}

/// Tells the parent. It sets the new position, or not: the bar never moves by itself.
void SendScroll(HWND hWnd, int iCode, int iPosition = 0)
{
    ::SendMessage(::GetParent(hWnd), IsVerticalBar(hWnd) ? WM_VSCROLL : WM_HSCROLL, MAKEWPARAM(iCode, iPosition),
                  reinterpret_cast<LPARAM>(hWnd));
}

int CodeOf(ScrollBarPart part)
{
    switch (part)
    {
    case ScrollBarPart::ArrowLess:
        return SB_LINELEFT;
    case ScrollBarPart::ArrowMore:
        return SB_LINERIGHT;
    case ScrollBarPart::ShaftLess:
        return SB_PAGELEFT;
    default:
        return SB_PAGERIGHT;
    }
}

/// The position for the pointer's place, or the one before the drag when it is far off the bar.
int DraggedPosition(const ScrollBarLayout& layout, const ScrollBarState& state)
{
    const int iFar = SNAP_BACK_THICKNESSES * layout.Thickness();
    const int iAcross = layout.Across(state.ptPointer);
    if (iAcross < -iFar || iAcross > layout.Thickness() + iFar)
        return state.iPositionBefore;
    return layout.PositionAt(layout.AlongShaft(state.ptPointer) - state.iGrabOffset);
}

int TrackPosition(const ScrollInfo& info)
{
    SCROLLINFO values = {};
    values.fMask = SIF_TRACKPOS;
    info.Get(values);
    return values.nTrackPos;
}

/// Ends whatever a press began.
void LetGo(HWND hWnd, ScrollBarState& state)
{
    state.partHeld = ScrollBarPart::None;
    state.info.SetTrackPosition(std::nullopt);
    ::KillTimer(hWnd, REPEAT_TIMER);
    ::InvalidateRect(hWnd, nullptr, FALSE);
}

} // namespace

LRESULT OnScrollBarPress(HWND hWnd, ScrollBarState& state, WPARAM, LPARAM lParam)
{
    const ScrollBarLayout layout = LayoutOfBar(hWnd, state.info);
    state.ptPointer = PointOf(lParam);
    state.partHeld = layout.PartAt(state.ptPointer);
    if (state.partHeld == ScrollBarPart::None)
        return 0;
    ::InvalidateRect(hWnd, nullptr, FALSE);
    if (state.partHeld == ScrollBarPart::Thumb)
    {
        state.iGrabOffset = layout.AlongShaft(state.ptPointer) - layout.ThumbOffset();
        state.iPositionBefore = state.info.Position();
        state.info.SetTrackPosition(state.iPositionBefore);
        ::SetCapture(hWnd);
        return 0;
    }
    const int iCode = CodeOf(state.partHeld);
    ::SetTimer(hWnd, REPEAT_TIMER, FIRST_REPEAT_MS, nullptr);
    ::SetCapture(hWnd); // What loses it may end this bar.
    if (::IsWindow(hWnd))
        SendScroll(hWnd, iCode);
    return 0;
}

LRESULT OnScrollBarMove(HWND hWnd, ScrollBarState& state, WPARAM, LPARAM lParam)
{
    state.ptPointer = PointOf(lParam);
    if (state.partHeld != ScrollBarPart::Thumb)
        return 0;
    const int iPosition = DraggedPosition(LayoutOfBar(hWnd, state.info), state);
    if (iPosition == TrackPosition(state.info))
        return 0;
    state.info.SetTrackPosition(iPosition);
    SendScroll(hWnd, SB_THUMBTRACK, iPosition);
    return 0;
}

LRESULT OnScrollBarRelease(HWND hWnd, ScrollBarState& state, WPARAM, LPARAM)
{
    if (state.partHeld == ScrollBarPart::None)
        return 0;
    if (state.partHeld == ScrollBarPart::Thumb)
        SendScroll(hWnd, SB_THUMBPOSITION, TrackPosition(state.info));
    // Losing the capture ends the press; the parent may have ended the bar.
    if (::GetCapture() == hWnd)
        ::ReleaseCapture();
    return 0;
}

LRESULT OnScrollBarRepeat(HWND hWnd, ScrollBarState& state, WPARAM, LPARAM)
{
    const bool bHeld = state.partHeld != ScrollBarPart::None && state.partHeld != ScrollBarPart::Thumb;
    if (!bHeld)
        return 0;
    ::SetTimer(hWnd, REPEAT_TIMER, NEXT_REPEAT_MS, nullptr);
    // Nothing while the pointer is elsewhere; a shaft's part ends where the thumb has come to.
    if (LayoutOfBar(hWnd, state.info).PartAt(state.ptPointer) == state.partHeld)
        SendScroll(hWnd, CodeOf(state.partHeld));
    return 0;
}

LRESULT OnScrollBarCaptureLost(HWND hWnd, ScrollBarState& state, WPARAM, LPARAM lParam)
{
    if (state.partHeld == ScrollBarPart::None || reinterpret_cast<HWND>(lParam) == hWnd)
        return 0;
    LetGo(hWnd, state);
    SendScroll(hWnd, SB_ENDSCROLL);
    return 0;
}

LRESULT OnScrollBarKeyDown(HWND hWnd, ScrollBarState&, WPARAM wParam, LPARAM)
{
    static constexpr struct
    {
        UINT uKey;
        int iCode;
    } KEYS[] = {{VK_LEFT, SB_LINELEFT},  {VK_UP, SB_LINELEFT},    {VK_RIGHT, SB_LINERIGHT}, {VK_DOWN, SB_LINERIGHT},
                {VK_PRIOR, SB_PAGELEFT}, {VK_NEXT, SB_PAGERIGHT}, {VK_HOME, SB_LEFT},       {VK_END, SB_RIGHT}};
    const auto it = std::ranges::find_if(KEYS, [wParam](const auto& key) { return key.uKey == wParam; });
    if (it != std::end(KEYS))
        SendScroll(hWnd, it->iCode);
    return 0;
}

LRESULT OnScrollBarKeyUp(HWND hWnd, ScrollBarState&, WPARAM, LPARAM)
{
    SendScroll(hWnd, SB_ENDSCROLL);
    return 0;
}

} // namespace winlite
