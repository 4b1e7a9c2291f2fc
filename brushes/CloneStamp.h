#pragma once

#include "brushes/Sketcher.h"

namespace Pixtane::EmbeddedTool
{

/// A brush that paints pixels of another place of the image. Alt and a click set the source; each stroke copies from
/// there, keeping the offset to its first point. Aligned, later strokes keep that offset; otherwise each begins at the
/// source again. The parent hears of the source (PVN_CLONESTAMP_SOURCE), of a stroke without one (_NOSOURCE, posted),
/// and of begin and end of strokes. A stroke keeps the source and the offset that it began with.
class AFX_EXT_CLASS CloneStamp : public Sketcher
{
public:
    static const UINT TIMER_CHECKKEYDOWN = 400;          ///< Id of the timer that follows the Alt keys.
    static const UINT TIMER_CHECKKEYDOWN_INTERVAL = 200; ///< Its period in milliseconds.

    CloneStamp();

    /// Whether later strokes keep the offset of the first. Clearing it forgets that offset at once.
    void SetAligned(int bAligned);
    int IsAligned() const { return m_bAligned; }

    const wchar_t* GetToolName() override { return szToolName; }
    int OnLoad(CPixtane& view) override;
    void SerializeToolSettings(std::vector<BYTE>& vData) const override;
    int UnserializeToolSettings(const std::vector<BYTE>& vData) override;
    int OnUnload() override;
    void Reset() override;
    int OnPostPaint(CDC& dc, CRect& rcView) override;
    int OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message) override;
    int OnTimer(UINT_PTR nIDEvent) override;
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
    int ProcessLineSegment(std::list<CPoint>& points, CRect& rcDirty) override;

protected:
    /// The place that a stroke at pt copies from, by source and anchor.
    void FromDestToSource(POINT& pt);

    void StartSketching(CPoint pt);
    void EndSketching();

    enum emState : int
    {
        STATE_IDLE = 0,
        STATE_PICKING = 1, ///< Alt is held: a click sets the source.
        STATE_STROKE = 2,
    };

    CPoint m_ptSource = POINT_UNSET;     ///< Bitmap pixels, as all of them.
    CPoint m_ptDestAnchor = POINT_UNSET; ///< Where a stroke began that copies from m_ptSource.
    CPoint m_ptCurSource = POINT_UNSET;
    CPoint m_ptCurDest = POINT_UNSET;
    BOOL m_bAligned = TRUE;
    int m_iState = STATE_IDLE;
    HCURSOR m_hSourceCursor = nullptr;

private:
    void PickSource(CPoint ptBitmap);
    void BeginStroke(CPoint ptClient);
    void EndStroke();
    void DrawCross(CDC& dc, CPoint ptBitmap);

    CSize m_szStrokeOffset = {0, 0}; ///< From a stroke's points to their sources.
};

} // namespace Pixtane::EmbeddedTool
