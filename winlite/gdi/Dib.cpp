#include "gdi/Dib.h"

#include <limits>

namespace winlite
{

// What a header says about planes is not looked at: there is always one, and many programs leave the field at 0.
std::optional<Dib> Dib::From(const BITMAPINFOHEADER& header, const void* pBits)
{
    const int iBits = header.biBitCount;
    if (!pBits || header.biSize < sizeof(BITMAPINFOHEADER) || header.biWidth <= 0 || header.biHeight <= 0)
        return std::nullopt;
    if ((iBits != 16 && iBits != 24 && iBits != 32) || header.biCompression != BI_RGB)
        return std::nullopt;
    const std::int64_t nStride = (std::int64_t{header.biWidth} * iBits + 31) / 32 * 4;
    const std::int64_t nMostBytes = std::numeric_limits<LONG>::max();
    if (nStride > nMostBytes || nStride * header.biHeight > nMostBytes)
        return std::nullopt;
    Dib dib;
    dib.m_pBits = static_cast<const BYTE*>(pBits);
    dib.m_cx = header.biWidth;
    dib.m_cy = header.biHeight;
    dib.m_iBitsPixel = iBits;
    dib.m_nStride = static_cast<std::ptrdiff_t>(nStride);
    return dib;
}

} // namespace winlite
