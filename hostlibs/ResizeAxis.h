#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/// What each place of a scaled line is made of: weighted places of the source line, one after the other.
class ResizeAxis
{
public:
    static constexpr int UNIT_BITS = 14; ///< The weights of a place add up to 1 << UNIT_BITS.

    enum class Kernel
    {
        Linear, ///< Between two neighbours where it grows, the covered area where it shrinks.
        Cubic,  ///< Catmull-Rom.
    };

    struct Place
    {
        int iFirst; ///< In the source.
        int nTaps;
        size_t iPair; ///< Where its weights begin.
    };

    ResizeAxis(int nSource, int nResult, Kernel eKernel);

    const std::vector<Place>& Places() const { return m_vPlaces; }

    /// Two weights each, the first one in the low half; the second one of the last is 0 for an odd number of taps.
    const int32_t* PairsOf(const Place& place) const { return &m_vPairs[place.iPair]; }

private:
    void AddPlace(int iFirst, const std::vector<double>& vWeights);

    std::vector<Place> m_vPlaces;
    std::vector<int32_t> m_vPairs;
};
