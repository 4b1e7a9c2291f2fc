#include "hostlibs/ParallelFor.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

namespace
{

std::atomic<size_t> s_nThreads = 0;

/// The ranges not handed out yet, and the first failure.
class Ranges
{
public:
    Ranges(size_t nCount, size_t nGrain, const ParallelBody& body) : m_nCount(nCount), m_nGrain(nGrain), m_Body(body) {}

    void Work(size_t nWorker) noexcept
    {
        for (;;)
        {
            const size_t nBegin = m_nNext.fetch_add(m_nGrain);
            if (nBegin >= m_nCount || m_bFailed)
                return;
            try
            {
                m_Body(nWorker, nBegin, std::min(nBegin + m_nGrain, m_nCount));
            }
            catch (...)
            {
                Keep(std::current_exception());
            }
        }
    }

    void Rethrow() const
    {
        if (m_Failure)
            std::rethrow_exception(m_Failure);
    }

private:
    void Keep(std::exception_ptr failure)
    {
        std::lock_guard lock(m_Mutex);
        if (!m_bFailed.exchange(true))
            m_Failure = failure;
    }

    const size_t m_nCount, m_nGrain;
    const ParallelBody& m_Body;
    std::atomic<size_t> m_nNext = 0;
    std::atomic<bool> m_bFailed = false;
    std::mutex m_Mutex;
    std::exception_ptr m_Failure;
};

} // namespace

size_t ParallelThreads()
{
    const size_t nThreads = s_nThreads;
    return nThreads ? nThreads : std::max(1u, std::thread::hardware_concurrency());
}

void SetParallelThreads(size_t nThreads) { s_nThreads = nThreads; }

void ParallelFor(size_t nCount, size_t nGrain, size_t nWorkers, const ParallelBody& body)
{
    Ranges ranges(nCount, nGrain, body);
    {
        std::vector<std::jthread> vThreads;
        try
        {
            const size_t nUseful = std::min(nWorkers, (nCount + nGrain - 1) / nGrain);
            vThreads.reserve(nUseful);
            for (size_t nWorker = 1; nWorker < nUseful; ++nWorker)
                vThreads.emplace_back([&ranges, nWorker] { ranges.Work(nWorker); });
        }
        catch (const std::exception&)
        {
            // Without threads or the memory for them, those that did start do all the work.
        }
        ranges.Work(0);
    }
    ranges.Rethrow();
}
