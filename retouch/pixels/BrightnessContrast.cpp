#include "pixels/BrightnessContrast.h"

#include "pixels/Curve.h"

#include <algorithm>
#include <cmath>

namespace
{

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

} // namespace

bool AdjustBrightnessContrast(PixelView pixels, MaskView weights, BrightnessContrast settings, CProgress& progress)
{
    return ApplyCurve(pixels, weights, CurveOf(settings), progress);
}
