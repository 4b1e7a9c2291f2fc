#pragma once

#include <cstddef>

namespace winlite
{

/// Asks for huge pages behind memory that is large and not touched yet, where the system leaves that to the program:
/// the first touch of a large picture page by page costs more than most drawing on it. Any thread.
void AskForHugePages(void* pMemory, std::size_t nBytes);

} // namespace winlite
