#include "gdiplus/Painting.h"

#include "gdi/RectMath.h"

namespace winlite
{

namespace
{

constexpr std::uint32_t RGB_BITS = 0xFFFFFF;

/// The product of two fractions of 255, rounded.
std::uint32_t Scaled(std::uint32_t uOne, std::uint32_t uOther) { return (uOne * uOther + 127) / 255; }

/// Lays uPaint over uBelow; an opacity of 0 leaves it alone.
std::uint32_t Blended(std::uint32_t uBelow, std::uint32_t uPaint, std::uint32_t uOpacity)
{
    std::uint32_t uResult = uBelow & ~RGB_BITS;
    for (int nShift = 0; nShift < 24; nShift += 8)
    {
        const std::uint32_t uSum = (uPaint >> nShift & 255) * uOpacity + (uBelow >> nShift & 255) * (255 - uOpacity);
        uResult |= (uSum + 127) / 255 << nShift;
    }
    return uResult;
}

template<class OpacityAt>
void BlendRect(Surface& surface, const RECT& rc, std::uint32_t uPaint, const OpacityAt& opacityAt)
{
    std::uint32_t* pPixels = surface.PixelsForUpdate();
    for (int y = rc.top; y < rc.bottom; ++y)
        for (int x = rc.left; x < rc.right; ++x)
            if (const std::uint32_t uOpacity = opacityAt(x, y))
            {
                std::uint32_t& uPixel = pPixels[y * surface.Stride() + x];
                uPixel = uOpacity == 255 ? uPaint : Blended(uPixel, uPaint, uOpacity);
            }
}

} // namespace

void PaintRegion(const DeviceContext& dc, Region rgn, const Gdiplus::Color& color)
{
    const std::uint32_t uAlpha = color.GetA();
    if (uAlpha == 0)
        return;
    rgn &= dc.Clip();
    for (const RECT& rc : rgn.Rects())
    {
        if (uAlpha == 255)
            dc.Target().Fill(rc, color.GetValue() & RGB_BITS);
        else
            BlendRect(dc.Target(), rc, color.GetValue() & RGB_BITS, [uAlpha](int, int) { return uAlpha; });
    }
    dc.ReportDamage(rgn);
}

void PaintMask(const DeviceContext& dc, const CoverageMask& mask, POINT ptSurface, const Gdiplus::Color& color)
{
    const std::uint32_t uAlpha = color.GetA();
    const RECT rcBox = {Saturated(std::int64_t{mask.rcBox.left} + ptSurface.x),
                        Saturated(std::int64_t{mask.rcBox.top} + ptSurface.y),
                        Saturated(std::int64_t{mask.rcBox.right} + ptSurface.x),
                        Saturated(std::int64_t{mask.rcBox.bottom} + ptSurface.y)};
    if (uAlpha == 0 || !HasArea(rcBox))
        return;
    const std::ptrdiff_t nStride = mask.rcBox.right - mask.rcBox.left;
    const auto opacityAt = [&](int x, int y)
    {
        const std::ptrdiff_t iPixel = (y - rcBox.top) * nStride + (x - rcBox.left);
        return Scaled(mask.vCoverage[static_cast<std::size_t>(iPixel)], uAlpha);
    };
    const Region rgnDrawn = dc.Clip() & rcBox;
    for (const RECT& rc : rgnDrawn.Rects())
        BlendRect(dc.Target(), rc, color.GetValue() & RGB_BITS, opacityAt);
    dc.ReportDamage(rgnDrawn);
}

} // namespace winlite
