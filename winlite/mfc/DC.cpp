#include "mfc/DC.h"

#include "mfc/Exception.h"
#include "mfc/Wnd.h"

IMPLEMENT_DYNAMIC(CDC, CObject)
IMPLEMENT_DYNAMIC(CClientDC, CDC)
IMPLEMENT_DYNAMIC(CPaintDC, CDC)

BOOL CDC::Attach(HDC hDC)
{
    m_hDC = hDC;
    return hDC != nullptr;
}

HDC CDC::Detach()
{
    const HDC hDC = m_hDC;
    m_hDC = nullptr;
    return hDC;
}

BOOL CDC::CreateCompatibleDC(CDC* pDC) { return Attach(::CreateCompatibleDC(pDC ? pDC->GetSafeHdc() : nullptr)); }

BOOL CDC::DeleteDC() { return m_hDC ? ::DeleteDC(Detach()) : FALSE; }

CBitmap* CDC::SelectObject(CBitmap* pBitmap)
{
    return CBitmap::FromHandle(static_cast<HBITMAP>(::SelectObject(m_hDC, CGdiObject::SafeHandleOf(pBitmap))));
}

CBrush* CDC::SelectObject(CBrush* pBrush)
{
    return CBrush::FromHandle(static_cast<HBRUSH>(::SelectObject(m_hDC, CGdiObject::SafeHandleOf(pBrush))));
}

CPen* CDC::SelectObject(CPen* pPen)
{
    return CPen::FromHandle(static_cast<HPEN>(::SelectObject(m_hDC, CGdiObject::SafeHandleOf(pPen))));
}

int CDC::SelectObject(CRgn* pRgn)
{
    return static_cast<int>(reinterpret_cast<INT_PTR>(::SelectObject(m_hDC, CGdiObject::SafeHandleOf(pRgn))));
}

CGdiObject* CDC::SelectStockObject(int iObject)
{
    const HGDIOBJ hOld = ::SelectObject(m_hDC, ::GetStockObject(iObject));
    const bool bPen = iObject == WHITE_PEN || iObject == BLACK_PEN || iObject == NULL_PEN;
    if (bPen)
        return CPen::FromHandle(static_cast<HPEN>(hOld));
    return CBrush::FromHandle(static_cast<HBRUSH>(hOld));
}

void CDC::FillSolidRect(LPCRECT prc, COLORREF cr)
{
    SetBkColor(cr);
    CBrush br(cr);
    FillRect(prc, &br);
}

CPoint CDC::MoveTo(int x, int y)
{
    CPoint ptOld;
    ::MoveToEx(m_hDC, x, y, &ptOld);
    return ptOld;
}

CPoint CDC::SetBrushOrg(int x, int y)
{
    CPoint ptOld;
    ::SetBrushOrgEx(m_hDC, x, y, &ptOld);
    return ptOld;
}

CClientDC::CClientDC(CWnd* pWnd) : m_hWnd(pWnd ? pWnd->m_hWnd : nullptr)
{
    if ((pWnd && !m_hWnd) || !Attach(::GetDC(m_hWnd)))
        AfxThrowResourceException();
}

CClientDC::~CClientDC() { ::ReleaseDC(m_hWnd, Detach()); }

CPaintDC::CPaintDC(CWnd* pWnd) : m_hWnd(pWnd->m_hWnd)
{
    if (!Attach(::BeginPaint(m_hWnd, &m_ps)))
        AfxThrowResourceException();
}

CPaintDC::~CPaintDC()
{
    Detach();
    ::EndPaint(m_hWnd, &m_ps);
}
