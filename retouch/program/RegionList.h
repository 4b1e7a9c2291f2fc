#pragma once

#include "platform/framework.h"

#include <vector>

/// The rectangles of a region, and the region (empty for none) of rectangles.
std::vector<RECT> RectsOf(const CRgn& rgn);
void MakeRegion(CRgn& rgn, const std::vector<RECT>& vRects);
