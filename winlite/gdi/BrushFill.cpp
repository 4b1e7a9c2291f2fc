#include "gdi/BrushFill.h"

#include "gdi/RectMath.h"
#include "gdi/Rop2.h"

#include <vector>

namespace winlite
{

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

/// Writes pixels of a row as the tile repeats there. Positions are the surface's.
void WriteTiled(std::uint32_t* pRow, int x, int y, std::size_t nPixels, const DeviceContext& dc, const Surface& tile)
{
    const int iColumn = TilePosition(x, std::int64_t{dc.ptBrushOrigin.x} + dc.Origin().x, tile.Width());
    const int iRow = TilePosition(y, std::int64_t{dc.ptBrushOrigin.y} + dc.Origin().y, tile.Height());
    FillRowWithTile(pRow, nPixels, tile.Pixels() + iRow * tile.Stride(), static_cast<std::size_t>(tile.Width()),
                    static_cast<std::size_t>(iColumn));
}

void FillWithPattern(const DeviceContext& dc, const RECT& rc, const Surface& tile)
{
    const std::ptrdiff_t nStride = dc.Target().Stride();
    std::uint32_t* pRow = dc.Target().PixelsForOverwrite(rc) + rc.top * nStride + rc.left;
    const auto nPixels = static_cast<std::size_t>(rc.right - rc.left);
    for (int y = rc.top; y < rc.bottom; ++y, pRow += nStride)
    {
        if (y - rc.top < tile.Height())
            WriteTiled(pRow, rc.left, y, nPixels, dc, tile);
        else
            std::copy_n(pRow - nStride * tile.Height(), nPixels, pRow);
    }
}

/// Combines each pixel with the brush's; the brush is not a null one.
void CombineWithBrush(const DeviceContext& dc, const RECT& rc, const BrushObject& brush, int iRop2)
{
    Surface& surface = dc.Target();
    std::uint32_t* pRow = surface.PixelsForUpdate() + rc.top * surface.Stride() + rc.left;
    std::vector<std::uint32_t> vBrush(static_cast<std::size_t>(rc.right - rc.left),
                                      PixelFromColorRef(brush.crSolid.value_or(0)));
    for (int y = rc.top; y < rc.bottom; ++y, pRow += surface.Stride())
    {
        if (brush.pPattern)
            WriteTiled(vBrush.data(), rc.left, y, vBrush.size(), dc, *brush.pPattern);
        for (std::size_t i = 0; i < vBrush.size(); ++i)
            pRow[i] = Rop2(iRop2, vBrush[i])(pRow[i]);
    }
}

} // namespace

void FillWithBrush(const DeviceContext& dc, const Region& rgnDrawn, const BrushObject& brush, int iRop2)
{
    if (!brush.crSolid && !brush.pPattern)
        return;
    for (const RECT& rc : rgnDrawn.Rects())
    {
        if (iRop2 != R2_COPYPEN)
            CombineWithBrush(dc, rc, brush, iRop2);
        else if (brush.crSolid)
            dc.Target().Fill(rc, PixelFromColorRef(*brush.crSolid));
        else
            FillWithPattern(dc, rc, *brush.pPattern);
    }
    dc.ReportDamage(rgnDrawn);
}

} // namespace winlite
