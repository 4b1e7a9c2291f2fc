#include "program/ProgramState.h"

#include "program/Jobs.h"
#include "program/Selection.h"
#include "program/ToolBox.h"

namespace
{

/// Whether a tool only takes away from a selection.
bool TakesAway(const Tool& tool, const ProgramState& state)
{
    const int iRule = state.vOptions.at("rule");
    return !tool.vSteps.empty() && (iRule == Pixtane::EmbeddedTool::RegionSelector::OM_SUBTRACT ||
                                    iRule == Pixtane::EmbeddedTool::RegionSelector::OM_INTERSECT);
}

} // namespace

ProgramState StateOf(const ProgramParts& parts, const CJobs& jobs)
{
    const CToolSession* const pSession = parts.tools.Session();
    ProgramState state = {};
    state.strPath = parts.document.Path();
    state.bUnsaved = parts.document.IsUnsaved();
    state.uPhotos = parts.document.PhotoCount();
    state.szPhoto = CSize(parts.view.iBmpWidth(), parts.view.iBmpHeight());
    const std::string strSession = pSession ? pSession->StepName() : "";
    state.strUndo = strSession.empty() ? parts.document.History().BackName() : strSession;
    state.strRedo = parts.document.History().ForthName();
    for (const CHistory::State& step : parts.document.History().States())
        state.vSteps.push_back({state.vSteps.empty() ? "" : step.strName, step.uPixels});
    state.iStep = static_cast<int>(parts.document.History().CurrentIndex());
    state.bForgot = parts.document.History().HasForgotten();
    state.strTool = parts.tools.Current().pszWord;
    state.strHint = pSession && pSession->Hint() ? pSession->Hint() : parts.tools.Current().pszHint;
    for (const ToolOption* pOption : ToolOptions())
        state.vOptions[pOption->pszWord] = pOption->pGet(parts.tools);
    if (!pSession && !parts.selection.IsThere() && TakesAway(parts.tools.Current(), state))
        state.strHint =
            QT_TRANSLATE_NOOP("Tool", "Nothing is selected that a shape could take from: 1 begins anew, 2 adds");
    state.bInSession = pSession != nullptr;
    state.frame = pSession ? pSession->Frame() : std::nullopt;
    state.angle = pSession ? pSession->Angle() : std::nullopt;
    state.picked = parts.picked;
    state.rcSelection = parts.selection.Box();
    state.bOutlineHidden = parts.selection.IsOutlineHidden();
    state.bOutlineStill = parts.selection.IsOutlineStill();
    state.bTinted = parts.presenter.IsTinted();
    if (jobs.IsRunning())
        state.work = {jobs.Name(), jobs.Percent()};
    return state;
}
