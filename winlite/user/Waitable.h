#pragma once

#include "base/HandleTable.h"

#include <memory>
#include <mutex>
#include <span>
#include <vector>

namespace winlite
{

struct Waiter;

/// Something that threads wait for: an event, a thread's end. Every wait and every signal passes one lock, held for
/// moments only; whoever signals decides under it which waits that ends, so it is certain at every moment who is
/// asleep. The object outlives its handle while a thread waits for it or signals it.
class Waitable : public HandleObject
{
public:
    /// The lock of all waits. Never take StateLock inside.
    static std::mutex& WaitLock();

protected:
    /// Ends the waits that the object's new state fulfils. Call it with the lock held.
    void EndWaits();

private:
    friend struct Waiter;

    /// Both are called with the lock held.
    virtual bool IsSignalled() const = 0;
    virtual void Consume() {} ///< A wait was ended by it.

    std::vector<Waiter*> m_vWaiters;
};

using WaitableList = std::vector<std::shared_ptr<Waitable>>;

/// Waits until one of the objects is signalled, or with bAll until all are at once, at most dwMs of real time. Returns
/// WAIT_OBJECT_0 plus the lowest index of a signalled object, or WAIT_TIMEOUT. Any thread.
DWORD WaitFor(const WaitableList& vObjects, bool bAll, DWORD dwMs);

} // namespace winlite
