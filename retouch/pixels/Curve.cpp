#include "pixels/Curve.h"

#include "pixels/Bands.h"

namespace
{

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

bool ApplyCurve(PixelView pixels, MaskView weights, const Curve& curve, CProgress& progress)
{
    return ForBands(pixels.cy, progress,
                    [&](int iFirst, int iEnd)
                    {
                        for (int y = iFirst; y < iEnd; ++y)
                            AdjustRow(pixels.Row(y), weights.Row(y), pixels.cx, curve);
                    });
}
