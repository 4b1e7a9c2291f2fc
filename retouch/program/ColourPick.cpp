#include "program/ColourPick.h"

#include "document/Message.h"
#include "program/Selection.h"
#include "program/ShapeTool.h"
#include "program/ToolBox.h"
#include "program/Undo.h"
#include "view/Notifications.h"

#include <utility>

namespace
{

class CColourPick : public CToolSession
{
public:
    explicit CColourPick(ProgramParts& parts) : m_parts(parts) {}

    bool Begin(std::string&) override
    {
        // Without a tool every click is the program's.
        m_parts.view.UnloadEmbeddedTool();
        return true;
    }
    void End(bool) override { m_parts.tools.LoadChosen(); }

    void OnNotified(UINT uCode) override
    {
        // Not at the press: the tool would be back for the release, which it would take for its own.
        if (uCode != Pixtane::PVN_LBUTTONUP)
            return;
        ProgramParts& parts = m_parts;
        const CPoint ptBitmap = parts.view.GetCursorPos(TRUE);
        parts.tools.EndSession(true); // This object is gone.
        std::string strError;         // A click beside the picture chooses nothing.
        SelectColour(parts, ptBitmap, strError);
        parts.changed();
    }
    const char* Hint() const override { return QT_TRANSLATE_NOOP("Tool", "Click the colour in the picture"); }
    bool MayBeDropped() const override { return true; }

private:
    ProgramParts& m_parts;
};

void ClickAgain(ProgramParts& parts, CPoint ptBitmap)
{
    CPoint pt = ptBitmap;
    parts.view.FromBitmapToWnd(pt);
    parts.view.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(pt.x, pt.y));
    parts.view.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(pt.x, pt.y));
}

} // namespace

std::unique_ptr<CToolSession> MakeColourPick(ProgramParts& parts) { return std::make_unique<CColourPick>(parts); }

bool SelectColour(ProgramParts& parts, CPoint ptBitmap, std::string& strError)
{
    using Pixtane::EmbeddedTool::RegionSelector;
    CPhoto* const pPhoto = parts.document.Photo();
    if (!pPhoto || ptBitmap.x < 0 || ptBitmap.y < 0 || ptBitmap.x >= pPhoto->Width() || ptBitmap.y >= pPhoto->Height())
    {
        strError = Message(QT_TRANSLATE_NOOP("Program", "the photo has no pixel %1, %2"),
                           {std::to_string(ptBitmap.x), std::to_string(ptBitmap.y)});
        return false;
    }
    const CWaitCursor wait;
    const BYTE* const pPixel = pPhoto->Row(ptBitmap.y) + static_cast<std::ptrdiff_t>(ptBitmap.x) * 4;
    const COLORREF crPicked = RGB(pPixel[2], pPixel[1], pPixel[0]);
    const int iTolerance = parts.tools.Embedded<CShapeTool>().GetTorlerance();
    parts.tools.Borrow<RegionSelector>([=](RegionSelector& selector)
                                       { selector.SelectColorRange(crPicked, iTolerance); });
    // A selection in which the colour does not occur is left without a region.
    if (!parts.selection.IsThere())
        parts.view.ClearSelection();
    const bool bStep = parts.selection.AddStep(QT_TRANSLATE_NOOP("History", "Select Colour"));
    parts.lastPick = LastPick{ptBitmap, true, bStep, parts.document.History().Revision()};
    return true;
}

void RememberWand(ProgramParts& parts, bool bStep)
{
    parts.lastPick = LastPick{parts.view.GetCursorPos(TRUE), false, bStep, parts.document.History().Revision()};
}

void RepeatPick(ProgramParts& parts)
{
    const std::optional<LastPick> pick = std::exchange(parts.lastPick, std::nullopt);
    const bool bValid = pick && pick->uRevision == parts.document.History().Revision() && !parts.tools.Session() &&
                        (pick->bRange || parts.tools.Current().bPicksColour);
    if (!bValid)
        return;
    if (pick->bStep)
        Undo(parts);
    std::string strError;
    if (pick->bRange)
        SelectColour(parts, pick->ptBitmap, strError);
    else
        ClickAgain(parts, pick->ptBitmap);
}
