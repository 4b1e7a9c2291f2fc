#include "mfc/MessageMap.h"

#include "mfc/DC.h"
#include "mfc/ScrollBar.h"

namespace winlite
{

namespace
{

/// The device context that a message carries, as an object that does not own it.
class CMessageDC : public CDC
{
public:
    ~CMessageDC() override { Detach(); }
};

/// A message's point; coordinates are negative left of and above the window.
CPoint SignedPoint(LPARAM lParam)
{
    const auto dw = static_cast<DWORD_PTR>(lParam);
    return {static_cast<SHORT>(LOWORD(dw)), static_cast<SHORT>(HIWORD(dw))};
}

} // namespace

std::tuple<> NoArguments(WPARAM, LPARAM) { return {}; }

std::tuple<CDC*> EraseArguments(WPARAM wParam, LPARAM)
{
    thread_local CMessageDC t_DC;
    t_DC.m_hDC = reinterpret_cast<HDC>(wParam);
    return {&t_DC};
}

std::tuple<UINT, int, int> SizeArguments(WPARAM wParam, LPARAM lParam)
{
    return {static_cast<UINT>(wParam), LOWORD(static_cast<DWORD_PTR>(lParam)), HIWORD(static_cast<DWORD_PTR>(lParam))};
}

std::tuple<UINT, UINT, CScrollBar*> ScrollArguments(WPARAM wParam, LPARAM lParam)
{
    // Only a bar that has an object of its own can be handed on as a CScrollBar.
    CWnd* pBar = CWnd::FromHandlePermanent(reinterpret_cast<HWND>(lParam));
    return {LOWORD(wParam), HIWORD(wParam), dynamic_cast<CScrollBar*>(pBar)};
}

std::tuple<UINT_PTR> TimerArguments(WPARAM wParam, LPARAM) { return {wParam}; }

std::tuple<UINT, CPoint> MouseArguments(WPARAM wParam, LPARAM lParam)
{
    return {static_cast<UINT>(wParam), SignedPoint(lParam)};
}

std::tuple<UINT, short, CPoint> WheelArguments(WPARAM wParam, LPARAM lParam)
{
    return {LOWORD(wParam), static_cast<short>(HIWORD(wParam)), SignedPoint(lParam)};
}

std::tuple<UINT, UINT, UINT> KeyArguments(WPARAM wParam, LPARAM lParam)
{
    return {static_cast<UINT>(wParam), LOWORD(static_cast<DWORD_PTR>(lParam)), HIWORD(static_cast<DWORD_PTR>(lParam))};
}

std::tuple<CWnd*, UINT, UINT> SetCursorArguments(WPARAM wParam, LPARAM lParam)
{
    return {CWnd::FromHandle(reinterpret_cast<HWND>(wParam)), LOWORD(static_cast<DWORD_PTR>(lParam)),
            HIWORD(static_cast<DWORD_PTR>(lParam))};
}

std::tuple<CWnd*> OtherWindowArgument(WPARAM wParam, LPARAM)
{
    return {CWnd::FromHandle(reinterpret_cast<HWND>(wParam))};
}

std::tuple<CWnd*> CaptureArguments(WPARAM, LPARAM lParam) { return {CWnd::FromHandle(reinterpret_cast<HWND>(lParam))}; }

} // namespace winlite
