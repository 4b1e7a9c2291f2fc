#include "mfc/GdiObject.h"

#include "mfc/DC.h"

#include <memory>
#include <unordered_map>

IMPLEMENT_DYNAMIC(CGdiObject, CObject)
IMPLEMENT_DYNAMIC(CBrush, CGdiObject)
IMPLEMENT_DYNAMIC(CPen, CGdiObject)
IMPLEMENT_DYNAMIC(CBitmap, CGdiObject)
IMPLEMENT_DYNAMIC(CRgn, CGdiObject)

namespace
{

/// A CBrush, CPen ... around a handle that somebody else owns.
template<class T>
class CTemporary : public T
{
public:
    explicit CTemporary(HGDIOBJ hObject) { this->Attach(hObject); }
    ~CTemporary() override { this->Detach(); }
};

thread_local std::unordered_map<HGDIOBJ, std::unique_ptr<CGdiObject>> t_Temporaries;

template<class T>
T* TemporaryFor(HGDIOBJ hObject)
{
    if (!hObject)
        return nullptr;
    std::unique_ptr<CGdiObject>& pObject = t_Temporaries[hObject];
    if (!pObject)
        pObject = std::make_unique<CTemporary<T>>(hObject);
    return static_cast<T*>(pObject.get());
}

} // namespace

namespace winlite
{
void DeleteTemporaryGdiObjects() { t_Temporaries.clear(); }
} // namespace winlite

BOOL CGdiObject::Attach(HGDIOBJ hObject)
{
    m_hObject = hObject;
    return hObject != nullptr;
}

HGDIOBJ CGdiObject::Detach()
{
    const HGDIOBJ hObject = m_hObject;
    m_hObject = nullptr;
    return hObject;
}

BOOL CGdiObject::DeleteObject() { return m_hObject ? ::DeleteObject(Detach()) : FALSE; }

CBrush* CBrush::FromHandle(HBRUSH hBrush) { return TemporaryFor<CBrush>(hBrush); }
CPen* CPen::FromHandle(HPEN hPen) { return TemporaryFor<CPen>(hPen); }
CBitmap* CBitmap::FromHandle(HBITMAP hBitmap) { return TemporaryFor<CBitmap>(hBitmap); }
CRgn* CRgn::FromHandle(HRGN hRgn) { return TemporaryFor<CRgn>(hRgn); }

BOOL CBrush::CreatePatternBrush(CBitmap* pBitmap)
{
    return Attach(::CreatePatternBrush(static_cast<HBITMAP>(SafeHandleOf(pBitmap))));
}

BOOL CBitmap::CreateCompatibleBitmap(CDC* pDC, int cx, int cy)
{
    return Attach(::CreateCompatibleBitmap(pDC->GetSafeHdc(), cx, cy));
}

DWORD CBitmap::GetBitmapBits(DWORD nBytes, LPVOID pBits) const
{
    return static_cast<DWORD>(::GetBitmapBits(*this, static_cast<LONG>(nBytes), pBits));
}

BOOL CRgn::CreatePolygonRgn(const POINT* pPoints, int nPoints, int iMode)
{
    return Attach(::CreatePolygonRgn(pPoints, nPoints, iMode));
}

BOOL CRgn::CreateFromData(const XFORM* pxForm, int nBytes, const RGNDATA* pData)
{
    return Attach(::ExtCreateRegion(pxForm, static_cast<DWORD>(nBytes), pData));
}

int CRgn::CombineRgn(const CRgn* pSrc1, const CRgn* pSrc2, int iMode)
{
    return ::CombineRgn(*this, HandleOf(pSrc1), HandleOf(pSrc2), iMode);
}

int CRgn::GetRgnBox(LPRECT prc) const
{
    *prc = RECT{};
    return ::GetRgnBox(*this, prc);
}

int CRgn::GetRegionData(RGNDATA* pData, int nBytes) const
{
    return static_cast<int>(::GetRegionData(*this, static_cast<DWORD>(nBytes), pData));
}
