#pragma once

#include "platform/framework.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

class CLockedFile;

/// Where a tile is in a file, compressed as an LZ4 block, and by what it is known.
struct TilePlace
{
    std::uint64_t iFirst = 0;
    std::uint32_t nBlock = 0; ///< Bytes in the file.
    std::uint32_t nBytes = 0; ///< Of the tile.
    std::uint64_t uHash = 0;  ///< XXH3 of the tile's bytes.
};

/// A piece of a picture that does not change any more: in memory until a file has it. Any thread.
class CTile
{
public:
    using Bytes = std::vector<BYTE>;

    /// Thrown when its file cannot be read any more.
    struct Unreadable : std::runtime_error
    {
        Unreadable(); ///< Says so to the person.
    };

    explicit CTile(Bytes bytes) : m_nBytes(bytes.size()), m_pBytes(std::make_shared<const Bytes>(std::move(bytes))) {}
    CTile(std::shared_ptr<const CLockedFile> pFile, const TilePlace& place);

    std::size_t Size() const { return m_nBytes; }
    bool IsInMemory() const { return m_pBytes.load() != nullptr; }

    /// Its bytes, out of the file where they are not in memory. Throws Unreadable.
    std::shared_ptr<const Bytes> Get() const;

    /// Whether its bytes are those; of a tile in a file the hashes tell, 64 bits of them.
    bool IsEqual(const Bytes& bytes) const;

    /// Its bytes as an LZ4 block, and by what they are known; where it comes to be is not said yet.
    std::string Compressed(TilePlace& place) const;

    /// It is in a file now, and its bytes leave the memory. One thread at a time; NULL while no file has it.
    void Stored(std::shared_ptr<const CLockedFile> pFile, const TilePlace& place) const;
    const CLockedFile* File() const { return IsInMemory() ? nullptr : m_pFile.get(); }
    const TilePlace& Place() const { return m_place; }

private:
    const std::size_t m_nBytes;
    // Written before the bytes are let go, and read by who does not find them.
    mutable std::shared_ptr<const CLockedFile> m_pFile;
    mutable TilePlace m_place;
    mutable std::atomic<std::shared_ptr<const Bytes>> m_pBytes;
};
