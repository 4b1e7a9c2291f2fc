#pragma once

#include "view/Pixtane.h"

#include <vector>

namespace Pixtane
{

/// An editing tool that a view hosts. The host owns the tool and hands it to a view with LoadEmbeddedTool; from then on
/// the view offers it every event before its own handling. Points are window coordinates of the view. Nonzero from
/// OnLButtonDown, OnLButtonUp, OnMouseMove, OnMouseWheel and OnKeyDown means that the event is consumed; the results of
/// the others on mouse and keys are ignored. The order of the operations is part of the interface. All
/// calls come on the view's thread.
class AFX_EXT_CLASS CPixtane::IEmbeddedTool
{
public:
    IEmbeddedTool();
    IEmbeddedTool(const IEmbeddedTool& other) = default;
    IEmbeddedTool& operator=(const IEmbeddedTool& other) = default;
    virtual ~IEmbeddedTool();

    /// The tool's name, lower case with underscores.
    virtual const wchar_t* GetToolName() = 0;

    /// The tool was handed to the view; zero refuses, and no tool is loaded then.
    virtual int OnLoad(CPixtane& view);

    /// Writes the settings as 32-bit little-endian words, the version first. Tools without settings leave vData as it
    /// is.
    virtual void SerializeToolSettings(std::vector<BYTE>& vData) const = 0;

    /// Takes settings over; FALSE, with nothing changed, when they are not this tool's.
    virtual int UnserializeToolSettings(const std::vector<BYTE>& vData);

    /// The tool is taken out of the view; the result is ignored.
    virtual int OnUnload() = 0;

    /// The host asks the tool to give up what it is doing.
    virtual void Reset();

    /// In every paint with a bitmap: before the bitmap is drawn, and after the bitmap and the selection's border. The
    /// second comes only to a tool that got the first and has stayed loaded since: one that is unloaded in between
    /// gives up in OnUnload what it took in the first. It comes also when an exception ends the drawing.
    virtual int OnPrePaint(CDC& dc, CRect& rcView) = 0;
    virtual int OnPostPaint(CDC& dc, CRect& rcView) = 0;

    /// The pointer is over the view area; nonzero when the tool has set the cursor.
    virtual int OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message) = 0;

    /// Any timer of the view's window.
    virtual int OnTimer(UINT_PTR nIDEvent) = 0;

    virtual int OnLButtonDown(UINT nFlags, CPoint point) = 0;
    virtual int OnLButtonUp(UINT nFlags, CPoint point) = 0;
    virtual int OnLButtonDblClk(UINT nFlags, CPoint point) = 0;
    virtual int OnMouseMove(UINT nFlags, CPoint point) = 0;

    /// A wheel step; the point is in screen coordinates.
    virtual int OnMouseWheel(UINT nFlags, short zDelta, CPoint pt) = 0;
    virtual int OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags) = 0;
    virtual int OnKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags) = 0;
    virtual int OnSysKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags) = 0;
    virtual int OnSysKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags) = 0;

    /// The view lost the mouse capture to pWnd (NULL when it was released).
    virtual int OnCaptureChanged(CWnd* pWnd) = 0;

    /// The zoom was set (also to the same), or the display position has changed, and the view is laid out.
    virtual void OnZoomChanged();
    virtual void OnDispPosChanged();

protected:
    /// Whether the tool is still loaded into that view, and the view still has its window: everything outside that is
    /// told something may have changed that.
    bool IsIn(const CPixtane& view) const { return pView == &view && view.m_hWnd; }
    bool IsHosted() const { return pView && IsIn(*pView); }

    /// The pointer in window coordinates of the view. Hosted tools only.
    CPoint CursorInView() const;

    /// Whether the pointer is over the view area. Hosted tools only.
    bool IsCursorOverView() const;

    /// Takes the mouse for the view, and tells nobody when the view has it already. Hosted tools only; afterwards the
    /// tool may no longer be.
    void CaptureMouse();

    /// Gives the mouse capture up; another window that has taken it keeps it.
    void ReleaseMouse();

    wchar_t szToolName[MAX_TOOLNAME];
    CPixtane* pView = nullptr; ///< The view it is loaded into.
    UINT uSettingsVersion = 1; ///< Version of the settings this tool writes, and the newest it reads.
};

} // namespace Pixtane
