#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/// Which pixels of a line each pixel of a resized line is made of, and with which weights.
struct ResampleAxis
{
    /// What the weights of a pixel add up to, exactly.
    static constexpr int UNIT = 1 << 14;

    enum class Filter
    {
        Linear, ///< Between two neighbours when growing, the mean of the covered area when shrinking.
        Cubic,  ///< Catmull-Rom; when shrinking, stretched over the covered area.
    };

    ResampleAxis(int nSource, int nDest, Filter filter);

    /// The taps of a pixel: source pixels from iFirst on, all within the line.
    struct Taps
    {
        int iFirst;
        int nTaps;
        const int16_t* pWeights;
    };
    Taps Of(int iDest) const;

    int nSource;
    int nDest;

private:
    struct Range
    {
        int iFirst;
        int nTaps;
        size_t iWeights;
    };
    void Add(const std::vector<double>& vWeights, int iFirst);

    std::vector<Range> m_vRanges;
    std::vector<int16_t> m_vWeights;
};
