#pragma once

#include "gdi/Objects.h"

#include <functional>

namespace winlite
{

/// What an HDC stands for: a surface to draw on, the part of it that may be drawn, and the drawing state. Logical
/// coordinates are device units with (0, 0) at ptOrigin of the surface; rgnVisible and every Clip result are in surface
/// coordinates. A window's device context reports what it wrote, so that the screen follows. User-interface thread
/// only.
class DeviceContext : public HandleObject
{
public:
    /// A memory device context, with the 1 x 1 monochrome bitmap selected.
    DeviceContext();

    /// One that draws on a part of a window's surface. OnDamage hears each written rectangle, in surface coordinates.
    DeviceContext(std::shared_ptr<Surface> pSurface, POINT ptOrigin, Region rgnVisible,
                  std::function<void(const RECT&)> onDamage);

    bool IsMemory() const { return m_bMemory; }
    Surface& Target() const { return *m_pSurface; }
    const std::shared_ptr<Surface>& TargetPtr() const { return m_pSurface; }
    POINT Origin() const { return m_ptOrigin; }

    RECT ToSurface(RECT rcLogical) const;
    POINT ToSurface(POINT ptLogical) const;

    /// Where drawing may reach: the visible part within the surface, less what the clip region leaves out.
    const Region& Clip() const { return m_rgnClip; }

    /// The application's clip region in logical coordinates; none when empty.
    void SetClip(const std::optional<Region>& rgnLogical);
    const std::optional<Region>& ApplicationClip() const { return m_rgnApplication; }

    /// Changes the surface drawn on (a bitmap was selected).
    void SetTarget(std::shared_ptr<Surface> pSurface);

    /// Says that the rectangle (surface coordinates) was written.
    void ReportDamage(const RECT& rcSurface) const;

    /// The same for a region: a few rectangles one by one, many of them as their box.
    void ReportDamage(const Region& rgnSurface) const;

    // The drawing state, as the functions of Gdi.h set it.
    HBITMAP hBitmap = {};
    HBRUSH hBrush = {};
    HPEN hPen = {};
    std::shared_ptr<BrushObject> pBrush;
    std::shared_ptr<PenObject> pPen;
    COLORREF crText = 0;
    COLORREF crBackground = 0xFFFFFF;
    int iBkMode = OPAQUE;
    int iRop2 = R2_COPYPEN;
    POINT ptBrushOrigin = {};
    POINT ptCurrent = {};
    std::uint64_t nDashPosition = 0; ///< Pixels that LineTo has drawn since the last MoveToEx.

private:
    void UpdateClip();

    bool m_bMemory;
    std::shared_ptr<Surface> m_pSurface;
    POINT m_ptOrigin = {};
    Region m_rgnVisible;
    std::optional<Region> m_rgnApplication; ///< Logical coordinates.
    Region m_rgnClip;
    std::function<void(const RECT&)> m_OnDamage;
};

} // namespace winlite
