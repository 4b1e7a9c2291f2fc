#include "gdiplus/Startup.h"

#include "gdiplus/GdiPlus.h"
#include "gdiplus/TextEngine.h"

#include <atomic>

namespace Gdiplus
{

namespace
{

// All starts are alike, so they share one token.
constexpr ULONG_PTR TOKEN = 1;
std::atomic<int> s_nStarts = 0;

} // namespace

bool IsStarted() { return s_nStarts > 0; }

Status GdiplusStartup(ULONG_PTR* puToken, const GdiplusStartupInput* pInput, GdiplusStartupOutput*)
{
    if (!puToken || !pInput || pInput->GdiplusVersion != 1)
        return InvalidParameter;
    ++s_nStarts;
    *puToken = TOKEN;
    return Ok;
}

void GdiplusShutdown(ULONG_PTR uToken)
{
    int nStarts = s_nStarts;
    while (uToken == TOKEN && nStarts > 0 && !s_nStarts.compare_exchange_weak(nStarts, nStarts - 1))
    {
    }
    if (!IsStarted())
        winlite::TextEngine::Release();
}

} // namespace Gdiplus
