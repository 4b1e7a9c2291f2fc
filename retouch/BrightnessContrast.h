#pragma once

#include "platform/framework.h"

#include <span>

/// Brightens (or darkens) 32-bit pixels by iBrightness of 255 levels and spreads (or narrows) them about the middle
/// grey by iContrast percent, both from -100 to 100. Each pixel goes as far as its weight of 255 says; vWeights are in
/// the pixels' order, and empty for all of it. Any thread.
void AdjustBrightnessContrast(std::span<BYTE> vPixels, std::span<const BYTE> vWeights, int iBrightness, int iContrast);
