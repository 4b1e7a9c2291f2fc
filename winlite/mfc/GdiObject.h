#pragma once

#include "gdi/Gdi.h"
#include "mfc/Object.h"

class CDC;

/// An object that owns a GDI handle: it deletes what it still holds when it is destroyed. FromHandle and
/// CDC::SelectObject give the object that this thread attached the handle to; when there is none a temporary one, which
/// owns nothing and lives until the message loop is idle.
class CGdiObject : public CObject
{
    DECLARE_DYNAMIC(CGdiObject)

public:
    ~CGdiObject() override { DeleteObject(); }

    /// Takes a handle over; FALSE for NULL, which leaves the object without one. A handle it had before is lost.
    BOOL Attach(HGDIOBJ hObject);
    HGDIOBJ Detach();

    /// Deletes the handle, after which the object has none; FALSE when there was none or it cannot be deleted.
    BOOL DeleteObject();

    /// The handle; NULL without one, and for a NULL object.
    static HGDIOBJ SafeHandleOf(const CGdiObject* pObject) { return pObject ? pObject->m_hObject : nullptr; }
    HGDIOBJ GetSafeHandle() const { return m_hObject; }

    HGDIOBJ m_hObject = nullptr;
};

class CBrush : public CGdiObject
{
    DECLARE_DYNAMIC(CBrush)

public:
    CBrush() = default;
    explicit CBrush(COLORREF cr) { CreateSolidBrush(cr); }
    BOOL CreateSolidBrush(COLORREF cr) { return Attach(::CreateSolidBrush(cr)); }
    BOOL CreatePatternBrush(class CBitmap* pBitmap);
    operator HBRUSH() const { return static_cast<HBRUSH>(m_hObject); }
    static CBrush* FromHandle(HBRUSH hBrush);
};

class CPen : public CGdiObject
{
    DECLARE_DYNAMIC(CPen)

public:
    CPen() = default;
    CPen(int iStyle, int iWidth, COLORREF cr) { CreatePen(iStyle, iWidth, cr); }
    BOOL CreatePen(int iStyle, int iWidth, COLORREF cr) { return Attach(::CreatePen(iStyle, iWidth, cr)); }
    operator HPEN() const { return static_cast<HPEN>(m_hObject); }
    static CPen* FromHandle(HPEN hPen);
};

class CBitmap : public CGdiObject
{
    DECLARE_DYNAMIC(CBitmap)

public:
    BOOL CreateCompatibleBitmap(CDC* pDC, int cx, int cy);

    /// The bitmap's description; 0 on failure.
    int GetBitmap(BITMAP* pBitmap) const { return ::GetObject(m_hObject, sizeof(BITMAP), pBitmap); }

    /// Rows from the top; the bytes copied.
    DWORD GetBitmapBits(DWORD nBytes, LPVOID pBits) const;
    operator HBITMAP() const { return static_cast<HBITMAP>(m_hObject); }
    static CBitmap* FromHandle(HBITMAP hBitmap);
};

/// A region. Operations on an object without a handle fail with 0 (ERROR); a destination is never created for the
/// caller.
class CRgn : public CGdiObject
{
    DECLARE_DYNAMIC(CRgn)

public:
    BOOL CreateRectRgn(int l, int t, int r, int b) { return Attach(::CreateRectRgn(l, t, r, b)); }
    BOOL CreateRectRgnIndirect(LPCRECT prc) { return Attach(::CreateRectRgnIndirect(prc)); }
    BOOL CreateEllipticRgn(int l, int t, int r, int b) { return Attach(::CreateEllipticRgn(l, t, r, b)); }
    BOOL CreateEllipticRgnIndirect(LPCRECT prc) { return Attach(::CreateEllipticRgnIndirect(prc)); }
    BOOL CreatePolygonRgn(const POINT* pPoints, int nPoints, int iMode);
    BOOL CreateFromData(const XFORM* pxForm, int nBytes, const RGNDATA* pData);
    BOOL SetRectRgn(int l, int t, int r, int b) { return ::SetRectRgn(*this, l, t, r, b); }
    int CombineRgn(const CRgn* pSrc1, const CRgn* pSrc2, int iMode);
    int CopyRgn(const CRgn* pSrc) { return CombineRgn(pSrc, nullptr, RGN_COPY); }
    BOOL EqualRgn(const CRgn* pOther) const { return ::EqualRgn(*this, HandleOf(pOther)); }
    int OffsetRgn(int dx, int dy) { return ::OffsetRgn(*this, dx, dy); }

    /// All 0 without a handle.
    int GetRgnBox(LPRECT prc) const;
    BOOL PtInRegion(POINT pt) const { return ::PtInRegion(*this, pt.x, pt.y); }
    BOOL RectInRegion(LPCRECT prc) const { return ::RectInRegion(*this, prc); }
    int GetRegionData(RGNDATA* pData, int nBytes) const;
    operator HRGN() const { return static_cast<HRGN>(m_hObject); }
    static CRgn* FromHandle(HRGN hRgn);

private:
    static HRGN HandleOf(const CRgn* pRgn) { return static_cast<HRGN>(SafeHandleOf(pRgn)); }
};

namespace winlite
{
/// Ends the temporary GDI objects of this thread; the message loop calls it when it is idle.
void DeleteTemporaryGdiObjects();
} // namespace winlite
