#pragma once

#include "platform/framework.h"

namespace Pixtane
{

/// The region's box; empty for one without a handle, which must not be asked.
inline CRect BoxOf(const CRgn& rgn)
{
    CRect rcBox(0, 0, 0, 0);
    if (rgn.GetSafeHandle())
        rgn.GetRgnBox(&rcBox);
    return rcBox;
}

/// Whether a region has no handle, or one to nothing.
inline bool IsEmpty(const CRgn& rgn)
{
    const CRect rcBox = BoxOf(rgn);
    return rcBox.Width() == 0 && rcBox.Height() == 0;
}

} // namespace Pixtane
