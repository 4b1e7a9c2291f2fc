#pragma once

namespace winlite
{

// What a wait tells about the worker that goes to sleep without a limit, and the signal that wakes it. Call them with
// the lock of all waits held.
void WorkerFallsAsleep();
void WorkerIsWoken();

} // namespace winlite
