#pragma once

#include "pixels/HealSource.h"

/// Removes what a spot of the picture shows: blends the best matching place nearby over it (FindHealSource). Only
/// healed, a picture of the same size or the same one, changes, inside the spot and as far as weights say; a spot that
/// leaves nothing of the picture stays. FALSE, with nothing changed, when cancelled. Any thread.
bool HealSpot(PixelView picture, PixelView healed, MaskView weights, const Spot& spot, CProgress& progress);

/// The same with what lies at an offset, inside the picture with all that surrounds the spot by two pixels: its pixels,
/// and the smooth difference that makes them meet what surrounds the spot (blending in the gradient domain, as
/// CMembrane says). Without an offset the surroundings alone are drawn together.
void BlendSpot(PixelView picture, PixelView healed, MaskView weights, const Spot& spot,
               std::optional<PixelOffset> offset);
