#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

/// How well pixels match a colour: the weight of each distance, the largest difference of a channel.
struct ColourMatch
{
    /// For a colour of blue, green and red, and a tolerance of 0 to 255.
    ColourMatch(const std::array<uint8_t, 3>& vColourOfMatch, int iToleranceOfMatch);

    std::array<uint8_t, 3> vColour;
    uint8_t uTolerance;

    /// The weights of distances beyond the tolerance: the first is 255, and the last are 0.
    static constexpr size_t BEYOND = 64;
    std::array<uint8_t, BEYOND> vBeyond;
};

/// Writes the weights of pixels of three or four bytes (blue, green, red). Any thread.
void WeighPixels(uint8_t* pWeights, const uint8_t* pPixels, size_t nPixels, size_t nPixelBytes,
                 const ColourMatch& match);
