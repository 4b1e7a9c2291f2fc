#include "gdi/PixelPool.h"

#include "base/HugePages.h"
#include "base/Thread.h"

#include <algorithm>

namespace winlite
{

namespace
{

constexpr std::size_t PIXEL_BYTES = sizeof(std::uint32_t);

// Large buffers come in steps of 64 KiB, so that a window being resized finds some again. Smaller ones are the
// allocator's business.
constexpr std::size_t STEP_PIXELS = 16 * 1024;
constexpr std::size_t MOST_FREE_BUFFERS = 4;
constexpr std::size_t MOST_FREE_BYTES = std::size_t{128} << 20;

std::size_t CapacityFor(std::size_t nPixels)
{
    return nPixels < STEP_PIXELS ? nPixels : (nPixels + STEP_PIXELS - 1) / STEP_PIXELS * STEP_PIXELS;
}

} // namespace

PixelPool& PixelPool::Get()
{
    // Never destroyed: the surfaces of static objects may outlive any order of destruction.
    static PixelPool* pPool = new PixelPool;
    return *pPool;
}

PixelPool::Buffer PixelPool::Take(std::size_t nPixels)
{
    AssertUserInterfaceThread();
    const std::size_t nCapacity = CapacityFor(nPixels);
    const auto it = std::ranges::find(m_vFree, nCapacity, &FreeBuffer::nCapacity);
    if (it != m_vFree.end())
    {
        Buffer pBuffer = std::move(it->pBuffer);
        m_vFree.erase(it);
        m_nFreeBytes -= nCapacity * PIXEL_BYTES;
        return pBuffer;
    }
    Buffer pBuffer = std::make_unique_for_overwrite<std::uint32_t[]>(nCapacity);
    AskForHugePages(pBuffer.get(), nCapacity * PIXEL_BYTES);
    m_nBytes += nCapacity * PIXEL_BYTES;
    return pBuffer;
}

void PixelPool::GiveBack(Buffer pBuffer, std::size_t nPixels)
{
    AssertUserInterfaceThread();
    const std::size_t nCapacity = CapacityFor(nPixels);
    const std::size_t nBytes = nCapacity * PIXEL_BYTES;
    if (nPixels < STEP_PIXELS || nBytes > MOST_FREE_BYTES)
    {
        m_nBytes -= nBytes;
        return;
    }
    while (m_vFree.size() == MOST_FREE_BUFFERS || m_nFreeBytes + nBytes > MOST_FREE_BYTES)
        DropOldest();
    m_vFree.push_back({std::move(pBuffer), nCapacity});
    m_nFreeBytes += nBytes;
}

void PixelPool::DropOldest()
{
    const std::size_t nBytes = m_vFree.front().nCapacity * PIXEL_BYTES;
    m_vFree.erase(m_vFree.begin());
    m_nFreeBytes -= nBytes;
    m_nBytes -= nBytes;
}

} // namespace winlite
