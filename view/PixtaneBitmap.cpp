#include "view/DibSize.h"
#include "view/OutOfMemory.h"
#include "view/Pixtane.h"

#include <cstring>
#include <memory>

namespace Pixtane
{

namespace
{

bool SameHeader(const BITMAPINFO& a, const BITMAPINFO& b) { return std::memcmp(&a, &b, sizeof(BITMAPINFO)) == 0; }

} // namespace

bool CPixtane::IsAcceptable(const BITMAPINFO& info, const BYTE* pData) const
{
    return m_hWnd && pData && info.bmiHeader.biSizeImage % 4 == 0 && DibByteCount(info.bmiHeader);
}

int CPixtane::SetBitmap(BITMAPINFO& info, BYTE* const pData)
try
{
    if (!IsAcceptable(info, pData))
        return FALSE;
    ClearBitmap(FALSE);
    m_hDrawDib = ::DrawDibOpen();
    if (!m_hDrawDib)
        return FALSE;
    m_iBmpWidth = info.bmiHeader.biWidth;
    m_iBmpHeight = info.bmiHeader.biHeight;
    std::memcpy(&m_BmpInfo, &info, sizeof(BITMAPINFO));
    m_pBmpData = pData;
    m_pGdipBitmap = new Gdiplus::Bitmap(&info, pData);
    if (!m_bNoSelectMask)
    {
        m_iSelectMaskSize = m_iBmpWidth * m_iBmpHeight;
        m_vSelectMask.resize(m_iSelectMaskSize);
        m_vSelectMask_Cur.resize(m_iSelectMaskSize);
    }
    m_rgnBitmap.CreateRectRgn(0, 0, m_iBmpWidth, m_iBmpHeight);
    SetZoom(m_dbZoom);
    return TRUE;
}
catch (...)
{
    // The host, which heard of no success, may free its pixels.
    ClearBitmap(TRUE);
    RethrowUnlessOutOfMemory();
    return FALSE;
}

int CPixtane::UpdateBitmap(BITMAPINFO& info, BYTE* const pData, int bContentChanged)
{
    if (!IsAcceptable(info, pData))
        return FALSE;
    if (!SameHeader(info, m_BmpInfo))
        return SetBitmap(info, pData);
    if (pData != m_pBmpData)
    {
        auto pGdipBitmap = std::make_unique<Gdiplus::Bitmap>(&info, pData);
        m_pBmpData = pData;
        delete m_pGdipBitmap;
        m_pGdipBitmap = pGdipBitmap.release();
        m_bCacheDirty = TRUE;
    }
    else if (bContentChanged)
    {
        m_bCacheDirty = TRUE;
    }
    Invalidate(FALSE);
    return TRUE;
}

BYTE* CPixtane::GetBitmap(BITMAPINFO& info) const
{
    info = m_BmpInfo;
    return m_pBmpData;
}

void CPixtane::ClearBitmap(int bRedraw)
{
    ClearSelection();
    ReleaseCachedBitmap();
    ForgetSelectMasks();
    ResetBitmapFields();
    if (m_hWnd)
    {
        HideScrollBars();
        if (bRedraw)
        {
            Invalidate(FALSE);
            UpdateWindow();
        }
    }
    m_bHScrollShown = FALSE;
    m_bVScrollShown = FALSE;
    if (m_hDrawDib)
        ::DrawDibClose(m_hDrawDib);
    m_hDrawDib = nullptr;
}

void CPixtane::ForgetSelectMasks()
{
    // Moved away rather than cleared, which would keep the memory.
    std::vector<BYTE>().swap(m_vSelectMask);
    std::vector<BYTE>().swap(m_vSelectMask_Cur);
    m_iSelectMaskSize = 0;
}

void CPixtane::ResetBitmapFields()
{
    m_rcDrawDest.SetRectEmpty();
    m_rcDrawSrc = {};
    m_szZoomed = {};
    m_BmpInfo = {};
    m_iBmpWidth = 0;
    m_iBmpHeight = 0;
    m_pBmpData = nullptr;
    delete m_pGdipBitmap;
    m_pGdipBitmap = nullptr;
    m_rgnBitmap.DeleteObject();
    m_ptDispPos = {};
}

} // namespace Pixtane
