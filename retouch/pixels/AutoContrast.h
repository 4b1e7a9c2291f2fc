#pragma once

#include "pixels/PixelView.h"
#include "pixels/Progress.h"

/// Stretches the contrast of pixels in place, each as far as its weight says: of the channel values of all that take
/// part, the darkest half percent becomes black, the brightest half percent white, and what lies between is spread
/// evenly. FALSE when cancelled, half done. Any thread.
bool StretchContrast(PixelView pixels, MaskView weights, CProgress& progress);
