#include "program/Retoucher.h"

#include "document/Message.h"
#include "program/Brushes.h"
#include "program/ColourPick.h"
#include "program/HeldHand.h"
#include "program/LongWork.h"
#include "program/ShapeTool.h"
#include "view/Notifications.h"

#include <utility>

CRetoucher::CRetoucher(CViewHost& host, LongWork eLongWork)
    : m_host(host), m_runner(m_parts, eLongWork == LongWork::InBackground, [this] { CommitSelection(); })
{
    m_parts.changed = [this] { Tell(); };
    m_parts.failed = [this](const std::string& strError) { Tell(strError); };
    m_parts.photoShown = [this]
    {
        m_strPending.clear();
        ForgetStrokes(m_tools);
    };
    m_presenter.SetStroke([this] { return IsPainting(); });
    m_tools.strokeEnded = [this] { m_presenter.Update(); };
    m_runner.Jobs().SetListener([this](const std::string& strError) { Tell(strError); });
    m_vSubscriptions = {m_host.Listen([this](UINT uCode, CPoint) { return OnNotified(uCode); }),
                        m_host.ListenToKeys([this](UINT uKey, bool bDown) { OnKey(uKey, bDown); })};
    m_host.SetPressesOnly([this] { return m_tools.Painter() != nullptr; });
    m_tools.LoadChosen();
}

CRetoucher::~CRetoucher()
{
    m_vSubscriptions.clear();
    m_tools.strokeEnded = {};
    m_host.SetPressesOnly({});
    m_parts.view.UnloadEmbeddedTool();
    // The view shows the photo's pixels, which go before it.
    m_parts.view.ClearBitmap(FALSE);
}

bool CRetoucher::TakeSettings(const char* pszSettings, const std::vector<BYTE>& vSettings)
{
    const std::vector<std::string> vCommands = m_tools.CommandsOf(pszSettings, vSettings);
    std::string strError;
    for (const std::string& strCommand : vCommands)
        Execute(strCommand, strError);
    return !vCommands.empty() && strError.empty();
}

void CRetoucher::ShowPhoto(CPhoto photo) { ::ShowPhoto(m_parts, std::move(photo), {}); }

// ---- what the view tells

LRESULT CRetoucher::OnNotified(UINT uCode)
{
    if (const char* const pszStep = m_tools.StepNameOf(uCode))
        m_strPending = pszStep;
    // The hand shows the outline when it is let go.
    if (uCode == Pixtane::PVN_IMAGEMOVER_END && m_selection.IsOutlineHidden())
        m_parts.view.ShowSelection(FALSE);
    if (uCode == Pixtane::PVN_DISPLAYCHANGED)
        m_presenter.Update();
    if (const char* const pszStroke = m_tools.StrokeNameOf(uCode))
        CommitStroke(pszStroke);
    if (uCode == Pixtane::PVN_CLONESTAMP_NOSOURCE)
        Tell(Message(QT_TRANSLATE_NOOP("Program", "set the source first: Alt and a click, or S and a click")));
    if (CToolSession* const pSession = m_tools.Session())
        pSession->OnNotified(uCode);
    // A polygon clears the selection before it takes the mouse: what follows tells what it was.
    if (uCode != Pixtane::PVN_SELECTION_CLEARED)
        CommitSelection();
    FollowTool();
    ExecuteFor(uCode);
    return 0;
}

void CRetoucher::ExecuteFor(UINT uCode)
{
    for (const ToolCommand& row : m_tools.Current().vCommands)
    {
        const std::string strCommand = row.uCode == uCode && m_bToolCommands ? row.pCommand(m_parts) : "";
        std::string strError;
        if (!strCommand.empty() && !Execute(strCommand, strError))
            Tell(strError);
    }
}

void CRetoucher::CommitSelection()
{
    // A drag that replaces the selection first clears it: one step, when the mouse is let go.
    if (m_strPending.empty() || m_tools.IsGesture())
        return;
    const bool bStep = m_selection.AddStep(std::exchange(m_strPending, {}));
    if (m_tools.Current().bPicksColour)
        RememberWand(m_parts, bStep);
    Tell();
}

void CRetoucher::CommitStroke(const char* pszStep)
{
    const CPainter* const pPainter = m_tools.Painter();
    const BYTE* const pPixels = pPainter && !m_tools.IsDropping() ? pPainter->Result() : nullptr;
    if (!pPixels || !m_document.CommitArea(pPixels, pPainter->PaintedArea(), pszStep))
        return;
    m_parts.view.UpdateBitmap(m_document.Photo()->Info(), m_document.Photo()->Pixels(), TRUE);
    Tell();
}

void CRetoucher::OnKey(UINT uKey, bool bDown)
{
    CToolSession* const pSession = m_tools.Session();
    if (pSession && !bDown)
        pSession->OnKeyUp(uKey);
    // While a shape is being drawn the space bar moves it, and is the tool's.
    if (!pSession && bDown && uKey == VK_SPACE && !m_tools.IsGesture() && !m_tools.IsHand())
    {
        std::string strError; // It always begins.
        m_tools.BeginSession(MakeHeldHand(m_parts), strError);
    }
    FollowTool();
}

void CRetoucher::FollowTool()
{
    const CursorOwner now = {&m_tools.Current(), m_tools.Session(),
                             m_tools.Embedded<CShapeTool>().GetSelectOverlapMode()};
    if (!m_tools.IsGesture() && std::exchange(m_cursorOf, now) != now)
        m_host.ShowCursor();
}

void CRetoucher::FlushSteps()
{
    if (m_pKeeper)
        m_pKeeper->Flush();
}

void CRetoucher::Tell(const std::string& strError)
{
    FollowTool();
    if (m_Follower)
        m_Follower();
    const std::string strUnkept = m_pKeeper ? m_pKeeper->Follow() : "";
    if (m_Listener)
        m_Listener(strError.empty() ? strUnkept : strError);
}
