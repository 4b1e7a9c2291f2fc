#pragma once

#include "pixels/HealSource.h"
#include "pixels/SpotBlend.h"

/// Removes what a spot of the picture shows. Where its surroundings are alike all around, the best matching place
/// nearby is blended over it (FindHealSource), with its grain; where edges and patterns run into it, they are continued
/// (FillSpot). Only healed, a picture of the same size or the same one, changes, inside the spot and as far as weights
/// say; a spot that leaves nothing of the picture stays. FALSE, with nothing changed, when cancelled. Any thread.
bool HealSpot(PixelView picture, PixelView healed, MaskView weights, const Spot& spot, CProgress& progress);

/// What lies at an offset, as a source for the spot: inside the picture with all around it. Without an offset it is
/// black, and blending it draws the surroundings together.
SpotSource SourceAt(const PixelView& picture, std::optional<PixelOffset> offset);
