#pragma once

#include <cstddef>
#include <cstdint>

namespace Vorpix
{

// The loops of BitBlt, for each instruction set.

/// The highest weight; false when one is not 0 to FULL_WEIGHT.
bool FindHighest(const int* pWeights, size_t nCount, int& iHighest);

/// A part of the pen, and the coverage that it falls on.
struct StampArea
{
    int* pCoverage;
    size_t nCoveragePitch;
    const int* pPen;
    size_t nPenPitch;
    size_t nWidth, nHeight;
    int iHighest; ///< Above 0.
};
void StampWeights(const StampArea& area);

/// Moves a row of pixels towards the source's by their weights. nPixelBytes is 3 or 4.
void BlendRow(uint8_t* pDest, const uint8_t* pSource, const int* pWeights, size_t nCount, int64_t nPixelBytes);

} // namespace Vorpix
