#include "hostlibs/HsvShift.h"

#include <algorithm>
#include <cmath>

namespace
{

/// Of a colour that is not grey, in sixths of a turn from red.
double HueOf(int iBlue, int iGreen, int iRed)
{
    const int iValue = std::max({iBlue, iGreen, iRed});
    const double dChroma = iValue - std::min({iBlue, iGreen, iRed});
    if (iValue == iRed)
        return (iGreen - iBlue) / dChroma;
    return iValue == iGreen ? (iBlue - iRed) / dChroma + 2 : (iRed - iGreen) / dChroma + 4;
}

/// How much of the saturation a channel lacks: between 0 and 1 along a trapezium over the hue, which dHue lies along.
double LackAt(double dHue)
{
    const double dPlace = dHue - 6 * std::floor(dHue / 6);
    return std::clamp(std::min(dPlace, 4 - dPlace), 0.0, 1.0);
}

} // namespace

void Vorpix::ShiftHsv(uint8_t* pPixels, const uint8_t* pMask, size_t nCount, int64_t nPixelBytes, const HsvShift& shift)
{
    for (const uint8_t* const pEnd = pMask + nCount; pMask < pEnd; ++pMask, pPixels += nPixelBytes)
    {
        const auto [iLowest, iHighest] = std::minmax({pPixels[0], pPixels[1], pPixels[2]});
        const double dValue = std::clamp(iHighest + 255 * shift.dValue, 0.0, 255.0);
        double dSaturation = 0, dHue = 0;
        if (iLowest != iHighest)
        {
            dSaturation = std::clamp((iHighest - iLowest) / double(iHighest) + shift.dSaturation, 0.0, 1.0);
            dHue = HueOf(pPixels[0], pPixels[1], pPixels[2]) + 6 * std::remainder(shift.dHue, 1);
        }
        for (int i = 0; i < 3; ++i) // Blue, green, red begin at 1, 3 and 5 sixths.
        {
            const double dNew = dValue * (1 - dSaturation * LackAt(dHue + 1 + 2 * i));
            pPixels[i] = static_cast<uint8_t>(pPixels[i] + (dNew - pPixels[i]) * (*pMask / 255.0) + 0.5);
        }
    }
}
