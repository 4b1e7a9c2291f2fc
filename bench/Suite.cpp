#include "bench/Suite.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <limits>
#include <map>

namespace
{

using Seconds = std::map<std::string, double>;

/// Keeps the shortest repetition of each benchmark.
class CMinimumReporter : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& vRuns) override
    {
        for (const Run& run : vRuns)
        {
            if (run.run_type != Run::RT_Iteration || run.error_occurred)
                continue;
            const double dSeconds = run.real_accumulated_time / static_cast<double>(run.iterations);
            const auto [it, bNew] = m_Minima.try_emplace(run.run_name.function_name, dSeconds);
            it->second = std::min(it->second, dSeconds);
        }
    }
    const Seconds& Minima() const { return m_Minima; }

private:
    Seconds m_Minima;
};

void Register(const std::string& strName, const Work& work)
{
    benchmark::RegisterBenchmark(strName.c_str(),
                                 [&work](benchmark::State& state)
                                 {
                                     for ([[maybe_unused]] auto _ : state)
                                         work();
                                 });
}

std::string TimeText(double dSeconds)
{
    char szText[32];
    const bool bMicro = dSeconds < 1e-3;
    std::snprintf(szText, sizeof(szText), "%.2f %s", dSeconds * (bMicro ? 1e6 : 1e3), bMicro ? "us" : "ms");
    return dSeconds > 0 ? szText : "";
}

} // namespace

CComparison& CComparison::Beside(std::string strName, Work work)
{
    m_vPeers.push_back({std::move(strName), std::move(work)});
    return *this;
}

CComparison& CComparison::AtMost(double dMost, std::vector<std::string> vNames)
{
    m_vLimits.push_back({dMost, std::move(vNames)});
    return *this;
}

CComparison& CComparison::Report(std::vector<std::string> vNames) { return AtMost(0, std::move(vNames)); }

void CSuite::Add(std::string strName, std::function<CComparison()> make)
{
    m_vEntries.push_back({std::move(strName), std::move(make), {}});
}

void CSuite::AddFigure(std::string strName, std::function<Figure()> measure)
{
    m_vEntries.push_back({std::move(strName), {}, std::move(measure)});
}

bool CSuite::Run(const std::string& strFilter)
{
    for (const Entry& entry : m_vEntries)
    {
        if (entry.strName.find(strFilter) == std::string::npos)
            continue;
        if (entry.make)
        {
            Compare(entry.strName, entry.make());
            continue;
        }
        const Figure figure = entry.measure();
        Print(entry.strName, 0, figure.dValue, figure.strOf, figure.dMost);
    }
    return m_bAllHeld;
}

void CSuite::Compare(const std::string& strName, const CComparison& comparison)
{
    const std::string strOurs = "ours";
    Register(strOurs, comparison.m_Ours);
    for (const CComparison::Peer& peer : comparison.m_vPeers)
        Register(peer.strName, peer.work);
    CMinimumReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::ClearRegisteredBenchmarks();
    const Seconds& minima = reporter.Minima();
    for (const CComparison::Limit& limit : comparison.m_vLimits)
    {
        const auto fastest =
            std::ranges::min_element(limit.vNames, {}, [&](const std::string& strPeer) { return minima.at(strPeer); });
        Print(strName, minima.at(strOurs), minima.at(strOurs) / minima.at(*fastest), *fastest, limit.dMost);
    }
    if (comparison.m_vLimits.empty())
        Print(strName, minima.at(strOurs), 0, "", 0);
}

void CSuite::Print(const std::string& strName, double dSeconds, double dRatio, const std::string& strTo, double dMost)
{
    const bool bOver = dMost > 0 && dRatio > dMost;
    m_bAllHeld &= !bOver;
    char szRatio[32] = "";
    char szLimit[32] = "";
    if (dRatio > 0)
        std::snprintf(szRatio, sizeof(szRatio), "%.2f", dRatio);
    if (dMost > 0)
        std::snprintf(szLimit, sizeof(szLimit), "%.2f", dMost);
    char szLine[256];
    std::snprintf(szLine, sizeof(szLine), "%-30s %11s %6s %-28s %6s %s", strName.c_str(), TimeText(dSeconds).c_str(),
                  szRatio, strTo.empty() ? "" : ("of " + strTo).c_str(), szLimit,
                  bOver       ? "OVER"
                  : dMost > 0 ? "ok"
                              : "");
    m_vLines.push_back(szLine);
    std::puts(szLine);
    std::fflush(stdout);
}
