#pragma once

#include <cstddef>
#include <cstdint>

namespace winlite
{

/// Widens pixels of three bytes (blue, green, red) to 0x00RRGGBB, reading nothing past the last one. Any thread.
void UnpackRgb(std::uint32_t* pDest, const std::uint8_t* pSource, std::size_t nPixels);

} // namespace winlite
