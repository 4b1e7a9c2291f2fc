#include "view/OutOfMemory.h"
#include "view/Pixtane.h"

namespace Pixtane
{

namespace
{

/// The rows of a memory device context's bitmap and its description; FALSE when they cannot be had in full.
BOOL ReadBits(CBitmap& bmp, std::vector<BYTE>& vData, BITMAP& bm)
{
    if (!bmp.GetBitmap(&bm))
        return FALSE;
    const DWORD nBytes = bmp.GetBitmapBits(0x7FFFFFFF, nullptr);
    if (!nBytes)
        return FALSE;
    try
    {
        vData.resize(nBytes);
    }
    catch (...)
    {
        RethrowUnlessOutOfMemory();
        return FALSE;
    }
    return bmp.GetBitmapBits(nBytes, vData.data()) == nBytes;
}

} // namespace

int CPixtane::GetCurDisplayImage(RECT* pRect, std::vector<BYTE>& vData, BITMAPINFO& info)
try
{
    if (!pRect || !m_pBmpData || !m_hWnd)
        return FALSE;
    CRect rcView(0, 0, 0, 0);
    GetClientRect(&rcView);
    CClientDC dcWindow(this);
    CUXMemDC dcView(dcWindow, rcView.Width(), rcView.Height());
    // The drawing becomes the cached rendering too: with the background around it, it is what a paint would have made.
    CBrush brBackground(m_crBackground);
    dcView.FillRect(&rcView, &brBackground);
    m_bCacheDirty = TRUE;
    const BOOL bDrawn = DrawBitmap(dcView, rcView);
    CRect rcShown(0, 0, 0, 0);
    rcShown.IntersectRect(m_rcDrawDest, rcView);
    if (!bDrawn || rcShown.IsRectEmpty())
        return FALSE;

    CUXMemDC dcShown(dcWindow, rcShown.Width(), rcShown.Height());
    if (!dcShown.StretchBlt(0, 0, rcShown.Width(), rcShown.Height(), &dcView, m_rcDrawDest.left,
                            m_rcDrawDest.bottom - 1, rcShown.Width(), -rcShown.Height(), SRCCOPY))
        return FALSE;
    BITMAP bm = {};
    if (!ReadBits(dcShown.GetBitmap(), vData, bm))
        return FALSE;
    info = m_BmpInfo;
    info.bmiHeader.biBitCount = bm.bmBitsPixel;
    info.bmiHeader.biWidth = bm.bmWidth;
    info.bmiHeader.biHeight = bm.bmHeight;
    info.bmiHeader.biSizeImage = static_cast<DWORD>(vData.size());
    *pRect = rcShown;
    return TRUE;
}
catch (CResourceException* pException)
{
    pException->Delete(); // No device context of the window was to be had.
    return FALSE;
}

DWORD CPixtane::GetPixelRGBValue(const POINT& pt, int bWindowCoords)
{
    if (!m_pBmpData || !m_hWnd)
        return m_crBackground;
    CPoint ptWindow = pt;
    if (bWindowCoords)
    {
        CRect rcView(0, 0, 0, 0);
        GetClientRect(&rcView);
        if (!rcView.PtInRect(pt))
            return m_crBackground;
    }
    else
    {
        if (pt.x < 0 || pt.x >= m_iBmpWidth || pt.y < 0 || pt.y >= m_iBmpHeight)
            return m_crBackground;
        FromBitmapToWnd(ptWindow);
    }
    CClientDC dc(this);
    return dc.GetPixel(ptWindow.x, ptWindow.y);
}

} // namespace Pixtane
