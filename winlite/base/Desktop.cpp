#include "base/Desktop.h"

#include "base/Thread.h"

#include <atomic>
#include <cassert>

namespace winlite
{

namespace
{
std::atomic<Desktop*> s_pDesktop = nullptr;
std::atomic<int> s_nDesktops = 0;
} // namespace

void SetDesktop(Desktop* pDesktop)
{
    s_pDesktop = pDesktop;
    s_nDesktops += pDesktop != nullptr;
    if (pDesktop)
        SetUserInterfaceThread();
}

RECT Desktop::VirtualScreen()
{
    const SIZE szScreen = ScreenSize();
    return {0, 0, szScreen.cx, szScreen.cy};
}

int DesktopCount() { return s_nDesktops; }

Desktop& TheDesktop()
{
    Desktop* pDesktop = s_pDesktop;
    assert(pDesktop);
    return *pDesktop;
}

bool HasDesktop() { return s_pDesktop != nullptr; }

} // namespace winlite
