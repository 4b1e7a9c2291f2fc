#include "pixels/Bands.h"

#include <algorithm>
#include <system_error>
#include <thread>
#include <vector>

bool ForBands(int nRows, CProgress& progress, const std::function<void(int iFirst, int iEnd)>& work)
{
    constexpr int BAND = 64;
    std::atomic<int> iNext = 0;
    const auto run = [&]
    {
        for (int i = iNext.fetch_add(BAND); i < nRows; i = iNext.fetch_add(BAND))
        {
            if (!progress.Report(static_cast<std::size_t>(i), static_cast<std::size_t>(nRows)))
                return;
            work(i, std::min(i + BAND, nRows));
        }
    };
    std::vector<std::jthread> vThreads;
    const int nHelpers = std::min(static_cast<int>(std::thread::hardware_concurrency()), (nRows + BAND - 1) / BAND) - 1;
    try
    {
        for (int i = 0; i < nHelpers; ++i)
            vThreads.emplace_back(run);
    }
    catch (const std::system_error&)
    {
        // With fewer threads it only takes longer.
    }
    run();
    vThreads.clear();
    progress.EndStage();
    return !progress.IsCancelled();
}
