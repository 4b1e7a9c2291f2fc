#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

/// Bytes in one piece, zero at first, for whole pictures. Where the system leaves it to the program, pieces above 4 MB
/// ask for huge pages: taking the first touch of a large photo page by page costs more than most work on it.
class CLargeBuffer
{
public:
    CLargeBuffer() : m_pBytes(nullptr, Release{0}) {}

    /// Throws std::bad_alloc.
    explicit CLargeBuffer(std::size_t nBytes);

    std::uint8_t* Data() { return m_pBytes.get(); }
    const std::uint8_t* Data() const { return m_pBytes.get(); }
    std::size_t Size() const { return m_pBytes.get_deleter().nBytes; }
    std::span<std::uint8_t> Bytes() { return {Data(), Size()}; }
    std::span<const std::uint8_t> Bytes() const { return {Data(), Size()}; }

private:
    struct Release
    {
        std::size_t nBytes;
        void operator()(std::uint8_t* pBytes) const;
    };

    std::unique_ptr<std::uint8_t[], Release> m_pBytes;
};
