#pragma once

#include "pixels/PixelSize.h"
#include "pixels/PixelView.h"
#include "pixels/Progress.h"

/// The largest upright rectangle about the centre of a picture that has been rotated about it which the picture fills,
/// in whole pixels and at least one each way; 0 x 0 for an angle that is not finite. The largest rectangle in a convex
/// polygon touches it with two or more corners (Alt, Hsu and Snoeyink, Computing the largest inscribed isothetic
/// rectangle, 1995): here two corners on the long sides, or all four on all sides.
PixelSize InscribedSize(int cx, int cy, double dAngleDegrees);

/// Rotates a picture about its centre, clockwise for positive angles, into a target of any size with the same centre,
/// which must not overlap it. Pixels come from 4 x 4 by cubic convolution (CubicRow), all four bytes alike; beyond the
/// source its edge pixels repeat. Where the angle is a multiple of 90 and the target has the turned size, every pixel
/// stays as it is. The source must have a pixel. FALSE when cancelled, half done, or when the angle is not finite,
/// nothing done. Any thread.
bool Straighten(const PixelView& source, const PixelView& target, double dAngleDegrees, CProgress& progress);
