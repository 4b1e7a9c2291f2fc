#pragma once

#include "brushes/ViewChanges.h"
#include "platform/vorpix.h"
#include "view/EmbeddedTool.h"
#include "view/UnsetPoint.h"

#include <exception>
#include <functional>
#include <list>
#include <optional>
#include <vector>

namespace Pixtane
{
class CSavedRect;
}

namespace Pixtane::EmbeddedTool
{

/// The base of the free-hand brushes: turns a mouse stroke into stamps of a pen. While a stroke runs, one worker
/// samples the pointer and queues bitmap points, another joins them to paths, stamps the pen along them and lets the
/// brush draw its effect into the view's cover image. The view's own bitmap is never written: when the stroke ends, the
/// brush keeps the result as its working copy and tells the host, which fetches it with GetBitmap and puts it into the
/// bitmap; otherwise the next stroke drops it.
///
/// A brush handles the button, the timer and the keys: its press asks CanStroke, then calls StartSketching, its release
/// and its loss of the capture EndSketching. It tells the host through TellBegin and FinishStroke. Everything but
/// ProcessLineSegment and what that calls belongs to the view's thread.
class AFX_EXT_CLASS Sketcher : public CPixtane::IEmbeddedTool
{
public:
    /// A pen: a square of weights, from 0 to Vorpix::FULL_WEIGHT, with a centre.
    struct AFX_EXT_CLASS SketchPen
    {
        enum emStyle : int
        {
            NO_PEN = -1,
            COMPUTED = 0, ///< By Vorpix::CreateMask. Files may hold other styles.
        };

        emStyle eStyle = NO_PEN;
        int iSize = 0;       ///< The square's side in bitmap pixels.
        int iHardness = 100; ///< 1 to 100.
        int iStrength = 100; ///< 1 to 100: the weights' scale in percent.
        CPoint ptCenter = POINT_UNSET;
        std::vector<int> vMask; ///< iSize x iSize weights, row by row, the top row first.
    };

    Sketcher();
    Sketcher(const Sketcher&) = delete;
    Sketcher& operator=(const Sketcher&) = delete;
    ~Sketcher() override;

    // ---- the pen

    /// Makes a computed pen (style 0, size 1 to 501, hardness and strength 1 to 100) the active one. FALSE, with a log
    /// record and nothing changed, for other values and while a stroke runs.
    int SetPen(SketchPen::emStyle eStyle, int iSize, int iHardness, int iStrength);

    /// The stored values, also those that settings have restored.
    void GetPen(SketchPen::emStyle& eStyle, int& iSize, int& iHardness, int& iStrength) const;

    // ---- the pixels

    /// Copies the view's bitmap into the working copy and into the view's cover image. FALSE without a bitmap, while a
    /// stroke runs, when the header's biSizeImage is 0 or below the rows' bytes, and when memory is short.
    int UpdateBitmap();

    /// The working copy, after a stroke its result, bottom-up like the bitmap, and its header. NULL when there is none,
    /// while a stroke runs, and after a stroke whose bitmap the host has replaced.
    BYTE* GetBitmap(BITMAPINFO& bmi) const;

    // ---- the stroke, step by step

    /// Makes points the 4-connected path of pixels between two points; see MakeLinePath.
    void CalcLinePoints(const CPoint& ptFrom, const CPoint& ptTo, std::list<CPoint>& points);

    /// Joins the points of a batch to one path, draws it, and leaves the last point to begin the next batch. Nothing
    /// for fewer than two. Worker.
    int ProcessSketching(std::list<CPoint>& points);

    /// Draws a single point. Worker.
    void ProcessSpecifiedPoint(const CPoint& pt);

    /// The bitmap pixels that a stamp at a point covers.
    void GetPenRectFromPoint(const CPoint& pt, CRect& rc);

    static UINT thdMouseTracking(LPVOID pParam);
    static UINT thdSketching(LPVOID pParam);

    int OnLoad(CPixtane& view) override;
    void SerializeToolSettings(std::vector<BYTE>& vData) const override;
    int UnserializeToolSettings(const std::vector<BYTE>& vData) override;
    int OnUnload() override;
    int OnPrePaint(CDC& dc, CRect& rcView) override;
    int OnPostPaint(CDC& dc, CRect& rcView) override;
    int OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message) override;
    int OnLButtonDown(UINT nFlags, CPoint point) override;
    int OnLButtonUp(UINT nFlags, CPoint point) override;
    int OnMouseMove(UINT nFlags, CPoint point) override;
    int OnCaptureChanged(CWnd* pWnd) override;
    void OnZoomChanged() override;
    void OnDispPosChanged() override;

    /// Stamps a path of pixels into the coverage, a fifth of the pen's size apart, and returns whether anything was
    /// stamped. A brush draws here what the coverage lets through into the cover, within rcDirty. Worker.
    virtual int ProcessLineSegment(std::list<CPoint>& points, CRect& rcDirty);

protected:
    void StartSketching(CPoint pt);
    void EndSketching();
    int StartSketchingThread();
    void StopSketchingThread();
    int StartMouseTrackingThread();
    void StopMouseTrackingThread();
    void StartMouseTracking();
    void EndMouseTracking();

    // ---- what brushes share

    /// Takes the pen's values over from settings: style, size, hardness, strength. They count from the next stroke.
    void RestorePen(const std::vector<DWORD>& vSettings);

    /// Whether a stroke can begin: not without a bitmap whose pixels can be copied, pen weights, or both workers. Asked
    /// at the press, before the capture is taken and anybody is told.
    bool CanStroke();

    /// Takes the mouse for a stroke. FALSE when whoever lost it has changed what CanStroke looks at.
    bool CaptureForStroke();

    /// The bitmap pixel under a point of the window.
    CPoint BitmapPoint(CPoint ptClient) const;

    /// Tells the host that the stroke has begun; the cover is shown afterwards whatever the host did with it.
    void TellBegin(UINT uCode);

    /// After EndSketching: keeps the cover as the result, tells the host, and shows the bitmap again.
    void FinishStroke(UINT uCode);

    /// Ends a stroke that nobody else ends, through OnCaptureChanged: one whose release was lost.
    void EndLostStroke();

    /// In the brush's OnTimer: ends a stroke whose bitmap is gone or replaced and whose release cannot come.
    void EndStrokeWithoutBitmap();

    /// Stamps the path, lets a brush change the pixels of m_ProcessRegion.rcRegion in m_vBmpData, shows the changed
    /// pixels as far as the coverage goes, and puts the unchanged ones back. Worker.
    int StampAndShow(std::list<CPoint>& points, const CRect& rcDirty, const std::function<void()>& changePixels);

    /// Stamps the pen with its centre at a point of the coverage. Worker.
    void StampAt(CPoint pt);

    /// Whether a stamp at a point would be too close to the last one. Worker.
    bool IsTooCloseToLast(CPoint pt) const;

    /// Whether the cover is still the stroke's: a host may have put another picture there. With m_csBitmap held.
    bool IsCoverOurs() const;

    /// How far from the stroke's points the brush stamps; it sets this before StartSketching.
    void SetStampOffset(CSize szOffset) { m_szReach = szOffset; }

    // The order of the fields is part of the class's interface.
    SketchPen m_Pen;
    BITMAPINFO m_bmiPenMask = {};
    CRect m_rcPen = {0, 0, 0, 0}; ///< The pen's extent to the sides of its centre, the centre not counted.
    int m_iPenScreenSize = 0;
    BOOL m_bSketching = FALSE;
    std::vector<int> m_vCoverage; ///< A weight for each bitmap pixel, top row first: how far the effect shows.
    BITMAPINFO m_bmiCoverage = {};
    std::vector<BYTE> m_vBmpData;
    BITMAPINFO m_bmiBmp = {};
    CRect m_rcStampArea = {0, 0, 0, 0}; ///< The bitmap, widened by the pen.
    CPoint m_ptLastStamp = POINT_UNSET;
    CPoint m_ptStart = POINT_UNSET;
    Vorpix::tagPROCESS_REGION m_ProcessRegion = {};
    std::vector<BYTE> m_vScratch;
    CWinThread* m_pSketchingThread = nullptr;
    CWinThread* m_pMouseTrackingThread = nullptr;
    std::list<CPoint> m_lstPoints;
    CCriticalSection m_csBitmap; ///< Guards the cover's pixels. Never held together with m_csPoints.
    CCriticalSection m_csPoints; ///< Guards m_lstPoints.

    // Manual ones first. Set by: OnUnload, the worker, StartSketching, EndSketching, the worker, the worker.
    CEvent m_evtStopSketching{FALSE, TRUE};
    CEvent m_evtSketchingStopped{FALSE, TRUE};
    CEvent m_evtStrokeBegin{FALSE, TRUE};
    CEvent m_evtStrokeEnd{FALSE, TRUE};
    CEvent m_evtStrokeStarted{FALSE, TRUE};
    CEvent m_evtStrokeDone{FALSE, TRUE};
    // These reset by themselves, and are set by the corresponding ones.
    CEvent m_evtStopTracking;
    CEvent m_evtTrackingStopped;
    CEvent m_evtTrackingBegin;
    CEvent m_evtTrackingEnd;
    CEvent m_evtTrackingStarted;
    CEvent m_evtTrackingDone;

private:
    /// The four values that make a pen's weights.
    struct PenValues
    {
        int iStyle = SketchPen::NO_PEN;
        int iSize = 0;
        int iHardness = 0;
        int iStrength = 0;

        bool operator==(const PenValues&) const = default;
    };

    PenValues StoredPen() const { return {m_Pen.eStyle, m_Pen.iSize, m_Pen.iHardness, m_Pen.iStrength}; }
    bool BuildPen();
    void MeasurePen();
    void UpdateStampArea();
    ViewState StateOfView() const;
    std::optional<std::size_t> RowBytes() const;
    bool TakeStrokeMemory();
    void ClearLastCoverage();
    bool IsBitmapOfStroke() const;
    std::exception_ptr DispatchPaint();
    void LeaveView();
    void TellWorker();
    void ForgetStroke();
    void LeavePaint();
    void DrawPenOutline(CDC& dc);

    // What the two thread procedures do during a stroke. Worker.
    void TrackPointer();
    bool SamplePointer(const ViewState& state, CPoint& ptLast);
    void QueuePoint(CPoint pt);
    void DrawQueuedPoints(std::list<CPoint>& batch, bool& bFirstDrawn);
    void DrawStroke();
    bool CanReach(CPoint ptFrom, CPoint ptTo) const;
    void InvalidateView();
    bool ChangePixels(const std::function<void()>& changePixels, const CSavedRect& saved);

    PenValues m_BuiltPen; ///< Whose weights m_Pen.vMask holds; it stays during a stroke, whatever is restored.
    CSize m_szReach = {0, 0};
    CViewChanges m_ViewChanges;
    CEvent m_evtPoints;               ///< Points are queued; resets by itself.
    CRect m_rcStamped = {0, 0, 0, 0}; ///< All that the stroke has stamped.
    BYTE* m_pStrokeBmp = nullptr;     ///< The host's pixels that the stroke began with, to compare.
    HWND m_hStrokeWnd = nullptr;
    int m_iStrokeButton = 0;       ///< The key code of the button that draws.
    int m_nPaints = 0;             ///< Paints between OnPrePaint and OnPostPaint, each holding m_csBitmap.
    bool m_bSpoiled = false;       ///< A brush has changed the size of m_vBmpData: the stroke draws nothing any more.
    bool m_bToldOfFailure = false; ///< Of the effect; once a stroke is enough.
    bool m_bUnloading = false;
    bool m_bEnding = false; ///< In EndSketching.
};

} // namespace Pixtane::EmbeddedTool

namespace Pixtane
{

/// Loads every pen file "*.sp" of a folder into the module's pen table, which it empties first. FALSE, with the table
/// unchanged, when the folder does not exist; TRUE for a folder without pen files, too. What cannot be read of a file
/// is told in the log. User-interface thread.
AFX_EXT_CLASS int LoadSketchPens(const wchar_t* pszFolder);

} // namespace Pixtane
