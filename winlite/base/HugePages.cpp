#include "base/HugePages.h"

#include <cstdint>
#include <sys/mman.h>

namespace winlite
{

void AskForHugePages(void* pMemory, std::size_t nBytes)
{
    constexpr std::size_t LARGE_BYTES = std::size_t{4} << 20;
    constexpr std::uintptr_t PAGE = 4096;
    if (nBytes < LARGE_BYTES)
        return;
    // Whole pages inside it; a system that does not know the wish goes on as it was.
    const auto uBegin = (reinterpret_cast<std::uintptr_t>(pMemory) + PAGE - 1) / PAGE * PAGE;
    const auto uEnd = (reinterpret_cast<std::uintptr_t>(pMemory) + nBytes) / PAGE * PAGE;
    ::madvise(reinterpret_cast<void*>(uBegin), uEnd - uBegin, MADV_HUGEPAGE);
}

} // namespace winlite
