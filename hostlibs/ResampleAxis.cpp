#include "hostlibs/ResampleAxis.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace
{

/// The kernel of R. Keys, "Cubic convolution interpolation for digital image processing" (1981), with a = -1/2.
double CatmullRom(double dDistance)
{
    const double d = std::abs(dDistance);
    if (d < 1)
        return (1.5 * d - 2.5) * d * d + 1;
    return d < 2 ? ((-0.5 * d + 2.5) * d - 4) * d + 2 : 0;
}

double Triangle(double dDistance) { return std::max(1 - std::abs(dDistance), 0.0); }

/// How much of pixel i the interval holds.
double Coverage(int i, double dFrom, double dTo)
{
    return std::max(std::min<double>(i + 1, dTo) - std::max<double>(i, dFrom), 0.0);
}

} // namespace

ResampleAxis::ResampleAxis(int nSourcePixels, int nDestPixels, Filter filter)
    : nSource(nSourcePixels), nDest(nDestPixels)
{
    const double dStep = static_cast<double>(nSource) / nDest;
    const bool bShrinks = nDest < nSource;
    for (int iDest = 0; iDest < nDest; ++iDest)
    {
        const double dFrom = iDest * dStep;
        const double dTo = (iDest + 1) * dStep;
        const double dCentre = (iDest + 0.5) * dStep - 0.5;
        const double dStretch = std::max(dStep, 1.0);
        const double dSupport = filter == Filter::Cubic ? 2 * dStretch : 1;
        const bool bArea = filter == Filter::Linear && bShrinks;
        const int iFirst = static_cast<int>(std::floor(bArea ? dFrom : dCentre - dSupport));
        const int iEnd = static_cast<int>(std::ceil(bArea ? dTo : dCentre + dSupport)) + 1;
        std::vector<double> vWeights;
        for (int i = iFirst; i < iEnd; ++i)
            vWeights.push_back(nSource == nDest           ? double(i == iDest)
                               : bArea                    ? Coverage(i, dFrom, dTo)
                               : filter == Filter::Linear ? Triangle(i - dCentre)
                                                          : CatmullRom((i - dCentre) / dStretch));
        Add(vWeights, iFirst);
    }
}

void ResampleAxis::Add(const std::vector<double>& vWeights, int iFirst)
{
    // The outermost pixels stand for those beyond them.
    const int iLeast = std::clamp(iFirst, 0, nSource - 1);
    const int iMost = std::clamp(iFirst + static_cast<int>(vWeights.size()) - 1, 0, nSource - 1);
    std::vector<double> vInside(static_cast<size_t>(iMost - iLeast) + 1);
    for (size_t i = 0; i < vWeights.size(); ++i)
        vInside[static_cast<size_t>(std::clamp(iFirst + static_cast<int>(i), iLeast, iMost) - iLeast)] += vWeights[i];
    const double dSum = std::accumulate(vInside.begin(), vInside.end(), 0.0);
    const size_t iWeights = m_vWeights.size();
    int nLeft = UNIT;
    for (const double dWeight : vInside)
    {
        m_vWeights.push_back(static_cast<int16_t>(std::lround(dWeight / dSum * UNIT)));
        nLeft -= m_vWeights.back();
    }
    // What rounding left over goes where it weighs least.
    const auto itFirst = m_vWeights.begin() + static_cast<ptrdiff_t>(iWeights);
    const auto itLargest = std::max_element(itFirst, m_vWeights.end());
    *itLargest = static_cast<int16_t>(*itLargest + nLeft);
    const auto itTap = std::find_if(itFirst, m_vWeights.end(), [](int16_t iWeight) { return iWeight != 0; });
    while (m_vWeights.back() == 0)
        m_vWeights.pop_back();
    const auto nSkipped = static_cast<int>(itTap - itFirst);
    m_vRanges.push_back({iLeast + nSkipped, static_cast<int>(m_vWeights.size() - iWeights) - nSkipped,
                         iWeights + static_cast<size_t>(nSkipped)});
}

ResampleAxis::Taps ResampleAxis::Of(int iDest) const
{
    const Range& range = m_vRanges[static_cast<size_t>(iDest)];
    return {range.iFirst, range.nTaps, m_vWeights.data() + range.iWeights};
}
