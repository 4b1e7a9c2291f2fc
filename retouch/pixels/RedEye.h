#pragma once

#include "pixels/PixelRect.h"
#include "pixels/Progress.h"

/// Takes the red out of the pupils that flash light has made red, inside a rectangle of the picture: of one eye, or of
/// both. It finds them itself, as round enough spots of a redness R^2 / (G^2 + B^2) that skin does not have (Gaubatz
/// and Ulichney, Automatic red-eye detection and correction, 2002), and brings red down to the mean of green and blue
/// by iAmount percent, softly towards the rim. Glints, iris, lids and skin stay, and so does a rectangle without a red
/// pupil, to the byte. weights limit what changes. FALSE, with nothing changed, when cancelled. Any thread.
bool RemoveRedEye(PixelView picture, MaskView weights, PixelRect rect, int iAmount, CProgress& progress);
