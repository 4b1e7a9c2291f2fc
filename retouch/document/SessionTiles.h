#pragma once

#include "document/TiledSnapshot.h"

#include <QDataStream>

// Tiles of a picture as the records of a session tell of them.

/// Where a tile of one value is: nowhere but in its record.
TilePlace PlaceOfOneValue(BYTE value);

/// Writes which tile of its picture it is, and where.
void WritePlace(QDataStream& stream, std::size_t iTile, const TilePlace& place);

/// Puts tiles that are told of into a picture; FALSE when one is none of it, or in no part of the file's first nGood
/// bytes.
bool ReadTiles(const QByteArray& told, const std::shared_ptr<const CLockedFile>& pFile, std::uint64_t nGood,
               CTiledSnapshot& picture);
