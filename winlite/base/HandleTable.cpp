#include "base/HandleTable.h"

#include "base/StateLock.h"

#include <vector>

namespace winlite
{

namespace
{

// A handle is (generation << 24 | index + 1) << 2, so it fits 48 bits, is never NULL and looks like no small resource
// id.
constexpr int INDEX_BITS = 24;
constexpr std::uintptr_t INDEX_MASK = (std::uintptr_t{1} << INDEX_BITS) - 1;
constexpr std::uintptr_t GENERATION_MASK = 0xFFFF;

struct Slot
{
    std::shared_ptr<HandleObject> pObject;
    std::uintptr_t uGeneration = 1;
    bool bCounted = true;
};

struct Table
{
    std::vector<Slot> vSlots;
    std::vector<std::size_t> vFree;
    std::size_t nCounted = 0;
};

Table& TheTable()
{
    // Never destroyed: static objects of a program may still close handles while it ends.
    static Table* pTable = new Table;
    return *pTable;
}

Slot* FindSlot(HANDLE h)
{
    const auto uValue = reinterpret_cast<std::uintptr_t>(h) >> 2;
    const std::uintptr_t uIndex = uValue & INDEX_MASK;
    Table& table = TheTable();
    if (uIndex == 0 || uIndex > table.vSlots.size())
        return nullptr;
    Slot& slot = table.vSlots[uIndex - 1];
    return slot.pObject && slot.uGeneration == uValue >> INDEX_BITS ? &slot : nullptr;
}

} // namespace

HANDLE OpenHandle(std::shared_ptr<HandleObject> pObject)
{
    StateLock lock;
    Table& table = TheTable();
    if (table.vFree.empty())
    {
        table.vFree.push_back(table.vSlots.size());
        table.vSlots.emplace_back();
    }
    const std::size_t uIndex = table.vFree.back();
    table.vFree.pop_back();
    Slot& slot = table.vSlots[uIndex];
    slot.pObject = std::move(pObject);
    slot.bCounted = true;
    ++table.nCounted;
    return reinterpret_cast<HANDLE>((slot.uGeneration << INDEX_BITS | (uIndex + 1)) << 2);
}

std::shared_ptr<HandleObject> FindHandle(HANDLE h)
{
    StateLock lock;
    Slot* pSlot = FindSlot(h);
    return pSlot ? pSlot->pObject : nullptr;
}

std::shared_ptr<HandleObject> CloseHandleEntry(HANDLE h)
{
    StateLock lock;
    Slot* pSlot = FindSlot(h);
    if (!pSlot)
        return nullptr;
    Table& table = TheTable();
    table.nCounted -= pSlot->bCounted;
    pSlot->uGeneration = pSlot->uGeneration % GENERATION_MASK + 1;
    table.vFree.push_back(static_cast<std::size_t>(pSlot - table.vSlots.data()));
    return std::move(pSlot->pObject);
}

std::size_t OpenHandleCount()
{
    StateLock lock;
    return TheTable().nCounted;
}

void DoNotCountHandle(HANDLE h)
{
    StateLock lock;
    if (Slot* pSlot = FindSlot(h); pSlot && pSlot->bCounted)
    {
        pSlot->bCounted = false;
        --TheTable().nCounted;
    }
}

} // namespace winlite
