#pragma once

#include "view/MainWindow.h"
#include "view/Pixtane.h"

namespace Pixtane
{

/// How far a view is to scroll for a pointer near its edges (within 20 pixels) or beyond: the distance from there, 20
/// pixels at most; negative towards left and top.
CSize EdgeStep(CPixtane& view, CPoint ptClient);

/// Scrolls the view by a step, as far as its image allows; a step of nothing repaints. TRUE when the display position
/// changed.
bool ScrollBy(CPixtane& view, CSize szStep);

/// Calls step(ptClient), which scrolls by EdgeStep and tells whether it did so, again and again with the
/// pointer's present place: for as long as it scrolls and, when the button was really held, until that is let go. While
/// the host's main window is minimised, nothing limits the display position, and one step is all.
template<class Step>
void ScrollWhileAtEdge(CPixtane& view, CPoint ptClient, Step step)
{
    // The live state is that of the buttons themselves, which the user may have swapped.
    const int iButton = ::GetSystemMetrics(SM_SWAPBUTTON) ? VK_RBUTTON : VK_LBUTTON;
    const auto isHeld = [iButton] { return ::GetAsyncKeyState(iButton) < 0; };
    const bool bHeldAtFirst = isHeld();
    while (step(ptClient) && !IsMainWindowMinimised() && (!bHeldAtFirst || isHeld()))
    {
        ::GetCursorPos(&ptClient);
        view.ScreenToClient(&ptClient);
    }
}

} // namespace Pixtane
