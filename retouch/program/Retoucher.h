#pragma once

#include "host/ViewHost.h"
#include "program/CommandRunner.h"
#include "program/CommandTable.h"
#include "program/PaintTool.h"
#include "program/ProgramParts.h"
#include "program/ProgramState.h"
#include "program/Selection.h"
#include "program/StepKeeper.h"
#include "program/ToolBox.h"

#include <memory>
#include <string>
#include <tuple>
#include <utility>

/// The program without its window: the photo in a view, its tools and history, and everything a person can do with them
/// as commands of one line of text. Menus, keys, recorded sessions, the tour and scripts all come through Execute; what
/// there is to show is in State. User-interface thread.
class CRetoucher
{
public:
    /// Whether what takes long is done beside the event loop of Qt, or at once.
    enum class LongWork
    {
        AtOnce,
        InBackground,
    };

    /// The host must outlive it.
    explicit CRetoucher(CViewHost& host, LongWork eLongWork = LongWork::AtOnce);
    ~CRetoucher();
    CRetoucher(const CRetoucher&) = delete;
    CRetoucher& operator=(const CRetoucher&) = delete;

    /// Carries a command out, like "open /home/me/photo.jpg" or "feather 5" (Commands() has them all). FALSE, with a
    /// message for the person and nothing changed, when that is not possible. While a job runs commands wait for its
    /// end, or end it, as their rows say, and with an event loop also for input that was made before them: what fails
    /// later is told to the listener.
    bool Execute(const std::string& strCommand, std::string& strError)
    {
        return m_runner.Execute(strCommand, strError);
    }

    /// Calls a function when no job runs, in its turn among the commands that wait; at once when none does.
    void WhenIdle(std::function<void()> call) { m_runner.WhenIdle(std::move(call)); }
    bool IsBusy() const { return m_runner.Jobs().IsBusy(); }

    /// Whether the person is in the middle of what the command "drop" gives up.
    bool CanDrop() const
    {
        return IsPainting() || m_tools.IsSelecting() || (m_tools.Session() && m_tools.Session()->MayBeDropped());
    }

    /// Whether a stroke of a brush is under way.
    bool IsPainting() const { return m_tools.Painter() && m_tools.Painter()->IsPainting(); }

    /// What a window shows of it all.
    ProgramState State() const { return StateOf(m_parts, m_runner.Jobs()); }

    /// Is told when the state has changed, with a message when something has failed that was done in the background.
    using Listener = std::function<void(const std::string& strError)>;
    void SetListener(Listener listener) { m_Listener = std::move(listener); }

    /// Is called, before the listener, when the photo's pixels may have changed: in a session and in its replay alike.
    void SetFollower(std::function<void()> follower) { m_Follower = std::move(follower); }

    /// Keeps all work from here on in a folder of the user's own, so that it can be recovered after an unexpected end.
    void KeepSteps(const std::string& strFolder) { m_pKeeper = std::make_unique<CStepKeeper>(m_document, strFolder); }

    /// Waits until the work that there is is kept.
    void FlushSteps();

    /// In a replay the commands that tools stand for come from the recording, not from the tools.
    void LeaveToolCommands() { m_bToolCommands = false; }

    /// Shows a photo that is no file: as opening one does, but it is not written down.
    void ShowPhoto(CPhoto photo);

    /// The photo, to look at; NULL before the first was opened.
    CPhoto* Photo() { return m_document.Photo(); }

    /// Another value after every change of its pixels.
    using PixelState = std::pair<unsigned, unsigned>;
    PixelState Pixels() const { return {m_document.PhotoCount(), m_document.History().Current().uPixels}; }

    /// The settings kept under a name of the tools' rows, as the tool's own bytes, and back, as commands. FALSE for
    /// bytes that the tool refuses.
    std::vector<BYTE> Settings(const char* pszSettings) { return m_tools.Settings(pszSettings); }
    bool TakeSettings(const char* pszSettings, const std::vector<BYTE>& vSettings);

private:
    LRESULT OnNotified(UINT uCode);
    void OnKey(UINT uKey, bool bDown);
    void CommitSelection();
    void CommitStroke(const char* pszStep);
    void ExecuteFor(UINT uCode);
    void Tell(const std::string& strError = {});

    /// Shows the cursor of the tool that came into the view.
    void FollowTool();

    CViewHost& m_host;
    Listener m_Listener;
    std::function<void()> m_Follower;
    CDocument m_document;
    CPresenter m_presenter{m_host.View(), m_document};
    CSelection m_selection{m_host.View(), m_document, m_presenter};
    CToolBox m_tools{m_host.View()};
    ProgramParts m_parts{m_host, m_host.View(), m_document, m_presenter, m_selection, m_tools};
    /// What decides about the cursor: tool, session and rule for shapes.
    using CursorOwner = std::tuple<const Tool*, const CToolSession*, int>;
    CursorOwner m_cursorOf = {nullptr, nullptr, 0}; ///< What the cursor was shown for last.
    std::string m_strPending; ///< What the selection's change that is under way will be called; empty for none.
    bool m_bToolCommands = true;
    std::unique_ptr<CStepKeeper> m_pKeeper; ///< NULL for a program that keeps nothing.
    CCommandRunner m_runner;
    std::vector<CViewHost::Subscription> m_vSubscriptions;
};
