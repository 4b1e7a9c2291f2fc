#include "bench/Suite.h"
#include "headless/HeadlessDesktop.h"
#include "platform/framework.h"

#include <benchmark/benchmark.h>
#include <fstream>
#include <iostream>
#include <QCoreApplication>

namespace
{

std::string ProcessorName()
{
    std::ifstream file("/proc/cpuinfo");
    for (std::string strLine; std::getline(file, strLine);)
    {
        if (strLine.starts_with("model name"))
            return strLine.substr(strLine.find(':') + 2);
    }
    return "unknown processor";
}

bool WriteReport(const std::string& strPath, const std::vector<std::string>& vLines)
{
    std::ofstream file(strPath);
    file
        << "# Performance\n\nWritten by `bench/run`. Times are minima over interleaved repetitions of one run on: "
        << ProcessorName()
        << ".\nThe ratio is to what the line names in the same run; limits are ratios, too. Lines without a limit are\n"
           "reported only.\n\n```\n";
    for (const std::string& strLine : vLines)
        file << strLine << "\n";
    file << "```\n";
    return file.good();
}

/// Interleaved repetitions, so that a busy moment of the machine hits all that are compared.
void SetUpGoogleBenchmark()
{
    std::string vArguments[] = {"bench", "--benchmark_enable_random_interleaving=true", "--benchmark_repetitions=11",
                                "--benchmark_min_time=0.03"};
    std::vector<char*> vPointers;
    for (std::string& strArgument : vArguments)
        vPointers.push_back(strArgument.data());
    int nArguments = static_cast<int>(vPointers.size());
    benchmark::Initialize(&nArguments, vPointers.data());
}

} // namespace

// bench [FILTER] [--write FILE]: runs the benchmarks; 1 when one is over its limit, 2 when it cannot run.
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv); // Qt decodes the pictures.
    const std::vector<std::string> vArguments(argv + 1, argv + argc);
    const bool bWrite = vArguments.size() == 2 && vArguments[0] == "--write";
    if (vArguments.size() > 1 && !bWrite)
    {
        std::cerr << "usage: bench [FILTER | --write FILE]\n";
        return 2;
    }
    SetUpGoogleBenchmark();
    winlite::HeadlessDesktop desktop({3840, 2160});
    CWinApp app;
    if (!AfxWinInit(nullptr, nullptr, nullptr, 0))
        return 2;
    CSuite suite;
    // First: what was freed before, and what a child's parent peaked at, is not told from what is measured.
    AddStrokeMemory(suite);
    AddMemoryFigures(suite);
    AddPaintBenchmarks(suite);
    AddDrawBenchmarks(suite);
    AddInteractionBenchmarks(suite);
    AddFeatherBenchmarks(suite);
    AddSelectionBenchmarks(suite);
    AddColourBenchmarks(suite);
    AddResizeBenchmarks(suite);
    AddPenBenchmarks(suite);
    AddStrokeBenchmarks(suite);
    AddBrushBenchmarks(suite);
    AddToolBenchmarks(suite);
    AddRetouchFigures(suite);
    const bool bHeld = suite.Run(bWrite || vArguments.empty() ? "" : vArguments[0]);
    AfxWinTerm();
    if (bWrite && !WriteReport(vArguments[1], suite.Lines()))
        return 2;
    return bHeld ? 0 : 1;
}
