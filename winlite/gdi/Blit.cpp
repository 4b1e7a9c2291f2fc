#include "gdi/Handles.h"
#include "gdi/PixelRows.h"
#include "gdi/RectMath.h"
#include "gdi/SourceCopy.h"
#include "gdi/StretchAxis.h"

#include <cstring>

using namespace winlite;

namespace
{

PixelRows RowsOf(const std::uint32_t* pPixels, std::ptrdiff_t nStride)
{
    return {reinterpret_cast<const BYTE*>(pPixels), nStride * std::ptrdiff_t{sizeof(std::uint32_t)}, 32};
}

RECT DestBox(const StretchAxis& axisX, const StretchAxis& axisY)
{
    return {axisX.First(), axisY.First(), axisX.End(), axisY.End()};
}

/// Moves a rectangle's pixels within its surface, in the order that reads each row before it is written.
void MoveRect(Surface& surface, const RECT& rcDest, int xSource, int ySource)
{
    const auto nBytes = static_cast<std::size_t>(rcDest.right - rcDest.left) * sizeof(std::uint32_t);
    const int cy = rcDest.bottom - rcDest.top;
    const bool bUpwards = rcDest.top <= ySource;
    std::uint32_t* pPixels = surface.PixelsForUpdate();
    for (int i = 0; i < cy; ++i)
    {
        const int iRow = bUpwards ? i : cy - 1 - i;
        std::memmove(pPixels + (rcDest.top + iRow) * surface.Stride() + rcDest.left,
                     pPixels + (ySource + iRow) * surface.Stride() + xSource, nBytes);
    }
}

/// Copies within one surface as if the source were copied first.
RECT DrawWithin(Surface& surface, const Region& rgnClip, const StretchAxis& stretchX, const StretchAxis& stretchY)
{
    NearestAxis axisX = stretchX.Nearest();
    NearestAxis axisY = stretchY.Nearest();
    const RECT rcDest = DestBox(stretchX, stretchY);
    if (rgnClip.Rects().size() == 1 && axisX.IsUnscaled() && axisY.IsUnscaled())
    {
        MoveRect(surface, rcDest, axisX.vSource.front(), axisY.vSource.front());
        return rcDest;
    }
    const SourceCopy copy(surface, axisX, axisY);
    return DrawRows(surface, rgnClip, RowsOf(copy.Pixels(), copy.Stride()), axisX, axisY);
}

RECT DrawNearestPixels(Surface& dest, const Region& rgnClip, const Surface& source, const StretchAxis& axisX,
                       const StretchAxis& axisY)
{
    if (&dest == &source)
        return DrawWithin(dest, rgnClip, axisX, axisY);
    return DrawRows(dest, rgnClip, RowsOf(source.Pixels(), source.Stride()), axisX.Nearest(), axisY.Nearest());
}

void Stretch(const DeviceContext& dcDest, AxisSpan destX, AxisSpan destY, const DeviceContext& dcSource,
             AxisSpan sourceX, AxisSpan sourceY)
{
    destX.iStart += dcDest.Origin().x;
    destY.iStart += dcDest.Origin().y;
    sourceX.iStart += dcSource.Origin().x;
    sourceY.iStart += dcSource.Origin().y;
    const Surface& source = dcSource.Target();
    const RECT rcClip = dcDest.Clip().Box();
    const StretchAxis axisX(destX, sourceX, source.Width(), rcClip.left, rcClip.right);
    const StretchAxis axisY(destY, sourceY, source.Height(), rcClip.top, rcClip.bottom);
    if (axisX.IsEmpty() || axisY.IsEmpty())
        return;
    dcDest.ReportDamage(DrawNearestPixels(dcDest.Target(), dcDest.Clip(), source, axisX, axisY));
}

} // namespace

BOOL BitBlt(HDC hDest, int x, int y, int cx, int cy, HDC hSrc, int xSrc, int ySrc, DWORD dwRop)
{
    const auto pDest = FindDC(hDest);
    const auto pSource = FindDC(hSrc);
    if (!pDest || !pSource || dwRop != SRCCOPY)
        return FALSE;
    const AxisSpan destX = {x, cx};
    const AxisSpan destY = {y, cy};
    Stretch(*pDest, destX, destY, *pSource, {xSrc, destX.Length()}, {ySrc, destY.Length()});
    return TRUE;
}

BOOL StretchBlt(HDC hDest, int x, int y, int cx, int cy, HDC hSrc, int xSrc, int ySrc, int cxSrc, int cySrc,
                DWORD dwRop)
{
    const auto pDest = FindDC(hDest);
    const auto pSource = FindDC(hSrc);
    if (!pDest || !pSource || dwRop != SRCCOPY)
        return FALSE;
    Stretch(*pDest, {x, cx}, {y, cy}, *pSource, {xSrc, cxSrc}, {ySrc, cySrc});
    return TRUE;
}
