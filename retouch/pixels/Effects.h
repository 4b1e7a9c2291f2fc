#pragma once

#include "pixels/PixelRect.h"

// What an effect brush paints. Each changes the pixels of a rectangle in place, clipped to the picture, and reads the
// unchanged ones around it: a pixel gets the same value whatever rectangle it is asked for with, so that neighbouring
// rectangles, each done on unchanged pixels, have no seam. At the picture's edges the edge pixels repeat. The fourth
// byte of a pixel stays. Any thread.

/// A Gaussian of 2.5 pixels standard deviation.
void Blur(PixelView picture, PixelRect rect);

/// Adds the difference to a Gaussian of 1.5 pixels (unsharp masking: Gonzalez and Woods, Digital Image Processing, on
/// sharpening spatial filters).
void Sharpen(PixelView picture, PixelRect rect);

/// Squares of 12 pixels of their average colour, counted from the picture's corner.
void Mosaic(PixelView picture, PixelRect rect);

/// Moves colours away from the grey of their own brightness (ITU-R BT.601 luma), by two fifths.
void Saturate(PixelView picture, PixelRect rect);

/// Strengthens red and weakens blue; black stays.
void Warm(PixelView picture, PixelRect rect);

/// A bilateral filter over 7 x 7 pixels: neighbours count by their distance and their difference in colour, so that
/// edges stay (Tomasi and Manduchi, Bilateral filtering for gray and color images, 1998).
void Denoise(PixelView picture, PixelRect rect);
