#pragma once

#include "view/Pixtane.h"

#include <optional>
#include <QPointF>

/// Zooms a view about a point. The exact bitmap position there is remembered while only this zooms, so that rounding to
/// whole display positions does not add up over many steps.
class CZoomAnchor
{
public:
    explicit CZoomAnchor(Pixtane::CPixtane& view) : m_view(view) {}

    /// Sets the zoom so that what is at the window point stays there, as far as the bitmap fills the view. Nothing
    /// without a bitmap.
    void ZoomAbout(double dbZoom, QPointF ptWindow);

private:
    /// The position zoomed about last, and what the view was left at: when that is not so any more, something else has
    /// zoomed or scrolled.
    struct Anchor
    {
        QPointF ptWindow;
        QPointF ptBitmap;
        double dbZoom;
        CPoint ptDispPos;
    };

    CPoint DispPos() const;
    QPointF BitmapPosition(QPointF ptWindow) const;

    Pixtane::CPixtane& m_view;
    std::optional<Anchor> m_Last;
};
