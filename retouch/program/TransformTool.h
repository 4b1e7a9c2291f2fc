#pragma once

#include "selection/SelectionModifier.h"

#include <functional>

/// The library's tool that moves and resizes the selection, which also hands on the keys pressed over it.
class CTransformTool : public Pixtane::EmbeddedTool::SelectionModifier
{
public:
    /// Takes a key and tells whether it was meant for it.
    std::function<bool(UINT uKey)> takeKey;

    /// Puts the frame around the selection where the view shows it now.
    void FollowView()
    {
        if (!pView || bDragging)
            return;
        UpdateDispData(TRUE);
        pView->Invalidate(FALSE);
    }

    int OnLButtonDown(UINT nFlags, CPoint point) override
    {
        if (pView)
            m_ptAtPress = CPoint(pView->ptDispPos().X, pView->ptDispPos().Y);
        return SelectionModifier::OnLButtonDown(nFlags, point);
    }

    int OnLButtonUp(UINT nFlags, CPoint point) override
    {
        // A frame that is back in its place of the window is in another one of the picture when that has scrolled.
        if (pView && m_ptAtPress != CPoint(pView->ptDispPos().X, pView->ptDispPos().Y))
            rcDragStart.SetRectEmpty();
        return SelectionModifier::OnLButtonUp(nFlags, point);
    }

    int OnKeyDown(UINT nChar, UINT, UINT) override { return takeKey && takeKey(nChar); }

private:
    CPoint m_ptAtPress{0, 0}; ///< The view's position.
};
