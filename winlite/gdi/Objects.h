#pragma once

#include "base/HandleTable.h"
#include "gdi/Gdi.h"
#include "gdi/Region.h"
#include "gdi/Surface.h"

#include <optional>

namespace winlite
{

/// A GDI object behind a handle. Stock objects refuse to be deleted.
class GdiObject : public HandleObject
{
public:
    bool bStock = false;
};

class BitmapObject : public GdiObject
{
public:
    std::shared_ptr<Surface> pSurface;
    int iBitsPixel = 32;  ///< 32, or 1 for what CreateCompatibleBitmap makes from a fresh memory DC.
    HDC hSelectedIn = {}; ///< The one memory DC it is selected into.
};

class BrushObject : public GdiObject
{
public:
    std::optional<COLORREF> crSolid;   ///< A solid brush; neither this nor a pattern: the null brush.
    std::shared_ptr<Surface> pPattern; ///< A tile, with a copy of the bitmap's pixels.
};

class PenObject : public GdiObject
{
public:
    int iStyle = PS_SOLID;
    int iWidth = 1;
    COLORREF cr = 0;
};

class RegionObject : public GdiObject
{
public:
    Region rgn;
};

/// 0x00RRGGBB of a surface from 0x00BBGGRR, and back.
constexpr std::uint32_t PixelFromColorRef(COLORREF cr) { return (cr & 0xFF) << 16 | (cr & 0xFF00) | (cr >> 16 & 0xFF); }
constexpr COLORREF ColorRefFromPixel(std::uint32_t uPixel) { return PixelFromColorRef(uPixel); }

} // namespace winlite
