#include "base/Desktop.h"
#include "gdi/Handles.h"
#include "user/User.h"

#include <algorithm>
#include <cmath>
#include <map>

using namespace winlite;

namespace
{

int s_iBarThickness = 0;
int s_iMeasured = 0; // the desktop it is of, by count

/// The scroll bars' thickness, which stays what it was when this desktop was first asked.
int BarThickness()
{
    constexpr int THICKNESS_AT_96_DPI = 17;
    if (s_iMeasured != DesktopCount())
    {
        s_iMeasured = DesktopCount();
        s_iBarThickness = static_cast<int>(std::lround(THICKNESS_AT_96_DPI * TheDesktop().Scale()));
    }
    return s_iBarThickness;
}

int Width(const RECT& rc) { return rc.right - rc.left; }
int Height(const RECT& rc) { return rc.bottom - rc.top; }

constexpr struct
{
    int iIndex;
    COLORREF cr;
} SYSTEM_COLOURS[] = {
    {COLOR_SCROLLBAR, RGB(0xE6, 0xE6, 0xE6)},
    {COLOR_WINDOW, RGB(0xFF, 0xFF, 0xFF)},
    {COLOR_BTNFACE, RGB(0xF0, 0xF0, 0xF0)},
    {COLOR_BTNSHADOW, RGB(0xA0, 0xA0, 0xA0)},
};

const COLORREF* FindSystemColour(int iIndex)
{
    const auto it = std::ranges::find_if(SYSTEM_COLOURS, [&](const auto& entry) { return entry.iIndex == iIndex; });
    return it == std::end(SYSTEM_COLOURS) ? nullptr : &it->cr;
}

HBRUSH OpenStockBrush(COLORREF cr)
{
    auto pBrush = std::make_shared<BrushObject>();
    pBrush->bStock = true;
    pBrush->crSolid = cr;
    const HBRUSH hBrush = OpenTyped<HBRUSH>(std::move(pBrush));
    DoNotCountHandle(hBrush);
    return hBrush;
}

} // namespace

int GetSystemMetrics(int iIndex)
{
    switch (iIndex)
    {
    case SM_XVIRTUALSCREEN:
        return TheDesktop().VirtualScreen().left;
    case SM_YVIRTUALSCREEN:
        return TheDesktop().VirtualScreen().top;
    case SM_CXVIRTUALSCREEN:
        return Width(TheDesktop().VirtualScreen());
    case SM_CYVIRTUALSCREEN:
        return Height(TheDesktop().VirtualScreen());
    case SM_CXSCREEN:
        return TheDesktop().ScreenSize().cx;
    case SM_CYSCREEN:
        return TheDesktop().ScreenSize().cy;
    case SM_CXVSCROLL:
    case SM_CYHSCROLL:
        return BarThickness();
    default:
        return 0;
    }
}

COLORREF GetSysColor(int iIndex)
{
    const COLORREF* pColour = FindSystemColour(iIndex);
    return pColour ? *pColour : 0;
}

HBRUSH GetSysColorBrush(int iIndex)
{
    static auto* pBrushes = new std::map<int, HBRUSH>; // They live as long as the program.
    const COLORREF* pColour = FindSystemColour(iIndex);
    if (!pColour)
        return nullptr;
    HBRUSH& hBrush = (*pBrushes)[iIndex];
    if (!hBrush)
        hBrush = OpenStockBrush(*pColour);
    return hBrush;
}
