#include "brushes/PenWeights.h"

#include "platform/vorpix.h"
#include "view/Rounding.h"

#include <algorithm>

namespace Pixtane
{

bool IsPenComputable(int iStyle, int iSize, int iHardness, int iStrength)
{
    const auto isWithin = [](int iValue, int iMost) { return iValue >= 1 && iValue <= iMost; };
    return iStyle == Vorpix::MASK_DISC && isWithin(iSize, MAX_PEN_SIZE) && isWithin(iHardness, MAX_PEN_PERCENT) &&
           isWithin(iStrength, MAX_PEN_PERCENT);
}

void MakePenWeights(int iSize, int iHardness, int iStrength, std::vector<int>& vWeights, BITMAPINFO& infoWeights)
{
    if (!Vorpix::CreateMask(vWeights, infoWeights, Vorpix::MASK_DISC, iSize, static_cast<float>(iHardness) / 100.0f))
    {
        vWeights.clear();
        return;
    }
    const float fScale = static_cast<float>(iStrength) / 100.0f;
    std::ranges::transform(vWeights, vWeights.begin(),
                           [fScale](int iWeight) { return RoundHalfAway(static_cast<float>(iWeight) * fScale); });
}

} // namespace Pixtane
