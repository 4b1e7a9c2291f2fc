#pragma once

namespace winlite
{

/// Holds the one mutex that guards the handle table, window geometry, update regions, timers and queues while it lives.
/// The same thread may nest it. It is never held while a window procedure or a backend runs, which both may take as
/// long as they like and may call anything; AssertNotHeld states that at such places. Any thread.
class StateLock
{
public:
    StateLock();
    ~StateLock();
    StateLock(const StateLock&) = delete;
    StateLock& operator=(const StateLock&) = delete;

    static void AssertNotHeld();
};

} // namespace winlite
