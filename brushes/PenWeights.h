#pragma once

#include "platform/framework.h"

#include <vector>

namespace Pixtane
{

inline constexpr int MAX_PEN_SIZE = 501;
inline constexpr int MAX_PEN_PERCENT = 100; ///< Of hardness and strength; both begin at 1.

/// Whether a pen can be computed from these values.
bool IsPenComputable(int iStyle, int iSize, int iHardness, int iStrength);

/// Computes a pen: iSize x iSize weights row by row, a disc of that hardness whose weights are scaled by the strength,
/// and the header that describes them as an image. Without weights when memory is short. Any thread.
void MakePenWeights(int iSize, int iHardness, int iStrength, std::vector<int>& vWeights, BITMAPINFO& infoWeights);

} // namespace Pixtane
