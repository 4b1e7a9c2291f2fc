#include "document/SessionTiles.h"

#include <QByteArray>

TilePlace PlaceOfOneValue(BYTE value) { return {0, 0, 1, value}; }

void WritePlace(QDataStream& stream, std::size_t iTile, const TilePlace& place)
{
    stream << static_cast<quint32>(iTile) << static_cast<quint64>(place.iFirst) << place.nBlock << place.nBytes
           << static_cast<quint64>(place.uHash);
}

bool ReadTiles(const QByteArray& told, const std::shared_ptr<const CLockedFile>& pFile, std::uint64_t nGood,
               CTiledSnapshot& picture)
{
    QDataStream stream(told);
    while (!stream.atEnd())
    {
        quint32 iTile = 0;
        quint64 iFirst = 0;
        quint64 uHash = 0;
        TilePlace place;
        stream >> iTile >> iFirst >> place.nBlock >> place.nBytes >> uHash;
        place.iFirst = iFirst;
        place.uHash = uHash;
        const bool bOneValue = place.nBlock == 0 && place.nBytes == 1;
        const bool bInFile = place.nBlock > 0 && iFirst <= nGood && place.nBlock <= nGood - iFirst;
        if (stream.status() != QDataStream::Ok || (!bOneValue && !bInFile) ||
            place.nBytes > CTiledSnapshot::TILE_BYTES_AT_MOST)
            return false;
        const auto pTile = bOneValue ? std::make_shared<const CTile>(CTile::Bytes{static_cast<BYTE>(uHash)})
                                     : std::make_shared<const CTile>(pFile, place);
        if (!picture.Put({iTile, pTile}))
            return false;
    }
    return true;
}
