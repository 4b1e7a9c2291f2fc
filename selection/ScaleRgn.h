#pragma once

#include "platform/framework.h"

namespace Pixtane
{

/// How ScaleRgn rounds.
constexpr int SCALE_FRACTION_ALIGNED = 0; ///< The whole region keeps its fractional place within a pixel.
constexpr int SCALE_KEEPS_BOX = 1;        ///< Edges on the bounding box inwards, all others outwards.

/// Makes rgnDst the source scaled by sx and sy, rectangle by rectangle, in single precision. Returns 1; 0 without a
/// source handle or for a factor that is not positive (rgnDst stays), and when the list cannot be read or the region
/// not be made (rgnDst is then without a handle). Linear in the rectangles.
int ScaleRgn(const CRgn& rgnSrc, CRgn& rgnDst, float sx, float sy, int iRoundMode);

} // namespace Pixtane
