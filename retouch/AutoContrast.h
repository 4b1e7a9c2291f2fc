#pragma once

#include "platform/framework.h"

#include <span>

/// Stretches the contrast of 32-bit pixels in place: the darkest half percent of all channel values becomes black, the
/// brightest half percent white, and what lies between is spread evenly.
void StretchContrast(std::span<BYTE> vPixels);
