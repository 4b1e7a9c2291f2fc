#pragma once

#include "view/EmbeddedTool.h"
#include "view/UnsetPoint.h"

namespace Pixtane::EmbeddedTool
{

/// Marks an eye: the user drags a frame around it, and the parent is told (PVN_REDEYE_DETECT) and does the rest.
/// Carries the strength of it as its setting.
class AFX_EXT_CLASS RedeyeReduction : public CPixtane::IEmbeddedTool
{
public:
    RedeyeReduction();

    /// The rectangle marked last, in bitmap pixels, which may lie outside the bitmap. Right and bottom are the last
    /// pixels, not one past them. The host may change it.
    CRect& GetDetectRect() { return rcDetect; }

    /// How much to darken, 1 to 100; other values become the nearest of these.
    int GetDarkenAmount() const { return iDarkenAmount; }
    void SetDarkenAmount(int iAmount);

    const wchar_t* GetToolName() override { return szToolName; }
    void SerializeToolSettings(std::vector<BYTE>& vData) const override;
    int UnserializeToolSettings(const std::vector<BYTE>& vData) override;
    int OnUnload() override;
    void Reset() override {}
    int OnPrePaint(CDC&, CRect&) override { return FALSE; }
    int OnPostPaint(CDC& dc, CRect& rcView) override;
    int OnSetCursor(CWnd*, UINT, UINT) override { return FALSE; }
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
    bool IsDragging() const;
    void EndDrag();

protected:
    CPoint ptAnchor = POINT_UNSET; ///< Window point where a drag began; not set outside a drag.
    CRect rcDetect{0, 0, 0, 0};
    int iDarkenAmount = 1;
};

} // namespace Pixtane::EmbeddedTool
