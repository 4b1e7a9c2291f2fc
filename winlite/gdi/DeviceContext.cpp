#include "gdi/DeviceContext.h"

#include "gdi/Handles.h"
#include "gdi/RectMath.h"

#include <cassert>

namespace winlite
{

namespace
{

// More written rectangles than this are told as one: following each of them would cost more than showing the box.
constexpr std::size_t MOST_DAMAGE_RECTS = 16;

} // namespace

DeviceContext::DeviceContext()
    : DeviceContext(FindBitmap(StockBitmap())->pSurface, {}, Region(RECT{0, 0, 1, 1}), nullptr)
{
    m_bMemory = true;
    hBitmap = StockBitmap();
}

DeviceContext::DeviceContext(std::shared_ptr<Surface> pSurface, POINT ptOrigin, Region rgnVisible,
                             std::function<void(const RECT&)> onDamage)
    : m_bMemory(false), m_pSurface(std::move(pSurface)), m_ptOrigin(ptOrigin), m_rgnVisible(std::move(rgnVisible)),
      m_OnDamage(std::move(onDamage))
{
    assert(m_pSurface);
    hBrush = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
    hPen = static_cast<HPEN>(GetStockObject(BLACK_PEN));
    pBrush = FindBrush(hBrush);
    pPen = FindTyped<PenObject>(hPen);
    UpdateClip();
}

RECT DeviceContext::ToSurface(RECT rcLogical) const
{
    const POINT ptUpperLeft = ToSurface(POINT{rcLogical.left, rcLogical.top});
    const POINT ptLowerRight = ToSurface(POINT{rcLogical.right, rcLogical.bottom});
    return {ptUpperLeft.x, ptUpperLeft.y, ptLowerRight.x, ptLowerRight.y};
}

POINT DeviceContext::ToSurface(POINT ptLogical) const
{
    return {Saturated(std::int64_t{ptLogical.x} + m_ptOrigin.x), Saturated(std::int64_t{ptLogical.y} + m_ptOrigin.y)};
}

void DeviceContext::SetClip(const std::optional<Region>& rgnLogical)
{
    if (m_rgnApplication == rgnLogical)
        return;
    m_rgnApplication = rgnLogical;
    UpdateClip();
}

void DeviceContext::SetTarget(std::shared_ptr<Surface> pSurface)
{
    m_pSurface = std::move(pSurface);
    if (m_bMemory)
        m_rgnVisible = Region(m_pSurface->Bounds());
    UpdateClip();
}

void DeviceContext::ReportDamage(const RECT& rcSurface) const
{
    if (m_OnDamage && HasArea(rcSurface))
        m_OnDamage(rcSurface);
}

void DeviceContext::ReportDamage(const Region& rgnSurface) const
{
    const std::span<const RECT> vRects = rgnSurface.Rects();
    if (vRects.size() > MOST_DAMAGE_RECTS)
    {
        ReportDamage(rgnSurface.Box());
        return;
    }
    for (const RECT& rc : vRects)
        ReportDamage(rc);
}

void DeviceContext::UpdateClip()
{
    m_rgnClip = m_rgnVisible & m_pSurface->Bounds();
    if (!m_rgnApplication)
        return;
    Region rgnApplication = *m_rgnApplication;
    rgnApplication.Offset(m_ptOrigin.x, m_ptOrigin.y);
    m_rgnClip &= rgnApplication;
}

} // namespace winlite
