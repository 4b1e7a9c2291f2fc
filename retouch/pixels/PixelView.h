#pragma once

#include <cstddef>
#include <cstdint>

/// Pixels of 32 bits (blue, green, red, unused) that lie somewhere; row 0 is the top of the picture, wherever in memory
/// it is.
struct PixelView
{
    std::uint8_t* pTop = nullptr;
    int cx = 0;
    int cy = 0;
    std::ptrdiff_t nStride = 0; ///< Bytes from a row to the one below; negative for bottom-up pictures.

    std::uint8_t* Row(int y) const { return pTop + y * nStride; }
};

/// How much each pixel takes part, a byte of 255 each; row 0 is the top. Without bytes every pixel does fully.
struct MaskView
{
    const std::uint8_t* pTop = nullptr;
    std::ptrdiff_t nStride = 0;

    /// NULL when every pixel takes part fully.
    const std::uint8_t* Row(int y) const { return pTop ? pTop + y * nStride : nullptr; }
};
