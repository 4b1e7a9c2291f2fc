#pragma once

#include "pixels/Progress.h"
#include "pixels/SpotBlend.h"

#include <optional>

/// Finds out what the surroundings of a spot go on to inside it: every small patch in it becomes like one that there is
/// nearby, so that edges and patterns continue (Y. Wexler, E. Shechtman, M. Irani, Space-time completion of video,
/// 2007), and pieces of the picture take their places (CPatchSeams). The same picture and spot give the same. Nothing
/// when no place is large enough, and when cancelled. Any thread.
std::optional<SpotSource> FillSpot(const PixelView& picture, const Spot& spot, CProgress& progress);
