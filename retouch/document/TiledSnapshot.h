#pragma once

#include "document/Tile.h"
#include "platform/framework.h"

#include <memory>
#include <span>
#include <vector>

/// A picture's bytes as they were at a moment, in square tiles. Tiles that are the same in an earlier snapshot are
/// shared with it, tiles of one value keep nothing but that, and tiles that nothing has changed yet need not be there
/// at all: so a history costs what changed, not whole pictures. Rows of the picture follow each other without padding.
/// Tiles that are in a file are read when they are needed: what needs their bytes throws CTile::Unreadable.
class CTiledSnapshot
{
public:
    static constexpr int TILE_SIDE = 64; ///< In pixels of 4 bytes.
    static constexpr std::size_t TILE_BYTES_AT_MOST = std::size_t{4} * TILE_SIDE * TILE_SIDE;

    CTiledSnapshot() = default;

    /// Has no tile yet of a picture of nRows rows of nRow bytes.
    CTiledSnapshot(std::size_t nRow, std::size_t nRows);

    /// Takes a picture of nRow bytes a row, sharing what it can with an earlier snapshot of the same size.
    CTiledSnapshot(std::span<const BYTE> vBytes, std::size_t nRow, const CTiledSnapshot& earlier);

    /// A part of the picture.
    struct Area
    {
        std::size_t iTop, iLeft, nRows, nBytes;
    };
    Area Whole() const { return {0, 0, m_nRows, m_nRow}; }
    bool HasSizeOf(const CTiledSnapshot& other) const { return m_nRow == other.m_nRow && m_nRows == other.m_nRows; }

    /// The bytes of a tile, row by row; a single one for all that are the same.
    using Tile = CTile;

    /// What to keep of a picture whose bytes change in an area.
    struct Change;

    /// The picture is pBefore and will be pAfter, buffers of whole pictures; this is what there is of it before.
    Change Changed(const BYTE* pBefore, const BYTE* pAfter, const Area& area) const;

    /// The tiles that it does not have, taken from the picture as it is.
    struct KeptTile;
    std::vector<KeptTile> Missing(const BYTE* pBytes) const;

    /// Takes tiles that it does not have itself.
    void Fill(const std::vector<KeptTile>& vTiles);

    /// Takes a tile instead of the one that it has; FALSE when it is none of such a picture.
    bool Put(const KeptTile& kept);

    /// Puts the bytes back that are others in the picture as it is shown; without that, all that there are.
    void Restore(std::span<BYTE> vBytes, const CTiledSnapshot& shown) const;
    void Restore(std::span<BYTE> vBytes) const { Restore(vBytes, CTiledSnapshot()); }

    /// Copies some pixels of 4 bytes of one row, by their columns, one after the other; pShown is that row in the
    /// picture as it is now. Any thread.
    void PickPixels(std::size_t iRow, std::span<const int> vColumns, const BYTE* pShown, BYTE* pPixels) const;

    /// The tiles that it has and the other one has not, or has others of; all when that has another size.
    std::vector<KeptTile> Beyond(const CTiledSnapshot& other) const;

    /// Whether it has all tiles.
    bool IsWhole() const;

    /// Whether both hold the same bytes because nothing changed between them.
    bool IsSameAs(const CTiledSnapshot& other) const;

    /// Bytes of memory that this one holds and the earlier one does not.
    std::size_t BytesBeyond(const CTiledSnapshot& earlier) const;

private:
    // Low ones: a stroke along the rows then keeps little beside itself.
    static constexpr std::size_t TILE_ROWS = TILE_SIDE;
    static constexpr std::size_t TILE_BYTES = TILE_SIDE * 4; ///< A row.

    std::size_t TilesAcross() const { return (m_nRow + TILE_BYTES - 1) / TILE_BYTES; }
    std::size_t TilesDown() const { return (m_nRows + TILE_ROWS - 1) / TILE_ROWS; }
    Area AreaOf(std::size_t iTile) const;
    std::vector<std::size_t> TilesIn(const Area& area) const;
    bool Matches(std::size_t iTile, const BYTE* pBytes) const;
    void Write(const KeptTile& kept, std::span<BYTE> vBytes) const;
    CTile::Bytes Copy(std::size_t iTile, const BYTE* pBytes) const;
    bool SameBytes(std::size_t iTile, const BYTE* pOne, const BYTE* pOther) const;
    std::shared_ptr<const Tile> Take(std::size_t iTile, const BYTE* pBytes) const;

    std::size_t m_nRow = 0;
    std::size_t m_nRows = 0;
    std::vector<std::shared_ptr<const Tile>> m_vTiles; ///< NULL for one that nothing has changed yet.
};

struct CTiledSnapshot::KeptTile
{
    std::size_t iTile;
    std::shared_ptr<const Tile> pTile;
};

struct CTiledSnapshot::Change
{
    std::vector<KeptTile> vBefore; ///< Tiles that changed and that nobody had.
    CTiledSnapshot after;
};
