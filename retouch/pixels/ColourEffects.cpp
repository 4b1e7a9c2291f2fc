#include "pixels/Effects.h"

#include <cmath>

// Effects that look at one pixel alone.

namespace
{

enum Channel
{
    BLUE,
    GREEN,
    RED,
    PIXEL_BYTES = 4,
};

std::uint8_t Byte(float fValue) { return static_cast<std::uint8_t>(std::clamp(std::lround(fValue), 0L, 255L)); }

template<class F>
void ForEachPixel(const PixelView& picture, const PixelRect& rect, F change)
{
    const PixelRect inside = rect.Within(picture);
    for (int y = inside.top; y < inside.bottom; ++y)
    {
        std::uint8_t* const pRow = picture.Row(y);
        for (int x = inside.left; x < inside.right; ++x)
            change(pRow + std::ptrdiff_t{x} * PIXEL_BYTES);
    }
}

} // namespace

void Saturate(PixelView picture, PixelRect rect)
{
    constexpr float SHARE = 1.4F;
    ForEachPixel(picture, rect,
                 [](std::uint8_t* pPixel)
                 {
                     const float fLuma = 0.299F * static_cast<float>(pPixel[RED]) +
                                         0.587F * static_cast<float>(pPixel[GREEN]) +
                                         0.114F * static_cast<float>(pPixel[BLUE]);
                     for (const Channel channel : {BLUE, GREEN, RED})
                         pPixel[channel] = Byte(fLuma + SHARE * (static_cast<float>(pPixel[channel]) - fLuma));
                 });
}

void Warm(PixelView picture, PixelRect rect)
{
    constexpr float MORE = 1.08F;
    constexpr float LESS = 0.86F;
    ForEachPixel(picture, rect,
                 [](std::uint8_t* pPixel)
                 {
                     pPixel[RED] = Byte(static_cast<float>(pPixel[RED]) * MORE);
                     pPixel[BLUE] = Byte(static_cast<float>(pPixel[BLUE]) * LESS);
                 });
}
