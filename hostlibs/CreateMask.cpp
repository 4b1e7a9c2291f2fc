#include "platform/vorpix.h"

#include <algorithm>
#include <cmath>
#include <new>

namespace
{

/// The weight of a disc along its radius, 1 in the middle.
class DiscProfile
{
public:
    DiscProfile(double dRadius, double dHardness) : m_dInner(dRadius * dHardness), m_dFall(dRadius - m_dInner) {}

    /// The mean over one pixel around a distance from the middle.
    double MeanAt(double dDistance) const { return IntegralTo(dDistance + 0.5) - IntegralTo(dDistance - 0.5); }

private:
    /// The integral of the profile from the middle.
    double IntegralTo(double dDistance) const
    {
        if (dDistance < 0)
            return -IntegralTo(-dDistance);
        if (dDistance <= m_dInner || m_dFall <= 0)
            return std::min(dDistance, m_dInner);
        const double dPart = std::min((dDistance - m_dInner) / m_dFall, 1.0);
        return m_dInner + m_dFall * dPart * (1 - dPart * dPart * (1 - dPart / 2));
    }

    double m_dInner, m_dFall;
};

/// Writes an eighth of the disc and its mirror images.
void FillDisc(int* pWeights, int iSize, double dHardness)
{
    const DiscProfile profile(iSize / 2.0, dHardness);
    const double dOffset = iSize % 2 ? 0 : 0.5;
    const double dUnit = Vorpix::FULL_WEIGHT / profile.MeanAt(std::hypot(dOffset, dOffset));
    for (int i = 0; i < (iSize + 1) / 2; ++i)
        for (int j = 0; j <= i; ++j)
        {
            const double dx = i + dOffset, dy = j + dOffset;
            const int iWeight = static_cast<int>(profile.MeanAt(std::sqrt(dx * dx + dy * dy)) * dUnit + 0.5);
            for (const int iFar : {iSize / 2 + i, (iSize - 1) / 2 - i})
                for (const int iNear : {iSize / 2 + j, (iSize - 1) / 2 - j})
                    pWeights[iFar * iSize + iNear] = pWeights[iNear * iSize + iFar] = iWeight;
        }
}

} // namespace

bool Vorpix::CreateMask(std::vector<int>& vWeights, BITMAPINFO& infoWeights, emVXMaskType eType, int iSize,
                        float fHardness)
try
{
    if (eType != MASK_DISC || iSize < 1 || iSize > MAX_MASK_SIZE || !(fHardness >= 0 && fHardness <= 1))
        return false;
    vWeights.resize(static_cast<size_t>(iSize) * iSize);
    FillDisc(vWeights.data(), iSize, fHardness);
    infoWeights = {};
    infoWeights.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    infoWeights.bmiHeader.biWidth = infoWeights.bmiHeader.biHeight = iSize;
    infoWeights.bmiHeader.biPlanes = 1;
    infoWeights.bmiHeader.biBitCount = 32;
    infoWeights.bmiHeader.biSizeImage = static_cast<DWORD>(vWeights.size());
    return true;
}
catch (const std::bad_alloc&)
{
    return false;
}
