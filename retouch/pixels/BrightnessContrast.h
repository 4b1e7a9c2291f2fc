#pragma once

#include "pixels/PixelView.h"
#include "pixels/Progress.h"

/// Both from -100 to 100.
struct BrightnessContrast
{
    int iBrightness = 0; ///< Levels of 255 to brighten (or darken) by.
    int iContrast = 0;   ///< Percent to spread (or narrow) the levels by about the middle grey.
};

/// Adjusts pixels in place, each as far as its weight says. FALSE when cancelled, half done. Any thread.
bool AdjustBrightnessContrast(PixelView pixels, MaskView weights, BrightnessContrast settings, CProgress& progress);
