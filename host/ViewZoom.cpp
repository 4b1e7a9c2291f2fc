#include "host/ViewZoom.h"

#include "host/ZoomLadder.h"

#include <algorithm>
#include <cmath>

CPoint CViewZoom::DispPos() const { return {m_view.ptDispPos().X, m_view.ptDispPos().Y}; }

ExactPoint CViewZoom::BitmapPosition(ExactPoint ptWindow) const
{
    if (m_Last && m_Last->ptWindow == ptWindow && m_Last->dbZoom == m_view.dbZoom() && m_Last->ptDispPos == DispPos())
        return m_Last->ptBitmap;
    return {(ptWindow.x + DispPos().x) / m_view.dbZoom(), (ptWindow.y + DispPos().y) / m_view.dbZoom()};
}

void CViewZoom::ZoomAbout(double dbZoom, ExactPoint ptWindow)
{
    if (!m_view.pBmpData())
        return;
    m_Fitted.reset();
    const ExactPoint ptBitmap = BitmapPosition(ptWindow);
    m_view.LockRedraw();
    m_view.SetZoom(std::clamp(dbZoom, MIN_ZOOM, MAX_ZOOM));
    m_view.SetDispPosition(static_cast<int>(std::lround(ptBitmap.x * m_view.dbZoom() - ptWindow.x)),
                           static_cast<int>(std::lround(ptBitmap.y * m_view.dbZoom() - ptWindow.y)));
    m_view.UnlockRedraw();
    m_Last = {ptWindow, ptBitmap, m_view.dbZoom(), DispPos()};
}

void CViewZoom::StepZoom(int nSteps, ExactPoint ptWindow)
{
    if (nSteps != 0)
        ZoomAbout(ZoomLadderStep(m_view.dbZoom(), nSteps), ptWindow);
}

double CViewZoom::FitZoom(bool bEnlarge)
{
    // Without scroll bars, which a picture that fits does not need.
    CRect rcWindow;
    ::GetClientRect(m_view.m_hWnd, &rcWindow);
    if (!m_view.pBmpData() || rcWindow.IsRectEmpty())
        return 1;
    const double dbFit = std::min(static_cast<double>(rcWindow.Width()) / m_view.iBmpWidth(),
                                  static_cast<double>(rcWindow.Height()) / m_view.iBmpHeight());
    return bEnlarge ? dbFit : std::min(dbFit, 1.0);
}

void CViewZoom::ZoomToFit()
{
    m_view.SetZoom(FitZoom());
    m_Fitted = m_view.dbZoom();
}

ExactPoint CViewZoom::ViewCentre()
{
    CRect rcView;
    m_view.GetClientRect(&rcView);
    return {rcView.Width() / 2.0, rcView.Height() / 2.0};
}
