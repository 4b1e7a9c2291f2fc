#include "program/Undo.h"

#include "program/Reshape.h"
#include "program/Selection.h"
#include "view/Pixtane.h"

void GoTo(ProgramParts& parts, const CHistory::State* (CHistory::*pStep)())
{
    CHistory& history = parts.document.History();
    const CHistory::State* const pBefore = &history.Current();
    const CHistory::State* const pState = (history.*pStep)();
    if (!pState)
        return;
    if (parts.document.HasOtherSize(*pState))
    {
        ShowShaped(parts, [&] { return parts.document.RestorePhoto(*pState); });
        parts.selection.Restore(*pState);
        parts.presenter.Update();
        return;
    }
    if (parts.document.Restore(*pState, pBefore->pixels))
        parts.view.UpdateBitmap(parts.document.Photo()->Info(), parts.document.Photo()->Pixels(), TRUE);
    if (!CHistory::SelectsSame(*pState, *pBefore))
        parts.selection.Restore(*pState);
    parts.presenter.Update();
}
