#pragma once

#include "brushes/Sketcher.h"
#include "program/StrokeArea.h"
#include "view/UnsetPoint.h"

#include <functional>

/// What the program wants of a brush beyond what the library's does: strokes limited to the selection, straight lines,
/// double clicks that paint twice, the rectangle that a stroke has painted, and an end that comes after the brush's
/// own. User-interface thread.
class CPainter
{
public:
    virtual ~CPainter() = default;

    /// Whether a stroke is under way.
    virtual bool IsPainting() const = 0;

    /// After a stroke, in its END notification: its pixels, a buffer like the photo's; NULL when there are none.
    virtual const BYTE* Result() const = 0;
    const CRect& PaintedArea() const { return m_area.Box(); }

    /// The strokes to come begin from nowhere: there is another photo.
    void Forget() { m_ptEnd = Pixtane::POINT_UNSET; }

    virtual void SetPen(int iSize, int iHardness, int iStrength) = 0;
    struct Pen
    {
        int iSize, iHardness, iStrength;
    };
    virtual Pen GetPen() const = 0;

    /// Is called when a stroke has ended and the view shows its bitmap again.
    std::function<void()> ended;

protected:
    static constexpr Pen FIRST_PEN = {40, 70, 100};

    CStrokeArea m_area;
    CPoint m_ptEnd = Pixtane::POINT_UNSET; ///< Where the last stroke ended, bitmap pixels.
};

/// A brush of the library with that.
template<class Brush>
class CPaintTool : public Brush, public CPainter
{
public:
    using Pens = Pixtane::EmbeddedTool::Sketcher::SketchPen;

    CPaintTool() { SetPen(FIRST_PEN.iSize, FIRST_PEN.iHardness, FIRST_PEN.iStrength); }

    bool IsPainting() const override { return this->m_bSketching != FALSE; }
    const BYTE* Result() const override
    {
        BITMAPINFO bmi;
        return this->GetBitmap(bmi);
    }
    void SetPen(int iSize, int iHardness, int iStrength) override
    {
        Brush::SetPen(Pens::COMPUTED, iSize, iHardness, iStrength);
    }
    Pen GetPen() const override
    {
        Pen pen = {};
        typename Pens::emStyle eStyle = Pens::NO_PEN;
        Brush::GetPen(eStyle, pen.iSize, pen.iHardness, pen.iStrength);
        return pen;
    }

    int OnLButtonDown(UINT nFlags, CPoint point) override
    {
        this->EndLostStroke();
        if (!this->IsHosted())
            return FALSE;
        m_area.Begin(*this->pView);
        CPoint ptBegin = point;
        // With Shift a straight line from where the last stroke ended: the pointer is the second point of the stroke.
        m_bLine = (nFlags & MK_SHIFT) && m_ptEnd != CPoint(Pixtane::POINT_UNSET);
        if (m_bLine)
        {
            ptBegin = m_ptEnd;
            this->pView->FromBitmapToWnd(ptBegin);
        }
        return Brush::OnLButtonDown(nFlags, ptBegin);
    }
    int OnLButtonUp(UINT nFlags, CPoint point) override
    {
        if (IsPainting())
            EndAt(this->BitmapPoint(point));
        const CEnd end(*this);
        return Brush::OnLButtonUp(nFlags, point);
    }
    int OnCaptureChanged(CWnd* pWnd) override
    {
        const CEnd end(*this);
        return Brush::OnCaptureChanged(pWnd);
    }
    int OnTimer(UINT_PTR nIDEvent) override
    {
        const CEnd end(*this);
        return Brush::OnTimer(nIDEvent);
    }
    int OnUnload() override
    {
        const CEnd end(*this);
        return Brush::OnUnload();
    }

    /// Worker.
    int ProcessLineSegment(std::list<CPoint>& points, CRect& rcDirty) override
    {
        // Held while more is shown than will stay.
        const CSingleLock lock(&this->m_csBitmap, m_area.IsLimited());
        const CPoint ptLastStamp = this->m_ptLastStamp;
        const int iResult = Brush::ProcessLineSegment(points, rcDirty);
        if (this->m_ptLastStamp == ptLastStamp)
            return iResult;
        m_area.Add(rcDirty);
        if (m_area.IsLimited() && this->IsCoverOurs())
            m_area.Limit(rcDirty, this->pView->vCoverBmpData().data(), this->m_vBmpData.data());
        return iResult;
    }

private:
    /// The end of a stroke, should there be one: when it is left the brush is done with it.
    class CEnd
    {
    public:
        explicit CEnd(CPaintTool& tool) : m_tool(tool), m_bPainting(tool.IsPainting()) {}
        ~CEnd()
        {
            if (m_bPainting && !m_tool.IsPainting() && m_tool.ended)
                m_tool.ended();
        }
        CEnd(const CEnd&) = delete;
        CEnd& operator=(const CEnd&) = delete;

    private:
        CPaintTool& m_tool;
        bool m_bPainting;
    };

    /// A fast click is over before the pointer was looked at, and its line would have no end.
    void EndAt(CPoint ptBitmap)
    {
        m_ptEnd = ptBitmap;
        if (!m_bLine)
            return;
        const CSingleLock lock(&this->m_csPoints, TRUE);
        this->m_lstPoints.push_back(ptBitmap);
    }

    bool m_bLine = false;
};
