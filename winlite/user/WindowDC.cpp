#include "base/StateLock.h"
#include "base/Thread.h"
#include "gdi/Handles.h"
#include "user/Window.h"
#include "user/WindowObject.h"

#include <new>
#include <utility>

namespace winlite
{

namespace
{

/// A window's device context may only be given back by what gave it.
class WindowDeviceContext : public DeviceContext
{
public:
    using DeviceContext::DeviceContext;
};

void AddDamage(WindowObject& topLevel, const RECT& rcSurface)
{
    // Past this many pieces their box is presented, which costs less than keeping them apart.
    constexpr std::size_t MANY = 16;
    StateLock lock;
    topLevel.rgnDamage |= rcSurface;
    if (topLevel.rgnDamage.Rects().size() > MANY)
        topLevel.rgnDamage = Region(topLevel.rgnDamage.Box());
}

/// A device context for a part of the window's visible area; rgnPart is in client coordinates and may be NULL for all
/// of it.
HDC OpenWindowDC(WindowObject& window, const Region* prgnPart)
{
    std::shared_ptr<WindowObject> pTopLevel;
    std::shared_ptr<DeviceContext> pDC;
    StateLock lock;
    pTopLevel = FindWindowObject(window.TopLevel().hWnd);
    const POINT ptOrigin = window.SurfaceOrigin();
    Region rgnVisible = window.VisibleRegion();
    if (prgnPart)
    {
        Region rgnPart = *prgnPart;
        rgnPart.Offset(ptOrigin.x, ptOrigin.y);
        rgnVisible &= rgnPart;
    }
    try
    {
        // The context may outlive the window: it holds on to the surface, and to the window only while that lives.
        const auto onDamage = [pWeak = std::weak_ptr(pTopLevel)](const RECT& rcSurface)
        {
            if (const auto pTop = pWeak.lock())
                AddDamage(*pTop, rcSurface);
        };
        pDC = std::make_shared<WindowDeviceContext>(pTopLevel->EnsureSurface(), ptOrigin, std::move(rgnVisible),
                                                    onDamage);
    }
    catch (const std::bad_alloc&)
    {
        return nullptr;
    }
    return reinterpret_cast<HDC>(OpenHandle(std::move(pDC)));
}

} // namespace

} // namespace winlite

using namespace winlite;

HDC GetDC(HWND hWnd)
{
    AssertUserInterfaceThread();
    if (!hWnd)
    {
        const auto pNothing =
            std::make_shared<WindowDeviceContext>(std::make_shared<Surface>(1, 1), POINT{}, Region(), nullptr);
        return reinterpret_cast<HDC>(OpenHandle(pNothing));
    }
    const auto pWindow = FindWindowObject(hWnd);
    return pWindow ? OpenWindowDC(*pWindow, nullptr) : nullptr;
}

int ReleaseDC(HWND, HDC hDC)
{
    if (!FindHandleAs<WindowDeviceContext>(hDC))
        return 0;
    CloseHandleEntry(hDC);
    return 1;
}

HDC BeginPaint(HWND hWnd, PAINTSTRUCT* pPaint)
{
    AssertUserInterfaceThread();
    const auto pWindow = FindWindowObject(hWnd);
    if (!pWindow)
        return nullptr;
    Region rgnUpdate;
    bool bErase;
    {
        StateLock lock;
        std::swap(rgnUpdate, pWindow->rgnUpdate);
        bErase = std::exchange(pWindow->bErase, false);
    }
    *pPaint = {};
    pPaint->hdc = OpenWindowDC(*pWindow, &rgnUpdate);
    pPaint->rcPaint = rgnUpdate.Box();
    if (bErase && pPaint->hdc)
        pPaint->fErase = !::SendMessage(hWnd, WM_ERASEBKGND, reinterpret_cast<WPARAM>(pPaint->hdc), 0);
    return pPaint->hdc;
}

BOOL EndPaint(HWND hWnd, const PAINTSTRUCT* pPaint)
{
    ::ReleaseDC(hWnd, pPaint->hdc);
    return TRUE;
}
