#pragma once

#include "view/EmbeddedTool.h"

namespace Pixtane::EmbeddedTool
{

/// Marks a round spot to be removed: an outline of its size follows the pointer, and each release of the left button
/// tells the parent (PVN_SPOTREMOVER_SPOT), which does the rest. The size is its setting.
class AFX_EXT_CLASS SpotRemover : public CPixtane::IEmbeddedTool
{
public:
    static const int MAX_SIZE = 500; ///< The largest size that settings restore.

    SpotRemover();

    /// Sets the diameter in bitmap pixels, 1 to MAX_SIZE by the host's care, and returns the one before. The outline
    /// follows the zoom from here on; a tool that is not loaded takes it as 1. After a load, and after restoring
    /// settings, the outline has its size with the next call, or the next zoom.
    int SetSize(int iNewSize);
    int GetSize() const { return iSpotSize; }

    /// The bitmap pixel of the last spot, which may lie outside the bitmap; (-1, -1) before the first.
    POINT GetSpotPos() const { return ptSpot; }

    const wchar_t* GetToolName() override { return szToolName; }
    void SerializeToolSettings(std::vector<BYTE>& vData) const override;
    int UnserializeToolSettings(const std::vector<BYTE>& vData) override;
    int OnUnload() override;
    void Reset() override {}
    int OnPrePaint(CDC&, CRect&) override { return FALSE; }
    int OnPostPaint(CDC& dc, CRect& rcView) override;
    int OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message) override;
    int OnTimer(UINT_PTR) override { return FALSE; }
    int OnLButtonDown(UINT, CPoint) override { return FALSE; }
    int OnLButtonUp(UINT nFlags, CPoint point) override;
    int OnLButtonDblClk(UINT, CPoint) override { return FALSE; }
    int OnMouseMove(UINT nFlags, CPoint point) override;
    int OnMouseWheel(UINT, short, CPoint) override { return FALSE; }
    int OnKeyDown(UINT, UINT, UINT) override { return FALSE; }
    int OnKeyUp(UINT, UINT, UINT) override { return FALSE; }
    int OnSysKeyDown(UINT, UINT, UINT) override { return FALSE; }
    int OnSysKeyUp(UINT, UINT, UINT) override { return FALSE; }
    int OnCaptureChanged(CWnd*) override { return FALSE; }
    void OnZoomChanged() override;

private:
    void MeasureSpot();

protected:
    int iSpotSize = 15;
    int iDispSize = 0; ///< The diameter in window pixels.
    POINT ptSpot{-1, -1};
};

} // namespace Pixtane::EmbeddedTool
