#include "bench/Timing.h"

#include <algorithm>
#include <chrono>

double Milliseconds(const Work& work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

double Median(std::vector<double> vTimes)
{
    std::ranges::sort(vTimes);
    return vTimes[vTimes.size() / 2];
}

double MedianOf(int nRuns, const Work& prepare, const Work& work)
{
    std::vector<double> vTimes;
    for (int i = 0; i < nRuns; ++i)
    {
        prepare();
        vTimes.push_back(Milliseconds(work));
    }
    return Median(vTimes);
}
