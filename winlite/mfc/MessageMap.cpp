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

} // namespace winlite
