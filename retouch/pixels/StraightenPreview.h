#pragma once

#include "pixels/PixelView.h"

#include <span>

/// How a picture is straightened.
struct StraightenSettings
{
    double dDegrees; ///< Clockwise, about its middle.
    bool bCrop;      ///< What has no picture then is cut off.
};

/// The picture's column and row, 0 at the top, under each of a target's.
struct SampledPlaces
{
    std::span<const int> vColumns;
    std::span<const int> vRows;
};

/// Draws what a view shows of a picture as it would be when it is straightened (Straighten), with the nearest pixels,
/// for as long as the person looks for the angle; what would be cut off is dark. Any thread.
void DrawStraightened(const PixelView& picture, const PixelView& target, const StraightenSettings& settings,
                      const SampledPlaces& places);
