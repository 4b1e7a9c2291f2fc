#include "pixels/LargeBuffer.h"

#include <cstdlib>
#include <new>
#include <sys/mman.h>

namespace
{

constexpr std::size_t LARGE = std::size_t{4} << 20;
constexpr std::size_t HUGE_PAGE = std::size_t{2} << 20;

std::size_t WholePages(std::size_t nBytes) { return (nBytes + HUGE_PAGE - 1) / HUGE_PAGE * HUGE_PAGE; }

/// Pages that begin where a huge page may.
std::uint8_t* MapLarge(std::size_t nBytes)
{
    const std::size_t nMapped = WholePages(nBytes) + HUGE_PAGE;
    void* const pMapped = ::mmap(nullptr, nMapped, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (pMapped == MAP_FAILED)
        return nullptr;
    auto* const pFirst = static_cast<std::uint8_t*>(pMapped);
    const std::size_t nBefore = (HUGE_PAGE - reinterpret_cast<std::uintptr_t>(pFirst) % HUGE_PAGE) % HUGE_PAGE;
    std::uint8_t* const pBytes = pFirst + nBefore;
    if (nBefore)
        ::munmap(pFirst, nBefore);
    if (nBefore < HUGE_PAGE)
        ::munmap(pBytes + WholePages(nBytes), HUGE_PAGE - nBefore);
#ifdef MADV_HUGEPAGE
    ::madvise(pBytes, WholePages(nBytes), MADV_HUGEPAGE);
#endif
    return pBytes;
}

} // namespace

CLargeBuffer::CLargeBuffer(std::size_t nBytes)
    : m_pBytes(nBytes > LARGE ? MapLarge(nBytes) : static_cast<std::uint8_t*>(std::calloc(nBytes, 1)), Release{nBytes})
{
    if (!m_pBytes && nBytes)
        throw std::bad_alloc();
}

void CLargeBuffer::Release::operator()(std::uint8_t* pBytes) const
{
    if (nBytes > LARGE)
        ::munmap(pBytes, WholePages(nBytes));
    else
        std::free(pBytes);
}
