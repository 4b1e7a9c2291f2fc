#include "retouch/NumberOf.h"
#include "retouch/Retoucher.h"
#include "view/Notifications.h"

#include <algorithm>
#include <sstream>

using Pixtane::EmbeddedTool::RegionSelector;

namespace
{

constexpr const char* HAND = "hand";
constexpr const char* WAND = "wand";

struct Shape
{
    const char* pszName;
    RegionSelector::emSelectMode eMode;
};
constexpr Shape SHAPES[] = {
    {HAND, RegionSelector::SM_NONE},         {"lasso", RegionSelector::SM_LASSO},
    {"polygon", RegionSelector::SM_POLYGON}, {"rectangle", RegionSelector::SM_RECTANGLE},
    {"ellipse", RegionSelector::SM_ELLIPSE}, {WAND, RegionSelector::SM_MAGICWAND},
};

struct Rule
{
    const char* pszName;
    RegionSelector::emOverlapMode eMode;
};
constexpr Rule RULES[] = {
    {"new", RegionSelector::OM_NEW},
    {"add", RegionSelector::OM_ADD},
    {"subtract", RegionSelector::OM_SUBTRACT},
    {"intersect", RegionSelector::OM_INTERSECT},
};

/// What a change of the selection is called in the history.
struct StepName
{
    UINT uCode;
    const char* pszName;
};
constexpr StepName STEP_NAMES[] = {
    {Pixtane::PVN_SELECT_NEW, "Select"},
    {Pixtane::PVN_SELECT_ADD, "Add to Selection"},
    {Pixtane::PVN_SELECT_SUBTRACT, "Subtract from Selection"},
    {Pixtane::PVN_SELECT_INTERSECT, "Intersect Selection"},
    {Pixtane::PVN_SELECTION_CLEARED, "Deselect"},
    {Pixtane::PVN_SELECTION_INVERTED, "Invert Selection"},
    {Pixtane::PVN_SELECTION_MOVED, "Move Selection"},
};

template<class T, std::size_t N>
const T* Find(const T (&vTable)[N], const std::string& strName)
{
    const auto it = std::ranges::find(vTable, strName, &T::pszName);
    return it == std::end(vTable) ? nullptr : &*it;
}

} // namespace

bool CRetoucher::ChooseTool(const std::string& strName, std::string& strError)
{
    if (strName == TRANSFORM)
        return StartTransform(strError);
    if (!Find(SHAPES, strName))
    {
        strError = "there is no tool \"" + strName + "\"";
        return false;
    }
    m_strTool = strName;
    LoadTool();
    return true;
}

void CRetoucher::LoadTool()
{
    // A shape that is being drawn ends as it does when the mouse is taken away.
    if (::GetCapture() == View().m_hWnd)
        ::ReleaseCapture();
    m_bHandHeld = false;
    m_bPickingColour = false;
    m_selector.SetSelectMode(Find(SHAPES, m_strTool)->eMode);
    if (m_strTool == HAND)
        View().LoadEmbeddedTool(m_hand);
    else
        View().LoadEmbeddedTool(m_selector);
}

bool CRetoucher::ChooseRule(const std::string& strName, std::string& strError)
{
    const Rule* pRule = Find(RULES, strName);
    if (pRule)
        m_selector.SetSelectOverlapMode(pRule->eMode);
    else
        strError = "there is no rule \"" + strName + "\"";
    return pRule != nullptr;
}

std::string CRetoucher::RuleName() const
{
    const auto it = std::ranges::find(RULES, m_selector.GetSelectOverlapMode(), &Rule::eMode);
    return it == std::end(RULES) ? "" : it->pszName;
}

std::vector<BYTE> CRetoucher::SelectorSettings() const
{
    std::vector<BYTE> vSettings;
    m_selector.SerializeToolSettings(vSettings);
    return vSettings;
}

bool CRetoucher::TakeSelectorSettings(const std::vector<BYTE>& vSettings)
{
    RegionSelector selector;
    if (!selector.UnserializeToolSettings(vSettings))
        return false;
    const auto it = std::ranges::find(RULES, selector.GetSelectOverlapMode(), &Rule::eMode);
    std::string strError;
    return it != std::end(RULES) && Execute(std::string("rule ") + it->pszName, strError) &&
           Execute("feather " + std::to_string(selector.GetFeatherRadius()), strError) &&
           Execute("tolerance " + std::to_string(selector.GetTorlerance()), strError);
}

// ---- what the view tells

LRESULT CRetoucher::OnNotified(UINT uCode)
{
    const auto it = std::ranges::find(STEP_NAMES, uCode, &StepName::uCode);
    if (it != std::end(STEP_NAMES))
        m_strPending = it->pszName;
    if (uCode == Pixtane::PVN_IMAGEMOVER_END)
    {
        if (m_bOutlineHidden)
            View().ShowSelection(FALSE);
        if (m_bHandHeld && ::GetKeyState(VK_SPACE) >= 0)
            LoadTool();
    }
    if (uCode == Pixtane::PVN_LBUTTONUP && m_bPickingColour)
    {
        // Not at the press: the tool would be back for the release, which it would take for its own.
        const CPoint pt = View().GetCursorPos(TRUE);
        std::string strError; // A click beside the picture chooses nothing.
        SelectColour(std::to_string(pt.x) + " " + std::to_string(pt.y), strError);
        LoadTool();
    }
    if (uCode >= Pixtane::PVN_SELMOD_LEFT && uCode <= Pixtane::PVN_SELMOD_RECT)
        TransformChanged();
    CommitSelection();
    return 0;
}

void CRetoucher::CommitSelection()
{
    // A drag that replaces the selection first clears it: one step, when the mouse is let go.
    if (m_strPending.empty() || ::GetCapture() == View().m_hWnd)
        return;
    const bool bStep = SelectionChanged(std::exchange(m_strPending, {}));
    if (m_strTool == WAND)
        m_pick = Pick{View().GetCursorPos(TRUE), false, bStep};
}

// ---- selections by colour

bool CRetoucher::SetTolerance(const std::string& strLevels, std::string& strError)
{
    const std::optional<int> iLevels = NumberOf(strLevels, 0, 255, strError);
    if (iLevels)
    {
        m_selector.SetTorlerance(*iLevels);
        RepeatPick();
    }
    return iLevels.has_value();
}

void CRetoucher::RepeatPick()
{
    // What was picked last is picked again with the new tolerance, so that a person sees what it does.
    if (!m_pick || (!m_pick->bRange && m_strTool != WAND))
        return;
    const Pick pick = *m_pick;
    if (pick.bStep)
        GoTo(&CHistory::Back);
    CPoint pt = pick.pt;
    if (pick.bRange)
    {
        std::string strError;
        SelectColour(std::to_string(pt.x) + " " + std::to_string(pt.y), strError);
        return;
    }
    View().FromBitmapToWnd(pt);
    View().SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(pt.x, pt.y));
    View().SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(pt.x, pt.y));
}

void CRetoucher::InvertSelection()
{
    if (!m_photo)
        return;
    View().LoadEmbeddedTool(m_selector);
    m_selector.InverseSelect();
    LoadTool();
}

void CRetoucher::PickColour()
{
    LoadTool();
    if (!m_photo)
        return;
    // Without a tool every click is the program's.
    View().UnloadEmbeddedTool();
    m_bPickingColour = true;
}

bool CRetoucher::SelectColour(const std::string& strPixel, std::string& strError)
{
    std::istringstream pixel(strPixel);
    int x = -1;
    int y = -1;
    pixel >> x >> y;
    if (!m_photo || x < 0 || y < 0 || x >= m_photo->Width() || y >= m_photo->Height())
    {
        strError = "the photo has no pixel \"" + strPixel + "\"";
        return false;
    }
    const CWaitCursor wait;
    const BYTE* const pPixel = m_photo->Row(y) + static_cast<std::ptrdiff_t>(x) * 4;
    View().LoadEmbeddedTool(m_selector);
    m_selector.SelectColorRange(RGB(pPixel[2], pPixel[1], pPixel[0]), m_selector.GetTorlerance());
    LoadTool();
    // A selection in which the colour does not occur is left without a region.
    if (!HasSelection())
        View().ClearSelection();
    const bool bStep = SelectionChanged("Select Colour");
    m_pick = Pick{CPoint(x, y), true, bStep};
    return true;
}

void CRetoucher::OnKey(UINT uKey, bool bDown)
{
    // While a shape is being drawn the space bar moves it, and is the tool's; a transform would lose what it began
    // with.
    if (uKey == VK_SPACE && ::GetCapture() != View().m_hWnd && m_strTool != HAND && !IsTransforming())
        HoldHand(bDown);
}

void CRetoucher::HoldHand(bool bHold)
{
    if (bHold == m_bHandHeld)
        return;
    if (!bHold)
    {
        LoadTool();
        return;
    }
    m_bHandHeld = true;
    View().LoadEmbeddedTool(m_hand);
}
