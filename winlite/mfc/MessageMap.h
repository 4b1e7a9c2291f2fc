#pragma once

#include "mfc/Geometry.h"
#include "user/User.h"

#include <tuple>
#include <type_traits>

class CWnd;
class CDC;
class CScrollBar;

/// One line of a message map: a message, and what calls its handler.
struct AFX_MSGMAP_ENTRY
{
    UINT nMessage;
    LRESULT (*pfnCall)(CWnd& wnd, WPARAM wParam, LPARAM lParam);
    UINT nCode = 0; ///< Of a WM_NOTIFY: the code,
    UINT nID = 0;   ///< and the control's id.
};

/// A class's message map: its entries, ended by one without a call, and the map of its base class.
struct AFX_MSGMAP
{
    const AFX_MSGMAP* (*pfnGetBaseMap)();
    const AFX_MSGMAP_ENTRY* lpEntries;
};

namespace winlite
{

// What a handler of each message gets. A message's parameters are decoded here and nowhere else.
std::tuple<> NoArguments(WPARAM, LPARAM);
std::tuple<CDC*> EraseArguments(WPARAM wParam, LPARAM);
std::tuple<UINT, int, int> SizeArguments(WPARAM wParam, LPARAM lParam);
std::tuple<UINT, UINT, CScrollBar*> ScrollArguments(WPARAM wParam, LPARAM lParam);
std::tuple<UINT_PTR> TimerArguments(WPARAM wParam, LPARAM);
std::tuple<UINT, CPoint> MouseArguments(WPARAM wParam, LPARAM lParam);
std::tuple<UINT, short, CPoint> WheelArguments(WPARAM wParam, LPARAM lParam);
std::tuple<UINT, UINT, UINT> KeyArguments(WPARAM wParam, LPARAM lParam);
std::tuple<CWnd*, UINT, UINT> SetCursorArguments(WPARAM wParam, LPARAM lParam);
std::tuple<CWnd*> OtherWindowArgument(WPARAM wParam, LPARAM); ///< In wParam.
std::tuple<CWnd*> CaptureArguments(WPARAM, LPARAM lParam);

template<class C, class R, class... Arguments>
C* ClassOfHandler(R (C::*)(Arguments...));

/// Decodes a message and calls the member function.
template<auto pHandler, auto pDecode>
LRESULT CallHandler(CWnd& wnd, WPARAM wParam, LPARAM lParam)
{
    using Class = std::remove_pointer_t<decltype(ClassOfHandler(pHandler))>;
    const auto call = [&wnd](auto... arguments) -> LRESULT
    {
        auto& target = static_cast<Class&>(wnd);
        if constexpr (std::is_void_v<decltype((target.*pHandler)(arguments...))>)
        {
            (target.*pHandler)(arguments...);
            return 0;
        }
        else
        {
            return (target.*pHandler)(arguments...);
        }
    };
    return std::apply(call, pDecode(wParam, lParam));
}

/// Calls a handler of WM_NOTIFY; the reply is what it puts into *plResult.
template<auto pHandler>
LRESULT CallNotifyHandler(CWnd& wnd, WPARAM, LPARAM lParam)
{
    using Class = std::remove_pointer_t<decltype(ClassOfHandler(pHandler))>;
    LRESULT lResult = 0;
    (static_cast<Class&>(wnd).*pHandler)(reinterpret_cast<NMHDR*>(lParam), &lResult);
    return lResult;
}

} // namespace winlite

// The message map macros, in the form that every source written for the framework has.
#define DECLARE_MESSAGE_MAP()                                                                                          \
protected:                                                                                                             \
    static const AFX_MSGMAP* GetThisMessageMap();                                                                      \
    const AFX_MSGMAP* GetMessageMap() const override;
#define BEGIN_MESSAGE_MAP(theClass, baseClass)                                                                         \
    const AFX_MSGMAP* theClass::GetMessageMap() const { return GetThisMessageMap(); }                                  \
    const AFX_MSGMAP* theClass::GetThisMessageMap()                                                                    \
    {                                                                                                                  \
        using ThisClass [[maybe_unused]] = theClass;                                                                   \
        using TheBaseClass = baseClass;                                                                                \
        static const AFX_MSGMAP_ENTRY s_vEntries[] = {
#define END_MESSAGE_MAP()                                                                                              \
    {                                                                                                                  \
        WM_NULL, nullptr                                                                                               \
    }                                                                                                                  \
    }                                                                                                                  \
    ;                                                                                                                  \
    static const AFX_MSGMAP s_Map = {&TheBaseClass::GetThisMessageMap, s_vEntries};                                    \
    return &s_Map;                                                                                                     \
    }
#define ON_WM_PAINT() {WM_PAINT, &winlite::CallHandler<&ThisClass::OnPaint, winlite::NoArguments>},
#define ON_WM_ERASEBKGND() {WM_ERASEBKGND, &winlite::CallHandler<&ThisClass::OnEraseBkgnd, winlite::EraseArguments>},
#define ON_WM_SIZE() {WM_SIZE, &winlite::CallHandler<&ThisClass::OnSize, winlite::SizeArguments>},
#define ON_WM_HSCROLL() {WM_HSCROLL, &winlite::CallHandler<&ThisClass::OnHScroll, winlite::ScrollArguments>},
#define ON_WM_VSCROLL() {WM_VSCROLL, &winlite::CallHandler<&ThisClass::OnVScroll, winlite::ScrollArguments>},
#define ON_WM_TIMER() {WM_TIMER, &winlite::CallHandler<&ThisClass::OnTimer, winlite::TimerArguments>},
#define ON_WM_DESTROY() {WM_DESTROY, &winlite::CallHandler<&ThisClass::OnDestroy, winlite::NoArguments>},
#define ON_WM_NCDESTROY() {WM_NCDESTROY, &winlite::CallHandler<&ThisClass::OnNcDestroy, winlite::NoArguments>},
#define ON_WM_LBUTTONDOWN() {WM_LBUTTONDOWN, &winlite::CallHandler<&ThisClass::OnLButtonDown, winlite::MouseArguments>},
#define ON_WM_LBUTTONUP() {WM_LBUTTONUP, &winlite::CallHandler<&ThisClass::OnLButtonUp, winlite::MouseArguments>},
#define ON_WM_LBUTTONDBLCLK()                                                                                          \
    {WM_LBUTTONDBLCLK, &winlite::CallHandler<&ThisClass::OnLButtonDblClk, winlite::MouseArguments>},
#define ON_WM_RBUTTONDOWN() {WM_RBUTTONDOWN, &winlite::CallHandler<&ThisClass::OnRButtonDown, winlite::MouseArguments>},
#define ON_WM_RBUTTONUP() {WM_RBUTTONUP, &winlite::CallHandler<&ThisClass::OnRButtonUp, winlite::MouseArguments>},
#define ON_WM_MOUSEMOVE() {WM_MOUSEMOVE, &winlite::CallHandler<&ThisClass::OnMouseMove, winlite::MouseArguments>},
#define ON_WM_KEYDOWN() {WM_KEYDOWN, &winlite::CallHandler<&ThisClass::OnKeyDown, winlite::KeyArguments>},
#define ON_WM_KEYUP() {WM_KEYUP, &winlite::CallHandler<&ThisClass::OnKeyUp, winlite::KeyArguments>},
#define ON_WM_SYSKEYDOWN() {WM_SYSKEYDOWN, &winlite::CallHandler<&ThisClass::OnSysKeyDown, winlite::KeyArguments>},
#define ON_WM_SYSKEYUP() {WM_SYSKEYUP, &winlite::CallHandler<&ThisClass::OnSysKeyUp, winlite::KeyArguments>},
#define ON_WM_SETCURSOR() {WM_SETCURSOR, &winlite::CallHandler<&ThisClass::OnSetCursor, winlite::SetCursorArguments>},
#define ON_WM_CAPTURECHANGED()                                                                                         \
    {WM_CAPTURECHANGED, &winlite::CallHandler<&ThisClass::OnCaptureChanged, winlite::CaptureArguments>},
#define ON_WM_SETFOCUS() {WM_SETFOCUS, &winlite::CallHandler<&ThisClass::OnSetFocus, winlite::OtherWindowArgument>},
#define ON_WM_KILLFOCUS() {WM_KILLFOCUS, &winlite::CallHandler<&ThisClass::OnKillFocus, winlite::OtherWindowArgument>},
#define ON_WM_MOUSEWHEEL() {WM_MOUSEWHEEL, &winlite::CallHandler<&ThisClass::OnMouseWheel, winlite::WheelArguments>},
// memberFxn is void (NMHDR* pNotify, LRESULT* plResult).
#define ON_NOTIFY(wNotifyCode, id, memberFxn) {WM_NOTIFY, &winlite::CallNotifyHandler<memberFxn>, wNotifyCode, id},
