#include "brushes/Sketcher.h"
#include "view/OutOfMemory.h"

#include <iterator>

// The two workers of a loaded brush. Both sleep until their brush is unloaded or a stroke begins; what they do
// meanwhile they do with their own copies, the cover's pixels under m_csBitmap, and calls that any thread may make.

namespace Pixtane::EmbeddedTool
{

// ---- tracking

UINT Sketcher::thdMouseTracking(LPVOID pParam)
{
    Sketcher& sketcher = *static_cast<Sketcher*>(pParam);
    const HANDLE hIdle[] = {sketcher.m_evtStopTracking, sketcher.m_evtTrackingBegin};
    while (::WaitForMultipleObjects(2, hIdle, FALSE, INFINITE) == WAIT_OBJECT_0 + 1)
        sketcher.TrackPointer();
    sketcher.m_evtTrackingStopped.SetEvent();
    return 0;
}

void Sketcher::TrackPointer()
{
    constexpr DWORD PERIOD_MS = 10;
    const HANDLE hBusy[] = {m_evtTrackingEnd, m_ViewChanges.Pending()};
    m_evtTrackingBegin.ResetEvent();
    m_evtTrackingDone.ResetEvent();
    m_evtTrackingStarted.SetEvent();
    CPoint ptLast = m_ptStart;
    QueuePoint(ptLast);
    ViewState state = m_ViewChanges.First();
    bool bHeld = true;
    for (DWORD dwWoken = WAIT_TIMEOUT; dwWoken != WAIT_OBJECT_0;)
    {
        if (dwWoken == WAIT_OBJECT_0 + 1)
            state = m_ViewChanges.TakeUp();
        bHeld = bHeld && SamplePointer(state, ptLast);
        // What comes after the button's release is no part of the stroke: there is nothing left to look for.
        dwWoken =
            bHeld ? ::WaitForMultipleObjects(2, hBusy, FALSE, PERIOD_MS) : ::WaitForSingleObject(hBusy[0], INFINITE);
    }
    m_evtTrackingDone.SetEvent();
}

/// False when the button is up.
bool Sketcher::SamplePointer(const ViewState& state, CPoint& ptLast)
{
    CPoint ptNow(0, 0);
    if (!::GetCursorPos(&ptNow) || !::ScreenToClient(state.hWnd, &ptNow))
        return true; // The window may be gone.
    if (::GetAsyncKeyState(m_iStrokeButton) >= 0)
        return false;
    const CPoint ptBitmap = state.ToBitmap(ptNow);
    if (ptBitmap != ptLast)
        QueuePoint(ptBitmap);
    ptLast = ptBitmap;
    return true;
}

void Sketcher::QueuePoint(CPoint pt)
try
{
    {
        const CSingleLock lock(&m_csPoints, TRUE);
        m_lstPoints.push_back(pt);
    }
    m_evtPoints.SetEvent();
}
catch (...)
{
    RethrowUnlessOutOfMemory(); // The line goes straight to the next point.
}

// ---- sketching

UINT Sketcher::thdSketching(LPVOID pParam)
{
    Sketcher& sketcher = *static_cast<Sketcher*>(pParam);
    const HANDLE hIdle[] = {sketcher.m_evtStopSketching, sketcher.m_evtStrokeBegin};
    while (::WaitForMultipleObjects(2, hIdle, FALSE, INFINITE) == WAIT_OBJECT_0 + 1)
        sketcher.DrawStroke();
    sketcher.m_evtSketchingStopped.SetEvent();
    return 0;
}

void Sketcher::DrawStroke()
{
    const HANDLE hBusy[] = {m_evtStrokeEnd, m_evtPoints};
    m_evtStrokeBegin.ResetEvent();
    m_evtStrokeDone.ResetEvent();
    m_evtStrokeStarted.SetEvent();
    std::list<CPoint> batch;
    bool bFirstDrawn = false;
    while (::WaitForMultipleObjects(2, hBusy, FALSE, INFINITE) == WAIT_OBJECT_0 + 1)
        DrawQueuedPoints(batch, bFirstDrawn);
    DrawQueuedPoints(batch, bFirstDrawn);
    m_evtStrokeDone.SetEvent();
}

void Sketcher::DrawQueuedPoints(std::list<CPoint>& batch, bool& bFirstDrawn)
{
    {
        const CSingleLock lock(&m_csPoints, TRUE);
        batch.splice(batch.end(), m_lstPoints);
    }
    try
    {
        // The lone first point shows at once, and stays the beginning of the first segment.
        if (batch.size() == 1 && !bFirstDrawn)
            ProcessSpecifiedPoint(batch.front());
        else
            ProcessSketching(batch);
    }
    catch (...)
    {
        RethrowUnlessOutOfMemory(); // Nobody could catch it further up; the stroke goes on without what this drew.
    }
    bFirstDrawn = bFirstDrawn || !batch.empty();
}

void Sketcher::InvalidateView() { ::InvalidateRect(m_hStrokeWnd, nullptr, FALSE); }

} // namespace Pixtane::EmbeddedTool
