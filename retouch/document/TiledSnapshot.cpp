#include "document/TiledSnapshot.h"

#include "pixels/Bands.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <new>

CTiledSnapshot::CTiledSnapshot(std::span<const BYTE> vBytes, std::size_t nRow, const CTiledSnapshot& earlier)
    : m_nRow(nRow), m_nRows(nRow ? vBytes.size() / nRow : 0)
{
    const std::size_t nTiles = TilesAcross() * ((m_nRows + SIDE - 1) / SIDE);
    const bool bSameSize = earlier.m_nRow == m_nRow && earlier.m_nRows == m_nRows;
    m_vTiles.resize(nTiles);
    std::atomic<bool> bShortOfMemory = false;
    const auto take = [&](int iFirst, int iEnd)
    {
        for (auto i = static_cast<std::size_t>(iFirst); i < static_cast<std::size_t>(iEnd); ++i)
        {
            const Area area = AreaOf(i);
            if (bSameSize && Matches(*earlier.m_vTiles[i], area, vBytes.data()))
                m_vTiles[i] = earlier.m_vTiles[i];
            else
                m_vTiles[i] = std::make_shared<const Tile>(Take(area, vBytes.data()));
        }
    };
    CProgress progress;
    ForBands(static_cast<int>(nTiles), progress,
             [&](int iFirst, int iEnd)
             {
                 try
                 {
                     take(iFirst, iEnd);
                 }
                 catch (const std::bad_alloc&)
                 {
                     bShortOfMemory = true;
                 }
             });
    if (bShortOfMemory)
        throw std::bad_alloc();
}

CTiledSnapshot::Area CTiledSnapshot::AreaOf(std::size_t iTile) const
{
    const std::size_t iTop = iTile / TilesAcross() * SIDE;
    const std::size_t iLeft = iTile % TilesAcross() * SIDE;
    return {iTop, iLeft, std::min(SIDE, m_nRows - iTop), std::min(SIDE, m_nRow - iLeft)};
}

bool CTiledSnapshot::Matches(const Tile& tile, const Area& area, const BYTE* pBytes) const
{
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

CTiledSnapshot::Tile CTiledSnapshot::Take(const Area& area, const BYTE* pBytes) const
{
    Tile tile;
    tile.reserve(area.nRows * area.nBytes);
    for (std::size_t y = 0; y < area.nRows; ++y)
    {
        const BYTE* const pRow = pBytes + (area.iTop + y) * m_nRow + area.iLeft;
        tile.insert(tile.end(), pRow, pRow + area.nBytes);
    }
    const bool bOneValue = std::memcmp(tile.data(), tile.data() + 1, tile.size() - 1) == 0;
    return bOneValue ? Tile{tile.front()} : tile;
}

void CTiledSnapshot::Restore(std::span<BYTE> vBytes) const
{
    for (std::size_t i = 0; i < m_vTiles.size(); ++i)
    {
        const Tile& tile = *m_vTiles[i];
        const Area area = AreaOf(i);
        for (std::size_t y = 0; y < area.nRows; ++y)
        {
            BYTE* const pRow = vBytes.data() + (area.iTop + y) * m_nRow + area.iLeft;
            if (tile.size() == 1)
                std::memset(pRow, tile.front(), area.nBytes);
            else
                std::memcpy(pRow, tile.data() + y * area.nBytes, area.nBytes);
        }
    }
}

void CTiledSnapshot::PickPixels(std::size_t iRow, std::span<const int> vColumns, BYTE* pPixels) const
{
    for (const int iColumn : vColumns)
    {
        const std::size_t iByte = static_cast<std::size_t>(iColumn) * 4;
        const std::size_t iTile = iRow / SIDE * TilesAcross() + iByte / SIDE;
        const Tile& tile = *m_vTiles[iTile];
        if (tile.size() == 1)
            std::memset(pPixels, tile.front(), 4);
        else
            std::memcpy(pPixels, tile.data() + iRow % SIDE * AreaOf(iTile).nBytes + iByte % SIDE, 4);
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
        nBytes += bShared ? 0 : m_vTiles[i]->size();
    }
    return nBytes;
}
