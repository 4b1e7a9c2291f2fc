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

// How often a handler repaints, asks where the pointer is now and repaints again before that is a loop: a handler that
// tells somebody the pointer's place does so once.
constexpr int ROUNDS_OF_A_LOOP = 2;

/// Recognises, in the handling of one captured mouse move, the loop that scrolls while the pointer is at the edge: no
/// other handler comes back to the pointer after each repaint.
struct HandledMove
{
    bool bCaptured = false;
    bool bRepainted = false;
    bool bAsked = false; ///< For the pointer, since the last repaint.
    int nRounds = 0;

    void OnPointerAsked() { bAsked = bRepainted; }
    void OnRepaint()
    {
        nRounds += std::exchange(bAsked, false);
        bRepainted = true;
    }
    bool ScrollsAtEdge() const { return bCaptured && nRounds >= ROUNDS_OF_A_LOOP; }
};

// Of each thread, since any may ask for the pointer.
thread_local HandledMove t_Move;

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
    t_Move = {};
    t_Move.bCaptured = uMessage == WM_MOUSEMOVE && ::GetCapture();
}

void NotePointerAsked() { t_Move.OnPointerAsked(); }

void PresentWithinHandler()
{
    t_Move.OnRepaint();
    const std::uint64_t uSince = TheDesktop().TickCount() - s_uLastPresented;
    if (t_Move.ScrollsAtEdge() && uSince < REFRESH_MS)
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
