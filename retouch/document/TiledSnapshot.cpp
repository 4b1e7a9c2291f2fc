#include "document/TiledSnapshot.h"

#include "pixels/Bands.h"

#include <algorithm>
#include <cstring>
#include <exception>
#include <mutex>
#include <utility>

namespace
{

/// Calls work(i) for each of some tiles, on all cores, and throws what one of them throws.
template<class F>
void ForTiles(std::size_t nTiles, F work)
{
    std::mutex mutex;
    std::exception_ptr pFailure;
    CProgress progress;
    ForBands(static_cast<int>(nTiles), progress,
             [&](int iFirst, int iEnd)
             {
                 try
                 {
                     for (auto i = static_cast<std::size_t>(iFirst); i < static_cast<std::size_t>(iEnd); ++i)
                         work(i);
                 }
                 catch (...)
                 {
                     const std::lock_guard lock(mutex);
                     pFailure = std::current_exception();
                 }
             });
    if (pFailure)
        std::rethrow_exception(pFailure);
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

bool CTiledSnapshot::Put(const KeptTile& kept)
{
    if (kept.iTile >= m_vTiles.size())
        return false;
    const Area area = AreaOf(kept.iTile);
    if (kept.pTile->Size() != 1 && kept.pTile->Size() != area.nRows * area.nBytes)
        return false;
    m_vTiles[kept.iTile] = kept.pTile;
    return true;
}

bool CTiledSnapshot::Matches(std::size_t iTile, const BYTE* pBytes) const
{
    return m_vTiles[iTile]->IsEqual(Copy(iTile, pBytes));
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

CTile::Bytes CTiledSnapshot::Copy(std::size_t iTile, const BYTE* pBytes) const
{
    const Area area = AreaOf(iTile);
    CTile::Bytes bytes;
    bytes.reserve(area.nRows * area.nBytes);
    for (std::size_t y = 0; y < area.nRows; ++y)
    {
        const BYTE* const pRow = pBytes + (area.iTop + y) * m_nRow + area.iLeft;
        bytes.insert(bytes.end(), pRow, pRow + area.nBytes);
    }
    const bool bOneValue = std::memcmp(bytes.data(), bytes.data() + 1, bytes.size() - 1) == 0;
    return bOneValue ? CTile::Bytes{bytes.front()} : bytes;
}

std::shared_ptr<const CTiledSnapshot::Tile> CTiledSnapshot::Take(std::size_t iTile, const BYTE* pBytes) const
{
    return std::make_shared<const Tile>(Copy(iTile, pBytes));
}

void CTiledSnapshot::Restore(std::span<BYTE> vBytes, const CTiledSnapshot& shown) const
{
    const std::vector<KeptTile> vTiles = Beyond(shown);
    ForTiles(vTiles.size(), [&](std::size_t i) { Write(vTiles[i], vBytes); });
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

void CTiledSnapshot::Write(const KeptTile& kept, std::span<BYTE> vBytes) const
{
    const std::shared_ptr<const CTile::Bytes> pTile = kept.pTile->Get();
    const Area area = AreaOf(kept.iTile);
    for (std::size_t y = 0; y < area.nRows; ++y)
    {
        BYTE* const pRow = vBytes.data() + (area.iTop + y) * m_nRow + area.iLeft;
        if (pTile->size() == 1)
            std::memset(pRow, pTile->front(), area.nBytes);
        else
            std::memcpy(pRow, pTile->data() + y * area.nBytes, area.nBytes);
    }
}

void CTiledSnapshot::PickPixels(std::size_t iRow, std::span<const int> vColumns, const BYTE* pShown,
                                BYTE* pPixels) const
{
    std::size_t iKnown = m_vTiles.size();
    std::shared_ptr<const CTile::Bytes> pTile;
    for (const int iColumn : vColumns)
    {
        const std::size_t iByte = static_cast<std::size_t>(iColumn) * 4;
        const std::size_t iTile = iRow / TILE_ROWS * TilesAcross() + iByte / TILE_BYTES;
        if (std::exchange(iKnown, iTile) != iTile)
            pTile = m_vTiles[iTile] ? m_vTiles[iTile]->Get() : nullptr;
        if (!pTile)
            std::memcpy(pPixels, pShown + iByte, 4);
        else if (pTile->size() == 1)
            std::memset(pPixels, pTile->front(), 4);
        else
            std::memcpy(pPixels, pTile->data() + iRow % TILE_ROWS * AreaOf(iTile).nBytes + iByte % TILE_BYTES, 4);
        pPixels += 4;
    }
}

bool CTiledSnapshot::IsWhole() const
{
    return !m_vTiles.empty() && std::ranges::none_of(m_vTiles, [](const auto& pTile) { return !pTile; });
}

bool CTiledSnapshot::IsSameAs(const CTiledSnapshot& other) const { return m_vTiles == other.m_vTiles; }

std::size_t CTiledSnapshot::BytesBeyond(const CTiledSnapshot& earlier) const
{
    std::size_t nBytes = m_vTiles.size() * sizeof(m_vTiles.front());
    for (const KeptTile& kept : Beyond(earlier))
        nBytes += sizeof(CTile) + (kept.pTile->IsInMemory() ? kept.pTile->Size() : 0);
    return nBytes;
}
