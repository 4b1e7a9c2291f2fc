#pragma once

#include "gdi/DeviceContext.h"

namespace winlite
{

/// The object of an HRGN, HBRUSH, HBITMAP or HDC; empty when the handle is of another kind or not open.
template<class T, class H>
std::shared_ptr<T> FindTyped(H h)
{
    return FindHandleAs<T>(static_cast<HANDLE>(h));
}

/// Enters the object and returns its handle as an HRGN, HBRUSH, HBITMAP or HDC.
template<class H>
H OpenTyped(std::shared_ptr<HandleObject> pObject)
{
    return reinterpret_cast<H>(OpenHandle(std::move(pObject)));
}

inline std::shared_ptr<DeviceContext> FindDC(HDC hDC) { return FindTyped<DeviceContext>(hDC); }
inline std::shared_ptr<RegionObject> FindRegion(HRGN hRgn) { return FindTyped<RegionObject>(hRgn); }
inline std::shared_ptr<BitmapObject> FindBitmap(HBITMAP hBitmap) { return FindTyped<BitmapObject>(hBitmap); }
inline std::shared_ptr<BrushObject> FindBrush(HBRUSH hBrush) { return FindTyped<BrushObject>(hBrush); }

/// A new handle for the region.
HRGN OpenRegion(Region rgn);

/// The 1 x 1 monochrome bitmap that every fresh memory device context holds.
HBITMAP StockBitmap();

} // namespace winlite
