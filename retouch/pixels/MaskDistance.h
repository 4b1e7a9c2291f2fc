#pragma once

#include "pixels/Progress.h"

#include <cstdint>
#include <vector>

// Both take a mask of iWidth bytes a row and treat more than half selected as selected. FALSE when cancelled, with the
// mask as it was. Any thread.

/// Selects fully what is at most iPixels away from the selected part.
bool GrowMask(std::vector<std::uint8_t>& vMask, int iWidth, int iPixels, CProgress& progress);

/// Selects no longer what is at most iPixels away from the part that is not selected; the picture's border does not
/// count as such.
bool ShrinkMask(std::vector<std::uint8_t>& vMask, int iWidth, int iPixels, CProgress& progress);
