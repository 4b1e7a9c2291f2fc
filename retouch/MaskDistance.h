#pragma once

#include "platform/framework.h"

#include <vector>

// Both take a mask of iWidth bytes a row and treat more than half selected as selected.

/// Selects fully what is at most iPixels away from the selected part.
void GrowMask(std::vector<BYTE>& vMask, int iWidth, int iPixels);

/// Selects no longer what is at most iPixels away from the part that is not selected; the picture's border does not
/// count as such.
void ShrinkMask(std::vector<BYTE>& vMask, int iWidth, int iPixels);
