#include "view/EmbeddedTool.h"
#include "view/Pixtane.h"

namespace Pixtane
{

namespace
{

/// Sets a flag for the time of a call, also when the call throws.
class CFlagDuring
{
public:
    explicit CFlagDuring(bool& bFlag) : m_bFlag(bFlag) { m_bFlag = true; }
    ~CFlagDuring() { m_bFlag = false; }
    CFlagDuring(const CFlagDuring&) = delete;
    CFlagDuring& operator=(const CFlagDuring&) = delete;

private:
    bool& m_bFlag;
};

} // namespace

int CPixtane::LoadEmbeddedTool(IEmbeddedTool& tool)
{
    if (m_bChangingTool)
        return FALSE; // From inside a tool's OnLoad or OnUnload.
    UnloadEmbeddedTool();
    const CFlagDuring changing(m_bChangingTool);
    if (!tool.OnLoad(*this))
        return FALSE;
    m_pEmbeddedTool = &tool;
    ++m_uToolLoads;
    return TRUE;
}

void CPixtane::UnloadEmbeddedTool()
{
    if (!m_pEmbeddedTool || m_bChangingTool)
        return;
    {
        const CFlagDuring changing(m_bChangingTool);
        m_pEmbeddedTool->OnUnload();
    }
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
