#pragma once

#include "platform/framework.h"

#include <memory>
#include <span>
#include <vector>

/// A picture's bytes as they were at a moment, in square tiles. Tiles that are the same in an earlier snapshot are
/// shared with it, and tiles of one value keep nothing but that: so a history costs what changed, not whole pictures.
/// Rows of the picture follow each other without padding.
class CTiledSnapshot
{
public:
    CTiledSnapshot() = default;

    /// Takes a picture of nRow bytes a row, sharing what it can with an earlier snapshot of the same size.
    CTiledSnapshot(std::span<const BYTE> vBytes, std::size_t nRow, const CTiledSnapshot& earlier);

    bool IsEmpty() const { return m_vTiles.empty(); }

    /// Puts the bytes back, as many as were taken.
    void Restore(std::span<BYTE> vBytes) const;

    /// Copies some pixels of 4 bytes of one row, by their columns, one after the other. Any thread.
    void PickPixels(std::size_t iRow, std::span<const int> vColumns, BYTE* pPixels) const;

    /// Whether both hold the same bytes because nothing changed between them.
    bool IsSameAs(const CTiledSnapshot& other) const;

    /// Bytes that this one holds and the earlier one does not.
    std::size_t BytesBeyond(const CTiledSnapshot& earlier) const;

private:
    static constexpr std::size_t SIDE = 256; ///< Rows, and bytes a row.

    /// Row by row; one byte for a tile of one value.
    using Tile = std::vector<BYTE>;
    struct Area
    {
        std::size_t iTop, iLeft, nRows, nBytes;
    };

    std::size_t TilesAcross() const { return (m_nRow + SIDE - 1) / SIDE; }
    Area AreaOf(std::size_t iTile) const;
    bool Matches(const Tile& tile, const Area& area, const BYTE* pBytes) const;
    Tile Take(const Area& area, const BYTE* pBytes) const;

    std::size_t m_nRow = 0;
    std::size_t m_nRows = 0;
    std::vector<std::shared_ptr<const Tile>> m_vTiles;
};
