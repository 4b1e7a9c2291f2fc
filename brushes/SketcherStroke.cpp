#include "brushes/Sketcher.h"
#include "brushes/StrokeImage.h"
#include "platform/minmax.h"
#include "view/Log.h"
#include "view/Notifications.h"

#include <exception>
#include <utility>

namespace Pixtane::EmbeddedTool
{

namespace
{

/// Tells in the log how long something took.
class CTimeLog
{
public:
    CTimeLog(const wchar_t* pszFunction, const wchar_t* pszFormat)
        : m_pszFunction(pszFunction), m_pszFormat(pszFormat), m_dwStart(::GetTickCount())
    {
    }
    ~CTimeLog()
    try
    {
        QLWriteLog(QL_INFO, MODULE_NAME, m_pszFunction, m_pszFormat, ::GetTickCount() - m_dwStart);
    }
    catch (...)
    {
        return; // A record less.
    }
    CTimeLog(const CTimeLog&) = delete;
    CTimeLog& operator=(const CTimeLog&) = delete;

private:
    const wchar_t* m_pszFunction;
    const wchar_t* m_pszFormat;
    DWORD m_dwStart;
};

} // namespace

// ---- the workers

int Sketcher::StartSketchingThread()
{
    m_evtStrokeBegin.ResetEvent();
    m_evtStopSketching.ResetEvent();
    m_evtSketchingStopped.ResetEvent();
    m_pSketchingThread = AfxBeginThread(&thdSketching, this);
    return m_pSketchingThread != nullptr;
}

int Sketcher::StartMouseTrackingThread()
{
    m_evtTrackingBegin.ResetEvent();
    m_evtStopTracking.ResetEvent();
    m_evtTrackingStopped.ResetEvent();
    m_pMouseTrackingThread = AfxBeginThread(&thdMouseTracking, this, THREAD_PRIORITY_HIGHEST);
    return m_pMouseTrackingThread != nullptr;
}

void Sketcher::StopSketchingThread()
{
    if (!std::exchange(m_pSketchingThread, nullptr))
        return;
    const CTimeLog log(L"Sketcher::StopSketchingThread", L"Stop Sketching-thread cost %dms.");
    m_evtStopSketching.SetEvent();
    m_evtSketchingStopped.Lock();
}

void Sketcher::StopMouseTrackingThread()
{
    if (!std::exchange(m_pMouseTrackingThread, nullptr))
        return;
    const CTimeLog log(L"Sketcher::StopMouseTrackingThread", L"Stop MouseTracking-thread cost %dms.");
    m_evtStopTracking.SetEvent();
    m_evtTrackingStopped.Lock();
}

// ---- the beginning

bool Sketcher::CanStroke()
{
    if (m_bSketching || m_bUnloading || !IsHosted() || !pView->pBmpData() || !m_pSketchingThread ||
        !m_pMouseTrackingThread)
        return false;
    if (!BuildPen())
        return false;
    MeasurePen();
    if (TakeStrokeMemory())
        return true;
    QLWriteLog(QL_ERROR, MODULE_NAME, L"Sketcher::StartSketching", L"Failed to update bitmap.");
    return false;
}

bool Sketcher::CaptureForStroke()
{
    CPixtane& view = *pView;
    view.SetCapture();
    return IsIn(view) && ::GetCapture() == view.m_hWnd && CanStroke();
}

CPoint Sketcher::BitmapPoint(CPoint ptClient) const { return StateOfView().ToBitmap(ptClient); }

ViewState Sketcher::StateOfView() const
{
    return {pView->m_hWnd, pView->pBmpData() != nullptr, pView->dbZoom(), pView->ptDispPos()};
}

void Sketcher::StartMouseTracking()
{
    m_evtTrackingStarted.ResetEvent();
    m_evtTrackingEnd.ResetEvent();
    m_evtTrackingBegin.SetEvent();
}

void Sketcher::StartSketching(CPoint pt)
{
    m_ptStart = pt;
    m_pStrokeBmp = pView->pBmpData();
    m_hStrokeWnd = pView->m_hWnd;
    m_iStrokeButton = ::GetSystemMetrics(SM_SWAPBUTTON) ? VK_RBUTTON : VK_LBUTTON;
    m_ViewChanges.Begin(StateOfView());
    m_evtPoints.ResetEvent();
    StartMouseTracking();
    if (!UpdateBitmap())
        QLWriteLog(QL_ERROR, MODULE_NAME, L"Sketcher::StartSketching", L"Failed to update bitmap.");
    ClearLastCoverage();
    m_bSpoiled = false;
    m_bToldOfFailure = false;
    m_bSketching = TRUE;
    pView->KeepCover(true);
    pView->ShowCoverImage(TRUE, TRUE);
    m_evtStrokeStarted.ResetEvent();
    m_evtStrokeEnd.ResetEvent();
    m_evtStrokeBegin.SetEvent();
}

void Sketcher::ClearLastCoverage()
{
    CRect rcTouched(0, 0, m_bmiCoverage.bmiHeader.biWidth, m_bmiCoverage.bmiHeader.biHeight);
    rcTouched.IntersectRect(CRect(rcTouched), m_rcStamped);
    ClearCoverage(m_vCoverage, m_bmiCoverage.bmiHeader.biWidth, rcTouched);
    m_rcStamped.SetRectEmpty();
}

void Sketcher::TellBegin(UINT uCode)
{
    CPixtane& view = *pView;
    view.NotifyParent(uCode, FALSE);
    if (IsIn(view) && m_bSketching)
        view.ShowCoverImage(TRUE, TRUE);
}

// ---- the end

void Sketcher::EndMouseTracking()
{
    const CTimeLog log(L"Sketcher::EndMouseTracking", L"Stop MouseTracking cost %dms.");
    m_evtTrackingStarted.Lock();
    m_evtTrackingEnd.SetEvent();
    m_evtTrackingDone.Lock();
}

void Sketcher::EndSketching()
{
    if (!m_bSketching || std::exchange(m_bEnding, true))
        return;
    LeavePaint(); // A worker may wait for what this paint holds.
    EndMouseTracking();
    std::exception_ptr pException;
    {
        const CTimeLog log(L"Sketcher::EndSketching", L"Stop Sketching cost %dms.");
        m_evtStrokeStarted.Lock();
        const CWaitCursor wait;
        m_evtStrokeEnd.SetEvent();
        constexpr DWORD PAINT_PERIOD_MS = 10;
        while (!m_evtStrokeDone.Lock(PAINT_PERIOD_MS))
        {
            if (!pException)
                pException = DispatchPaint();
        }
        ForgetStroke();
    }
    m_bEnding = false;
    if (pException)
        std::rethrow_exception(pException);
}

/// One paint at most: a window that never validates must not keep the stroke from ending. What the paint threw is for
/// the end of the stroke.
std::exception_ptr Sketcher::DispatchPaint()
try
{
    MSG msg = {};
    if (::PeekMessage(&msg, m_hStrokeWnd, 0, 0, PM_NOREMOVE | PM_QS_PAINT) && msg.message == WM_PAINT)
        ::DispatchMessage(&msg);
    return nullptr;
}
catch (...)
{
    return std::current_exception();
}

bool Sketcher::IsBitmapOfStroke() const
{
    const BITMAPINFO info = pView->BmpInfo();
    return pView->pBmpData() == m_pStrokeBmp && info.bmiHeader.biWidth == m_bmiBmp.bmiHeader.biWidth &&
           info.bmiHeader.biHeight == m_bmiBmp.bmiHeader.biHeight &&
           info.bmiHeader.biBitCount == m_bmiBmp.bmiHeader.biBitCount;
}

void Sketcher::FinishStroke(UINT uCode)
{
    if (!pView || m_bSketching)
        return; // A paint at the end took the brush away; or this is an end within the end.
    CPixtane& view = *pView;
    {
        const CSingleLock lock(&m_csBitmap, TRUE);
        if (IsBitmapOfStroke() && IsCoverOurs())
            m_vBmpData = view.vCoverBmpData();
        else
            m_vBmpData.clear();
    }
    if (view.m_hWnd)
        view.NotifyParent(uCode, FALSE);
    if (IsIn(view) && !m_bSketching)
        view.ShowCoverImage(FALSE, FALSE);
}

void Sketcher::EndLostStroke()
{
    if (!m_bSketching || m_bEnding)
        return;
    CPixtane& view = *pView;
    ReleaseMouse();
    if (pView == &view && m_bSketching)
        OnCaptureChanged(nullptr);
}

void Sketcher::EndStrokeWithoutBitmap()
{
    if (m_bSketching && !IsBitmapOfStroke() && (!pView->pBmpData() || ::GetCapture() != pView->m_hWnd))
        EndLostStroke();
}

// ---- events of the view

int Sketcher::OnLButtonDown(UINT, CPoint)
{
    // A press while a stroke runs: its release was lost.
    EndLostStroke();
    if (IsHosted())
        pView->SetCapture();
    return FALSE;
}

int Sketcher::OnLButtonUp(UINT, CPoint)
{
    ReleaseMouse();
    return FALSE;
}

int Sketcher::OnMouseMove(UINT nFlags, CPoint)
{
    if (!(nFlags & MK_LBUTTON))
        EndLostStroke();
    if (IsHosted())
    {
        pView->Invalidate(FALSE);
        pView->UpdateWindow();
    }
    return FALSE;
}

int Sketcher::OnCaptureChanged(CWnd* pWnd)
{
    if (m_bSketching && pWnd != pView)
        EndSketching();
    return FALSE;
}

void Sketcher::OnZoomChanged()
{
    BuildPen();
    MeasurePen();
    TellWorker();
    OnSetCursor(pView, 0, WM_SETCURSOR);
}

void Sketcher::OnDispPosChanged() { TellWorker(); }

void Sketcher::TellWorker()
{
    if (m_bSketching)
        m_ViewChanges.Tell(StateOfView());
}

} // namespace Pixtane::EmbeddedTool
