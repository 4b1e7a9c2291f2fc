#pragma once

#include "pixels/PixelView.h"
#include "pixels/Progress.h"

/// Stretches the contrast of pixels in place: the darkest half percent of all channel values becomes black, the
/// brightest half percent white, and what lies between is spread evenly. FALSE when cancelled, half done. Any thread.
bool StretchContrast(PixelView pixels, CProgress& progress);
