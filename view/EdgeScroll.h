#pragma once

#include "view/Pixtane.h"

namespace Pixtane
{

/// How far a view is to scroll for a pointer near its edges (within 20 pixels) or beyond: the distance from there, 20
/// pixels at most; negative towards left and top.
CSize EdgeStep(CPixtane& view, CPoint ptClient);

/// Scrolls the view by a step, as far as its image allows. TRUE when the display position changed.
bool ScrollBy(CPixtane& view, CSize szStep);

/// Calls step(ptClient), which scrolls by EdgeStep and tells whether it did so, again and again with the
/// pointer's present place: for as long as it scrolls and, when a button was really held, until that is let go.
template<class Step>
void ScrollWhileAtEdge(CPixtane& view, CPoint ptClient, Step step)
{
    const auto isHeld = [] { return ::GetAsyncKeyState(VK_LBUTTON) < 0; };
    const bool bHeldAtFirst = isHeld();
    while (step(ptClient) && (!bHeldAtFirst || isHeld()))
    {
        ::GetCursorPos(&ptClient);
        view.ScreenToClient(&ptClient);
    }
}

} // namespace Pixtane
