#include "pixels/Heal.h"

#include "pixels/PatchFill.h"

#include <cstdlib>
#include <utility>

namespace
{

/// How much neighbouring pixels around the spot differ: at most places, so that single edges do not count.
float TextureAround(const PixelView& picture, const Spot& spot)
{
    std::vector<int> vDifferences;
    for (const PixelRun& run : spot.RingWithin({1, 1, picture.cx, picture.cy}, std::max(2, spot.iSize / 4)))
    {
        constexpr int GREEN = 1;
        const std::uint8_t* const pRow = picture.Row(run.y);
        const std::uint8_t* const pAbove = picture.Row(run.y - 1);
        for (int i = 4 * run.left + GREEN; i < 4 * run.right; i += 4)
            vDifferences.push_back(std::abs(pRow[i] - pRow[i - 4]) + std::abs(pRow[i] - pAbove[i]));
    }
    if (vDifferences.empty())
        return 0;
    const auto itMedian = vDifferences.begin() + static_cast<std::ptrdiff_t>(vDifferences.size() / 2);
    std::ranges::nth_element(vDifferences, itMedian);
    return static_cast<float>(*itMedian);
}

/// Whether the place's own edges and those around the spot do not meet: more than the texture hides.
bool IsPoor(const CSpotBlend& blend, const PixelView& picture, const Spot& spot)
{
    constexpr float VISIBLE = 2;
    constexpr float OF_TEXTURE = 0.75F;
    return blend.Unevenness() > VISIBLE + OF_TEXTURE * TextureAround(picture, spot);
}

} // namespace

SpotSource SourceAt(const PixelView& picture, std::optional<PixelOffset> offset)
{
    if (!offset)
        return [](int, int) { return std::array<float, 3>{}; };
    return [=](int x, int y)
    {
        const std::uint8_t* const pPixel = picture.Row(y + offset->y) + std::ptrdiff_t{x + offset->x} * 4;
        return std::array<float, 3>{static_cast<float>(pPixel[0]), static_cast<float>(pPixel[1]),
                                    static_cast<float>(pPixel[2])};
    };
}

bool HealSpot(PixelView picture, PixelView healed, MaskView weights, const Spot& spot, CProgress& progress)
{
    const PixelRect whole = {0, 0, picture.cx, picture.cy};
    if (spot.RunsWithin(whole).empty() || spot.RingWithin(whole, 1).empty())
        return !progress.IsCancelled();
    progress.SetStages(2);
    const std::optional<PixelOffset> offset = FindHealSource(picture, spot, progress);
    progress.EndStage();
    if (progress.IsCancelled())
        return false;
    CSpotBlend blend(picture, spot, SourceAt(picture, offset));
    if (!offset || IsPoor(blend, picture, spot))
    {
        if (std::optional<SpotSource> pieces = FillSpot(picture, spot, progress))
            blend = CSpotBlend(picture, spot, std::move(*pieces));
        if (progress.IsCancelled())
            return false;
    }
    blend.Apply(healed, weights);
    return true;
}
