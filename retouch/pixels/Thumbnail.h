#pragma once

#include "pixels/PixelView.h"

/// Fills a small picture with all of a larger one: the mean of places spread evenly over what each pixel stands for,
/// so that it takes as long for any picture. Any thread.
void Reduce(const PixelView& picture, const PixelView& small);
