#include "program/Transform.h"

#include "document/Message.h"
#include "program/Selection.h"
#include "program/ToolBox.h"
#include "program/TransformTool.h"
#include "view/Notifications.h"

namespace
{

class CTransform : public CToolSession
{
public:
    explicit CTransform(ProgramParts& parts) : m_parts(parts) {}

    bool Begin(std::string& strError) override;
    void End(bool bApply) override;
    void OnNotified(UINT uCode) override
    {
        if (uCode >= Pixtane::PVN_SELMOD_LEFT && uCode <= Pixtane::PVN_SELMOD_RECT)
            FrameChanged();
        else if (uCode == Pixtane::PVN_DISPLAYCHANGED)
            Modifier().FollowView();
    }
    std::string StepName() const override { return QT_TRANSLATE_NOOP("History", "Transform Selection"); }
    std::optional<CRect> Frame() const override
    {
        CRect rc;
        Modifier().GetRect(rc);
        return rc;
    }
    bool PlaceFrame(const CRect& rc) override;

private:
    CTransformTool& Modifier() const { return m_parts.tools.Embedded<CTransformTool>(); }
    bool Nudge(UINT uKey);
    void FrameChanged();

    ProgramParts& m_parts;
    CRect m_rcBefore; ///< What it began with.
};

bool CTransform::Begin(std::string& strError)
{
    if (!m_parts.document.Photo() || !m_parts.selection.IsThere() || !m_parts.view.LoadEmbeddedTool(Modifier()))
    {
        strError = Message(QT_TRANSLATE_NOOP("Program", "there is no selection to transform"));
        return false;
    }
    Modifier().takeKey = [this](UINT uKey) { return Nudge(uKey); };
    m_rcBefore = *Frame();
    // The frame follows the outline.
    m_parts.selection.HideOutline(false);
    return true;
}

void CTransform::End(bool bApply)
{
    // What is back where it was is as it was, to the last weight.
    bApply = bApply && *Frame() != m_rcBefore;
    if (bApply)
        Modifier().ApplyModify();
    Modifier().takeKey = {};
    m_parts.tools.LoadChosen();
    if (bApply)
    {
        m_parts.selection.AddStep(StepName());
        return;
    }
    m_parts.selection.Restore(m_parts.document.History().Current());
    m_parts.presenter.Update();
}

bool CTransform::PlaceFrame(const CRect& rc)
{
    const CWaitCursor wait;
    if (rc.Size() == Frame()->Size())
        Modifier().SetLeftTop(rc.left, rc.top);
    else
        Modifier().SetRect(rc.left, rc.top, rc.Width(), rc.Height());
    // At once, so that the tint shows what comes of it.
    Modifier().ApplyModify();
    FrameChanged();
    return true;
}

bool CTransform::Nudge(UINT uKey)
{
    static constexpr SIZE STEPS[] = {{-1, 0}, {0, -1}, {1, 0}, {0, 1}}; // left, up, right, down
    constexpr int FAR = 10;
    // With Ctrl the arrows scroll.
    if (uKey < VK_LEFT || uKey > VK_DOWN || ::GetKeyState(VK_CONTROL) < 0 || Modifier().IsMouseDragging())
        return false;
    const int iStep = ::GetKeyState(VK_SHIFT) < 0 ? FAR : 1;
    CRect rc = *Frame();
    rc.OffsetRect(STEPS[uKey - VK_LEFT].cx * iStep, STEPS[uKey - VK_LEFT].cy * iStep);
    return PlaceFrame(rc);
}

void CTransform::FrameChanged()
{
    if (!Modifier().IsMouseDragging())
        m_parts.presenter.Update();
    m_parts.changed();
}

} // namespace

std::unique_ptr<CToolSession> MakeTransform(ProgramParts& parts) { return std::make_unique<CTransform>(parts); }
