#include "gdi/Handles.h"
#include "gdi/PixelRows.h"

#include <cstdlib>
#include <cstring>
#include <limits>

using namespace winlite;

namespace
{

/// Some lines of a DIB in memory, and the rows of a bitmap that they stand for.
struct DibLines
{
    PixelRows rows; ///< The bitmap's row yTop is row 0.
    int yTop;
    int nLines;
    int nPixels; ///< Those of a row that both have.
};

std::ptrdiff_t RowBytes(const BITMAPINFOHEADER& header)
{
    return static_cast<std::ptrdiff_t>((std::int64_t{header.biWidth} * header.biBitCount + 31) / 32 * 4);
}

bool IsReadable(const BITMAPINFOHEADER& header)
{
    return header.biSize >= sizeof header && header.biWidth > 0 && header.biCompression == BI_RGB &&
           header.biHeight > std::numeric_limits<LONG>::min() &&
           (header.biBitCount == 16 || header.biBitCount == 24 || header.biBitCount == 32);
}

/// The lines from iStart on that both the DIB and the bitmap have; pBits points to line iStart.
DibLines LinesOf(const BITMAPINFOHEADER& header, const BYTE* pBits, const Surface& surface, UINT iStart, UINT nLines)
{
    const std::int64_t nBoth = std::min(std::abs(header.biHeight), surface.Height());
    const auto nShared = static_cast<int>(std::clamp<std::int64_t>(nBoth - iStart, 0, nLines));
    const int nPixels = std::min(header.biWidth, surface.Width());
    const std::ptrdiff_t nStride = RowBytes(header);
    const int iFirst = static_cast<int>(std::min<std::int64_t>(iStart, nBoth));
    if (header.biHeight < 0)
        return {{pBits, nStride, header.biBitCount}, iFirst, nShared, nPixels};
    const BYTE* pTop = pBits + std::max(nShared - 1, 0) * nStride;
    return {{pTop, -nStride, header.biBitCount}, surface.Height() - iFirst - nShared, nShared, nPixels};
}

/// The surface of a bitmap whose pixels can be read and written.
std::shared_ptr<Surface> ColourSurface(HBITMAP hBitmap)
{
    const auto pBitmap = FindBitmap(hBitmap);
    return pBitmap && pBitmap->iBitsPixel == 32 ? pBitmap->pSurface : nullptr;
}

int Describe(const Surface& surface, BITMAPINFOHEADER& header)
{
    header.biWidth = surface.Width();
    header.biHeight = surface.Height();
    header.biPlanes = 1;
    header.biBitCount = 32;
    header.biCompression = BI_RGB;
    header.biSizeImage = static_cast<DWORD>(RowBytes(header) * surface.Height());
    return surface.Height();
}

void StoreRow24(BYTE* pDest, const std::uint32_t* pSource, int nPixels)
{
    for (int i = 0; i < nPixels; ++i, pDest += 3)
    {
        pDest[0] = static_cast<BYTE>(pSource[i]);
        pDest[1] = static_cast<BYTE>(pSource[i] >> 8);
        pDest[2] = static_cast<BYTE>(pSource[i] >> 16);
    }
}

} // namespace

int GetDIBits(HDC, HBITMAP hBitmap, UINT iStart, UINT nLines, LPVOID pBits, BITMAPINFO* pInfo, UINT)
{
    const auto pSurface = ColourSurface(hBitmap);
    if (!pSurface || !pInfo || pInfo->bmiHeader.biSize < sizeof(BITMAPINFOHEADER))
        return 0;
    if (!pBits)
        return Describe(*pSurface, pInfo->bmiHeader);
    if (!IsReadable(pInfo->bmiHeader) || pInfo->bmiHeader.biBitCount == 16)
        return 0;
    const DibLines lines = LinesOf(pInfo->bmiHeader, static_cast<const BYTE*>(pBits), *pSurface, iStart, nLines);
    for (int i = 0; i < lines.nLines; ++i)
    {
        auto* pRow = const_cast<BYTE*>(lines.rows.Row(i));
        const std::uint32_t* pSource = pSurface->Pixels() + (lines.yTop + i) * pSurface->Stride();
        if (lines.rows.iBitsPixel == 24)
            StoreRow24(pRow, pSource, lines.nPixels);
        else
            std::memcpy(pRow, pSource, static_cast<std::size_t>(lines.nPixels) * sizeof *pSource);
    }
    return lines.nLines;
}

int SetDIBits(HDC, HBITMAP hBitmap, UINT iStart, UINT nLines, const void* pBits, const BITMAPINFO* pInfo, UINT)
{
    const auto pSurface = ColourSurface(hBitmap);
    if (!pSurface || !pInfo || !pBits || !IsReadable(pInfo->bmiHeader))
        return 0;
    const DibLines lines = LinesOf(pInfo->bmiHeader, static_cast<const BYTE*>(pBits), *pSurface, iStart, nLines);
    if (lines.nLines > 0)
        DrawRows(*pSurface, Region(pSurface->Bounds()), lines.rows, NearestAxis::Unscaled(0, lines.nPixels),
                 {lines.yTop, NearestAxis::Unscaled(0, lines.nLines).vSource});
    return lines.nLines;
}
