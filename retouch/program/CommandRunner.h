#pragma once

#include "program/Command.h"
#include "program/ProgramParts.h"

#include <functional>
#include <string>

/// Carries out commands: ends what they cannot run in the middle of, runs those that take long as jobs, lets others
/// wait meanwhile, and writes all of them down. User-interface thread.
class CCommandRunner
{
public:
    /// settle makes a step of a change of the selection that is not one yet.
    CCommandRunner(ProgramParts& parts, bool bBackground, std::function<void()> settle);

    /// Carries a command out, or lets it have its turn; FALSE, with a message, when it is not possible.
    bool Execute(const std::string& strCommand, std::string& strError);

    /// Calls a function in its turn among the commands that wait; at once when none do and no job runs.
    void WhenIdle(std::function<void()> call);

    CJobs& Jobs() { return m_jobs; }
    const CJobs& Jobs() const { return m_jobs; }

private:
    bool MustWait(const Command& command);
    void ExecuteLater(const std::string& strText);
    bool Do(const CommandCall& call, const std::string& strText, std::string& strError);
    bool DoNow(const CommandCall& call, std::string& strError);
    bool EndMiddle(const Command& command);
    bool StartJob(const CommandCall& call, const std::string& strText, std::string& strError);

    ProgramParts& m_parts;
    bool m_bBackground;
    std::function<void()> m_Settle;
    CJobs m_jobs; ///< Ends before everything that its job works on.
};
