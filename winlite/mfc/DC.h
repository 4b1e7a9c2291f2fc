#pragma once

#include "mfc/GdiObject.h"
#include "mfc/Geometry.h"
#include "user/User.h"

class CWnd;

/// A device context: the GDI functions as members. It deletes an attached memory device context when it is destroyed.
class CDC : public CObject
{
    DECLARE_DYNAMIC(CDC)

public:
    CDC() = default;
    ~CDC() override { DeleteDC(); }

    BOOL Attach(HDC hDC);
    HDC Detach();
    HDC GetSafeHdc() const { return m_hDC; }
    operator HDC() const { return m_hDC; }

    /// A memory device context like pDC's, or like the screen's for NULL.
    BOOL CreateCompatibleDC(CDC* pDC);
    BOOL DeleteDC();

    /// Each returns the object that was selected before, NULL on failure; for a region, which becomes the clip region,
    /// its complexity or ERROR.
    CBitmap* SelectObject(CBitmap* pBitmap);
    CBrush* SelectObject(CBrush* pBrush);
    CPen* SelectObject(CPen* pPen);
    int SelectObject(CRgn* pRgn);

    /// Selects a brush or pen of the system's and returns the object that was selected before; NULL for other numbers.
    CGdiObject* SelectStockObject(int iObject);
    int SelectClipRgn(CRgn* pRgn) { return ::SelectClipRgn(m_hDC, pRgn ? static_cast<HRGN>(*pRgn) : nullptr); }

    COLORREF SetBkColor(COLORREF cr) { return ::SetBkColor(m_hDC, cr); }
    COLORREF GetBkColor() const { return ::GetBkColor(m_hDC); }
    int SetBkMode(int iMode) { return ::SetBkMode(m_hDC, iMode); }
    int GetBkMode() const { return ::GetBkMode(m_hDC); }
    int SetROP2(int iRop2) { return ::SetROP2(m_hDC, iRop2); }
    int GetROP2() const { return ::GetROP2(m_hDC); }
    CPoint SetBrushOrg(int x, int y);

    void FillRect(LPCRECT prc, CBrush* pBrush) { ::FillRect(m_hDC, prc, *pBrush); }

    /// Fills the rectangle, and leaves the colour as the background colour.
    void FillSolidRect(LPCRECT prc, COLORREF cr);
    void FillSolidRect(int x, int y, int cx, int cy, COLORREF cr) { FillSolidRect(CRect(x, y, x + cx, y + cy), cr); }
    BOOL FillRgn(CRgn* pRgn, CBrush* pBrush) { return ::FillRgn(m_hDC, *pRgn, *pBrush); }

    /// Moves the current position and returns where it was.
    CPoint MoveTo(int x, int y);
    CPoint MoveTo(POINT pt) { return MoveTo(pt.x, pt.y); }
    BOOL LineTo(int x, int y) { return ::LineTo(m_hDC, x, y); }
    BOOL LineTo(POINT pt) { return LineTo(pt.x, pt.y); }
    BOOL Polyline(const POINT* pPoints, int nPoints) { return ::Polyline(m_hDC, pPoints, nPoints); }
    BOOL Rectangle(int l, int t, int r, int b) { return ::Rectangle(m_hDC, l, t, r, b); }
    BOOL Rectangle(LPCRECT prc) { return Rectangle(prc->left, prc->top, prc->right, prc->bottom); }
    BOOL Ellipse(int l, int t, int r, int b) { return ::Ellipse(m_hDC, l, t, r, b); }
    BOOL Ellipse(LPCRECT prc) { return Ellipse(prc->left, prc->top, prc->right, prc->bottom); }

    COLORREF GetPixel(int x, int y) const { return ::GetPixel(m_hDC, x, y); }
    BOOL BitBlt(int x, int y, int cx, int cy, CDC* pSrc, int xSrc, int ySrc, DWORD dwRop)
    {
        return ::BitBlt(m_hDC, x, y, cx, cy, pSrc->GetSafeHdc(), xSrc, ySrc, dwRop);
    }
    BOOL StretchBlt(int x, int y, int cx, int cy, CDC* pSrc, int xSrc, int ySrc, int cxSrc, int cySrc, DWORD dwRop)
    {
        return ::StretchBlt(m_hDC, x, y, cx, cy, pSrc->GetSafeHdc(), xSrc, ySrc, cxSrc, cySrc, dwRop);
    }
    BOOL TransparentBlt(int x, int y, int cx, int cy, CDC* pSrc, int xSrc, int ySrc, int cxSrc, int cySrc, UINT cr)
    {
        return ::TransparentBlt(m_hDC, x, y, cx, cy, pSrc->GetSafeHdc(), xSrc, ySrc, cxSrc, cySrc, cr);
    }

    HDC m_hDC = nullptr;
};

/// The device context of a window's client area (of the screen for a NULL window) while it lives. Throws
/// CResourceException when there is none to be had.
class CClientDC : public CDC
{
    DECLARE_DYNAMIC(CClientDC)

public:
    explicit CClientDC(CWnd* pWnd);
    ~CClientDC() override;

private:
    HWND m_hWnd;
};

/// BeginPaint and EndPaint around a WM_PAINT handler. Throws CResourceException when painting cannot begin.
class CPaintDC : public CDC
{
    DECLARE_DYNAMIC(CPaintDC)

public:
    explicit CPaintDC(CWnd* pWnd);
    ~CPaintDC() override;

    PAINTSTRUCT m_ps = {};

private:
    HWND m_hWnd;
};
