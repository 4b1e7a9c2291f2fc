#include "gdi/Handles.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

using namespace winlite;

namespace
{

// Wide enough for any drawing, and coordinates with it still fit.
constexpr int MOST_PEN_WIDTH = 0x7FFF;

template<class T>
HANDLE OpenStock(std::shared_ptr<T> pObject)
{
    pObject->bStock = true;
    const HANDLE h = OpenHandle(std::move(pObject));
    DoNotCountHandle(h);
    return h;
}

HANDLE StockBrush(std::optional<COLORREF> crSolid)
{
    auto pBrush = std::make_shared<BrushObject>();
    pBrush->crSolid = crSolid;
    return OpenStock(std::move(pBrush));
}

std::shared_ptr<PenObject> NewPen(int iStyle, int iWidth, COLORREF cr)
{
    auto pPen = std::make_shared<PenObject>();
    pPen->iStyle = iStyle;
    pPen->iWidth = std::max(iWidth, 1);
    pPen->cr = cr;
    return pPen;
}

HGDIOBJ SelectBitmap(HDC hDC, DeviceContext& dc, HBITMAP hBitmap, BitmapObject& bitmap)
{
    const bool bUsedElsewhere = bitmap.hSelectedIn && bitmap.hSelectedIn != hDC;
    if (!dc.IsMemory() || bUsedElsewhere)
        return nullptr;
    if (const auto pOld = FindBitmap(dc.hBitmap))
        pOld->hSelectedIn = nullptr;
    if (!bitmap.bStock)
        bitmap.hSelectedIn = hDC;
    dc.SetTarget(bitmap.pSurface);
    return std::exchange(dc.hBitmap, hBitmap);
}

} // namespace

HBITMAP winlite::StockBitmap()
{
    static const HANDLE hBitmap = []
    {
        auto pBitmap = std::make_shared<BitmapObject>();
        pBitmap->pSurface = std::make_shared<Surface>(1, 1);
        pBitmap->iBitsPixel = 1;
        return OpenStock(std::move(pBitmap));
    }();
    return static_cast<HBITMAP>(hBitmap);
}

HGDIOBJ GetStockObject(int iObject)
{
    static const HANDLE hWhiteBrush = StockBrush(RGB(255, 255, 255));
    static const HANDLE hBlackBrush = StockBrush(RGB(0, 0, 0));
    static const HANDLE hNullBrush = StockBrush(std::nullopt);
    static const HANDLE hWhitePen = OpenStock(NewPen(PS_SOLID, 1, RGB(255, 255, 255)));
    static const HANDLE hBlackPen = OpenStock(NewPen(PS_SOLID, 1, RGB(0, 0, 0)));
    static const HANDLE hNullPen = OpenStock(NewPen(PS_NULL, 1, RGB(0, 0, 0)));
    switch (iObject)
    {
    case WHITE_BRUSH:
        return hWhiteBrush;
    case BLACK_BRUSH:
        return hBlackBrush;
    case NULL_BRUSH:
        return hNullBrush;
    case WHITE_PEN:
        return hWhitePen;
    case BLACK_PEN:
        return hBlackPen;
    case NULL_PEN:
        return hNullPen;
    default:
        return nullptr;
    }
}

HPEN CreatePen(int iStyle, int iWidth, COLORREF cr)
{
    const bool bKnown = iStyle >= PS_SOLID && iStyle <= PS_NULL;
    return bKnown && iWidth <= MOST_PEN_WIDTH ? OpenTyped<HPEN>(NewPen(iStyle, iWidth, cr)) : nullptr;
}

HBRUSH CreateSolidBrush(COLORREF cr)
{
    auto pBrush = std::make_shared<BrushObject>();
    pBrush->crSolid = cr;
    return OpenTyped<HBRUSH>(std::move(pBrush));
}

HBRUSH CreatePatternBrush(HBITMAP hBitmap)
try
{
    const auto pBitmap = FindBitmap(hBitmap);
    if (!pBitmap)
        return nullptr;
    const Surface& surface = *pBitmap->pSurface;
    auto pBrush = std::make_shared<BrushObject>();
    pBrush->pPattern = std::make_shared<Surface>(surface.Width(), surface.Height());
    std::memcpy(pBrush->pPattern->PixelsForOverwrite(surface.Bounds()), surface.Pixels(),
                surface.Stride() * surface.Height() * sizeof(std::uint32_t));
    return OpenTyped<HBRUSH>(std::move(pBrush));
}
catch (const std::bad_alloc&)
{
    return nullptr;
}

BOOL DeleteObject(HGDIOBJ hObject)
{
    const auto pObject = FindHandleAs<GdiObject>(hObject);
    if (!pObject)
        return FALSE;
    if (pObject->bStock)
        return TRUE;
    const auto pBitmap = std::dynamic_pointer_cast<BitmapObject>(pObject);
    if (pBitmap && pBitmap->hSelectedIn)
        return FALSE;
    // A device context that has a brush or pen selected keeps the object itself.
    CloseHandleEntry(hObject);
    return TRUE;
}

int GetObject(HGDIOBJ hObject, int nBytes, LPVOID pBuffer)
{
    constexpr int BITMAP_BYTES = sizeof(BITMAP);
    const auto pBitmap = FindHandleAs<BitmapObject>(hObject);
    if (!pBitmap)
        return 0;
    if (!pBuffer)
        return BITMAP_BYTES;
    if (nBytes < BITMAP_BYTES)
        return 0;
    const Surface& surface = *pBitmap->pSurface;
    // Rows end on a 16-bit word.
    const LONG nRowBytes = pBitmap->iBitsPixel == 32 ? surface.Width() * 4 : (surface.Width() + 15) / 16 * 2;
    const BITMAP bitmap = {
        0, surface.Width(), surface.Height(), nRowBytes, 1, static_cast<WORD>(pBitmap->iBitsPixel), nullptr};
    std::memcpy(pBuffer, &bitmap, sizeof bitmap);
    return BITMAP_BYTES;
}

HGDIOBJ SelectObject(HDC hDC, HGDIOBJ hObject)
{
    const auto pDC = FindDC(hDC);
    const auto pObject = FindHandleAs<GdiObject>(hObject);
    if (!pDC || !pObject)
        return nullptr;
    if (std::dynamic_pointer_cast<RegionObject>(pObject))
        return reinterpret_cast<HGDIOBJ>(static_cast<UINT_PTR>(::SelectClipRgn(hDC, static_cast<HRGN>(hObject))));
    if (auto pBitmap = std::dynamic_pointer_cast<BitmapObject>(pObject))
        return SelectBitmap(hDC, *pDC, static_cast<HBITMAP>(hObject), *pBitmap);
    if (auto pBrush = std::dynamic_pointer_cast<BrushObject>(pObject))
    {
        pDC->pBrush = std::move(pBrush);
        return std::exchange(pDC->hBrush, static_cast<HBRUSH>(hObject));
    }
    if (auto pPen = std::dynamic_pointer_cast<PenObject>(pObject))
    {
        pDC->pPen = std::move(pPen);
        return std::exchange(pDC->hPen, static_cast<HPEN>(hObject));
    }
    return nullptr;
}
