#pragma once

/// Columns and rows of a picture.
struct PixelSize
{
    int cx = 0;
    int cy = 0;

    bool operator==(const PixelSize&) const = default;
};
