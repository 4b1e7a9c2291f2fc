#include "hostlibs/FeatherStrip.h"

#include <algorithm>
#include <cstring>

namespace
{

/// Copies one position. Nearly always it has all lanes, which takes no call.
void CopyLanes(unsigned char* pTo, const unsigned char* pFrom, int iLines)
{
    if (iLines == FEATHER_LANES)
        std::memcpy(pTo, pFrom, FEATHER_LANES);
    else
        std::memcpy(pTo, pFrom, iLines);
}

} // namespace

FeatherStrip::FeatherStrip(const FeatherKernel& kernel, int64_t nCount) : m_Kernel(kernel)
{
    // The last 3r pixels and the block being added; the first and the last pixel of a line stand for those beyond.
    const int64_t nPixels = std::min<int64_t>(3 * kernel.iRadius, nCount) + FEATHER_STEPS;
    m_nCapacity = (nPixels + FEATHER_STEPS - 1) / FEATHER_STEPS * FEATHER_STEPS;
    m_vRing.resize(m_nCapacity * FEATHER_LANES);
    if (kernel.iRadius > MAX_NARROW_RADIUS)
        m_Sums = FeatherSums<uint64_t>();
}

void FeatherStrip::Filter(const StripLines& lines)
{
    std::visit([&](auto& sums) { FilterWith(sums, lines); }, m_Sums);
}

template<class T>
void FeatherStrip::FilterWith(FeatherSums<T>& sums, const StripLines& lines)
{
    // Where all that the sums look at is the same along the lines, they stand still, and the pixels are right already.
    const int64_t nWindow = 3 * m_Kernel.iRadius + FEATHER_STEPS;
    int64_t nEven = nWindow;
    for (int64_t n = 0; n < lines.nEnd + m_Kernel.iReach; n += FEATHER_STEPS)
    {
        if (n < lines.nCount)
            Load(lines, n);
        if (n == 0)
        {
            sums.a.fill(0), sums.b.fill(0);
            std::transform(At(0), At(0) + FEATHER_LANES, sums.c.begin(),
                           [&](unsigned char uLevel)
                           { return static_cast<T>(uLevel * m_Kernel.nUnit + m_Kernel.nUnit / 2); });
        }
        nEven = IsBlockEven(n, lines.nCount) ? nEven + FEATHER_STEPS : 0;
        if (nEven >= nWindow)
            continue;
        PointTaps(n, lines.nCount);
        FeatherBlock(m_Kernel, m_aTaps.data(), sums, m_aLevels.data());
        Store(lines, n - m_Kernel.iReach);
    }
}

/// Brings the pixels of a block from the mask.
void FeatherStrip::Load(const StripLines& lines, int64_t nFrom)
{
    const int64_t nSteps = std::min<int64_t>(FEATHER_STEPS, lines.nCount - nFrom);
    unsigned char* pTo = At(nFrom);
    if (lines.bColumns)
    {
        const unsigned char* pFrom = lines.pFirst + nFrom * lines.nPitch;
        for (int64_t i = 0; i < nSteps; ++i)
            CopyLanes(pTo + i * FEATHER_LANES, pFrom + i * lines.nPitch, lines.iLines);
    }
    else if (const unsigned char* pFrom = lines.pFirst + nFrom;
             nSteps == FEATHER_STEPS && lines.iLines == FEATHER_LANES)
        TransposeBlock(pFrom, lines.nPitch, pTo, FEATHER_LANES);
    else
        for (int64_t i = 0; i < nSteps; ++i)
            for (int iLine = 0; iLine < lines.iLines; ++iLine)
                pTo[i * FEATHER_LANES + iLine] = pFrom[iLine * lines.nPitch + i];
}

/// Takes the levels of a block, whose first position is nFrom, to those pixels that are to be written.
void FeatherStrip::Store(const StripLines& lines, int64_t nFrom) const
{
    const int64_t nFirst = std::max(lines.nFirst - nFrom, int64_t{0});
    const int64_t nEnd = std::min<int64_t>(lines.nEnd - nFrom, FEATHER_STEPS);
    const unsigned char* pFrom = m_aLevels.data();
    if (lines.bColumns)
    {
        for (int64_t i = nFirst; i < nEnd; ++i)
            CopyLanes(lines.pFirst + (nFrom + i) * lines.nPitch, pFrom + i * FEATHER_LANES, lines.iLines);
    }
    else if (nEnd - nFirst == FEATHER_STEPS && lines.iLines == FEATHER_LANES)
        TransposeBlock(pFrom, FEATHER_LANES, lines.pFirst + nFrom, lines.nPitch);
    else
        for (int64_t i = nFirst; i < nEnd; ++i)
            for (int iLine = 0; iLine < lines.iLines; ++iLine)
                lines.pFirst[iLine * lines.nPitch + nFrom + i] = pFrom[i * FEATHER_LANES + iLine];
}

/// Whether every pixel of a block is like the one before it in its line; those beyond the line's end are.
bool FeatherStrip::IsBlockEven(int64_t nFrom, int64_t nCount) const
{
    if (nFrom >= nCount)
        return true;
    const size_t nLater = (std::min<int64_t>(FEATHER_STEPS, nCount - nFrom) - 1) * FEATHER_LANES;
    const unsigned char* pBlock = At(nFrom);
    return std::memcmp(pBlock, At(std::max(nFrom - 1, int64_t{0})), FEATHER_LANES) == 0 &&
           std::memcmp(pBlock, pBlock + FEATHER_LANES, nLater) == 0;
}

void FeatherStrip::PointTaps(int64_t nFrom, int64_t nCount)
{
    // The pixel of the round of the ring that the block's newest pixel is in; older ones are at most one round back.
    const int64_t nLast = nCount - 1, nRound = std::min(nFrom, nLast) / m_nCapacity * m_nCapacity;
    for (int iTap = 0; iTap < 4; ++iTap)
        for (int i = 0; i < FEATHER_STEPS; ++i)
        {
            const int64_t n = std::clamp<int64_t>(nFrom + i - int64_t{iTap} * m_Kernel.iRadius, 0, nLast) - nRound;
            m_aTaps[i][iTap] = m_vRing.data() + (n < 0 ? n + m_nCapacity : n) * FEATHER_LANES;
        }
}
