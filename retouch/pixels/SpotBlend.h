#pragma once

#include "pixels/Membrane.h"

#include <array>
#include <functional>

/// What shall take a spot's place: the colour (blue, green, red) of a pixel of it, or of one of the two around it.
using SpotSource = std::function<std::array<float, 3>(int x, int y)>;

/// A source blended into a spot of a picture: its own pixels, and the smooth difference that makes them meet what
/// surrounds the spot (blending in the gradient domain, as CMembrane says). Any thread.
class CSpotBlend
{
public:
    CSpotBlend(const PixelView& picture, const Spot& spot, SpotSource source);

    /// How much the difference changes within the spot, in levels: what surrounds it does not go on where the source
    /// does.
    float Unevenness() const;

    /// Changes a picture of the same size, inside the spot and as far as weights say.
    void Apply(const PixelView& healed, const MaskView& weights) const;

private:
    const float* DifferenceAt(int x, int y) const { return m_membrane.At(x - m_grid.left, y - m_grid.top); }
    void ApplyTo(const PixelRun& run, const std::uint8_t* pWeights, std::uint8_t* pHealed) const;

    SpotSource m_source;
    PixelRect m_grid; ///< The spot with what is next to it.
    std::vector<PixelRun> m_vRuns;
    CMembrane m_membrane;
};
