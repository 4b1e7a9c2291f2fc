#include "base/StateLock.h"
#include "user/ScrollBar.h"
#include "user/WindowObject.h"

#include <map>

namespace winlite
{

namespace
{

std::map<std::wstring, WindowClass, std::less<>>& Classes()
{
    static auto* pClasses = new std::map<std::wstring, WindowClass, std::less<>>;
    return *pClasses;
}

/// The classes that are there from the start.
void EnsureSystemClasses()
{
    static const bool s_bRegistered = []
    {
        RegisterScrollBarClass();
        return true;
    }();
    static_cast<void>(s_bRegistered);
}

const WindowClass* Find(LPCWSTR pszName)
{
    StateLock lock;
    const auto it = pszName ? Classes().find(std::wstring_view(pszName)) : Classes().end();
    return it == Classes().end() ? nullptr : &it->second;
}

} // namespace

const WindowClass* FindWindowClass(LPCWSTR pszName)
{
    EnsureSystemClasses();
    return Find(pszName);
}

} // namespace winlite

using namespace winlite;

ATOM RegisterClass(const WNDCLASS* pClass)
{
    // The handle of a class is never asked for here; a number that counts them serves as one.
    constexpr int FIRST_ATOM = 0xC000;
    if (!pClass || !pClass->lpszClassName || !pClass->lpfnWndProc || Find(pClass->lpszClassName))
        return 0;
    StateLock lock;
    auto& classes = Classes();
    WindowClass& entry = classes[pClass->lpszClassName];
    entry = {pClass->lpszClassName, *pClass};
    entry.wndClass.lpszClassName = entry.strName.c_str();
    return static_cast<ATOM>(FIRST_ATOM + classes.size());
}

BOOL GetClassInfo(HINSTANCE, LPCWSTR pszClass, WNDCLASS* pClass)
{
    const WindowClass* pEntry = FindWindowClass(pszClass);
    if (!pEntry)
        return FALSE;
    *pClass = pEntry->wndClass;
    return TRUE;
}
