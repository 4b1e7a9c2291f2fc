#pragma once

#include "platform/framework.h"

#include <span>

namespace Pixtane
{

// Each combines the weights of a shape into as many of a mask, byte by byte. Any thread.

void AddMask(std::span<BYTE> vMask, std::span<const BYTE> vShape);       ///< The sum, 255 at most.
void SubtractMask(std::span<BYTE> vMask, std::span<const BYTE> vShape);  ///< The difference, 0 at least.
void IntersectMask(std::span<BYTE> vMask, std::span<const BYTE> vShape); ///< The product over 255, rounded down.

/// Whether any byte is not 0.
bool HasWeight(std::span<const BYTE> vMask);

} // namespace Pixtane
