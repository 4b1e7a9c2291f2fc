#include "document/TiledSnapshot.h"

#include "pixels/Bands.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <new>

namespace
{

/// Calls work(i) for each of some tiles, on all cores.
template<class F>
void ForTiles(std::size_t nTiles, F work)
{
    std::atomic<bool> bShortOfMemory = false;
    CProgress progress;
    ForBands(static_cast<int>(nTiles), progress,
             [&](int iFirst, int iEnd)
             {
                 try
                 {
                     for (auto i = static_cast<std::size_t>(iFirst); i < static_cast<std::size_t>(iEnd); ++i)
                         work(i);
                 }
                 catch (const std::bad_alloc&)
                 {
                     bShortOfMemory = true;
                 }
             });
    if (bShortOfMemory)
        throw std::bad_alloc();
}

} // namespace

CTiledSnapshot::CTiledSnapshot(std::size_t nRow, std::size_t nRows) : m_nRow(nRow), m_nRows(nRows)
{
    m_vTiles.resize(TilesAcross() * TilesDown());
}

CTiledSnapshot::CTiledSnapshot(std::span<const BYTE> vBytes, std::size_t nRow, const CTiledSnapshot& earlier)
    : CTiledSnapshot(nRow, nRow ? vBytes.size() / nRow : 0)
{
    const bool bSameSize = HasSizeOf(earlier);
    ForTiles(m_vTiles.size(),
             [&](std::size_t i)
             {
                 const bool bShared = bSameSize && earlier.m_vTiles[i] && earlier.Matches(i, vBytes.data());
                 m_vTiles[i] = bShared ? earlier.m_vTiles[i] : Take(i, vBytes.data());
             });
}

CTiledSnapshot::Change CTiledSnapshot::Changed(const BYTE* pBefore, const BYTE* pAfter, const Area& area) const
{
    const std::vector<std::size_t> vTiles = TilesIn(area);
    Change change = {std::vector<KeptTile>(vTiles.size()), *this};
    ForTiles(vTiles.size(),
             [&](std::size_t iPlace)
             {
                 const std::size_t i = vTiles[iPlace];
                 if (SameBytes(i, pBefore, pAfter))
                     return;
                 if (!m_vTiles[i])
                     change.vBefore[iPlace] = {i, Take(i, pBefore)};
                 change.after.m_vTiles[i] = Take(i, pAfter);
             });
    std::erase_if(change.vBefore, [](const KeptTile& kept) { return !kept.pTile; });
    return change;
}

std::vector<CTiledSnapshot::KeptTile> CTiledSnapshot::Missing(const BYTE* pBytes) const
{
    std::vector<KeptTile> vMissing(m_vTiles.size());
    ForTiles(vMissing.size(),
             [&](std::size_t i)
             {
                 if (!m_vTiles[i])
                     vMissing[i] = {i, Take(i, pBytes)};
             });
    std::erase_if(vMissing, [](const KeptTile& kept) { return !kept.pTile; });
    return vMissing;
}

void CTiledSnapshot::Fill(const std::vector<KeptTile>& vTiles)
{
    for (const KeptTile& kept : vTiles)
    {
        if (!m_vTiles[kept.iTile])
            m_vTiles[kept.iTile] = kept.pTile;
    }
}

CTiledSnapshot::Area CTiledSnapshot::AreaOf(std::size_t iTile) const
{
    const std::size_t iTop = iTile / TilesAcross() * TILE_ROWS;
    const std::size_t iLeft = iTile % TilesAcross() * TILE_BYTES;
    return {iTop, iLeft, std::min(TILE_ROWS, m_nRows - iTop), std::min(TILE_BYTES, m_nRow - iLeft)};
}

std::vector<std::size_t> CTiledSnapshot::TilesIn(const Area& area) const
{
    std::vector<std::size_t> vTiles;
    for (std::size_t iDown = area.iTop / TILE_ROWS; iDown * TILE_ROWS < area.iTop + area.nRows; ++iDown)
    {
        for (std::size_t iAcross = area.iLeft / TILE_BYTES; iAcross * TILE_BYTES < area.iLeft + area.nBytes; ++iAcross)
            vTiles.push_back(iDown * TilesAcross() + iAcross);
    }
    return vTiles;
}

bool CTiledSnapshot::Matches(std::size_t iTile, const BYTE* pBytes) const
{
    const Tile& tile = *m_vTiles[iTile];
    const Area area = AreaOf(iTile);
    const Tile vOneRow(tile.size() == 1 ? area.nBytes : 0, tile.front());
    for (std::size_t y = 0; y < area.nRows; ++y)
    {
        const BYTE* const pRow = pBytes + (area.iTop + y) * m_nRow + area.iLeft;
        const BYTE* const pTile = vOneRow.empty() ? tile.data() + y * area.nBytes : vOneRow.data();
        if (std::memcmp(pRow, pTile, area.nBytes) != 0)
            return false;
    }
    return true;
}

bool CTiledSnapshot::SameBytes(std::size_t iTile, const BYTE* pOne, const BYTE* pOther) const
{
    const Area area = AreaOf(iTile);
    for (std::size_t y = 0; y < area.nRows; ++y)
    {
        const std::size_t iByte = (area.iTop + y) * m_nRow + area.iLeft;
        if (std::memcmp(pOne + iByte, pOther + iByte, area.nBytes) != 0)
            return false;
    }
    return true;
}

std::shared_ptr<const CTiledSnapshot::Tile> CTiledSnapshot::Take(std::size_t iTile, const BYTE* pBytes) const
{
    const Area area = AreaOf(iTile);
    Tile tile;
    tile.reserve(area.nRows * area.nBytes);
    for (std::size_t y = 0; y < area.nRows; ++y)
    {
        const BYTE* const pRow = pBytes + (area.iTop + y) * m_nRow + area.iLeft;
        tile.insert(tile.end(), pRow, pRow + area.nBytes);
    }
    const bool bOneValue = std::memcmp(tile.data(), tile.data() + 1, tile.size() - 1) == 0;
    return std::make_shared<const Tile>(bOneValue ? Tile{tile.front()} : std::move(tile));
}

void CTiledSnapshot::Restore(std::span<BYTE> vBytes, const CTiledSnapshot& shown) const
{
    for (const KeptTile& tile : Beyond(shown))
        WriteTile(tile.iTile, *tile.pTile, vBytes);
}

std::vector<CTiledSnapshot::KeptTile> CTiledSnapshot::Beyond(const CTiledSnapshot& other) const
{
    const bool bSameSize = HasSizeOf(other);
    std::vector<KeptTile> vTiles;
    for (std::size_t i = 0; i < m_vTiles.size(); ++i)
    {
        if (m_vTiles[i] && !(bSameSize && other.m_vTiles[i] == m_vTiles[i]))
            vTiles.push_back({i, m_vTiles[i]});
    }
    return vTiles;
}

bool CTiledSnapshot::WriteTile(std::size_t iTile, std::span<const BYTE> vTile, std::span<BYTE> vBytes) const
{
    if (iTile >= m_vTiles.size() || vBytes.size() != m_nRow * m_nRows)
        return false;
    const Area area = AreaOf(iTile);
    if (vTile.size() != 1 && vTile.size() != area.nRows * area.nBytes)
        return false;
    for (std::size_t y = 0; y < area.nRows; ++y)
    {
        BYTE* const pRow = vBytes.data() + (area.iTop + y) * m_nRow + area.iLeft;
        if (vTile.size() == 1)
            std::memset(pRow, vTile.front(), area.nBytes);
        else
            std::memcpy(pRow, vTile.data() + y * area.nBytes, area.nBytes);
    }
    return true;
}

void CTiledSnapshot::PickPixels(std::size_t iRow, std::span<const int> vColumns, const BYTE* pShown,
                                BYTE* pPixels) const
{
    for (const int iColumn : vColumns)
    {
        const std::size_t iByte = static_cast<std::size_t>(iColumn) * 4;
        const std::size_t iTile = iRow / TILE_ROWS * TilesAcross() + iByte / TILE_BYTES;
        const Tile* const pTile = m_vTiles[iTile].get();
        if (!pTile)
            std::memcpy(pPixels, pShown + iByte, 4);
        else if (pTile->size() == 1)
            std::memset(pPixels, pTile->front(), 4);
        else
            std::memcpy(pPixels, pTile->data() + iRow % TILE_ROWS * AreaOf(iTile).nBytes + iByte % TILE_BYTES, 4);
        pPixels += 4;
    }
}

bool CTiledSnapshot::IsSameAs(const CTiledSnapshot& other) const { return m_vTiles == other.m_vTiles; }

std::size_t CTiledSnapshot::BytesBeyond(const CTiledSnapshot& earlier) const
{
    std::size_t nBytes = 0;
    for (std::size_t i = 0; i < m_vTiles.size(); ++i)
    {
        const bool bShared = i < earlier.m_vTiles.size() && earlier.m_vTiles[i] == m_vTiles[i];
        nBytes += bShared || !m_vTiles[i] ? 0 : m_vTiles[i]->size();
    }
    return nBytes;
}
