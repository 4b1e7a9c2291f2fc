#pragma once

#include "brushes/CloneStamp.h"
#include "program/PaintTool.h"

/// The clone stamp, whose source can also be set without the Alt key, which window managers take.
class CCloneTool : public CPaintTool<Pixtane::EmbeddedTool::CloneStamp>
{
public:
    /// The next click sets the source, as with Alt.
    void PickNext(bool bPick)
    {
        m_bPickNext = bPick;
        if (m_iState != STATE_STROKE)
            m_iState = bPick ? STATE_PICKING : STATE_IDLE;
        if (IsHosted())
            OnSetCursor(pView, 0, WM_SETCURSOR);
    }

    /// Bitmap pixels.
    void SetSource(CPoint pt)
    {
        Reset();
        m_ptSource = pt;
        if (IsHosted())
            pView->Invalidate(FALSE);
    }

    int OnLButtonDown(UINT nFlags, CPoint point) override
    {
        KeepPicking();
        return CPaintTool::OnLButtonDown(nFlags, point);
    }
    int OnTimer(UINT_PTR nIDEvent) override
    {
        const int iResult = CPaintTool::OnTimer(nIDEvent);
        KeepPicking();
        return iResult;
    }
    int OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message) override
    {
        KeepPicking();
        return CPaintTool::OnSetCursor(pWnd, nHitTest, message);
    }

private:
    /// The timer follows the Alt keys, which are not held.
    void KeepPicking()
    {
        if (m_bPickNext && m_iState == STATE_IDLE)
            m_iState = STATE_PICKING;
    }

    bool m_bPickNext = false;
};
