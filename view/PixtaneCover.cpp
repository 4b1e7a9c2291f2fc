#include "view/CoverLock.h"
#include "view/Pixtane.h"

namespace Pixtane
{

int CPixtane::EnterPreviewMode()
{
    if (!m_pBmpData || m_bShowCover || m_bCoverKept || !m_hWnd)
        return FALSE;
    CRect rcView(0, 0, 0, 0);
    GetClientRect(&rcView);
    CRect rcShown(0, 0, 0, 0);
    rcShown.IntersectRect(m_rcDrawDest, rcView);
    {
        CClientDC dc(this);
        m_bCacheDirty = TRUE;
        DrawBitmap(dc, rcView);
        CUXMemDC dcSnapshot(dc, rcShown.Width(), rcShown.Height());
        // Bottom-up, as bitmaps are: the copy stands on its head.
        dcSnapshot.StretchBlt(0, rcShown.Height() - 1, rcShown.Width(), -rcShown.Height(), &dc, m_rcDrawDest.left,
                              m_rcDrawDest.top, rcShown.Width(), rcShown.Height(), SRCCOPY);
        KeepSnapshot(dcSnapshot);
    }
    m_rcCoverBmp = rcShown;
    ShowCoverImage(TRUE, FALSE);
    return TRUE;
}

void CPixtane::KeepSnapshot(CUXMemDC& dc)
{
    const CCoverLock lock(m_pcsCover);
    BITMAP bm = {};
    dc.GetBitmap().GetBitmap(&bm);
    BITMAPINFOHEADER& header = m_CoverBmpInfo.bmiHeader;
    header.biSize = sizeof(BITMAPINFOHEADER);
    header.biWidth = bm.bmWidth;
    header.biHeight = bm.bmHeight;
    header.biPlanes = 1;
    header.biBitCount = bm.bmBitsPixel;
    header.biSizeImage = static_cast<DWORD>(bm.bmWidthBytes * bm.bmHeight);
    m_vCoverBmpData.resize(header.biSizeImage);
    dc.GetBitmap().GetBitmapBits(header.biSizeImage, m_vCoverBmpData.data());
}

void CPixtane::ExitPreviewMode() { ShowCoverImage(FALSE, FALSE); }

void CPixtane::ShowCoverImage(int bShow, int bImageCoords)
{
    m_bShowCover = bShow;
    m_bCoverImageCoords = bImageCoords;
    m_bCacheDirty = TRUE;
    Invalidate(FALSE);
}

} // namespace Pixtane
