// Vectors are halved down to one lane, so their size must be known when this is compiled.
#define HWY_DISABLED_TARGETS (HWY_SVE | HWY_SVE2 | HWY_SVE_256 | HWY_SVE2_128 | HWY_RVV)

// This file is compiled once for each instruction set, and the best one is chosen when the program runs.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "hostlibs/BitBltKernels.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "hostlibs/BitBltKernels.h"
#include "platform/vorpix.h"

#include <algorithm>

HWY_BEFORE_NAMESPACE();
namespace Vorpix
{
namespace HWY_NAMESPACE
{

namespace hn = hwy::HWY_NAMESPACE;

bool FindHighest(const int* HWY_RESTRICT pWeights, size_t nCount, int& iHighest)
{
    // As unsigned numbers, since the negative ones are then beyond the scale.
    const hn::ScalableTag<uint32_t> numbers;
    const size_t nLanes = hn::Lanes(numbers);
    const auto load = [&](size_t i) { return hn::BitCast(numbers, hn::LoadU(hn::ScalableTag<int>(), pWeights + i)); };
    auto highest = hn::Zero(numbers), other = highest;
    size_t i = 0;
    for (; i + 2 * nLanes <= nCount; i += 2 * nLanes)
    {
        highest = hn::Max(highest, load(i));
        other = hn::Max(other, load(i + nLanes));
    }
    uint32_t uHighest = hn::GetLane(hn::MaxOfLanes(numbers, hn::Max(highest, other)));
    for (; i < nCount; ++i)
        uHighest = std::max(uHighest, static_cast<uint32_t>(pWeights[i]));
    iHighest = static_cast<int>(std::min<uint32_t>(uHighest, FULL_WEIGHT));
    return uHighest <= FULL_WEIGHT;
}

/// What is left at the end of a row is done with vectors of half the size, and so on.
template<class D>
HWY_INLINE void StampRow(D ints, int* HWY_RESTRICT pCoverage, const int* HWY_RESTRICT pPen, size_t nCount, int iHighest)
{
    const hn::Rebind<float, D> floats;
    const auto most = hn::Set(ints, iHighest);
    const auto part = hn::Set(floats, 1.0f / static_cast<float>(iHighest));
    const auto half = hn::Set(floats, 0.5f);
    size_t i = 0;
    for (; i + hn::Lanes(ints) <= nCount; i += hn::Lanes(ints))
    {
        const auto coverage = hn::LoadU(ints, pCoverage + i);
        const auto missing = hn::ConvertTo(floats, hn::Max(hn::Sub(most, coverage), hn::Zero(ints)));
        const auto weight = hn::ConvertTo(floats, hn::LoadU(ints, pPen + i));
        const auto more = hn::Add(hn::Mul(hn::Mul(missing, weight), part), half);
        hn::StoreU(hn::Add(coverage, hn::ConvertTo(ints, more)), ints, pCoverage + i);
    }
    if constexpr (hn::MaxLanes(D()) > 1)
        StampRow(hn::Half<D>(), pCoverage + i, pPen + i, nCount - i, iHighest);
}

void StampWeights(const StampArea& area)
{
    for (size_t y = 0; y < area.nHeight; ++y)
        StampRow(hn::ScalableTag<int>(), area.pCoverage + y * area.nCoveragePitch, area.pPen + y * area.nPenPitch,
                 area.nWidth, area.iHighest);
}

// Fifteen bits are what MulFixedPoint15 rounds away.
static_assert(FULL_WEIGHT == 1 << 15);

/// From one level towards another, by a weight whose sign is changed: so 16 bits hold all of the scale.
template<class V>
HWY_INLINE V Between(V from, V to, V negative)
{
    return hn::Add(from, hn::MulFixedPoint15(hn::Sub(from, to), negative));
}

#if HWY_TARGET == HWY_SCALAR

template<class D>
void BlendRow32(D, uint8_t* pDest, const uint8_t* pSource, const int* pWeights, size_t nCount)
{
    for (size_t i = 0; i < 4 * nCount; ++i)
    {
        const int iStep = (pSource[i] - pDest[i]) * pWeights[i / 4];
        pDest[i] = static_cast<uint8_t>(pDest[i] + ((iStep + FULL_WEIGHT / 2) >> 15));
    }
}

#else

HWY_ALIGN constexpr uint8_t aLowerHalves[] = {0, 1, 0, 1, 4, 5, 4, 5, 8, 9, 8, 9, 12, 13, 12, 13};

template<class D>
HWY_INLINE void BlendRow32(D ints, uint8_t* HWY_RESTRICT pDest, const uint8_t* HWY_RESTRICT pSource,
                           const int* HWY_RESTRICT pWeights, size_t nCount)
{
    const hn::Repartition<uint8_t, D> bytes;
    const hn::Repartition<int16_t, D> words;
    const hn::Repartition<uint16_t, D> unsignedWords;
    // Its lower half for both halves of a pixel.
    const auto twice = [&](auto weights) {
        return hn::BitCast(words,
                           hn::TableLookupBytes(hn::BitCast(bytes, weights), hn::LoadDup128(bytes, aLowerHalves)));
    };
    // Every other byte on its own, as the product needs 16 bits.
    const auto even = [&](auto pixels)
    { return hn::BitCast(words, hn::And(hn::BitCast(unsignedWords, pixels), hn::Set(unsignedWords, uint16_t{0xFF}))); };
    const auto odd = [&](auto pixels)
    { return hn::BitCast(words, hn::ShiftRight<8>(hn::BitCast(unsignedWords, pixels))); };
    size_t i = 0;
    for (; i + hn::Lanes(ints) <= nCount; i += hn::Lanes(ints))
    {
        const auto weights = hn::Neg(twice(hn::LoadU(ints, pWeights + i)));
        const auto from = hn::LoadU(bytes, pDest + 4 * i), to = hn::LoadU(bytes, pSource + 4 * i);
        const auto evenLevels = Between(even(from), even(to), weights);
        const auto oddLevels = Between(odd(from), odd(to), weights);
        hn::StoreU(hn::BitCast(bytes, hn::Or(evenLevels, hn::ShiftLeft<8>(oddLevels))), bytes, pDest + 4 * i);
    }
    if constexpr (hn::MaxLanes(D()) > 1)
        BlendRow32(hn::Half<D>(), pDest + 4 * i, pSource + 4 * i, pWeights + i, nCount - i);
}

#endif

template<class D>
HWY_INLINE void BlendRow24(D ints, uint8_t* HWY_RESTRICT pDest, const uint8_t* HWY_RESTRICT pSource,
                           const int* HWY_RESTRICT pWeights, size_t nCount)
{
    const hn::Rebind<uint8_t, D> bytes;
    const hn::Rebind<int16_t, D> words;
    const auto between = [&](auto from, auto to, auto weights)
    { return hn::DemoteTo(bytes, Between(hn::PromoteTo(words, from), hn::PromoteTo(words, to), weights)); };
    size_t i = 0;
    for (; i + hn::Lanes(ints) <= nCount; i += hn::Lanes(ints))
    {
        const auto weights = hn::DemoteTo(words, hn::Neg(hn::LoadU(ints, pWeights + i)));
        hn::Vec<decltype(bytes)> blue, green, red, blueTo, greenTo, redTo;
        hn::LoadInterleaved3(bytes, pDest + 3 * i, blue, green, red);
        hn::LoadInterleaved3(bytes, pSource + 3 * i, blueTo, greenTo, redTo);
        hn::StoreInterleaved3(between(blue, blueTo, weights), between(green, greenTo, weights),
                              between(red, redTo, weights), bytes, pDest + 3 * i);
    }
    if constexpr (hn::MaxLanes(D()) > 1)
        BlendRow24(hn::Half<D>(), pDest + 3 * i, pSource + 3 * i, pWeights + i, nCount - i);
}

void BlendRow(uint8_t* pDest, const uint8_t* pSource, const int* pWeights, size_t nCount, int64_t nPixelBytes)
{
    const hn::ScalableTag<int> ints;
    if (nPixelBytes == 3)
        return BlendRow24(ints, pDest, pSource, pWeights, nCount);
    // Vectors that lie across two cache lines take twice the time.
    const size_t nPastVector = reinterpret_cast<uintptr_t>(pDest) / 4 % hn::Lanes(ints);
    const size_t nHead = std::min(nPastVector ? hn::Lanes(ints) - nPastVector : 0, nCount);
    BlendRow32(hn::Half<decltype(ints)>(), pDest, pSource, pWeights, nHead);
    BlendRow32(ints, pDest + 4 * nHead, pSource + 4 * nHead, pWeights + nHead, nCount - nHead);
}

} // namespace HWY_NAMESPACE
} // namespace Vorpix
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace Vorpix
{

HWY_EXPORT(FindHighest);
HWY_EXPORT(StampWeights);
HWY_EXPORT(BlendRow);

bool FindHighest(const int* pWeights, size_t nCount, int& iHighest)
{
    return HWY_DYNAMIC_DISPATCH(FindHighest)(pWeights, nCount, iHighest);
}

void StampWeights(const StampArea& area) { HWY_DYNAMIC_DISPATCH(StampWeights)(area); }

void BlendRow(uint8_t* pDest, const uint8_t* pSource, const int* pWeights, size_t nCount, int64_t nPixelBytes)
{
    HWY_DYNAMIC_DISPATCH(BlendRow)(pDest, pSource, pWeights, nCount, nPixelBytes);
}

} // namespace Vorpix
#endif
