#pragma once

#include <cstddef>
#include <span>

/// Whether the bytes of a JPEG file reach its end-of-image marker. Readers show the missing part of a truncated file
/// grey without calling it an error; this tells it beforehand. FALSE for what is no JPEG.
bool IsCompleteJpeg(std::span<const unsigned char> vBytes);

/// Whether the bytes begin like a JPEG file.
bool LooksLikeJpeg(std::span<const unsigned char> vBytes);
