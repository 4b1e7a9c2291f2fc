#include "retouch/Retoucher.h"

#include <sstream>
#include <utility>

bool CRetoucher::IsTransforming() const { return m_strTool == TRANSFORM; }

CRect CRetoucher::TransformRect()
{
    CRect rc;
    m_modifier.GetRect(rc);
    return rc;
}

bool CRetoucher::StartTransform(std::string& strError)
{
    LoadTool(); // Ends what another tool is in the middle of.
    if (!m_photo || !HasSelection() || !View().LoadEmbeddedTool(m_modifier))
    {
        LoadTool();
        strError = "there is no selection to transform";
        return false;
    }
    m_strToolBefore = std::exchange(m_strTool, TRANSFORM);
    m_rcBefore = TransformRect();
    // The frame follows the outline.
    HideOutline(false);
    return true;
}

bool CRetoucher::TransformTo(const std::string& strRect, std::string& strError)
{
    std::istringstream rect(strRect);
    int x = 0;
    int y = 0;
    int cx = 0;
    int cy = 0;
    if (!IsTransforming())
    {
        strError = "no selection is being transformed";
        return false;
    }
    const bool bInside = rect >> x >> y >> cx >> cy && x >= 0 && y >= 0 && cx >= 1 && cy >= 1 && x < m_photo->Width() &&
                         y < m_photo->Height() && cx <= m_photo->Width() && cy <= m_photo->Height();
    if (!bInside)
    {
        strError = "\"" + strRect + "\" is no place and size inside the photo";
        return false;
    }
    PlaceTransform({CPoint(x, y), CSize(cx, cy)});
    return true;
}

void CRetoucher::PlaceTransform(const CRect& rc)
{
    const CWaitCursor wait;
    if (rc.Size() == TransformRect().Size())
        m_modifier.SetLeftTop(rc.left, rc.top);
    else
        m_modifier.SetRect(rc.left, rc.top, rc.Width(), rc.Height());
    // At once, so that the tint shows what comes of it.
    m_modifier.ApplyModify();
    TransformChanged();
}

bool CRetoucher::NudgeTransform(UINT uKey)
{
    static constexpr SIZE STEPS[] = {{-1, 0}, {0, -1}, {1, 0}, {0, 1}}; // left, up, right, down
    constexpr int FAR = 10;
    // With Ctrl the arrows scroll.
    if (uKey < VK_LEFT || uKey > VK_DOWN || ::GetKeyState(VK_CONTROL) < 0 || m_modifier.IsMouseDragging())
        return false;
    const int iStep = ::GetKeyState(VK_SHIFT) < 0 ? FAR : 1;
    CRect rc = TransformRect();
    rc.OffsetRect(STEPS[uKey - VK_LEFT].cx * iStep, STEPS[uKey - VK_LEFT].cy * iStep);
    PlaceTransform(rc);
    return true;
}

void CRetoucher::TransformChanged()
{
    if (!m_modifier.IsMouseDragging())
        UpdateTint();
    Changed();
}

void CRetoucher::EndTransform(bool bApply)
{
    if (!IsTransforming())
        return;
    // What is back where it was is as it was, to the last weight.
    bApply = bApply && TransformRect() != m_rcBefore;
    if (bApply)
        m_modifier.ApplyModify();
    m_strTool = std::exchange(m_strToolBefore, {});
    LoadTool();
    if (bApply)
    {
        SelectionChanged("Transform Selection");
        return;
    }
    RestoreSelection(m_history.Current());
    UpdateTint();
}
