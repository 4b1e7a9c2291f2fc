#include "retouch/BrightnessContrast.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace
{

using Curve = std::array<BYTE, 256>;

Curve CurveOf(int iBrightness, int iContrast)
{
    constexpr double MIDDLE = 127.5;
    // 100 percent makes black and white of everything, -100 percent grey.
    const double dSlope = iContrast < 0 ? 1 + iContrast / 100.0 : 1 / std::max(1 - iContrast / 100.0, 0.01);
    Curve curve;
    for (int i = 0; i < 256; ++i)
        curve[static_cast<std::size_t>(i)] =
            static_cast<BYTE>(std::clamp(std::lround((i - MIDDLE) * dSlope + MIDDLE + iBrightness), 0L, 255L));
    return curve;
}

BYTE Towards(BYTE from, BYTE to, int iWeight)
{
    constexpr int HALF = 127;
    const int iWay = (to - from) * iWeight;
    return static_cast<BYTE>(from + (iWay + (iWay < 0 ? -HALF : HALF)) / 255);
}

} // namespace

void AdjustBrightnessContrast(std::span<BYTE> vPixels, std::span<const BYTE> vWeights, int iBrightness, int iContrast)
{
    const Curve curve = CurveOf(iBrightness, iContrast);
    for (std::size_t i = 0; i + 4 <= vPixels.size(); i += 4)
    {
        const int iWeight = vWeights.empty() ? 255 : vWeights[i / 4];
        for (std::size_t j = i; iWeight && j < i + 3; ++j)
            vPixels[j] = Towards(vPixels[j], curve[vPixels[j]], iWeight);
    }
}
