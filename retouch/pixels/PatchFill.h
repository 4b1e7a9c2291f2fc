#pragma once

#include "pixels/PatchField.h"
#include "pixels/Progress.h"

/// Finds out what the surroundings of a spot go on to inside it: every small patch in it becomes like one that there is
/// nearby, so that edges and patterns continue (Y. Wexler, E. Shechtman, M. Irani, Space-time completion of video,
/// 2007). It is the field of a window of the picture about the spot, PatchWindow; the same picture and spot give the
/// same one. Nothing when no place is large enough, and when cancelled. Any thread.
std::optional<CPatchField> FillSpot(const PixelView& picture, const Spot& spot, CProgress& progress);

/// The part of the picture that is looked at.
PixelRect PatchWindow(const PixelView& picture, const Spot& spot);
