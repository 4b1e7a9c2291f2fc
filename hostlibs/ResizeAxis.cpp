#include "hostlibs/ResizeAxis.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace
{

double CatmullRom(double d)
{
    d = std::abs(d);
    if (d < 1)
        return (1.5 * d - 2.5) * d * d + 1;
    return d < 2 ? ((-0.5 * d + 2.5) * d - 4) * d + 2 : 0;
}

/// A kernel put where one place of the result lies in the source.
struct PlacedKernel
{
    ResizeAxis::Kernel eKernel;
    double dScale; ///< Source places to one of the result.
    double dStart; ///< Where the result's place begins in the source.

    double Middle() const { return dStart + dScale / 2 - 0.5; }
    bool IsArea() const { return eKernel == ResizeAxis::Kernel::Linear && dScale > 1; }
    double Reach() const
    {
        return IsArea() ? (dScale + 1) / 2 : eKernel == ResizeAxis::Kernel::Linear ? 1 : 2 * std::max(dScale, 1.0);
    }
    double WeightOf(int iPlace) const
    {
        if (IsArea())
            return std::min(iPlace + 1.0, dStart + dScale) - std::max<double>(iPlace, dStart);
        const double dDistance = iPlace - Middle();
        return eKernel == ResizeAxis::Kernel::Linear ? 1 - std::abs(dDistance)
                                                     : CatmullRom(dDistance / std::max(dScale, 1.0));
    }
};

} // namespace

ResizeAxis::ResizeAxis(int nSource, int nResult, Kernel eKernel)
{
    PlacedKernel kernel = {eKernel, static_cast<double>(nSource) / nResult, 0};
    std::vector<double> vWeights;
    m_vPlaces.reserve(nResult);
    for (int i = 0; i < nResult; ++i)
    {
        kernel.dStart = i * static_cast<double>(nSource) / nResult;
        const int iBegin = static_cast<int>(std::floor(kernel.Middle() - kernel.Reach())) + 1;
        const int iEnd = static_cast<int>(std::ceil(kernel.Middle() + kernel.Reach()));
        const int iFirst = std::clamp(iBegin, 0, nSource - 1);
        // What lies beyond an end counts for the outermost place.
        vWeights.assign(std::clamp(iEnd - 1, 0, nSource - 1) - iFirst + 1, 0);
        for (int j = iBegin; j < iEnd; ++j)
            vWeights[std::clamp(j, 0, nSource - 1) - iFirst] += kernel.WeightOf(j);
        AddPlace(iFirst, vWeights);
    }
}

void ResizeAxis::AddPlace(int iFirst, const std::vector<double>& vWeights)
{
    const double dSum = std::accumulate(vWeights.begin(), vWeights.end(), 0.0);
    m_vPlaces.push_back({iFirst, static_cast<int>(vWeights.size()), m_vPairs.size()});
    // Rounding the sums up to each place, not the weights, makes them add up.
    int iSum = 0;
    double dPart = 0;
    for (size_t i = 0; i < vWeights.size(); ++i)
    {
        dPart += vWeights[i];
        const int iPart = static_cast<int>(std::lround(dPart / dSum * (1 << UNIT_BITS)));
        const uint32_t uWeight = static_cast<uint16_t>(iPart - std::exchange(iSum, iPart));
        if (i % 2 == 0)
            m_vPairs.push_back(static_cast<int32_t>(uWeight));
        else
            m_vPairs.back() |= static_cast<int32_t>(uWeight << 16);
    }
}
