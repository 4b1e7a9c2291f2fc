#pragma once

#include <cstddef>
#include <functional>

/// How many threads ParallelFor uses: all processors, unless SetParallelThreads named another number (0 for all again),
/// which tests and measurements do. Any thread.
size_t ParallelThreads();
void SetParallelThreads(size_t nThreads);

/// Work on the range from nBegin to nEnd; nWorker is below the number of workers, and no two calls at a time have the
/// same.
using ParallelBody = std::function<void(size_t nWorker, size_t nBegin, size_t nEnd)>;

/// Cuts 0 to nCount into ranges of nGrain and hands them to nWorkers threads, the calling one among them. Threads that
/// the system refuses are done without. When a call throws, no further range is begun, and the first exception comes
/// out here once all threads have ended. Any thread.
void ParallelFor(size_t nCount, size_t nGrain, size_t nWorkers, const ParallelBody& body);
