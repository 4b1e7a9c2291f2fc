#pragma once

#include "platform/framework.h"

namespace Pixtane
{

/// A point that is not set: no bitmap has such a pixel.
inline constexpr POINT POINT_UNSET = {0x7FFFFFFF, 0x7FFFFFFF};

inline bool IsSet(POINT pt) { return pt.x != POINT_UNSET.x || pt.y != POINT_UNSET.y; }

} // namespace Pixtane
