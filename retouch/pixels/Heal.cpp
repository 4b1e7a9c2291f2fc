#include "pixels/Heal.h"

#include "pixels/Membrane.h"

#include <cmath>

namespace
{

constexpr int CHANNELS = 3;
constexpr int NEIGHBOURS = 2; ///< A ring of so many pixels has all that touch the spot, also by a corner.

/// Where pixels come from; nothing is added where there is no source.
struct Source
{
    PixelView picture;
    std::optional<PixelOffset> offset;

    float At(int x, int y, int iChannel) const
    {
        return offset ? picture.Row(y + offset->y)[(x + offset->x) * 4 + iChannel] : 0.0F;
    }
};

/// What the source must be changed by to meet the picture around the spot.
CMembrane DifferenceOf(const PixelView& picture, const Source& source, const Spot& spot, const PixelRect& grid)
{
    const Spot inGrid = {spot.x - grid.left, spot.y - grid.top, spot.iSize};
    const PixelRect whole = {0, 0, grid.Width(), grid.Height()};
    CMembrane membrane(grid.Width(), grid.Height(), inGrid.RunsWithin(whole));
    for (const PixelRun& run : inGrid.RingWithin(whole, NEIGHBOURS))
    {
        for (int x = run.left; x < run.right; ++x)
        {
            const std::uint8_t* const pHere = picture.Row(run.y + grid.top) + std::ptrdiff_t{x + grid.left} * 4;
            const auto difference = [&](int iChannel)
            { return static_cast<float>(pHere[iChannel]) - source.At(x + grid.left, run.y + grid.top, iChannel); };
            membrane.Know(x, run.y, difference(0), difference(1), difference(2));
        }
    }
    membrane.Solve();
    return membrane;
}

void HealRun(const PixelRun& run, const Source& source, const float* pDifference, const MaskView& weights,
             std::uint8_t* pHealed)
{
    const std::uint8_t* const pWeights = weights.Row(run.y);
    for (int x = run.left; x < run.right; ++x, pDifference += 4)
    {
        const float fWeight = pWeights ? static_cast<float>(pWeights[x]) / 255 : 1.0F;
        for (int i = 0; i < CHANNELS; ++i)
        {
            std::uint8_t& value = pHealed[x * 4 + i];
            const float fNew = source.At(x, run.y, i) + pDifference[i];
            const auto fOld = static_cast<float>(value);
            value = static_cast<std::uint8_t>(std::clamp(std::lround(fOld + fWeight * (fNew - fOld)), 0L, 255L));
        }
    }
}

} // namespace

void BlendSpot(PixelView picture, PixelView healed, MaskView weights, const Spot& spot,
               std::optional<PixelOffset> offset)
{
    const Source source = {picture, offset};
    const PixelRect grid = spot.Grown(NEIGHBOURS).Box().Within(picture);
    const CMembrane difference = DifferenceOf(picture, source, spot, grid);
    for (const PixelRun& run : spot.RunsWithin({0, 0, picture.cx, picture.cy}))
        HealRun(run, source, difference.At(run.left - grid.left, run.y - grid.top), weights, healed.Row(run.y));
}

bool HealSpot(PixelView picture, PixelView healed, MaskView weights, const Spot& spot, CProgress& progress)
{
    const PixelRect whole = {0, 0, picture.cx, picture.cy};
    if (spot.RunsWithin(whole).empty() || spot.RingWithin(whole, 1).empty())
        return !progress.IsCancelled();
    const std::optional<PixelOffset> offset = FindHealSource(picture, spot, progress);
    if (progress.IsCancelled())
        return false;
    BlendSpot(picture, healed, weights, spot, offset);
    return true;
}
