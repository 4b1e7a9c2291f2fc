#pragma once

#include "hostlibs/ResizeAxis.h"

namespace Vorpix
{

/// Rows of bytes without padding.
struct ResizePlane
{
    const uint8_t* Row(size_t y) const { return pBits + y * nWidth; }
    const uint8_t* pBits;
    size_t nWidth, nHeight;
};

// The loops of Resize, for each instruction set.

/// How many rows are scaled sideways together: turned into columns of so many bytes, whose weighted sums are columns of
/// the result.
inline constexpr size_t RESIZE_STRIP = 16;

/// A row of the result, as wide as the source, from rows of the source.
void SumRows(const ResizePlane& source, const ResizeAxis& axis, size_t y, uint8_t* pRow);

/// Turns a strip of rows, nStride bytes each and a multiple of RESIZE_STRIP, into as many columns.
void RowsToColumns(const uint8_t* pRows, size_t nStride, uint8_t* pColumns);

/// Rows of the result, nRows of at most a strip, from the columns of the source.
void SumColumns(const uint8_t* pColumns, const ResizeAxis& axis, uint8_t* pRows, size_t nRows);

/// A row of means of each two by two bytes of a pair of rows.
void HalveRows(const uint8_t* pUpper, const uint8_t* pLower, uint8_t* pRow, size_t nWidth);

} // namespace Vorpix
