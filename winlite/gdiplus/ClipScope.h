#pragma once

#include "gdi/DeviceContext.h"

namespace winlite
{

/// Draws on a device context within another clip region (logical coordinates; NULL: none) while it lives.
class ClipScope
{
public:
    ClipScope(DeviceContext& dc, const Region* pClip) : m_dc(dc), m_rgnBefore(dc.ApplicationClip())
    {
        dc.SetClip(pClip ? std::optional(*pClip) : std::nullopt);
    }
    ~ClipScope() { m_dc.SetClip(m_rgnBefore); }
    ClipScope(const ClipScope&) = delete;
    ClipScope& operator=(const ClipScope&) = delete;

private:
    DeviceContext& m_dc;
    std::optional<Region> m_rgnBefore;
};

} // namespace winlite
