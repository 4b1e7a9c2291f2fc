#include "document/JpegEnd.h"

#include <optional>

namespace
{

constexpr unsigned char MARKER = 0xFF;
constexpr unsigned char START_OF_IMAGE = 0xD8;
constexpr unsigned char END_OF_IMAGE = 0xD9;

/// Markers inside the coded data: a stuffed zero, or one of the eight restarts.
bool BelongsToCodedData(unsigned char code) { return code == 0 || (code >= 0xD0 && code <= 0xD7); }

/// The position after the next marker's code, and that code; coded data before it is passed over.
std::optional<std::size_t> AfterNextMarker(std::span<const unsigned char> vBytes, std::size_t i)
{
    for (; i + 1 < vBytes.size(); ++i)
    {
        if (vBytes[i] == MARKER && vBytes[i + 1] != MARKER && !BelongsToCodedData(vBytes[i + 1]))
            return i + 2;
    }
    return std::nullopt;
}

} // namespace

bool LooksLikeJpeg(std::span<const unsigned char> vBytes)
{
    return vBytes.size() >= 3 && vBytes[0] == MARKER && vBytes[1] == START_OF_IMAGE && vBytes[2] == MARKER;
}

bool IsCompleteJpeg(std::span<const unsigned char> vBytes)
{
    if (!LooksLikeJpeg(vBytes))
        return false;
    std::size_t i = 2;
    while (const auto iAfter = AfterNextMarker(vBytes, i))
    {
        if (vBytes[*iAfter - 1] == END_OF_IMAGE)
            return true;
        // A segment begins with its length, these two bytes included. Thumbnails inside one are passed over with it.
        if (*iAfter + 2 > vBytes.size())
            return false;
        i = *iAfter + vBytes[*iAfter] * 256u + vBytes[*iAfter + 1];
    }
    return false;
}
