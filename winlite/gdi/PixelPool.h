#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace winlite
{

/// Hands out pixel memory and keeps a few large buffers that came back, so that a view painting itself again and again
/// does not have fresh pages mapped every time. Contents are whatever was there. User-interface thread only.
class PixelPool
{
public:
    using Buffer = std::unique_ptr<std::uint32_t[]>;

    /// The program's pool.
    static PixelPool& Get();

    /// A buffer of at least that many pixels. Throws std::bad_alloc when there is no memory.
    Buffer Take(std::size_t nPixels);

    /// Returns a buffer that Take gave for the same number of pixels.
    void GiveBack(Buffer pBuffer, std::size_t nPixels);

    /// Bytes handed out and kept.
    std::size_t BytesInUse() const { return m_nBytes; }

private:
    struct FreeBuffer
    {
        Buffer pBuffer;
        std::size_t nCapacity;
    };

    void DropOldest();

    std::vector<FreeBuffer> m_vFree; ///< Oldest first.
    std::size_t m_nFreeBytes = 0;
    std::size_t m_nBytes = 0;
};

} // namespace winlite
