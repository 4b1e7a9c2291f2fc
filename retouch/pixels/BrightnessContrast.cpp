#include "pixels/BrightnessContrast.h"

#include "pixels/Bands.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace
{

using Curve = std::array<std::uint8_t, 256>;

Curve CurveOf(BrightnessContrast settings)
{
    constexpr double MIDDLE = 127.5;
    // 100 percent makes black and white of everything, -100 percent grey.
    const double dShare = settings.iContrast / 100.0;
    const double dSlope = dShare < 0 ? 1 + dShare : 1 / std::max(1 - dShare, 0.01);
    Curve curve;
    for (int i = 0; i < 256; ++i)
        curve[static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(
            std::clamp(std::lround((i - MIDDLE) * dSlope + MIDDLE + settings.iBrightness), 0L, 255L));
    return curve;
}

std::uint8_t Towards(std::uint8_t from, std::uint8_t to, int iWeight)
{
    constexpr int HALF = 127;
    const int iWay = (to - from) * iWeight;
    return static_cast<std::uint8_t>(from + (iWay + (iWay < 0 ? -HALF : HALF)) / 255);
}

void AdjustRow(std::uint8_t* pPixel, const std::uint8_t* pWeights, int cx, const Curve& curve)
{
    for (int x = 0; x < cx; ++x, pPixel += 4)
    {
        const int iWeight = pWeights ? pWeights[x] : 255;
        for (int i = 0; iWeight && i < 3; ++i)
            pPixel[i] = iWeight == 255 ? curve[pPixel[i]] : Towards(pPixel[i], curve[pPixel[i]], iWeight);
    }
}

} // namespace

bool AdjustBrightnessContrast(PixelView pixels, MaskView weights, BrightnessContrast settings, CProgress& progress)
{
    const Curve curve = CurveOf(settings);
    return ForBands(pixels.cy, progress,
                    [&](int iFirst, int iEnd)
                    {
                        for (int y = iFirst; y < iEnd; ++y)
                            AdjustRow(pixels.Row(y), weights.Row(y), pixels.cx, curve);
                    });
}
