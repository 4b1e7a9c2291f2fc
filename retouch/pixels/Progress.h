#pragma once

#include <atomic>
#include <cstddef>

/// How far a piece of work has come, and whether it is still wanted. Any thread.
class CProgress
{
public:
    /// Says in how many parts of about the same length the work is done. Called before it begins.
    void SetStages(int nStages) { m_nStages = nStages; }
    void EndStage()
    {
        m_iStagePercent = 0;
        ++m_iStage;
    }

    /// Tells how much of this part is done; FALSE when the work shall stop.
    bool Report(std::size_t nDone, std::size_t nAll)
    {
        m_iStagePercent = nAll ? static_cast<int>(nDone * 100 / nAll) : 100;
        return !IsCancelled();
    }

    /// All of it is done.
    void Finish()
    {
        m_iStagePercent = 0;
        m_iStage = m_nStages.load();
    }

    void Cancel() { m_bCancelled = true; }
    bool IsCancelled() const { return m_bCancelled; }
    int Percent() const { return (m_iStage * 100 + m_iStagePercent) / m_nStages; }

private:
    std::atomic<int> m_nStages = 1;
    std::atomic<int> m_iStage = 0;
    std::atomic<int> m_iStagePercent = 0;
    std::atomic<bool> m_bCancelled = false;
};
