#pragma once

#include "pixels/PixelView.h"

#include <cstdint>
#include <vector>

/// A picture's pixels, row by row, with how rough the picture is around each as the fourth byte: the mean of the steps
/// between neighbours, of pixels outside a hole (given row by row); 0 inside it. Patches that are compared by it too
/// stay as rough as what surrounds them, where a mean of patches would lead to ever smoother ones (A. Newson and
/// others, Video inpainting of complex scenes, 2014). Any thread.
std::vector<std::uint8_t> WithRoughness(const PixelView& picture, const std::vector<std::uint8_t>& vHole, int nReach);
