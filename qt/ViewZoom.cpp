#include "qt/ZoomAnchor.h"

#include <cmath>

CPoint CZoomAnchor::DispPos() const { return {m_view.ptDispPos().X, m_view.ptDispPos().Y}; }

QPointF CZoomAnchor::BitmapPosition(QPointF ptWindow) const
{
    if (m_Last && m_Last->ptWindow == ptWindow && m_Last->dbZoom == m_view.dbZoom() && m_Last->ptDispPos == DispPos())
        return m_Last->ptBitmap;
    return (ptWindow + QPointF(DispPos().x, DispPos().y)) / m_view.dbZoom();
}

void CZoomAnchor::ZoomAbout(double dbZoom, QPointF ptWindow)
{
    if (!m_view.pBmpData())
        return;
    const QPointF ptBitmap = BitmapPosition(ptWindow);
    m_view.LockRedraw();
    m_view.SetZoom(dbZoom);
    const QPointF ptZoomed = ptBitmap * m_view.dbZoom() - ptWindow;
    m_view.SetDispPosition(static_cast<int>(std::lround(ptZoomed.x())), static_cast<int>(std::lround(ptZoomed.y())));
    m_view.UnlockRedraw();
    m_Last = {ptWindow, ptBitmap, m_view.dbZoom(), DispPos()};
}
