#pragma once

#include "platform/framework.h"

#include <new>

namespace Pixtane
{

/// In a catch (...) block: returns when memory ran out, and throws on whatever else was caught. The framework's own
/// operator new throws a pointer, which is deleted here, the standard library's std::bad_alloc.
inline void RethrowUnlessOutOfMemory()
try
{
    throw;
}
catch (const std::bad_alloc&)
{
}
catch (CMemoryException* pException)
{
    pException->Delete();
}

} // namespace Pixtane
