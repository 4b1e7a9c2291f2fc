// This file is compiled once for each instruction set, and the best one is chosen when the program runs.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "pixels/CubicRow.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "pixels/CubicRow.h"
#include "pixels/CubicWeights.h"

#include <algorithm>

HWY_BEFORE_NAMESPACE();
namespace pixels
{
namespace HWY_NAMESPACE
{

namespace hn = hwy::HWY_NAMESPACE;

const std::int16_t* WeightsAt(std::int64_t iPlace)
{
    const auto iStep = static_cast<std::uint64_t>(iPlace) >> (FinePoint::BITS - CubicWeights::STEP_BITS);
    return CUBIC_WEIGHTS.all[iStep % CUBIC_WEIGHTS.all.size()].data();
}

// One pixel from 4 x 4, of which pCorner is the first. First down the columns, then along what comes of it. Multiplying
// halves, rounded: bytes begin with 7 bits of fraction, have 6 after the first pass and 5 after the second, so that
// overshooting edges fit into 16 bits.
constexpr int FIRST_FRACTION_BITS = 7;
constexpr int LAST_FRACTION_BITS = 5;
constexpr int HALF = 1 << (LAST_FRACTION_BITS - 1);

#if HWY_TARGET == HWY_SCALAR
int Product(int iValue, int iWeight) { return (iValue * iWeight + (1 << 14)) >> 15; }

void CubicPixel(std::uint8_t* pTarget, const std::uint8_t* pCorner, std::ptrdiff_t nStride, const std::int16_t* pAlong,
                const std::int16_t* pDown)
{
    for (int iChannel = 0; iChannel < 4; ++iChannel)
    {
        int iSum = 0;
        for (int x = 0; x < 16; x += 4)
        {
            int iColumn = 0;
            for (int y = 0; y < 4; ++y)
                iColumn += Product(pCorner[y * nStride + x + iChannel] << FIRST_FRACTION_BITS, pDown[4 * y]);
            iSum += Product(iColumn, pAlong[x]);
        }
        pTarget[iChannel] = static_cast<std::uint8_t>(std::clamp((iSum + HALF) >> LAST_FRACTION_BITS, 0, 255));
    }
}
#else
HWY_INLINE void CubicPixel(std::uint8_t* pTarget, const std::uint8_t* pCorner, std::ptrdiff_t nStride,
                           const std::int16_t* pAlong, const std::int16_t* pDown)
{
    const hn::FixedTag<std::uint8_t, 16> bytes;
    const hn::FixedTag<std::uint16_t, 8> words;
    const hn::FixedTag<std::int16_t, 8> values;
    const hn::Half<decltype(values)> half;
    const hn::FixedTag<std::uint8_t, 4> pixel;
    // As the upper halves of words, bytes have 8 bits of fraction.
    const auto widened = [&](auto pairs)
    { return hn::BitCast(values, hn::ShiftRight<8 - FIRST_FRACTION_BITS>(hn::BitCast(words, pairs))); };

    auto left = hn::Zero(values);
    auto right = hn::Zero(values);
    for (int y = 0; y < 4; ++y, pCorner += nStride)
    {
        const auto row = hn::LoadU(bytes, pCorner);
        const auto weight = hn::Set(values, pDown[4 * y]);
        const auto two = widened(hn::InterleaveLower(bytes, hn::Zero(bytes), row));
        const auto others = widened(hn::InterleaveUpper(bytes, hn::Zero(bytes), row));
        left = hn::Add(left, hn::MulFixedPoint15(two, weight));
        right = hn::Add(right, hn::MulFixedPoint15(others, weight));
    }
    const auto sums = hn::Add(hn::MulFixedPoint15(left, hn::Load(values, pAlong)),
                              hn::MulFixedPoint15(right, hn::Load(values, pAlong + 8)));
    const auto sum = hn::Add(hn::LowerHalf(half, sums), hn::UpperHalf(half, sums));
    const auto rounded = hn::ShiftRight<LAST_FRACTION_BITS>(hn::Add(sum, hn::Set(half, HALF)));
    hn::StoreU(hn::DemoteTo(pixel, rounded), pixel, pTarget);
}
#endif

void CubicRow(std::uint8_t* pTarget, int nPixels, const std::uint8_t* pSource, std::ptrdiff_t nStride, FinePoint at,
              FinePoint step)
{
    for (int i = 0; i < nPixels; ++i, pTarget += 4)
    {
        const std::uint8_t* const pCorner =
            pSource + ((at.y >> FinePoint::BITS) - 1) * nStride + ((at.x >> FinePoint::BITS) - 1) * 4;
        CubicPixel(pTarget, pCorner, nStride, WeightsAt(at.x), WeightsAt(at.y));
        at.x += step.x;
        at.y += step.y;
    }
}

} // namespace HWY_NAMESPACE
} // namespace pixels
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace pixels
{

HWY_EXPORT(CubicRow);

} // namespace pixels

void CubicRow(std::uint8_t* pTarget, int nPixels, const std::uint8_t* pSource, std::ptrdiff_t nStride, FinePoint at,
              FinePoint step)
{
    using namespace pixels;
    HWY_DYNAMIC_DISPATCH(CubicRow)(pTarget, nPixels, pSource, nStride, at, step);
}
#endif
