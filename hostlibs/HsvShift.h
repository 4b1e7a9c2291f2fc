#pragma once

#include <cstddef>
#include <cstdint>

namespace Vorpix
{

// The loops of AdjustHSV. Pixels have nPixelBytes, 3 or 4, and the mask a byte for each.

/// Moves the value alone, by so many levels: all three channels by one factor. For each instruction set.
void ShiftValue(uint8_t* pPixels, const uint8_t* pMask, size_t nCount, int64_t nPixelBytes, float fLevels);

/// In parts of a full turn and of the scales' ends.
struct HsvShift
{
    double dHue, dSaturation, dValue;
};

/// Moves all three.
void ShiftHsv(uint8_t* pPixels, const uint8_t* pMask, size_t nCount, int64_t nPixelBytes, const HsvShift& shift);

} // namespace Vorpix
