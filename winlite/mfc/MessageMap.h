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
