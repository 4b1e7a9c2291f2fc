#include "document/Tile.h"

#include "document/LockedFile.h"

#include <lz4.h>
#include <QtGlobal>
#include <utility>
#include <xxhash.h>

CTile::Unreadable::Unreadable()
    : std::runtime_error(QT_TRANSLATE_NOOP("Program", "what was kept of an earlier step cannot be read any more"))
{
}

CTile::CTile(std::shared_ptr<const CLockedFile> pFile, const TilePlace& place)
    : m_nBytes(place.nBytes), m_pFile(std::move(pFile)), m_place(place)
{
}

std::shared_ptr<const CTile::Bytes> CTile::Get() const
{
    if (std::shared_ptr<const Bytes> pBytes = m_pBytes.load())
        return pBytes;
    std::string block(m_place.nBlock, '\0');
    auto pBytes = std::make_shared<Bytes>(m_nBytes);
    if (!m_pFile->Read(m_place.iFirst, block.data(), block.size()) ||
        LZ4_decompress_safe(block.data(), reinterpret_cast<char*>(pBytes->data()), static_cast<int>(block.size()),
                            static_cast<int>(m_nBytes)) != static_cast<int>(m_nBytes) ||
        XXH3_64bits(pBytes->data(), m_nBytes) != m_place.uHash)
        throw Unreadable();
    return pBytes;
}

bool CTile::IsEqual(const Bytes& bytes) const
{
    if (bytes.size() != m_nBytes)
        return false;
    if (const std::shared_ptr<const Bytes> pBytes = m_pBytes.load())
        return *pBytes == bytes;
    return XXH3_64bits(bytes.data(), bytes.size()) == m_place.uHash;
}

std::string CTile::Compressed(TilePlace& place) const
{
    const std::shared_ptr<const Bytes> pBytes = Get();
    std::string block(static_cast<std::size_t>(LZ4_compressBound(static_cast<int>(m_nBytes))), '\0');
    block.resize(static_cast<std::size_t>(LZ4_compress_default(reinterpret_cast<const char*>(pBytes->data()),
                                                               block.data(), static_cast<int>(m_nBytes),
                                                               static_cast<int>(block.size()))));
    place = {0, static_cast<std::uint32_t>(block.size()), static_cast<std::uint32_t>(m_nBytes),
             XXH3_64bits(pBytes->data(), m_nBytes)};
    return block;
}

void CTile::Stored(std::shared_ptr<const CLockedFile> pFile, const TilePlace& place) const
{
    if (!IsInMemory())
        return;
    m_pFile = std::move(pFile);
    m_place = place;
    m_pBytes.store(nullptr);
}
