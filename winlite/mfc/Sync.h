#pragma once

#include "user/Sync.h"

#include <mutex>

/// Something that a thread holds or waits for. Any thread.
class CSyncObject
{
public:
    CSyncObject() = default;
    virtual ~CSyncObject() = default;
    CSyncObject(const CSyncObject&) = delete;
    CSyncObject& operator=(const CSyncObject&) = delete;

    /// Waits until it is had, at most dwTimeout milliseconds of real time; FALSE when that ran out.
    virtual BOOL Lock(DWORD dwTimeout = INFINITE) = 0;
    virtual BOOL Unlock() = 0;
};

/// An event; see CreateEvent. Lock waits for it, Unlock does nothing. What SetEvent wakes may destroy the object at
/// once.
class CEvent : public CSyncObject
{
public:
    explicit CEvent(BOOL bInitiallyOwn = FALSE, BOOL bManualReset = FALSE, LPCWSTR pszName = nullptr,
                    void* pSecurity = nullptr)
        : m_hObject(::CreateEvent(pSecurity, bManualReset, bInitiallyOwn, pszName))
    {
    }
    ~CEvent() override { ::CloseHandle(m_hObject); }

    BOOL SetEvent() { return ::SetEvent(m_hObject); }
    BOOL ResetEvent() { return ::ResetEvent(m_hObject); }
    BOOL Lock(DWORD dwTimeout = INFINITE) override
    {
        return ::WaitForSingleObject(m_hObject, dwTimeout) == WAIT_OBJECT_0;
    }
    BOOL Unlock() override { return TRUE; }

    operator HANDLE() const { return m_hObject; }

    HANDLE m_hObject;
};

/// A lock for the threads of one program. The thread that holds it may take it again, and gives it back as often. A
/// time-out is not looked at.
class CCriticalSection : public CSyncObject
{
public:
    BOOL Lock(DWORD = INFINITE) override
    {
        m_Mutex.lock();
        return TRUE;
    }
    BOOL Unlock() override
    {
        m_Mutex.unlock();
        return TRUE;
    }

private:
    std::recursive_mutex m_Mutex;
};

/// Holds one object for the thread that made it, at the latest until it is destroyed. Takes it at once only with
/// bInitialLock.
class CSingleLock
{
public:
    explicit CSingleLock(CSyncObject* pObject, BOOL bInitialLock = FALSE) : m_pObject(pObject)
    {
        if (bInitialLock)
            Lock();
    }
    ~CSingleLock() { Unlock(); }
    CSingleLock(const CSingleLock&) = delete;
    CSingleLock& operator=(const CSingleLock&) = delete;

    BOOL Lock(DWORD dwTimeout = INFINITE)
    {
        m_bAcquired = m_pObject->Lock(dwTimeout);
        return m_bAcquired;
    }

    /// FALSE when it is not held.
    BOOL Unlock()
    {
        if (!m_bAcquired)
            return FALSE;
        m_bAcquired = FALSE;
        return m_pObject->Unlock();
    }
    BOOL IsLocked() const { return m_bAcquired; }

private:
    CSyncObject* m_pObject;
    BOOL m_bAcquired = FALSE;
};
