#include "gdi/Dib.h"
#include "gdi/Handles.h"
#include "gdi/NearestScaler.h"

#include <cstring>
#include <new>

using namespace winlite;

namespace
{

HBITMAP OpenBitmap(int cx, int cy, int iBitsPixel)
{
    auto pBitmap = std::make_shared<BitmapObject>();
    pBitmap->pSurface = std::make_shared<Surface>(cx, cy);
    pBitmap->iBitsPixel = iBitsPixel;
    return OpenTyped<HBITMAP>(std::move(pBitmap));
}

bool IsMonochrome(const DeviceContext& dc)
{
    const auto pBitmap = dc.IsMemory() ? FindBitmap(dc.hBitmap) : nullptr;
    return pBitmap && pBitmap->iBitsPixel == 1;
}

} // namespace

HBITMAP CreateCompatibleBitmap(HDC hDC, int cx, int cy)
try
{
    const auto pDC = FindDC(hDC);
    if (!pDC || cx < 0 || cy < 0)
        return nullptr;
    if (cx == 0 || cy == 0)
        return StockBitmap();
    return OpenBitmap(cx, cy, IsMonochrome(*pDC) ? 1 : 32);
}
catch (const std::bad_alloc&)
{
    return nullptr;
}

HBITMAP CreateBitmapFromPackedDIB(const void* pDib, std::size_t nBytes)
try
{
    BITMAPINFOHEADER header;
    if (!pDib || nBytes < sizeof header)
        return nullptr;
    std::memcpy(&header, pDib, sizeof header); // Resources need not be aligned.
    if (header.biSize > nBytes)
        return nullptr;
    const auto dib = Dib::From(header, static_cast<const BYTE*>(pDib) + header.biSize);
    if (!dib || nBytes - header.biSize < dib->Bytes())
        return nullptr;
    const HBITMAP hBitmap = OpenBitmap(dib->Width(), dib->Height(), 32);
    Surface& surface = *FindBitmap(hBitmap)->pSurface;
    DrawNearest(surface, Region(surface.Bounds()), *dib, NearestAxis::Unscaled(0, dib->Width()),
                NearestAxis::Unscaled(0, dib->Height()));
    return hBitmap;
}
catch (const std::bad_alloc&)
{
    return nullptr;
}

LONG GetBitmapBits(HBITMAP hBitmap, LONG nBytes, LPVOID pBits)
{
    const auto pBitmap = FindBitmap(hBitmap);
    if (!pBitmap || pBitmap->iBitsPixel != 32)
        return 0;
    const Surface& surface = *pBitmap->pSurface;
    const auto nAll = static_cast<LONG>(surface.Stride() * surface.Height() * std::ptrdiff_t{sizeof(std::uint32_t)});
    if (!pBits)
        return nAll;
    const LONG nCopied = nBytes < 0 ? nAll : std::min(nBytes, nAll);
    std::memcpy(pBits, surface.Pixels(), static_cast<std::size_t>(nCopied));
    return nCopied;
}
