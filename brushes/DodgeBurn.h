#pragma once

#include "brushes/Sketcher.h"

namespace Pixtane::EmbeddedTool
{

/// A brush that lightens (dodge) or darkens (burn): it moves the value of the pixels under its stroke by a tenth of the
/// scale, once in a stroke however often it passes. The parent hears of begin and end (PVN_DODGE_ or PVN_BURN_).
class AFX_EXT_CLASS DodgeBurn : public Sketcher
{
public:
    DodgeBurn();

    /// Nonzero dodges, 0 burns. A host changes it between strokes.
    int& bDodge() { return m_bDodge; }

    const wchar_t* GetToolName() override { return szToolName; }
    void SerializeToolSettings(std::vector<BYTE>& vData) const override;
    int UnserializeToolSettings(const std::vector<BYTE>& vData) override;
    void Reset() override {}
    int OnTimer(UINT_PTR nIDEvent) override;
    int OnLButtonDown(UINT nFlags, CPoint point) override;
    int OnLButtonUp(UINT nFlags, CPoint point) override;
    int OnLButtonDblClk(UINT, CPoint) override { return FALSE; }
    int OnMouseWheel(UINT, short, CPoint) override { return FALSE; }
    int OnKeyDown(UINT, UINT, UINT) override { return FALSE; }
    int OnKeyUp(UINT, UINT, UINT) override { return FALSE; }
    int OnSysKeyDown(UINT, UINT, UINT) override { return FALSE; }
    int OnSysKeyUp(UINT, UINT, UINT) override { return FALSE; }
    int OnCaptureChanged(CWnd* pWnd) override;
    int ProcessLineSegment(std::list<CPoint>& points, CRect& rcDirty) override;

protected:
    void StartSketching(CPoint pt);
    void EndSketching();

    int m_bDodge = TRUE;

private:
    void EndStroke();
};

} // namespace Pixtane::EmbeddedTool
