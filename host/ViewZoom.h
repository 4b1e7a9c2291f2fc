#pragma once

#include "host/ExactPoint.h"
#include "view/Pixtane.h"

#include <optional>

/// Zooms a view the ways a person does. The exact bitmap position zoomed about is remembered while only this zooms, so
/// that rounding to whole display positions does not add up over many steps. Points are window coordinates of the view
/// in device pixels. Everything does nothing without a bitmap. User-interface thread.
class CViewZoom
{
public:
    explicit CViewZoom(Pixtane::CPixtane& view) : m_view(view) {}

    /// Sets the zoom so that what is at the window point stays there, as far as the bitmap fills the view. Limited to
    /// MIN_ZOOM and MAX_ZOOM (ZoomLadder.h).
    void ZoomAbout(double dbZoom, ExactPoint ptWindow);

    /// The next step of the zoom ladder up or down (which always hits 100 %), about a window point.
    void StepZoom(int nSteps, ExactPoint ptWindow);

    /// The largest zoom at which the whole bitmap is visible, 100 % at most unless bEnlarge; 1 without a bitmap.
    double FitZoom(bool bEnlarge = false);
    void ZoomToFit();

    /// Whether the zoom is still the one that ZoomToFit chose: a parent window that is resized fits again then.
    bool IsFitted() const { return m_Fitted && *m_Fitted == m_view.dbZoom(); }

    /// The middle of the view area.
    ExactPoint ViewCentre();

private:
    /// The position zoomed about last, and what the view was left at: when that is not so any more, something else has
    /// zoomed or scrolled.
    struct Anchor
    {
        ExactPoint ptWindow;
        ExactPoint ptBitmap;
        double dbZoom;
        CPoint ptDispPos;
    };

    CPoint DispPos() const;
    ExactPoint BitmapPosition(ExactPoint ptWindow) const;

    Pixtane::CPixtane& m_view;
    std::optional<Anchor> m_Last;
    std::optional<double> m_Fitted;
};
