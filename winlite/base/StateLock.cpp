#include "base/StateLock.h"

#include <cassert>
#include <mutex>

namespace winlite
{

namespace
{

std::recursive_mutex& TheMutex()
{
    static std::recursive_mutex* pMutex = new std::recursive_mutex;
    return *pMutex;
}

thread_local int t_iDepth = 0;

} // namespace

StateLock::StateLock()
{
    TheMutex().lock();
    ++t_iDepth;
}

StateLock::~StateLock()
{
    --t_iDepth;
    TheMutex().unlock();
}

void StateLock::AssertNotHeld() { assert(t_iDepth == 0); }

} // namespace winlite
