#pragma once

#include "pixels/Progress.h"

#include <deque>
#include <functional>
#include <memory>
#include <QObject>
#include <string>
#include <thread>

/// Work that may take long. It is done on a copy or on what it alone owns, and only what comes of it is committed.
struct Job
{
    std::string strName; ///< What it is called while it runs.

    /// Does the work; FALSE when cancelled, or with a message when it failed. Any thread: nothing of the view.
    std::function<bool(CProgress& progress, std::string& strError)> work;

    /// Takes over what came of it. User-interface thread.
    std::function<void()> commit;

    /// Is called when nothing came of it; may be empty. User-interface thread.
    std::function<void()> drop = {};
};

/// Runs jobs, one at a time, on a thread of their own beside the event loop or, in a program without one, at once.
/// User-interface thread.
class CJobs
{
public:
    /// What happens to a program's jobs: with bBackground the event loop of Qt must run.
    explicit CJobs(bool bBackground) : m_bBackground(bBackground) {}

    /// Cancels what runs, and forgets it.
    ~CJobs();

    /// Does the job now, or starts it and returns TRUE; FALSE, with a message, when it failed. None may be running.
    bool Run(Job job, std::string& strError);

    bool IsRunning() const { return m_pRunning != nullptr; }

    /// Whether what comes now has its turn later: a job runs, or calls wait that came before.
    bool IsBusy() const { return IsRunning() || (!m_vWaiting.empty() && !m_bCalling); }
    void Cancel();

    /// How the job that runs is called, and how far it is.
    const std::string& Name() const { return m_pRunning->job.strName; }
    int Percent() const { return m_pRunning->progress.Percent(); }

    /// Calls a function from the event loop when no job is running any more and nothing else holds it up (SetGate): in
    /// the order given, those that came first before.
    void Later(std::function<void()> call);

    /// Says whether what waits may go on, beside jobs; it is asked again and again while something waits.
    void SetGate(std::function<bool()> isOpen) { m_IsGateOpen = std::move(isOpen); }

    /// Is told when a job in the background has begun or ended, with a message when it failed.
    void SetListener(std::function<void(const std::string& strError)> listener) { m_Listener = std::move(listener); }

    /// Tells the listener.
    void Tell(const std::string& strError);

private:
    struct Running
    {
        Job job;
        CProgress progress;
        std::string strError;
        bool bDone = false;

        void Work();
        bool End();
    };

    void OnWorked();
    void PostNextWaiting();
    void DoNextWaiting();

    bool m_bBackground;
    std::unique_ptr<Running> m_pRunning;
    std::thread m_thread;
    std::deque<std::function<void()>> m_vWaiting;
    bool m_bCalling = false; ///< One that waited has its turn.
    bool m_bPosted = false;  ///< The event loop will look at those that wait.
    std::function<bool()> m_IsGateOpen;
    std::function<void(const std::string& strError)> m_Listener;
    QObject m_context; ///< Calls from the thread that arrive after it are dropped.
};
