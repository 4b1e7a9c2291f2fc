#include "program/CommandRunner.h"

#include "document/Message.h"
#include "document/Tile.h"
#include "program/CommandTable.h"
#include "program/ToolBox.h"
#include "user/InputQueue.h"
#include "user/Journal.h"

#include <utility>

CCommandRunner::CCommandRunner(ProgramParts& parts, bool bBackground, std::function<void()> settle)
    : m_parts(parts), m_bBackground(bBackground), m_Settle(std::move(settle)), m_jobs(bBackground)
{
    m_jobs.SetGate([] { return !winlite::HasInput(); });
}

bool CCommandRunner::Execute(const std::string& strCommand, std::string& strError)
{
    const std::optional<CommandCall> call = ParseCommand(Commands(), strCommand, strError);
    if (!call)
        return false;
    if (MustWait(*call->pCommand))
    {
        ExecuteLater(strCommand);
        return true;
    }
    const bool bDone =
        call->pCommand->IsJob() ? StartJob(*call, strCommand, strError) : Do(*call, strCommand, strError);
    m_parts.changed();
    return bDone;
}

bool CCommandRunner::MustWait(const Command& command)
{
    if (m_jobs.IsRunning() && command.eDuringJob == Command::DuringJob::Cancels)
        m_jobs.Cancel();
    if (m_jobs.IsBusy())
        return command.eDuringJob != Command::DuringJob::Runs;
    // A click before a key counts before it, though the view takes it from a queue of its own.
    return m_bBackground && winlite::HasInput();
}

void CCommandRunner::ExecuteLater(const std::string& strText)
{
    m_jobs.Later(
        [this, strText]
        {
            std::string strError;
            if (!Execute(strText, strError))
                m_jobs.Tell(strError);
        });
}

void CCommandRunner::WhenIdle(std::function<void()> call)
{
    if (m_jobs.IsBusy())
        m_jobs.Later(std::move(call));
    else
        call();
}

bool CCommandRunner::Do(const CommandCall& call, const std::string& strText, std::string& strError)
{
    // Written down before it is done: what it does shows up after it.
    winlite::TheJournal().OnCommand(strText);
    const bool bDone = EndMiddle(*call.pCommand) || DoNow(call, strError);
    if (!bDone)
        winlite::TheJournal().OnCommand(REFUSED_COMMAND);
    return bDone;
}

bool CCommandRunner::DoNow(const CommandCall& call, std::string& strError)
try
{
    return std::get<Command::Do>(call.pCommand->action)(m_parts, call.vValues, strError);
}
catch (const CTile::Unreadable& failure)
{
    strError = Message(failure.what());
    return false;
}

bool CCommandRunner::EndMiddle(const Command& command)
{
    if (command.eMiddle == Command::Middle::Keeps)
        return false;
    const CToolSession* const pSession = m_parts.tools.Session();
    const bool bTakesBack = command.eMiddle == Command::Middle::TakesBack && pSession && !pSession->StepName().empty();
    m_parts.tools.EndMiddle(!bTakesBack);
    m_Settle();
    return bTakesBack;
}

bool CCommandRunner::StartJob(const CommandCall& call, const std::string& strText, std::string& strError)
{
    // What it ends is written down by itself: the job only when it is committed, as if it took no time.
    if (m_parts.tools.IsInMiddle() &&
        !Do(*ParseCommand(Commands(), END_MIDDLE_COMMAND, strError), END_MIDDLE_COMMAND, strError))
        return false;
    std::optional<Job> job = std::get<Command::Prepare>(call.pCommand->action)(m_parts, call.vValues, strError);
    if (!job)
        return strError.empty();
    job->commit = [this, strText, commit = std::move(job->commit)]
    {
        winlite::TheJournal().OnCommand(strText);
        m_parts.tools.EndMiddle(true);
        commit();
    };
    return m_jobs.Run(std::move(*job), strError);
}
