#include "user/Journal.h"
#include "user/Sync.h"
#include "user/Waitable.h"
#include "user/Workers.h"

#include <chrono>
#include <thread>

namespace winlite
{

namespace
{

class EventObject : public Waitable
{
public:
    EventObject(bool bManualReset, bool bSet) : m_bManualReset(bManualReset), m_bSet(bSet) {}

    void Put(bool bSet)
    {
        const std::scoped_lock lock(WaitLock());
        m_bSet = bSet;
        EndWaits();
    }

private:
    bool IsSignalled() const override { return m_bSet; }
    void Consume() override { m_bSet = m_bManualReset; }

    bool m_bManualReset;
    bool m_bSet;
};

BOOL PutEvent(HANDLE hEvent, bool bSet)
{
    // Held by this call: the thread that it wakes may close the handle at once.
    const auto pEvent = FindHandleAs<EventObject>(hEvent);
    if (pEvent)
        pEvent->Put(bSet);
    return pEvent != nullptr;
}

// How long a replay waits for what ended a wait in the recording: far longer than it takes when the two have not
// parted.
constexpr DWORD PATIENCE_MS = 20000;

/// How a worker's wait with a limit ends belongs to a recording. On replay it ends as it did then: a wait that timed
/// out consumes nothing, and one that an object ended waits for that object.
DWORD WaitAsRecorded(const WaitableList& vObjects, bool bAll, DWORD dwMs)
{
    const auto wait = [&](const JournalNumbers* pRecorded) -> JournalNumbers
    {
        if (!pRecorded)
            return {WaitFor(vObjects, bAll, dwMs)};
        const auto dwRecorded = static_cast<DWORD>(pRecorded->front());
        if (bAll && dwRecorded == WAIT_OBJECT_0)
            WaitFor(vObjects, true, PATIENCE_MS);
        else if (dwRecorded < vObjects.size())
            WaitFor({vObjects[dwRecorded]}, false, PATIENCE_MS);
        return *pRecorded;
    };
    return static_cast<DWORD>(AskAsWorker("worker-wait", wait).front());
}

} // namespace

} // namespace winlite

using namespace winlite;

HANDLE CreateEvent(void*, BOOL bManualReset, BOOL bInitialState, LPCWSTR pszName)
{
    return pszName ? nullptr : OpenHandle(std::make_shared<EventObject>(bManualReset, bInitialState));
}

BOOL SetEvent(HANDLE hEvent) { return PutEvent(hEvent, true); }

BOOL ResetEvent(HANDLE hEvent) { return PutEvent(hEvent, false); }

BOOL CloseHandle(HANDLE h) { return FindHandleAs<Waitable>(h) && CloseHandleEntry(h); }

DWORD WaitForSingleObject(HANDLE h, DWORD dwMs) { return WaitForMultipleObjects(1, &h, FALSE, dwMs); }

DWORD WaitForMultipleObjects(DWORD nCount, const HANDLE* phObjects, BOOL bAll, DWORD dwMs)
{
    if (nCount == 0 || nCount > MAXIMUM_WAIT_OBJECTS)
        return WAIT_FAILED;
    WaitableList vObjects;
    for (DWORD i = 0; i < nCount; ++i)
    {
        vObjects.push_back(FindHandleAs<Waitable>(phObjects[i]));
        if (!vObjects.back())
            return WAIT_FAILED;
    }
    const bool bRecorded = dwMs != INFINITE && Workers::Current() != 0;
    return bRecorded ? WaitAsRecorded(vObjects, bAll, dwMs) : WaitFor(vObjects, bAll, dwMs);
}

void Sleep(DWORD dwMs) { std::this_thread::sleep_for(std::chrono::milliseconds(dwMs)); }
