#pragma once

#include "pixels/PixelView.h"
#include "pixels/Progress.h"

#include <array>

/// What becomes of each value of a channel.
using Curve = std::array<std::uint8_t, 256>;

/// Puts a curve on all channels of pixels in place, each pixel as far as its weight says. FALSE when cancelled, half
/// done. Any thread.
bool ApplyCurve(PixelView pixels, MaskView weights, const Curve& curve, CProgress& progress);
