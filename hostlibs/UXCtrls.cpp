#include "platform/uxctrls.h"

IMPLEMENT_DYNAMIC(CUXWnd, CWnd)

BEGIN_MESSAGE_MAP(CUXWnd, CWnd)
END_MESSAGE_MAP()

CUXMemDC::CUXMemDC(CDC& dc, int cx, int cy)
{
    CreateCompatibleDC(&dc);
    if (m_bmp.CreateCompatibleBitmap(&dc, cx, cy))
        m_hOldBitmap = static_cast<HBITMAP>(::SelectObject(m_hDC, m_bmp));
}

CUXMemDC::~CUXMemDC() { DeleteDC(); }

BOOL CUXMemDC::DeleteDC()
{
    // The handle is kept rather than an object, because SelectObject's is gone at the next idle time.
    if (m_hOldBitmap)
        ::SelectObject(m_hDC, m_hOldBitmap);
    m_hOldBitmap = nullptr;
    m_bmp.DeleteObject();
    return CDC::DeleteDC();
}
