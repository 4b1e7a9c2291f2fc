#include "pixels/SpotBlend.h"

#include <cmath>
#include <utility>

namespace
{

constexpr int CHANNELS = 3;
constexpr int NEIGHBOURS = 2; ///< A ring of so many pixels has all that touch the spot, also by a corner.

PixelRect WholeOf(const PixelRect& grid) { return {0, 0, grid.Width(), grid.Height()}; }

Spot InGrid(const Spot& spot, const PixelRect& grid) { return {spot.x - grid.left, spot.y - grid.top, spot.iSize}; }

} // namespace

CSpotBlend::CSpotBlend(const PixelView& picture, const Spot& spot, SpotSource source)
    : m_source(std::move(source)), m_grid(spot.Grown(NEIGHBOURS).Box().Within(picture)),
      m_vRuns(spot.RunsWithin(m_grid)),
      m_membrane(m_grid.Width(), m_grid.Height(), InGrid(spot, m_grid).RunsWithin(WholeOf(m_grid)))
{
    for (const PixelRun& run : spot.RingWithin(m_grid, NEIGHBOURS))
    {
        for (int x = run.left; x < run.right; ++x)
        {
            const std::uint8_t* const pHere = picture.Row(run.y) + std::ptrdiff_t{x} * 4;
            const std::array<float, CHANNELS> colour = m_source(x, run.y);
            m_membrane.Know(x - m_grid.left, run.y - m_grid.top, static_cast<float>(pHere[0]) - colour[0],
                            static_cast<float>(pHere[1]) - colour[1], static_cast<float>(pHere[2]) - colour[2]);
        }
    }
    m_membrane.Solve();
}

float CSpotBlend::Unevenness() const
{
    std::array<double, CHANNELS> aSum = {};
    double dSquares = 0;
    double dCount = 0;
    for (const PixelRun& run : m_vRuns)
    {
        for (int x = run.left; x < run.right; ++x, ++dCount)
        {
            for (std::size_t i = 0; i < CHANNELS; ++i)
            {
                const double dValue = DifferenceAt(x, run.y)[i];
                aSum[i] += dValue;
                dSquares += dValue * dValue;
            }
        }
    }
    for (const double dSum : aSum)
        dSquares -= dSum * dSum / dCount;
    return static_cast<float>(std::sqrt(std::max(dSquares, 0.0) / (dCount * CHANNELS)));
}

void CSpotBlend::Apply(const PixelView& healed, const MaskView& weights) const
{
    for (const PixelRun& run : m_vRuns)
        ApplyTo(run, weights.Row(run.y), healed.Row(run.y));
}

void CSpotBlend::ApplyTo(const PixelRun& run, const std::uint8_t* pWeights, std::uint8_t* pHealed) const
{
    for (int x = run.left; x < run.right; ++x)
    {
        const float fWeight = pWeights ? static_cast<float>(pWeights[x]) / 255 : 1.0F;
        const std::array<float, CHANNELS> colour = m_source(x, run.y);
        for (std::size_t i = 0; i < CHANNELS; ++i)
        {
            std::uint8_t& value = pHealed[static_cast<std::size_t>(x) * 4 + i];
            const auto fOld = static_cast<float>(value);
            const float fNew = fOld + fWeight * (colour[i] + DifferenceAt(x, run.y)[i] - fOld);
            value = static_cast<std::uint8_t>(std::clamp(std::lround(fNew), 0L, 255L));
        }
    }
}
