// Vectors are kept in arrays, so their size must be known when this is compiled.
#define HWY_DISABLED_TARGETS (HWY_SVE | HWY_SVE2 | HWY_SVE_256 | HWY_SVE2_128)

// This file is compiled once for each instruction set, and the best one is chosen when the program runs.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "hostlibs/ResizeKernels.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "hostlibs/ResizeKernels.h"

#include <algorithm>

HWY_BEFORE_NAMESPACE();
namespace Vorpix
{
namespace HWY_NAMESPACE
{

namespace hn = hwy::HWY_NAMESPACE;

/// The weighted sum of bytes that are nStride apart.
HWY_INLINE uint8_t WeightedByte(const uint8_t* pBytes, size_t nStride, const ResizeAxis& axis,
                                const ResizeAxis::Place& place)
{
    const int32_t* const pPairs = axis.PairsOf(place);
    int32_t iSum = 1 << (ResizeAxis::UNIT_BITS - 1);
    for (int i = 0; i < place.nTaps; ++i)
        iSum += pBytes[i * nStride] * static_cast<int16_t>(pPairs[i / 2] >> (i % 2 * 16));
    return static_cast<uint8_t>(std::clamp(iSum >> ResizeAxis::UNIT_BITS, 0, 255));
}

#if HWY_TARGET == HWY_SCALAR

struct Vector
{
    uint8_t aBytes[RESIZE_STRIP];
};

Vector Load(const uint8_t* pBytes)
{
    Vector vector;
    std::copy_n(pBytes, RESIZE_STRIP, vector.aBytes);
    return vector;
}

void Store(const Vector& vector, uint8_t* pBytes) { std::copy_n(vector.aBytes, RESIZE_STRIP, pBytes); }

Vector WeightedSum(const uint8_t* pBytes, size_t nStride, const ResizeAxis& axis, const ResizeAxis::Place& place)
{
    Vector vector;
    for (size_t i = 0; i < RESIZE_STRIP; ++i)
        vector.aBytes[i] = WeightedByte(pBytes + i, nStride, axis, place);
    return vector;
}

void Transpose(Vector (&aRows)[RESIZE_STRIP])
{
    for (size_t i = 0; i < RESIZE_STRIP; ++i)
        for (size_t j = 0; j < i; ++j)
            std::swap(aRows[i].aBytes[j], aRows[j].aBytes[i]);
}

#else

using Bytes = hn::FixedTag<uint8_t, RESIZE_STRIP>;
using Vector = hn::Vec<Bytes>;

HWY_INLINE Vector Load(const uint8_t* pBytes) { return hn::LoadU(Bytes(), pBytes); }
HWY_INLINE void Store(Vector vector, uint8_t* pBytes) { hn::StoreU(vector, Bytes(), pBytes); }

/// Sums of products, one for each of four pixels.
struct Sums
{
    static constexpr hn::FixedTag<int16_t, 8> words{};
    static constexpr hn::FixedTag<int32_t, 4> longs{};

    /// Adds pairs of bytes, widened to words, times pairs of weights.
    HWY_INLINE void Add(Vector pairs, hn::Vec<hn::FixedTag<int16_t, 8>> weights)
    {
        sum = hn::ReorderWidenMulAccumulate(longs, hn::BitCast(words, pairs), weights, sum, more);
    }
    HWY_INLINE auto Levels() const
    {
        const auto all = hn::RearrangeToOddPlusEven(sum, more);
        return hn::ShiftRight<ResizeAxis::UNIT_BITS>(hn::Add(all, hn::Set(longs, 1 << (ResizeAxis::UNIT_BITS - 1))));
    }
    hn::Vec<hn::FixedTag<int32_t, 4>> sum, more;
};

/// The same for two bytes: the first, and a part of the way to the second. iPart is below 1 << UNIT_BITS.
HWY_INLINE Vector Between(Vector first, Vector second, int iPart)
{
    const Bytes bytes;
    const Vector zero = hn::Zero(bytes);
    // The product is rounded as the sum would be, since the first byte is whole.
    const auto part = hn::Set(Sums::words, static_cast<int16_t>(iPart << (15 - ResizeAxis::UNIT_BITS)));
    const auto on = [&](Vector from, Vector to)
    {
        const auto words = hn::BitCast(Sums::words, from);
        return hn::Add(words, hn::MulFixedPoint15(hn::Sub(hn::BitCast(Sums::words, to), words), part));
    };
    const hn::Half<Bytes> halfBytes;
    const auto lower = on(hn::InterleaveLower(bytes, first, zero), hn::InterleaveLower(bytes, second, zero));
    const auto upper = on(hn::InterleaveUpper(bytes, first, zero), hn::InterleaveUpper(bytes, second, zero));
    return hn::Combine(bytes, hn::DemoteTo(halfBytes, upper), hn::DemoteTo(halfBytes, lower));
}

/// The same for as many bytes side by side as a vector has.
HWY_INLINE Vector WeightedSum(const uint8_t* HWY_RESTRICT pBytes, size_t nStride, const ResizeAxis& axis,
                              const ResizeAxis::Place& place)
{
    const Bytes bytes;
    const Vector zero = hn::Zero(bytes);
    const int32_t* HWY_RESTRICT pPairs = axis.PairsOf(place);
    const int32_t iSecond = *pPairs >> 16;
    if (place.nTaps == 2 && iSecond >= 0 && iSecond < 1 << ResizeAxis::UNIT_BITS)
        return Between(Load(pBytes), Load(pBytes + nStride), iSecond);
    const auto none = hn::Zero(Sums::longs);
    Sums aSums[4] = {{none, none}, {none, none}, {none, none}, {none, none}};
    for (int i = 0; i < place.nTaps; i += 2, pBytes += 2 * nStride)
    {
        const Vector first = Load(pBytes);
        const Vector second = Load(i + 1 < place.nTaps ? pBytes + nStride : pBytes);
        const auto weights = hn::BitCast(Sums::words, hn::Set(Sums::longs, *pPairs++));
        const Vector lower = hn::InterleaveLower(bytes, first, second);
        const Vector upper = hn::InterleaveUpper(bytes, first, second);
        aSums[0].Add(hn::InterleaveLower(bytes, lower, zero), weights);
        aSums[1].Add(hn::InterleaveUpper(bytes, lower, zero), weights);
        aSums[2].Add(hn::InterleaveLower(bytes, upper, zero), weights);
        aSums[3].Add(hn::InterleaveUpper(bytes, upper, zero), weights);
    }
    const hn::Half<Bytes> halfBytes;
    const auto lower = hn::ReorderDemote2To(Sums::words, aSums[0].Levels(), aSums[1].Levels());
    const auto upper = hn::ReorderDemote2To(Sums::words, aSums[2].Levels(), aSums[3].Levels());
    return hn::Combine(bytes, hn::DemoteTo(halfBytes, upper), hn::DemoteTo(halfBytes, lower));
}

/// Turns rows into columns.
HWY_INLINE void Transpose(Vector (&aRows)[RESIZE_STRIP])
{
    // Each step deals the second half in between the first one, like cards; four of them exchange the indices.
    for (int iStep = 0; iStep < 4; ++iStep)
    {
        Vector aDealt[RESIZE_STRIP];
        for (size_t i = 0; i < RESIZE_STRIP / 2; ++i)
        {
            aDealt[2 * i] = hn::InterleaveLower(Bytes(), aRows[i], aRows[i + RESIZE_STRIP / 2]);
            aDealt[2 * i + 1] = hn::InterleaveUpper(Bytes(), aRows[i], aRows[i + RESIZE_STRIP / 2]);
        }
        std::copy_n(aDealt, RESIZE_STRIP, aRows);
    }
}

#endif

void SumRows(const ResizePlane& source, const ResizeAxis& axis, size_t y, uint8_t* HWY_RESTRICT pRow)
{
    const ResizeAxis::Place& place = axis.Places()[y];
    const uint8_t* const pFirst = source.Row(place.iFirst);
    size_t x = 0;
    for (; x + RESIZE_STRIP <= source.nWidth; x += RESIZE_STRIP)
        Store(WeightedSum(pFirst + x, source.nWidth, axis, place), pRow + x);
    for (; x < source.nWidth; ++x)
        pRow[x] = WeightedByte(pFirst + x, source.nWidth, axis, place);
}

void RowsToColumns(const uint8_t* HWY_RESTRICT pRows, size_t nStride, uint8_t* HWY_RESTRICT pColumns)
{
    for (size_t x = 0; x < nStride; x += RESIZE_STRIP)
    {
        Vector aBlock[RESIZE_STRIP];
        for (size_t i = 0; i < RESIZE_STRIP; ++i)
            aBlock[i] = Load(pRows + i * nStride + x);
        Transpose(aBlock);
        for (size_t i = 0; i < RESIZE_STRIP; ++i)
            Store(aBlock[i], pColumns + (x + i) * RESIZE_STRIP);
    }
}

void SumColumns(const uint8_t* HWY_RESTRICT pColumns, const ResizeAxis& axis, uint8_t* HWY_RESTRICT pRows, size_t nRows)
{
    const size_t nWidth = axis.Places().size();
    for (size_t x = 0; x < nWidth; x += RESIZE_STRIP)
    {
        const size_t nColumns = std::min(RESIZE_STRIP, nWidth - x);
        Vector aBlock[RESIZE_STRIP];
        for (size_t i = 0; i < RESIZE_STRIP; ++i)
        {
            const ResizeAxis::Place& place = axis.Places()[x + std::min(i, nColumns - 1)];
            aBlock[i] = WeightedSum(pColumns + place.iFirst * RESIZE_STRIP, RESIZE_STRIP, axis, place);
        }
        Transpose(aBlock);
        for (size_t i = 0; i < nRows; ++i)
        {
            uint8_t aRow[RESIZE_STRIP];
            uint8_t* const pRow = pRows + i * nWidth + x;
            Store(aBlock[i], nColumns == RESIZE_STRIP ? pRow : aRow);
            if (nColumns < RESIZE_STRIP)
                std::copy_n(aRow, nColumns, pRow);
        }
    }
}

void HalveRows(const uint8_t* HWY_RESTRICT pUpper, const uint8_t* HWY_RESTRICT pLower, uint8_t* HWY_RESTRICT pRow,
               size_t nWidth)
{
    size_t x = 0;
#if HWY_TARGET != HWY_SCALAR
    const hn::ScalableTag<int16_t> words;
    const auto pairsOf = [&](const uint8_t* pBytes)
    {
        const auto pairs = hn::BitCast(words, hn::LoadU(hn::Repartition<uint8_t, decltype(words)>(), pBytes));
        const hn::RebindToUnsigned<decltype(words)> unsignedWords;
        const auto second = hn::BitCast(words, hn::ShiftRight<8>(hn::BitCast(unsignedWords, pairs)));
        return hn::Add(hn::And(pairs, hn::Set(words, int16_t{0xFF})), second);
    };
    for (; x + hn::Lanes(words) <= nWidth; x += hn::Lanes(words))
    {
        const auto fours = hn::Add(pairsOf(pUpper + 2 * x), pairsOf(pLower + 2 * x));
        const auto means = hn::ShiftRight<2>(hn::Add(fours, hn::Set(words, int16_t{2})));
        const hn::Rebind<uint8_t, decltype(words)> bytes;
        hn::StoreU(hn::DemoteTo(bytes, means), bytes, pRow + x);
    }
#endif
    for (; x < nWidth; ++x)
        pRow[x] = static_cast<uint8_t>((pUpper[2 * x] + pUpper[2 * x + 1] + pLower[2 * x] + pLower[2 * x + 1] + 2) / 4);
}

} // namespace HWY_NAMESPACE
} // namespace Vorpix
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace Vorpix
{

HWY_EXPORT(SumRows);
HWY_EXPORT(RowsToColumns);
HWY_EXPORT(SumColumns);
HWY_EXPORT(HalveRows);

void SumRows(const ResizePlane& source, const ResizeAxis& axis, size_t y, uint8_t* pRow)
{
    HWY_DYNAMIC_DISPATCH(SumRows)(source, axis, y, pRow);
}

void RowsToColumns(const uint8_t* pRows, size_t nStride, uint8_t* pColumns)
{
    HWY_DYNAMIC_DISPATCH(RowsToColumns)(pRows, nStride, pColumns);
}

void SumColumns(const uint8_t* pColumns, const ResizeAxis& axis, uint8_t* pRows, size_t nRows)
{
    HWY_DYNAMIC_DISPATCH(SumColumns)(pColumns, axis, pRows, nRows);
}

void HalveRows(const uint8_t* pUpper, const uint8_t* pLower, uint8_t* pRow, size_t nWidth)
{
    HWY_DYNAMIC_DISPATCH(HalveRows)(pUpper, pLower, pRow, nWidth);
}

} // namespace Vorpix
#endif
