#include "view/CoverLock.h"
#include "view/DibSize.h"
#include "view/EmbeddedTool.h"
#include "view/MainWindow.h"
#include "view/Module.h"
#include "view/Pixtane.h"
#include "view/Rounding.h"

namespace Pixtane
{

BOOL CPixtane::OnEraseBkgnd(CDC*) { return TRUE; }

void CPixtane::OnPaint()
{
    if (IsMainWindowMinimised() || m_bRedrawLocked)
    {
        // Whatever ends this state repaints everything; left invalid, the message would come again for ever.
        ValidateRect(nullptr);
        return;
    }
    CRect rcView(0, 0, 0, 0);
    GetClientRect(&rcView);
    CRect rcWindow(0, 0, 0, 0);
    CUXWnd::GetClientRect(&rcWindow);
    CPaintDC dcPaint(this);
    CBitmap bmpBack; // It outlives the device context: selected into one it could not be deleted.
    CDC dcMemory;
    dcMemory.CreateCompatibleDC(&dcPaint);
    bmpBack.CreateCompatibleBitmap(&dcPaint, rcView.Width(), rcView.Height());
    CBitmap* pOldBitmap = dcMemory.SelectObject(&bmpBack);
    if (m_bHScrollShown && m_bVScrollShown)
        FillCorner(dcPaint, rcView);
    PaintBackBuffer(dcMemory, rcWindow, rcView);
    dcPaint.BitBlt(0, 0, rcView.Width(), rcView.Height(), &dcMemory, 0, 0, SRCCOPY);
    dcMemory.SelectObject(pOldBitmap);
}

void CPixtane::FillCorner(CDC& dc, const CRect& rcView)
{
    CBrush br(::GetSysColor(COLOR_BTNFACE));
    const CRect rcCorner(rcView.right, rcView.bottom, rcView.right + VerticalBarWidth(),
                         rcView.bottom + HorizontalBarHeight());
    dc.FillRect(&rcCorner, &br);
}

void CPixtane::PaintBackBuffer(CDC& dc, const CRect& rcWindow, CRect& rcView)
{
    CBrush brBackground(m_crBackground);
    dc.FillRect(&rcWindow, &brBackground);
    if (!m_pBmpData)
        return;
    IEmbeddedTool* const pTool = m_pEmbeddedTool;
    const UINT uLoads = m_uToolLoads;
    // A tool that another took the place of meanwhile did not see the beginning, and gets no end.
    const auto endPaint = [&]
    {
        if (pTool && pTool == m_pEmbeddedTool && uLoads == m_uToolLoads)
            pTool->OnPostPaint(dc, rcView);
    };
    if (pTool)
        pTool->OnPrePaint(dc, rcView);
    try
    {
        DrawBitmap(dc, rcView);
        DrawSelectBorder(dc, m_uBorderPhase);
    }
    catch (...)
    {
        endPaint(); // It gives back there what it took before the drawing, a lock say.
        throw;
    }
    endPaint();
}

CPixtane::DrawRects CPixtane::ComputeDrawRects(const CRect& rcView) const
{
    const float fZoom = static_cast<float>(m_dbZoom);
    const float fViewWidth = static_cast<float>(rcView.Width());
    const float fViewHeight = static_cast<float>(rcView.Height());
    const float fPosX = static_cast<float>(m_ptDispPos.X);
    const float fPosY = static_cast<float>(m_ptDispPos.Y);
    const auto smaller = [](float fView, float fRest) { return fView <= fRest ? fView : fRest; };
    const float fRight = smaller(fViewWidth, m_szZoomed.Width - fPosX);
    const float fBottom = smaller(fViewHeight, m_szZoomed.Height - fPosY);
    const float fLeft = fPosX < 0 ? -fPosX : 0;
    const float fTop = fPosY < 0 ? -fPosY : 0;
    const float fDestWidth = fRight - fLeft;
    const float fDestHeight = fBottom - fTop;

    DrawRects rects;
    rects.rcDest =
        CRect(FloorLike(fLeft), FloorLike(fTop), RoundHalfAway(fLeft + fDestWidth), RoundHalfAway(fTop + fDestHeight));
    rects.rcDestReal = Gdiplus::RectF(fLeft, fTop, fDestWidth, fDestHeight);
    rects.rcSrc = Gdiplus::RectF(0, 0, static_cast<float>(m_iBmpWidth), static_cast<float>(m_iBmpHeight));
    if (Truncate(fDestWidth) < Truncate(m_szZoomed.Width))
    {
        rects.rcSrc.X = fPosX / fZoom;
        rects.rcSrc.Width = fViewWidth / fZoom;
    }
    if (Truncate(fDestHeight) < Truncate(m_szZoomed.Height))
    {
        rects.rcSrc.Y = fPosY / fZoom;
        rects.rcSrc.Height = fViewHeight / fZoom;
    }
    return rects;
}

int CPixtane::DrawBitmap(CDC& dc, CRect& rcView)
{
    if (!m_iBmpWidth || !m_iBmpHeight || !m_pBmpData)
        return FALSE;
    m_BmpInfo.bmiHeader.biWidth = m_iBmpWidth;
    m_BmpInfo.bmiHeader.biHeight = m_iBmpHeight;
    const DrawRects rects = ComputeDrawRects(rcView);
    const BOOL bDrawn = m_bShowCover ? DrawCover(dc, rects) : DrawLiveBitmap(dc, rcView, rects);
    m_rcDrawDest = rects.rcDest;
    m_rcDrawSrc = rects.rcSrc;
    return bDrawn;
}

BOOL CPixtane::DrawLiveBitmap(CDC& dc, const CRect& rcView, const DrawRects& rects)
{
    if (m_pCachedDC && !m_bCacheDirty && rects.rcDest == m_rcDrawDest && rects.rcSrc.Equals(m_rcDrawSrc))
        return dc.BitBlt(0, 0, rcView.Width(), rcView.Height(), m_pCachedDC, 0, 0, SRCCOPY);

    const Gdiplus::RectF rcWhole(0, 0, static_cast<float>(m_iBmpWidth), static_cast<float>(m_iBmpHeight));
    BOOL bDrawn = FALSE;
    if (rects.rcSrc.Equals(rcWhole))
    {
        const CRect& rcDest = rects.rcDest;
        bDrawn = ::DrawDibDraw(m_hDrawDib, dc, rcDest.left, rcDest.top, rcDest.Width(), rcDest.Height(),
                               &m_BmpInfo.bmiHeader, m_pBmpData, 0, 0, m_iBmpWidth, m_iBmpHeight, 0);
    }
    else
    {
        Gdiplus::Graphics graphics(dc);
        graphics.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHalf);
        graphics.SetInterpolationMode(Gdiplus::InterpolationModeNearestNeighbor);
        const Gdiplus::RectF& rcSrc = rects.rcSrc;
        bDrawn = graphics.DrawImage(m_pGdipBitmap, rects.rcDestReal, rcSrc.X, rcSrc.Y, rcSrc.Width, rcSrc.Height,
                                    Gdiplus::UnitPixel) == Gdiplus::Ok;
    }
    RebuildCache(dc, rcView);
    return bDrawn;
}

BOOL CPixtane::DrawCover(CDC& dc, const DrawRects& rects)
{
    const CCoverLock lock(m_pcsCover);
    const std::optional<int> nBytes = DibByteCount(m_CoverBmpInfo.bmiHeader);
    if (!nBytes || m_vCoverBmpData.size() < static_cast<std::size_t>(*nBytes))
        return FALSE;
    const auto draw = [&](const CRect& rcDest, int xSrc, int ySrc, int cxSrc, int cySrc)
    {
        return ::DrawDibDraw(m_hDrawDib, dc, rcDest.left, rcDest.top, rcDest.Width(), rcDest.Height(),
                             &m_CoverBmpInfo.bmiHeader, m_vCoverBmpData.data(), xSrc, ySrc, cxSrc, cySrc, 0);
    };
    if (!m_bCoverImageCoords)
        return draw(m_rcCoverBmp, 0, 0, m_rcCoverBmp.Width(), m_rcCoverBmp.Height());

    // Whole source pixels around the visible part; those that stick out of the window are clipped there.
    const int x0 = FloorLike(rects.rcSrc.X);
    const int y0 = FloorLike(rects.rcSrc.Y);
    const int cxSrc = CeilingLike(rects.rcSrc.X + rects.rcSrc.Width) - x0;
    const int cySrc = CeilingLike(rects.rcSrc.Y + rects.rcSrc.Height) - y0;
    const float fZoom = static_cast<float>(m_dbZoom);
    const CPoint ptDest(RoundHalfAway(static_cast<float>(x0) * fZoom - static_cast<float>(m_ptDispPos.X)),
                        RoundHalfAway(static_cast<float>(y0) * fZoom - static_cast<float>(m_ptDispPos.Y)));
    const CSize szDest(RoundHalfAway(static_cast<float>(cxSrc) * fZoom),
                       RoundHalfAway(static_cast<float>(cySrc) * fZoom));
    return draw(CRect(ptDest, szDest), x0, y0, cxSrc, cySrc);
}

void CPixtane::RebuildCache(CDC& dc, const CRect& rcView)
{
    ReleaseCachedBitmap();
    m_pCachedDC = new CUXMemDC(dc, rcView.Width(), rcView.Height());
    m_pCachedDC->BitBlt(0, 0, rcView.Width(), rcView.Height(), &dc, 0, 0, SRCCOPY);
    m_bCacheDirty = FALSE;
}

void CPixtane::ReleaseCachedBitmap()
{
    if (m_pCachedDC)
    {
        m_pCachedDC->DeleteDC();
        delete m_pCachedDC;
        m_pCachedDC = nullptr;
    }
    m_bCacheDirty = TRUE;
}

} // namespace Pixtane
