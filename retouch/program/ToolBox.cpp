#include "program/ToolBox.h"

#include <algorithm>
#include <utility>

CToolBox::~CToolBox() { m_view.UnloadEmbeddedTool(); }

bool CToolBox::Choose(const Tool& tool, ProgramParts& parts, std::string& strError)
{
    EndMiddle(true);
    if (tool.pBegin)
        return BeginSession(tool.pBegin(parts), strError, &tool);
    m_pChosen = &tool;
    LoadChosen();
    return true;
}

void CToolBox::LoadChosen()
{
    if (IsGesture())
        ::ReleaseCapture();
    m_view.LoadEmbeddedTool(m_pChosen->pPrepare(*this));
}

bool CToolBox::BeginSession(std::unique_ptr<CToolSession> pSession, std::string& strError, const Tool* pTool)
{
    EndSession(false);
    if (!pSession->Begin(strError))
    {
        LoadChosen();
        return false;
    }
    m_pSession = std::move(pSession);
    m_pSessionTool = pTool;
    return true;
}

void CToolBox::EndSession(bool bApply)
{
    m_pSessionTool = nullptr;
    if (const auto pSession = std::exchange(m_pSession, nullptr))
        pSession->End(bApply);
}

void CToolBox::EndMiddle(bool bApply)
{
    if (IsGesture())
        ::ReleaseCapture();
    EndSession(bApply);
}

void CToolBox::DropGesture()
{
    if (!IsGesture())
        return;
    m_bDropping = true;
    if (IsSelecting())
        m_view.UnloadEmbeddedTool(); // Without the mouse it would finish the shape.
    ::ReleaseCapture();
    m_bDropping = false;
    if (!m_view.pEmbeddedTool())
        LoadChosen();
}

const char* CToolBox::NameOf(UINT uCode, std::span<const StepName> Tool::*pNames) const
{
    const auto nameOf = [=](const Tool& tool)
    {
        const std::span<const StepName> vNames = tool.*pNames;
        const auto it = std::ranges::find(vNames, uCode, &StepName::uCode);
        return it == vNames.end() ? nullptr : it->pszName;
    };
    // The same may be told by several tools, and be called otherwise.
    const char* pszName = nameOf(*m_pChosen);
    for (const Tool& tool : Tools())
        pszName = pszName ? pszName : nameOf(tool);
    return pszName;
}

// ---- settings

Pixtane::CPixtane::IEmbeddedTool& CToolBox::Keeper(const char* pszSettings)
{
    const auto keeps = [=](const Tool& tool)
    { return tool.pszSettings && std::string(tool.pszSettings) == pszSettings; };
    // The chosen tool stays ready, whose tool may be the same.
    auto& keeper = std::ranges::find_if(Tools(), keeps)->pPrepare(*this);
    m_pChosen->pPrepare(*this);
    return keeper;
}

std::vector<BYTE> CToolBox::Settings(const char* pszSettings)
{
    std::vector<BYTE> vSettings;
    Keeper(pszSettings).SerializeToolSettings(vSettings);
    return vSettings;
}

std::vector<std::string> CToolBox::CommandsOf(const char* pszSettings, const std::vector<BYTE>& vSettings)
{
    auto& keeper = Keeper(pszSettings);
    const std::vector<BYTE> vBefore = Settings(pszSettings);
    if (!keeper.UnserializeToolSettings(vSettings))
        return {};
    std::vector<std::string> vCommands;
    for (const ToolOption* pOption : ToolOptions())
    {
        const auto isOwn = [&](const Tool& tool)
        {
            return tool.pszSettings && pszSettings == std::string(tool.pszSettings) &&
                   std::ranges::find(tool.vOptions, pOption) != tool.vOptions.end();
        };
        const bool bOwn = std::ranges::any_of(Tools(), isOwn);
        const int iValue = pOption->pGet(*this);
        if (bOwn && iValue >= pOption->iLeast && iValue <= std::min(pOption->iMost, pOption->iMostKept))
            vCommands.push_back(std::string(pOption->pszWord) + " " + pOption->Text(iValue));
    }
    keeper.UnserializeToolSettings(vBefore);
    m_pChosen->pPrepare(*this);
    return vCommands;
}
