#pragma once

#include "pixels/PixelRect.h"

#include <vector>

/// Columns left to right - 1 of a row.
struct PixelRun
{
    int y = 0;
    int left = 0;
    int right = 0;
};

/// A round spot of iSize pixels across, about a pixel; of an even size it has one more to the left and above.
struct Spot
{
    int x = 0;
    int y = 0;
    int iSize = 1;

    PixelRect Box() const { return {x - iSize / 2, y - iSize / 2, x - iSize / 2 + iSize, y - iSize / 2 + iSize}; }

    /// The same with so many more pixels all around.
    Spot Grown(int nPixels) const { return {x, y, iSize + 2 * nPixels}; }

    /// Its part in a row: the pixels whose middles lie inside the circle; empty where there is none.
    PixelRun Row(int y) const;

    /// What a rectangle has of it, from the top to the bottom.
    std::vector<PixelRun> RunsWithin(const PixelRect& rect) const;

    /// What a rectangle has of nPixels around it.
    std::vector<PixelRun> RingWithin(const PixelRect& rect, int nPixels) const;
};
