#pragma once

#include "pixels/PixelView.h"

#include <algorithm>

/// Columns left to right - 1 and rows top to bottom - 1 of a picture.
struct PixelRect
{
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    bool IsEmpty() const { return right <= left || bottom <= top; }

    /// The part of it that a picture has.
    PixelRect Within(const PixelView& picture) const
    {
        return {std::max(left, 0), std::max(top, 0), std::min(right, picture.cx), std::min(bottom, picture.cy)};
    }
};
