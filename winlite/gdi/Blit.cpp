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

/// The AND of the source rows, column by column, for one destination row.
void MergeRows(std::vector<std::uint32_t>& vMerged, const Surface& source, SourceRange rows, SourceRange columns)
{
    const std::uint32_t* pRow = source.Pixels() + rows.iFirst * source.Stride() + columns.iFirst;
    const auto nColumns = static_cast<std::size_t>(columns.iEnd - columns.iFirst);
    vMerged.assign(pRow, pRow + nColumns);
    for (int y = rows.iFirst + 1; y < rows.iEnd; ++y)
    {
        pRow += source.Stride();
        for (std::size_t i = 0; i < nColumns; ++i)
            vMerged[i] &= pRow[i];
    }
}

SourceRange SourceExtent(const StretchAxis& axis)
{
    const SourceRange first = axis.SourceOf(axis.First());
    const SourceRange last = axis.SourceOf(axis.End() - 1);
    return {std::min(first.iFirst, last.iFirst), std::max(first.iEnd, last.iEnd)};
}

/// Draws with merged pixels ANDed: into a picture of the destination's size first, which is then copied.
RECT DrawMerged(Surface& dest, const Region& rgnClip, const Surface& source, const StretchAxis& axisX,
                const StretchAxis& axisY)
{
    const RECT rcDest = DestBox(axisX, axisY);
    const int cx = rcDest.right - rcDest.left;
    const int cy = rcDest.bottom - rcDest.top;
    const SourceRange columns = SourceExtent(axisX);
    std::vector<std::uint32_t> vRow;
    std::vector<std::uint32_t> vPicture;
    vPicture.reserve(static_cast<std::size_t>(cx) * cy);
    for (int y = rcDest.top; y < rcDest.bottom; ++y)
    {
        MergeRows(vRow, source, axisY.SourceOf(y), columns);
        for (int x = rcDest.left; x < rcDest.right; ++x)
        {
            const SourceRange range = axisX.SourceOf(x);
            std::uint32_t uMerged = ~std::uint32_t{0};
            for (int i = range.iFirst; i < range.iEnd; ++i)
                uMerged &= vRow[static_cast<std::size_t>(i - columns.iFirst)];
            vPicture.push_back(uMerged);
        }
    }
    return DrawRows(dest, rgnClip, RowsOf(vPicture.data(), cx), NearestAxis::Unscaled(rcDest.left, cx),
                    NearestAxis::Unscaled(rcDest.top, cy));
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
    const bool bMerge = dcDest.iStretchMode == BLACKONWHITE;
    const StretchAxis axisX(destX, sourceX, source.Width(), rcClip.left, rcClip.right, bMerge);
    const StretchAxis axisY(destY, sourceY, source.Height(), rcClip.top, rcClip.bottom, bMerge);
    if (axisX.IsEmpty() || axisY.IsEmpty())
        return;
    const auto pDraw = axisX.Merges() || axisY.Merges() ? DrawMerged : DrawNearestPixels;
    dcDest.ReportDamage(pDraw(dcDest.Target(), dcDest.Clip(), source, axisX, axisY));
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
