#pragma once

#include "view/EmbeddedTool.h"
#include "view/UnsetPoint.h"

namespace Pixtane::EmbeddedTool
{

/// Shows a rectangle of the host's, a navigator's say, and lets the user choose its new centre by a click or a drag. It
/// moves nothing itself: at each step it tells the parent (PVN_MOVABLERECT_MOVED), which asks for the centre and sets
/// the rectangle that follows from it.
class AFX_EXT_CLASS MovableRectangle : public CPixtane::IEmbeddedTool
{
public:
    MovableRectangle();

    /// Shows that rectangle of bitmap pixels, and takes its middle for the centre. Nobody is told.
    void SetRectangle(CRect rc);

    /// The centre in bitmap pixels, inside the bitmap after a drag; INT_MAX in both coordinates before the first.
    CPoint GetViewCenter() { return ptCenter; }

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
    CRect RectInWindow() const;
    void EndDrag();

protected:
    BOOL bDragging = FALSE;
    CRect rcRect{0, 0, 0, 0}; ///< Bitmap pixels, as is the centre.
    CPoint ptCenter = POINT_UNSET;
};

} // namespace Pixtane::EmbeddedTool
