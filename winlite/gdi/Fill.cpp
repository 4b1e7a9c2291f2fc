#include "gdi/Handles.h"
#include "gdi/RectMath.h"

#include <cstring>

using namespace winlite;

namespace
{

/// Where pixel iPosition falls in a tile that begins at iOrigin and repeats both ways.
int TilePosition(std::int64_t iPosition, std::int64_t iOrigin, int nTile)
{
    const auto iRest = static_cast<int>((iPosition - iOrigin) % nTile);
    return iRest < 0 ? iRest + nTile : iRest;
}

/// Fills a row with the tile's row from column iColumn on: the tile once, then what stands there, doubling.
void FillRowWithTile(std::uint32_t* pRow, std::size_t nPixels, const std::uint32_t* pTile, std::size_t nTile,
                     std::size_t iColumn)
{
    const std::size_t nFirst = std::min(nPixels, nTile - iColumn);
    std::copy_n(pTile + iColumn, nFirst, pRow);
    std::size_t nDone = std::min(nPixels, nTile);
    std::copy_n(pTile, nDone - nFirst, pRow + nFirst);
    while (nDone < nPixels)
    {
        const std::size_t nMore = std::min(nDone, nPixels - nDone);
        std::copy_n(pRow, nMore, pRow + nDone);
        nDone += nMore;
    }
}

void FillWithPattern(const DeviceContext& dc, const RECT& rc, const Surface& tile)
{
    const std::int64_t xOrigin = std::int64_t{dc.ptBrushOrigin.x} + dc.Origin().x;
    const std::int64_t yOrigin = std::int64_t{dc.ptBrushOrigin.y} + dc.Origin().y;
    const int iColumn = TilePosition(rc.left, xOrigin, tile.Width());
    const std::uint32_t* pTile = tile.Pixels();
    const std::ptrdiff_t nStride = dc.Target().Stride();
    std::uint32_t* pRow = dc.Target().PixelsForOverwrite(rc) + rc.top * nStride + rc.left;
    const auto nPixels = static_cast<std::size_t>(rc.right - rc.left);
    for (int y = rc.top; y < rc.bottom; ++y, pRow += nStride)
    {
        const std::uint32_t* pTileRow = pTile + TilePosition(y, yOrigin, tile.Height()) * tile.Stride();
        FillRowWithTile(pRow, nPixels, pTileRow, static_cast<std::size_t>(tile.Width()),
                        static_cast<std::size_t>(iColumn));
    }
}

/// Fills a part of what may be drawn.
void Fill(const DeviceContext& dc, const Region& rgnDrawn, const BrushObject& brush)
{
    for (const RECT& rc : rgnDrawn.Rects())
    {
        if (brush.crSolid)
            dc.Target().Fill(rc, PixelFromColorRef(*brush.crSolid));
        else if (brush.pPattern)
            FillWithPattern(dc, rc, *brush.pPattern);
    }
    if (brush.crSolid || brush.pPattern)
        dc.ReportDamage(rgnDrawn);
}

} // namespace

int FillRect(HDC hDC, const RECT* prc, HBRUSH hBrush)
{
    const auto pDC = FindDC(hDC);
    const auto pBrush = FindBrush(hBrush);
    if (!pDC || !pBrush || !prc)
        return FALSE;
    Fill(*pDC, pDC->Clip() & pDC->ToSurface(*prc), *pBrush);
    return TRUE;
}

BOOL FillRgn(HDC hDC, HRGN hRgn, HBRUSH hBrush)
{
    const auto pDC = FindDC(hDC);
    const auto pBrush = FindBrush(hBrush);
    const auto pRegion = FindRegion(hRgn);
    if (!pDC || !pBrush || !pRegion)
        return FALSE;
    Region rgnDrawn = pRegion->rgn;
    rgnDrawn.Offset(pDC->Origin().x, pDC->Origin().y);
    Fill(*pDC, rgnDrawn &= pDC->Clip(), *pBrush);
    return TRUE;
}
