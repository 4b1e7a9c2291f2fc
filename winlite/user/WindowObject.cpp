#include "user/WindowObject.h"

#include "base/StateLock.h"

#include <algorithm>

namespace winlite
{

std::shared_ptr<WindowObject> FindWindowObject(HWND hWnd) { return FindHandleAs<WindowObject>(hWnd); }

std::vector<std::shared_ptr<WindowObject>>& TopLevelWindows()
{
    static auto* pWindows = new std::vector<std::shared_ptr<WindowObject>>;
    return *pWindows;
}

RECT WindowObject::RectInParent() const
{
    return {ptPosition.x, ptPosition.y, ptPosition.x + szClient.cx, ptPosition.y + szClient.cy};
}

bool WindowObject::IsVisible() const { return HasStyle(WS_VISIBLE) && (!pParent || pParent->IsVisible()); }

bool WindowObject::IsDrawable() const { return IsVisible() && !TopLevel().HasStyle(WS_MINIMIZE); }

WindowObject& WindowObject::TopLevel() { return pParent ? pParent->TopLevel() : *this; }

POINT WindowObject::SurfaceOrigin() const
{
    if (!pParent)
        return {0, 0};
    const POINT ptParent = pParent->SurfaceOrigin();
    return {ptParent.x + ptPosition.x, ptParent.y + ptPosition.y};
}

POINT WindowObject::ScreenOrigin() const
{
    const POINT ptSurface = SurfaceOrigin();
    const POINT ptTop = TopLevel().ptPosition;
    return {ptTop.x + ptSurface.x, ptTop.y + ptSurface.y};
}

Region WindowObject::VisibleRegion() const
{
    if (!IsDrawable())
        return Region();
    const POINT ptOrigin = SurfaceOrigin();
    const auto toSurface = [](RECT rc, POINT pt) {
        return RECT{rc.left + pt.x, rc.top + pt.y, rc.right + pt.x, rc.bottom + pt.y};
    };
    Region rgn(toSurface(ClientRect(), ptOrigin));
    if (HasStyle(WS_CLIPCHILDREN))
    {
        for (const auto& pChild : vChildren)
        {
            if (pChild->HasStyle(WS_VISIBLE))
                rgn -= toSurface(pChild->RectInParent(), ptOrigin);
        }
    }
    for (const WindowObject* pWindow = this; pWindow->pParent; pWindow = pWindow->pParent)
    {
        const POINT ptParent = pWindow->pParent->SurfaceOrigin();
        rgn &= toSurface(pWindow->pParent->ClientRect(), ptParent);
        if (!pWindow->HasStyle(WS_CLIPSIBLINGS))
            continue;
        for (const auto& pSibling : pWindow->pParent->vChildren)
        {
            if (pSibling.get() == pWindow)
                break; // Those after it are below it.
            if (pSibling->HasStyle(WS_VISIBLE))
                rgn -= toSurface(pSibling->RectInParent(), ptParent);
        }
    }
    return rgn;
}

const std::shared_ptr<Surface>& WindowObject::EnsureSurface()
{
    if (!pSurface || pSurface->Width() != szClient.cx || pSurface->Height() != szClient.cy)
        pSurface = std::make_shared<Surface>(szClient.cx, szClient.cy);
    return pSurface;
}

} // namespace winlite
