#pragma once

#include "view/Pixtane.h"

#include <vector>

/// What a view shows of its bitmap at the moment: the pixel under each pixel of the window, by the rules of its own
/// paint, so that a picture made with it stands exactly where the bitmap stood.
struct VisiblePart
{
    CRect rcWindow{0, 0, 0, 0}; ///< Window rectangle that shows the bitmap; empty without one.
    std::vector<int> vColumns;  ///< The bitmap column of each of its columns.
    std::vector<int> vRows;     ///< The bitmap row of each of its rows, 0 at the top.
};

/// User-interface thread.
VisiblePart VisiblePartOf(Pixtane::CPixtane& view);
