#include "pixels/StraightenPreview.h"

#include "pixels/Bands.h"
#include "pixels/PixelRect.h"
#include "pixels/Straighten.h"

#include <cmath>
#include <cstring>
#include <numbers>

namespace
{

/// A part of a row whose pixels shall be dark.
void Darken(std::uint8_t* pPixel)
{
    constexpr int SHARE = 4;
    for (int i = 0; i < 3; ++i)
        pPixel[i] = static_cast<std::uint8_t>(pPixel[i] / SHARE);
}

PixelRect KeptRect(const PixelView& picture, const StraightenSettings& settings)
{
    if (!settings.bCrop)
        return {0, 0, picture.cx, picture.cy};
    const PixelSize size = InscribedSize(picture.cx, picture.cy, settings.dDegrees);
    const int iLeft = (picture.cx - size.cx) / 2;
    const int iTop = (picture.cy - size.cy) / 2;
    return {iLeft, iTop, iLeft + size.cx, iTop + size.cy};
}

} // namespace

void DrawStraightened(const PixelView& picture, const PixelView& target, const StraightenSettings& settings,
                      const SampledPlaces& places)
{
    const double dRadians = settings.dDegrees * std::numbers::pi / 180;
    const double dCos = std::cos(dRadians);
    const double dSin = std::sin(dRadians);
    const double dMiddleX = (picture.cx - 1) / 2.0;
    const double dMiddleY = (picture.cy - 1) / 2.0;
    const PixelRect kept = KeptRect(picture, settings);
    const auto drawRow = [&](int y)
    {
        const int iRow = places.vRows[static_cast<std::size_t>(y)];
        const double dDown = iRow - dMiddleY;
        std::uint8_t* pPixel = target.Row(y);
        for (const int iColumn : places.vColumns)
        {
            const double dRight = iColumn - dMiddleX;
            const double dX = std::clamp(dRight * dCos + dDown * dSin + dMiddleX, 0.0, picture.cx - 1.0);
            const double dY = std::clamp(dDown * dCos - dRight * dSin + dMiddleY, 0.0, picture.cy - 1.0);
            std::memcpy(pPixel, picture.Row(static_cast<int>(dY + 0.5)) + 4 * static_cast<std::ptrdiff_t>(dX + 0.5), 4);
            if (iRow < kept.top || iRow >= kept.bottom || iColumn < kept.left || iColumn >= kept.right)
                Darken(pPixel);
            pPixel += 4;
        }
    };
    CProgress progress;
    ForBands(target.cy, progress,
             [&](int iFirst, int iEnd)
             {
                 for (int y = iFirst; y < iEnd; ++y)
                     drawRow(y);
             });
}
