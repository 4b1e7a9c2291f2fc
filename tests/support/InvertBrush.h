#pragma once

#include "brushes/Sketcher.h"
#include "view/Notifications.h"

#include <algorithm>

/// A brush that inverts the colours under its stroke, the smallest that the engine allows. It tells of its strokes with
/// the codes of the dodge brush.
class CInvertBrush : public Pixtane::EmbeddedTool::Sketcher
{
public:
    CInvertBrush() { szToolName[0] = 0; }

    using Sketcher::m_bSketching;
    using Sketcher::m_iPenScreenSize;
    using Sketcher::m_ptLastStamp;
    using Sketcher::m_rcPen;
    using Sketcher::m_rcStampArea;
    using Sketcher::m_vCoverage;

    const wchar_t* GetToolName() override { return L"invert"; }
    int OnTimer(UINT_PTR) override
    {
        EndStrokeWithoutBitmap();
        return 0;
    }
    int OnLButtonDown(UINT, CPoint point) override
    {
        EndLostStroke();
        if (!CanStroke() || !CaptureForStroke())
            return 0;
        StartSketching(BitmapPoint(point));
        TellBegin(Pixtane::PVN_DODGE_BEGIN);
        return 0;
    }
    int OnLButtonUp(UINT nFlags, CPoint point) override
    {
        Finish();
        return Sketcher::OnLButtonUp(nFlags, point);
    }
    int OnCaptureChanged(CWnd*) override
    {
        Finish();
        return 0;
    }
    int OnLButtonDblClk(UINT, CPoint) override { return 0; }
    int OnMouseWheel(UINT, short, CPoint) override { return 0; }
    int OnKeyDown(UINT, UINT, UINT) override { return 0; }
    int OnKeyUp(UINT, UINT, UINT) override { return 0; }
    int OnSysKeyDown(UINT, UINT, UINT) override { return 0; }
    int OnSysKeyUp(UINT, UINT, UINT) override { return 0; }

    int ProcessLineSegment(std::list<CPoint>& points, CRect& rcDirty) override
    {
        return StampAndShow(points, rcDirty, [this] { InvertRegion(); });
    }

private:
    void Finish()
    {
        if (!m_bSketching)
            return;
        EndSketching();
        FinishStroke(Pixtane::PVN_DODGE_END);
    }
    void InvertRegion()
    {
        const CRect rc = m_ProcessRegion.rcRegion;
        const auto& header = m_bmiBmp.bmiHeader;
        const int nBytes = header.biBitCount / 8;
        const int nRow = (header.biWidth * nBytes + 3) / 4 * 4;
        for (int y = rc.top; y < rc.bottom; ++y)
        {
            BYTE* pRow = m_vBmpData.data() + static_cast<std::ptrdiff_t>(header.biHeight - 1 - y) * nRow;
            std::transform(pRow + rc.left * nBytes, pRow + rc.right * nBytes, pRow + rc.left * nBytes,
                           [](BYTE uLevel) { return static_cast<BYTE>(~uLevel); });
        }
    }
};
