#include "program/ProgramState.h"

#include "program/Jobs.h"
#include "program/Selection.h"
#include "program/ToolBox.h"

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
    state.strTool = parts.tools.Current().pszWord;
    state.strHint = pSession && pSession->Hint() ? pSession->Hint() : parts.tools.Current().pszHint;
    for (const ToolOption* pOption : ToolOptions())
        state.vOptions[pOption->pszWord] = pOption->pGet(parts.tools);
    state.bInSession = pSession != nullptr;
    state.frame = pSession ? pSession->Frame() : std::nullopt;
    state.rcSelection = parts.selection.Box();
    state.bOutlineHidden = parts.selection.IsOutlineHidden();
    state.bOutlineStill = parts.selection.IsOutlineStill();
    state.bTinted = parts.presenter.IsTinted();
    if (jobs.IsRunning())
        state.work = {jobs.Name(), jobs.Percent()};
    return state;
}
