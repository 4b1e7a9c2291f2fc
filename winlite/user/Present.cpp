#include "base/Desktop.h"
#include "base/StateLock.h"
#include "user/Window.h"
#include "user/WindowObject.h"

#include <utility>

namespace winlite
{

namespace
{

// A screen shows about sixty pictures a second; more often than that nobody sees a difference.
constexpr std::uint64_t REFRESH_MS = 16;
std::uint64_t s_uLastPresented = 0;

// Repaints in the mouse move that is being handled. One for the scrolling and one for what a tool draws belong to every
// move; a handler that goes on repainting scrolls at the edge.
constexpr int REPAINTS_OF_A_MOVE = 2;
int s_nRepaintsInMove = 0;
bool s_bInCapturedMove = false;

/// Takes the damage of a window that can be shown; empty otherwise.
Region TakeDamage(WindowObject& window)
{
    StateLock lock;
    Region rgnDamage = std::exchange(window.rgnDamage, Region()) & window.ClientRect();
    return window.IsDrawable() && window.pSurface ? rgnDamage : Region();
}

} // namespace

void PresentDamage()
{
    s_uLastPresented = TheDesktop().TickCount();
    std::vector<std::shared_ptr<WindowObject>> vWindows;
    {
        StateLock lock;
        vWindows = TopLevelWindows();
    }
    for (const auto& pWindow : vWindows)
    {
        const Region rgnDamage = TakeDamage(*pWindow);
        if (rgnDamage.IsEmpty())
            continue;
        const Surface& surface = *pWindow->pSurface;
        const SurfaceView view = {surface.Pixels(), surface.Width(), surface.Height(), surface.Stride()};
        StateLock::AssertNotHeld();
        TheDesktop().Present(pWindow->hWnd, view, rgnDamage.Rects());
    }
}

void BeginHandling(UINT uMessage)
{
    s_bInCapturedMove = uMessage == WM_MOUSEMOVE && ::GetCapture();
    s_nRepaintsInMove = 0;
}

void PresentWithinHandler()
{
    const bool bScrollsAtEdge = s_bInCapturedMove && ++s_nRepaintsInMove > REPAINTS_OF_A_MOVE;
    const std::uint64_t uSince = TheDesktop().TickCount() - s_uLastPresented;
    if (bScrollsAtEdge && uSince < REFRESH_MS)
        TheDesktop().WaitForRefresh(static_cast<int>(REFRESH_MS - uSince));
    else if (uSince < REFRESH_MS)
        return;
    PresentDamage();
    TheDesktop().ShowPresented();
}

Picture WindowPicture(HWND hTopLevel)
{
    const auto pWindow = FindWindowObject(hTopLevel);
    if (!pWindow || pWindow->pParent)
        return {};
    const Surface& surface = *pWindow->EnsureSurface();
    Picture picture = {surface.Width(), surface.Height(), {}};
    const std::uint32_t* pPixels = surface.Pixels();
    for (int y = 0; y < picture.cy; ++y)
    {
        for (int x = 0; x < picture.cx; ++x)
            picture.vPixels.push_back(pPixels[y * surface.Stride() + x] & 0xFFFFFF);
    }
    return picture;
}

} // namespace winlite
