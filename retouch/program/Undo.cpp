#include "program/Undo.h"

#include "program/Reshape.h"
#include "program/Selection.h"
#include "view/Pixtane.h"

namespace
{

/// Shows a state that has become the current one; NULL for none.
void Show(ProgramParts& parts, const CHistory::State& before, const CHistory::State* pState)
{
    if (!pState || pState == &before)
        return;
    if (parts.document.HasOtherSize(*pState))
    {
        ShowShaped(parts, [&] { return parts.document.RestorePhoto(*pState); });
        parts.selection.Restore(*pState);
        parts.presenter.Update();
        return;
    }
    if (parts.document.Restore(*pState, before.pixels))
        parts.view.UpdateBitmap(parts.document.Photo()->Info(), parts.document.Photo()->Pixels(), TRUE);
    if (!CHistory::SelectsSame(*pState, before))
        parts.selection.Restore(*pState);
    parts.presenter.Update();
}

} // namespace

void Undo(ProgramParts& parts)
{
    if (const std::size_t iState = parts.document.History().CurrentIndex())
        GoToState(parts, iState - 1);
}

void Redo(ProgramParts& parts) { GoToState(parts, parts.document.History().CurrentIndex() + 1); }

void GoToState(ProgramParts& parts, std::size_t iState)
{
    CHistory& history = parts.document.History();
    const std::size_t iBefore = history.CurrentIndex();
    const CHistory::State& before = history.Current();
    const CHistory::State* const pState = history.To(iState);
    try
    {
        Show(parts, before, pState);
    }
    catch (const CTile::Unreadable&)
    {
        // A part of it may have come. What was there is put back, and comes from the file, too.
        history.To(iBefore);
        before.pixels.Restore({parts.document.Photo()->Pixels(), parts.document.Photo()->ByteCount()}, pState->pixels);
        throw;
    }
}
