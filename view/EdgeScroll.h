#pragma once

#include "view/Pixtane.h"

namespace Pixtane
{

/// Scrolls the view towards an edge that the pointer is near (within 20 pixels) or beyond, by the distance from there,
/// 20 pixels at most. TRUE when the display position changed.
bool ScrollTowardsEdge(CPixtane& view, CPoint ptClient);

/// Calls step(ptClient), which scrolls with ScrollTowardsEdge and tells whether it did so, again and again with the
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
