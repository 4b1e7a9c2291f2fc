#pragma once

#include "base/HandleTable.h"

#include <cstdint>
#include <span>
#include <vector>

namespace winlite
{

/// A cursor's picture: 0xAARRGGBB pixels (not premultiplied), top row first, and the pixel that points.
class CursorObject : public HandleObject
{
public:
    int cx = 0;
    int cy = 0;
    POINT ptHotSpot = {};
    std::vector<std::uint32_t> vPixels;
    int iSystemId = 0; ///< The IDC_ number of a system cursor, which has no picture of its own.
};

/// Reads a .cur file with images of 32 bits a pixel (the 32 x 32 one is taken, else the first); NULL for anything else
/// and for anything broken. No length in the file is believed before that many bytes have been seen.
std::shared_ptr<CursorObject> ReadCursorFile(std::span<const BYTE> vBytes);

} // namespace winlite
