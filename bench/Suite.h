#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

/// The work of one benchmark, done once; making it again and again is timed.
using Work = std::function<void()>;

/// What is timed together: our work, and the others it is compared with. Fixtures live in the works' captures.
class CComparison
{
public:
    explicit CComparison(Work ours) : m_Ours(std::move(ours)) {}

    /// Another way to do the same, or a measure of the bytes that must move.
    CComparison& Beside(std::string strName, Work work);

    /// Our time may be at most dMost times that of the named one; of several, the fastest counts.
    CComparison& AtMost(double dMost, std::vector<std::string> vNames);

    /// The ratio is only reported.
    CComparison& Report(std::vector<std::string> vNames);

private:
    friend class CSuite;
    struct Peer
    {
        std::string strName;
        Work work;
    };
    struct Limit
    {
        double dMost; ///< 0 for none.
        std::vector<std::string> vNames;
    };
    Work m_Ours;
    std::vector<Peer> m_vPeers;
    std::vector<Limit> m_vLimits;
};

/// A figure that is not a time: what it is, what it may be at most.
struct Figure
{
    double dValue;
    std::string strOf;
    double dMost;
};

/// All benchmarks, made one after the other so that only one's pictures are in memory. Main thread.
class CSuite
{
public:
    void Add(std::string strName, std::function<CComparison()> make);
    void AddFigure(std::string strName, std::function<Figure()> measure);

    /// Runs those whose names contain the filter and prints a line for each; FALSE when one is over its limit.
    bool Run(const std::string& strFilter);

    /// The table printed so far, as lines.
    const std::vector<std::string>& Lines() const { return m_vLines; }

private:
    struct Entry
    {
        std::string strName;
        std::function<CComparison()> make;
        std::function<Figure()> measure;
    };
    void Compare(const std::string& strName, const CComparison& comparison);
    void Print(const std::string& strName, double dSeconds, double dRatio, const std::string& strTo, double dMost);

    std::vector<Entry> m_vEntries;
    std::vector<std::string> m_vLines;
    bool m_bAllHeld = true;
};

// What each source adds.
void AddPaintBenchmarks(CSuite& suite);
void AddDrawBenchmarks(CSuite& suite);
void AddInteractionBenchmarks(CSuite& suite);
void AddFeatherBenchmarks(CSuite& suite);
void AddColourBenchmarks(CSuite& suite);
void AddResizeBenchmarks(CSuite& suite);
void AddPenBenchmarks(CSuite& suite);
void AddSelectionBenchmarks(CSuite& suite);
void AddStrokeBenchmarks(CSuite& suite);
void AddBrushBenchmarks(CSuite& suite);
void AddStrokeMemory(CSuite& suite);
void AddRetouchFigures(CSuite& suite);
void AddToolBenchmarks(CSuite& suite);
void AddMemoryFigures(CSuite& suite);
