#pragma once

#include "pixels/Progress.h"
#include "pixels/Spot.h"

#include <optional>

/// How far away something lies.
struct PixelOffset
{
    int x = 0;
    int y = 0;
    friend bool operator==(const PixelOffset&, const PixelOffset&) = default;
};

/// Finds the place from which a spot of the picture can be healed: its own pixels beside the spot, and its ring most
/// like the spot's ring, whatever their difference in brightness, without anything inside that the ring does not
/// announce. It looks at all places on a reduced picture and follows the best ones to the full one (block matching from
/// coarse to fine, as in E. H. Adelson and others, Pyramid methods in image processing, 1984). Nothing when no place
/// is large enough, and when cancelled. Any thread.
std::optional<PixelOffset> FindHealSource(const PixelView& picture, const Spot& spot, CProgress& progress);
