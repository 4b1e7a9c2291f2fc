#pragma once

#include "view/EmbeddedTool.h"

namespace Pixtane::EmbeddedTool
{

/// The eyedropper: a press, and every move with the left button held, picks the colour that the screen shows under the
/// pointer, with selection outline and margins, and tells the parent (PVN_COLORPICKER_COLOR). Outside the view area and
/// without a bitmap it picks the view's background colour.
class AFX_EXT_CLASS ColorPicker : public CPixtane::IEmbeddedTool
{
public:
    ColorPicker();

    /// The colour picked last; black before the first.
    COLORREF GetColor() const { return crColor; }

    const wchar_t* GetToolName() override { return szToolName; }
    void SerializeToolSettings(std::vector<BYTE>&) const override {}
    int OnUnload() override;
    void Reset() override {}
    int OnPrePaint(CDC&, CRect&) override { return FALSE; }
    int OnPostPaint(CDC&, CRect&) override { return FALSE; }
    int OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message) override;
    int OnTimer(UINT_PTR) override { return FALSE; }
    int OnLButtonDown(UINT nFlags, CPoint point) override;
    int OnLButtonUp(UINT, CPoint) override { return FALSE; }
    int OnLButtonDblClk(UINT, CPoint) override { return FALSE; }
    int OnMouseMove(UINT nFlags, CPoint point) override;
    int OnMouseWheel(UINT, short, CPoint) override { return FALSE; }
    int OnKeyDown(UINT, UINT, UINT) override { return FALSE; }
    int OnKeyUp(UINT, UINT, UINT) override { return FALSE; }
    int OnSysKeyDown(UINT, UINT, UINT) override { return FALSE; }
    int OnSysKeyUp(UINT, UINT, UINT) override { return FALSE; }
    int OnCaptureChanged(CWnd*) override { return FALSE; }

private:
    void Pick(CPoint ptWindow);

protected:
    COLORREF crColor = 0;
};

} // namespace Pixtane::EmbeddedTool
