#include "program/Undo.h"

#include "program/Reshape.h"
#include "program/Selection.h"
#include "view/Pixtane.h"

namespace
{

/// Shows a state that has become the current one; NULL for none.
void Show(ProgramParts& parts, const CHistory::State* pBefore, const CHistory::State* pState)
{
    if (!pState || pState == pBefore)
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

} // namespace

void Undo(ProgramParts& parts)
{
    CHistory& history = parts.document.History();
    const CHistory::State* const pBefore = &history.Current();
    Show(parts, pBefore, history.Back());
}

void Redo(ProgramParts& parts)
{
    CHistory& history = parts.document.History();
    const CHistory::State* const pBefore = &history.Current();
    Show(parts, pBefore, history.Forth());
}

void GoToState(ProgramParts& parts, std::size_t iState)
{
    CHistory& history = parts.document.History();
    const CHistory::State* const pBefore = &history.Current();
    Show(parts, pBefore, history.To(iState));
}
