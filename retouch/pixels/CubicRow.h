#pragma once

#include <cstddef>
#include <cstdint>

/// A place in a picture, or a way from one to another, in units of 2^-32 pixels. Pixels lie at whole numbers.
struct FinePoint
{
    static constexpr int BITS = 32;

    std::int64_t x = 0;
    std::int64_t y = 0;
};

/// Reads a picture of 4-byte pixels at nPixels places, the first and each a step further, between pixels by cubic
/// convolution with the Catmull-Rom weights (Keys, Cubic convolution interpolation for digital image processing, 1981,
/// a = -1/2), to 1/256 pixel downwards. All 4 x 4 pixels around each place must be there: from one to the left and
/// above to two to the right and below. Row 0 begins at pSource.
void CubicRow(std::uint8_t* pTarget, int nPixels, const std::uint8_t* pSource, std::ptrdiff_t nStride, FinePoint at,
              FinePoint step);
