#pragma once

#include "view/EmbeddedTool.h"

namespace Pixtane::EmbeddedTool
{

/// The hand: drags a picture that does not fit into the view. It changes the display position alone, hides the
/// selection's outline while it drags, and shows it afterwards, whether or not the host had it shown before. The
/// parent hears of begin, moves and end (PVN_IMAGEMOVER_BEGIN to _END).
class AFX_EXT_CLASS ImageMover : public CPixtane::IEmbeddedTool
{
public:
    ImageMover();

    const wchar_t* GetToolName() override { return szToolName; }
    void SerializeToolSettings(std::vector<BYTE>&) const override {}
    int OnUnload() override;
    void Reset() override {}
    int OnPrePaint(CDC&, CRect&) override { return FALSE; }
    int OnPostPaint(CDC&, CRect&) override { return FALSE; }
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
    bool CanPan() const;
    void EndDrag();

protected:
    BOOL bDragging = FALSE;
    CPoint ptLast{0, 0}; ///< Window point of the drag's previous event.
};

} // namespace Pixtane::EmbeddedTool
