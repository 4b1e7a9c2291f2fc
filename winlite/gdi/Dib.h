#pragma once

#include "gdi/Gdi.h"

#include <cstdint>
#include <optional>

namespace winlite
{

/// A device-independent bitmap to read: 16 (555), 24 or 32 bits a pixel, no colour table, bottom row first in memory,
/// rows padded to 4 bytes. Rows are counted from the top of the picture.
class Dib
{
public:
    /// Empty when the header is of another format, a size is not positive, or a row's or the whole byte count does not
    /// fit 31 bits. biSizeImage is not believed.
    static std::optional<Dib> From(const BITMAPINFOHEADER& header, const void* pBits);

    int Width() const { return m_cx; }
    int Height() const { return m_cy; }
    int BitsPixel() const { return m_iBitsPixel; }
    std::ptrdiff_t Stride() const { return m_nStride; } ///< Bytes from a row to the one above it.
    std::size_t Bytes() const { return static_cast<std::size_t>(m_nStride) * m_cy; }
    const BYTE* Row(int y) const { return m_pBits + static_cast<std::size_t>(m_cy - 1 - y) * m_nStride; }

private:
    const BYTE* m_pBits = nullptr;
    int m_cx = 0;
    int m_cy = 0;
    int m_iBitsPixel = 0;
    std::ptrdiff_t m_nStride = 0;
};

} // namespace winlite
