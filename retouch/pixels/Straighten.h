#pragma once

#include "pixels/PixelView.h"
#include "pixels/Progress.h"

/// A picture's size.
struct PixelSize
{
    int cx, cy;
};

/// The largest rectangle of level sides that lies inside a rectangle turned by an angle in degrees, at least one pixel.
/// With a = |sin|, b = |cos|: where the longer side is less than twice the shorter one's share of it, its corners lie
/// on all four sides; otherwise two of them touch the middle of the longer sides. The two cases follow from the
/// distance of the corners from the turned sides.
PixelSize InscribedSize(PixelSize size, double dDegrees);

/// Turns a picture about its middle by an angle in degrees, clockwise where positive, into another one of any size
/// about the same middle. Each pixel is interpolated from 4 x 4 by cubic convolution with a = -1/2 (Keys, Cubic
/// convolution interpolation for digital image processing, 1981); beyond the picture its edge pixels repeat, so that
/// nothing darkens. FALSE, with the target in part written, when cancelled or when the angle is no finite number. Any
/// thread.
bool Straighten(PixelView source, PixelView target, double dDegrees, CProgress& progress);
