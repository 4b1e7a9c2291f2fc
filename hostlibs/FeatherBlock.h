#pragma once

#include "hostlibs/FeatherKernel.h"

#include <array>
#include <cstddef>

/// A strip is as many neighbouring lines as there are lanes, a block as many pixels of each. Blocks lie in memory
/// position after position, each with its lanes side by side.
constexpr int FEATHER_LANES = 64;
constexpr int FEATHER_STEPS = 64;

/// The running sums of a strip. Both widths wrap around; the narrow one holds what radii up to 256 need.
template<class T>
struct FeatherSums
{
    std::array<T, FEATHER_LANES> a, b, c;
};
constexpr int MAX_NARROW_RADIUS = 256;

/// The pixels n, n - r, n - 2r and n - 3r of all lanes.
using FeatherTaps = std::array<const unsigned char*, 4>;

/// Takes the sums FEATHER_STEPS positions further, and writes the levels that each step finds.
void FeatherBlock(const FeatherKernel& kernel, const FeatherTaps* pTaps, FeatherSums<uint32_t>& sums,
                  unsigned char* pLevels);
void FeatherBlock(const FeatherKernel& kernel, const FeatherTaps* pTaps, FeatherSums<uint64_t>& sums,
                  unsigned char* pLevels);

/// Copies FEATHER_LANES rows of FEATHER_STEPS bytes so that rows become columns.
void TransposeBlock(const unsigned char* pFrom, size_t nFromPitch, unsigned char* pTo, size_t nToPitch);
