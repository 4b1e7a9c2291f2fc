#pragma once

#include "platform/framework.h"

#include <afxmt.h>

#include <deque>

namespace Pixtane
{

/// What a worker needs to know of the view to turn a point on the screen into a bitmap pixel.
struct ViewState
{
    HWND hWnd = nullptr;
    bool bHasBitmap = false;
    double dbZoom = 1;
    Gdiplus::Point ptDispPos;

    bool operator==(const ViewState& other) const
    {
        return hWnd == other.hWnd && bHasBitmap == other.bHasBitmap && dbZoom == other.dbZoom &&
               ptDispPos.X == other.ptDispPos.X && ptDispPos.Y == other.ptDispPos.Y;
    }

    /// The bitmap pixel under a point of the window; without a bitmap the point itself.
    CPoint ToBitmap(CPoint ptClient) const;
};

/// Hands the changes of a view from the user-interface thread to a worker, each once and in order: which of them the
/// worker had taken up before it asked where the pointer is, decides where that was. So the worker takes one up when
/// its wait for Pending() says so, and only then.
class CViewChanges
{
public:
    /// A stroke begins with this state; what was not taken up is forgotten. User-interface thread, no worker at work.
    void Begin(const ViewState& state);

    /// The view may have changed. User-interface thread.
    void Tell(const ViewState& state);

    /// The next change. Worker, after a wait for Pending().
    ViewState TakeUp();

    /// The state that the stroke began with. Worker.
    const ViewState& First() const { return m_First; }

    HANDLE Pending() const { return m_evtPending; }

private:
    ViewState m_First;
    ViewState m_Last; ///< The user-interface thread's.
    CCriticalSection m_csWaiting;
    std::deque<ViewState> m_vWaiting;
    CEvent m_evtPending{FALSE, TRUE};
};

} // namespace Pixtane
