#include "base/Desktop.h"

#include <atomic>
#include <cassert>

namespace winlite
{

namespace
{
std::atomic<Desktop*> s_pDesktop = nullptr;
}

void SetDesktop(Desktop* pDesktop) { s_pDesktop = pDesktop; }

Desktop& TheDesktop()
{
    Desktop* pDesktop = s_pDesktop;
    assert(pDesktop);
    return *pDesktop;
}

bool HasDesktop() { return s_pDesktop != nullptr; }

} // namespace winlite
