#include "pixels/PatchFill.h"

#include "pixels/PatchSeams.h"
#include "pixels/Roughness.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace
{

/// The spot's surroundings from full size to where the spot is small.
std::vector<CPatchField> LevelsOf(const PixelView& picture, const Spot& spot, const PixelRect& window)
{
    constexpr int SMALL = 12;
    const PixelView view = {picture.Row(window.top) + std::ptrdiff_t{window.left} * 4, window.Width(), window.Height(),
                            picture.nStride};
    std::vector<std::uint8_t> vHole(static_cast<std::size_t>(view.cx) * static_cast<std::size_t>(view.cy));
    for (const PixelRun& run : spot.RunsWithin(window))
    {
        const auto nRow = static_cast<std::ptrdiff_t>(run.y - window.top) * view.cx;
        std::fill(vHole.begin() + nRow + run.left - window.left, vHole.begin() + nRow + run.right - window.left,
                  std::uint8_t{1});
    }
    std::vector<std::uint8_t> vPixels = WithRoughness(view, vHole, CPatchField::REACH);
    std::vector<CPatchField> vLevels;
    vLevels.emplace_back(PixelView{vPixels.data(), view.cx, view.cy, std::ptrdiff_t{view.cx} * 4}, std::move(vHole));
    for (int iSize = spot.iSize; iSize > SMALL; iSize /= 2)
        vLevels.push_back(vLevels.back().Halved());
    while (vLevels.size() > 1 && !vLevels.back().HasSources())
        vLevels.pop_back();
    return vLevels;
}

struct Effort
{
    int nTimes;
    int nRandom;
};

Effort EffortFor(int iSize, bool bFirst)
{
    constexpr int LARGE = 100; // From here on patches only follow what was found.
    if (iSize > LARGE)
        return {1, 2};
    return {bFirst ? 12 : 4, 6};
}

} // namespace

std::optional<SpotSource> FillSpot(const PixelView& picture, const Spot& spot, CProgress& progress)
{
    constexpr int LEAST_AWAY = 16;
    const PixelRect window = spot.Grown(spot.iSize + LEAST_AWAY).Box().Within(picture);
    std::vector<CPatchField> vLevels = LevelsOf(picture, spot, window);
    if (!vLevels.back().HasSources())
        return std::nullopt;
    for (std::size_t i = vLevels.size(); i-- > 0;)
    {
        const bool bFirst = i + 1 == vLevels.size();
        if (bFirst)
            vLevels[i].Guess();
        else
            vLevels[i].Guess(vLevels[i + 1]);
        const Effort effort = EffortFor(spot.iSize >> i, bFirst);
        for (int iTime = 0; iTime < effort.nTimes; ++iTime)
        {
            vLevels[i].Search(effort.nRandom);
            vLevels[i].Vote();
            if (!progress.Report(vLevels.size() - i - 1, vLevels.size()))
                return std::nullopt;
        }
    }
    const auto seams = std::make_shared<const CPatchSeams>(std::move(vLevels.front()));
    return [seams, window](int x, int y) { return seams->ColourAt(x - window.left, y - window.top); };
}
