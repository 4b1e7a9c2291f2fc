#pragma once

#include "platform/framework.h"

#include <span>
#include <vector>

namespace Pixtane
{

/// The pixels of a selection that its outline shows, as one rectangle a run, rows from the top.
///
/// vInside are the selection's rectangles, of which the part within 0, 0, cx, cy counts. Each row is followed from left
/// to right, then each column from the bottom to the top, where what the rows marked counts as outside. On a line the
/// first and last pixel of every run are marked, except a run's second pixel that is also the line's last: the run's
/// first stands for both. Lines of one pixel have no marks. Where a row begins further left than the row above, the
/// pixel below that row's first is marked too, so the outline is two wide there (docs/compatibility.md).
std::vector<RECT> OutlineRuns(std::span<const RECT> vInside, int cx, int cy);

} // namespace Pixtane
