#include "program/HeldHand.h"

#include "program/ToolBox.h"
#include "tools/ImageMover.h"
#include "view/Notifications.h"

namespace
{

class CHeldHand : public CToolSession
{
public:
    explicit CHeldHand(ProgramParts& parts) : m_parts(parts) {}

    bool Begin(std::string&) override
    {
        return m_parts.view.LoadEmbeddedTool(m_parts.tools.Embedded<Pixtane::EmbeddedTool::ImageMover>());
    }
    void End(bool) override { m_parts.tools.LoadChosen(); }
    void OnNotified(UINT uCode) override
    {
        if (uCode == Pixtane::PVN_IMAGEMOVER_END && ::GetKeyState(VK_SPACE) >= 0)
            m_parts.tools.EndSession(true);
    }
    void OnKeyUp(UINT uKey) override
    {
        if (uKey == VK_SPACE && !m_parts.tools.IsGesture())
            m_parts.tools.EndSession(true);
    }

private:
    ProgramParts& m_parts;
};

} // namespace

std::unique_ptr<CToolSession> MakeHeldHand(ProgramParts& parts) { return std::make_unique<CHeldHand>(parts); }
