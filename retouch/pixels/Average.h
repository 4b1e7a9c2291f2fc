#pragma once

#include "pixels/PixelView.h"

#include <array>

/// The average of a square of iSide (1, 3, 5 ...) pixels about a pixel of the picture, as far as it lies in the
/// picture, rounded to nearest: blue, green, red. Any thread.
std::array<std::uint8_t, 3> AverageColour(const PixelView& picture, int x, int y, int iSide);
