#pragma once

#include "view/EmbeddedTool.h"
#include "view/UnsetPoint.h"

namespace Pixtane::EmbeddedTool
{

/// Straightening: the user draws a line along what ought to be level or upright; the parent, told at its end
/// (PVN_HORILINE_DRAWN), asks for the angle and turns the image itself.
class AFX_EXT_CLASS HoriLinePen : public CPixtane::IEmbeddedTool
{
public:
    HoriLinePen();

    /// The rotation in degrees that makes the last line level, or upright if it is steeper than 45 degrees; negative
    /// for a line that falls to the right. 0 without a line. Also while it is being drawn.
    float GetOffsetAngle();

    const wchar_t* GetToolName() override { return szToolName; }
    void SerializeToolSettings(std::vector<BYTE>&) const override {}
    int OnUnload() override;
    void Reset() override {}
    int OnPrePaint(CDC&, CRect&) override { return FALSE; }
    int OnPostPaint(CDC& dc, CRect& rcView) override;
    int OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message) override;
    int OnTimer(UINT_PTR) override { return FALSE; }
    int OnLButtonDown(UINT nFlags, CPoint point) override;
    int OnLButtonUp(UINT nFlags, CPoint point) override;
    int OnLButtonDblClk(UINT, CPoint) override { return FALSE; }
    int OnMouseMove(UINT nFlags, CPoint point) override;
    int OnMouseWheel(UINT, short, CPoint) override { return FALSE; }
    int OnKeyDown(UINT, UINT, UINT) override { return FALSE; }
    int OnKeyUp(UINT, UINT, UINT) override { return FALSE; }
    int OnSysKeyDown(UINT, UINT, UINT) override { return FALSE; }
    int OnSysKeyUp(UINT, UINT, UINT) override { return FALSE; }
    int OnCaptureChanged(CWnd* pWnd) override;

private:
    void TellLine();

protected:
    CPoint ptStart = POINT_UNSET; ///< Window points.
    CPoint ptEnd = POINT_UNSET;
    BOOL bDragging = FALSE;
};

} // namespace Pixtane::EmbeddedTool
