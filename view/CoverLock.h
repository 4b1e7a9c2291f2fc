#pragma once

#include "platform/framework.h"

namespace Pixtane
{

/// Holds the lock of the cover's pixels while it lives, where a tool has lent one.
class CCoverLock
{
public:
    explicit CCoverLock(CCriticalSection* pLock) : m_pLock(pLock)
    {
        if (m_pLock)
            m_pLock->Lock();
    }
    ~CCoverLock()
    {
        if (m_pLock)
            m_pLock->Unlock();
    }
    CCoverLock(const CCoverLock&) = delete;
    CCoverLock& operator=(const CCoverLock&) = delete;

private:
    CCriticalSection* m_pLock;
};

} // namespace Pixtane
