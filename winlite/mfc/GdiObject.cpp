#include "mfc/GdiObject.h"

#include "base/StateLock.h"
#include "mfc/DC.h"

#include <memory>
#include <thread>
#include <unordered_map>
#include <utility>

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
    explicit CTemporary(HGDIOBJ hObject) { this->m_hObject = hObject; }
    ~CTemporary() override { this->m_hObject = nullptr; }
};

thread_local std::unordered_map<HGDIOBJ, std::unique_ptr<CGdiObject>> t_Temporaries;

/// The object that a handle is attached to. Only the thread that attached it may be given it.
struct Attached
{
    CGdiObject* pObject;
    std::thread::id thread;
};

/// Guarded by StateLock, because objects may end on another thread; never destroyed, since static ones end late.
std::unordered_map<HGDIOBJ, Attached>& AttachedObjects()
{
    static auto* pObjects = new std::unordered_map<HGDIOBJ, Attached>;
    return *pObjects;
}

CGdiObject* FindAttached(HGDIOBJ hObject)
{
    winlite::StateLock lock;
    const auto it = AttachedObjects().find(hObject);
    const bool bOfThisThread = it != AttachedObjects().end() && it->second.thread == std::this_thread::get_id();
    return bOfThisThread ? it->second.pObject : nullptr;
}

template<class T>
T* ObjectFor(HGDIOBJ hObject)
{
    if (!hObject)
        return nullptr;
    if (T* pAttached = dynamic_cast<T*>(FindAttached(hObject)))
        return pAttached;
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
    Detach();
    m_hObject = hObject;
    if (hObject)
    {
        winlite::StateLock lock;
        AttachedObjects()[hObject] = {this, std::this_thread::get_id()};
    }
    return hObject != nullptr;
}

HGDIOBJ CGdiObject::Detach()
{
    const HGDIOBJ hObject = std::exchange(m_hObject, nullptr);
    if (!hObject)
        return nullptr;
    winlite::StateLock lock;
    const auto it = AttachedObjects().find(hObject);
    if (it != AttachedObjects().end() && it->second.pObject == this)
        AttachedObjects().erase(it);
    return hObject;
}

BOOL CGdiObject::DeleteObject() { return m_hObject ? ::DeleteObject(Detach()) : FALSE; }

CBrush* CBrush::FromHandle(HBRUSH hBrush) { return ObjectFor<CBrush>(hBrush); }
CPen* CPen::FromHandle(HPEN hPen) { return ObjectFor<CPen>(hPen); }
CBitmap* CBitmap::FromHandle(HBITMAP hBitmap) { return ObjectFor<CBitmap>(hBitmap); }
CRgn* CRgn::FromHandle(HRGN hRgn) { return ObjectFor<CRgn>(hRgn); }

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
