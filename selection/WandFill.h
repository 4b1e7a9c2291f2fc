#pragma once

#include "platform/framework.h"

#include <vector>

namespace Pixtane
{

/// The pixels that a person means by clicking one of them: all that are connected with it along edges through pixels
/// whose blue, green and red each differ from its own by at most byTolerance. vMask becomes a byte for each pixel, top
/// row first: 255 for those and 0 for the others. pBits is a bottom-up bitmap of 24 or 32 bits as the header tells, and
/// the seed lies in it. Returns the box of the pixels. The work that waits are runs of pixels, not pixels. Throws
/// std::bad_alloc.
CRect FillWand(std::vector<BYTE>& vMask, const BITMAPINFOHEADER& header, const BYTE* pBits, CPoint ptSeed,
               BYTE byTolerance);

} // namespace Pixtane
