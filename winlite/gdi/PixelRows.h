#pragma once

#include "gdi/NearestScaler.h"

namespace winlite
{

/// Pixels to read, row by row: 16 (555), 24 or 32 bits each, little-endian.
struct PixelRows
{
    const BYTE* pTop;
    std::ptrdiff_t nStride; ///< Bytes from a row to the one below it; negative when rows are stored bottom first.
    int iBitsPixel;

    const BYTE* Row(int y) const { return pTop + y * nStride; }
};

/// How source indices follow each other: steady ones need not be looked up one by one.
enum class Order
{
    Ascending,   ///< By 1.
    Descending,  ///< By 1.
    EverySecond, ///< Ascending by 2,
    EveryFourth, ///< and by 4.
    Repeating,   ///< Ascending, with more destinations than sources.
    Any,
};
Order OrderOf(std::span<const int> vSource);

/// Draws rows by two axes of source indices, limited to a region of the surface; the pixels must not be those written.
/// Returns the drawn box.
RECT DrawRows(Surface& surface, const Region& rgnClip, const PixelRows& rows, const NearestAxis& axisX,
              const NearestAxis& axisY);

} // namespace winlite
