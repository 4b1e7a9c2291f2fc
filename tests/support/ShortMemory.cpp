#include "support/ShortMemory.h"

#include "platform/framework.h"

#include <cstdlib>
#include <new>
#include <optional>
#include <utility>

namespace
{

std::optional<Shortage> s_eShortage;
std::size_t s_nLarge = 0;

} // namespace

void LetMemoryRunOut(Shortage eShortage, std::size_t nLarge)
{
    s_eShortage = eShortage;
    s_nLarge = nLarge;
}

bool HasMemoryRunOut() { return !std::exchange(s_eShortage, std::nullopt); }

// They take the place of the program's own, as the framework's do.

void* operator new(std::size_t nBytes)
{
    if (s_eShortage && nBytes >= s_nLarge)
    {
        if (*std::exchange(s_eShortage, std::nullopt) == Shortage::Framework)
            throw new CMemoryException;
        throw std::bad_alloc();
    }
    if (void* const pMemory = std::malloc(nBytes ? nBytes : 1))
        return pMemory;
    throw std::bad_alloc();
}

void operator delete(void* pMemory) noexcept { std::free(pMemory); }
void operator delete(void* pMemory, std::size_t) noexcept { std::free(pMemory); }
