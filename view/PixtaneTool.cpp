#include "view/EmbeddedTool.h"
#include "view/Pixtane.h"

namespace Pixtane
{

int CPixtane::LoadEmbeddedTool(IEmbeddedTool& tool)
{
    if (m_bChangingTool)
        return FALSE; // From inside a tool's OnLoad or OnUnload.
    UnloadEmbeddedTool();
    m_bChangingTool = true;
    const int iLoaded = tool.OnLoad(*this);
    m_bChangingTool = false;
    if (!iLoaded)
        return FALSE;
    m_pEmbeddedTool = &tool;
    return TRUE;
}

void CPixtane::UnloadEmbeddedTool()
{
    if (!m_pEmbeddedTool || m_bChangingTool)
        return;
    m_bChangingTool = true;
    m_pEmbeddedTool->OnUnload();
    m_bChangingTool = false;
    m_pEmbeddedTool = nullptr;
    if (m_hWnd)
        Invalidate(FALSE);
}

void CPixtane::ResetEmbeddedTool()
{
    if (m_pEmbeddedTool)
        m_pEmbeddedTool->Reset();
}

} // namespace Pixtane
