#pragma once

#include "platform/framework.h"

namespace Pixtane
{

/// The region's box; empty for one without a handle, which must not be asked.
inline CRect BoxOf(const CRgn& rgn)
{
    CRect rcBox;
    if (rgn.GetSafeHandle())
        rgn.GetRgnBox(&rcBox);
    return rcBox;
}

} // namespace Pixtane
