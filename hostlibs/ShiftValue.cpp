// Vectors are halved down to one lane, so their size must be known when this is compiled.
#define HWY_DISABLED_TARGETS (HWY_SVE | HWY_SVE2 | HWY_SVE_256 | HWY_SVE2_128 | HWY_RVV)

// This file is compiled once for each instruction set, and the best one is chosen when the program runs.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "hostlibs/ShiftValue.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "hostlibs/HsvShift.h"

HWY_BEFORE_NAMESPACE();
namespace Vorpix
{
namespace HWY_NAMESPACE
{

namespace hn = hwy::HWY_NAMESPACE;

/// A level that was added to this is the low byte of the number's bits, rounded to nearest.
constexpr float LOW_BYTE = 1 << 23;

/// Pixels of 4 bytes, one in each lane.
template<class D>
struct Pixels32
{
    static constexpr int BYTES = 4;
    static constexpr D ints{};
    using V = hn::Vec<D>;

    HWY_INLINE explicit Pixels32(const uint8_t* p) : all(hn::LoadU(ints, reinterpret_cast<const int32_t*>(p)))
    {
        const V byte = hn::Set(ints, 0xFF);
        blue = hn::And(all, byte);
        green = hn::And(hn::ShiftRight<8>(all), byte);
        red = hn::And(hn::ShiftRight<16>(all), byte);
    }
    /// Takes the low bytes; the two above must be 0.
    HWY_INLINE void Store(uint8_t* p) const
    {
        const V byte = hn::Set(ints, 0xFF);
        const V greenRed = hn::Or(hn::ShiftLeft<8>(green), hn::ShiftLeft<16>(red));
        const V colour = hn::And(hn::Or(hn::And(blue, byte), greenRed), hn::Set(ints, 0xFFFFFF));
        hn::StoreU(hn::Or(hn::AndNot(hn::Set(ints, 0xFFFFFF), all), colour), ints, reinterpret_cast<int32_t*>(p));
    }
    V blue, green, red, all;
};

/// Pixels of 3 bytes.
template<class D>
struct Pixels24
{
    static constexpr int BYTES = 3;
    static constexpr D ints{};
    static constexpr hn::Rebind<uint8_t, D> bytes{};

    HWY_INLINE explicit Pixels24(const uint8_t* p)
    {
        hn::Vec<hn::Rebind<uint8_t, D>> first, second, third;
        hn::LoadInterleaved3(bytes, p, first, second, third);
        blue = hn::PromoteTo(ints, first);
        green = hn::PromoteTo(ints, second);
        red = hn::PromoteTo(ints, third);
    }
    HWY_INLINE void Store(uint8_t* p) const
    {
        const auto low = [](auto channel) { return hn::DemoteTo(bytes, hn::And(channel, hn::Set(ints, 0xFF))); };
        hn::StoreInterleaved3(low(blue), low(green), low(red), bytes, p);
    }
    hn::Vec<D> blue, green, red;
};

/// The new value of pixels: the shifted one, or on the way to it by a mask that is not whole.
template<class F>
HWY_INLINE hn::Vec<F> ShiftedValue(F floats, hn::Vec<F> value, const uint8_t* pMask, float fLevels)
{
    const hn::Rebind<uint8_t, F> bytes;
    const hn::Rebind<int32_t, F> ints;
    const auto white = hn::Set(floats, 255.0f);
    const auto shifted = hn::Min(hn::Max(hn::Add(value, hn::Set(floats, fLevels)), hn::Zero(floats)), white);
    const auto mask = hn::LoadU(bytes, pMask);
    if (hn::AllTrue(bytes, hn::Eq(mask, hn::Set(bytes, uint8_t{255}))))
        return shifted;
    const auto lack = hn::Sub(white, hn::ConvertTo(floats, hn::PromoteTo(ints, mask)));
    return hn::Add(shifted, hn::Mul(hn::Sub(value, shifted), hn::Mul(lack, hn::Set(floats, 1 / 255.0f))));
}

/// What is left at the end of a row is done with vectors of half the size, and so on.
template<template<class> class Pixels, class D>
HWY_INLINE void ShiftRow(D ints, uint8_t* HWY_RESTRICT pPixels, const uint8_t* HWY_RESTRICT pMask, size_t nCount,
                         float fLevels)
{
    constexpr int BYTES = Pixels<D>::BYTES;
    const hn::Rebind<float, D> floats;
    size_t i = 0;
    for (; i + hn::Lanes(ints) <= nCount; i += hn::Lanes(ints))
    {
        Pixels<D> pixels(pPixels + i * BYTES);
        const auto highest = hn::Max(hn::Max(pixels.blue, pixels.green), pixels.red);
        // Black is taken for the least grey, and changed from 0.
        const auto one = hn::Set(ints, 1);
        const auto least = hn::IfThenElseZero(hn::Eq(highest, hn::Zero(ints)), one);
        const auto value = ShiftedValue(floats, hn::ConvertTo(floats, highest), pMask + i, fLevels);
        const auto factor = hn::Div(value, hn::ConvertTo(floats, hn::Max(highest, one)));
        const auto scaled = [&](auto channel)
        {
            const auto level = hn::Mul(hn::ConvertTo(floats, hn::Or(channel, least)), factor);
            return hn::BitCast(ints, hn::Add(level, hn::Set(floats, LOW_BYTE)));
        };
        pixels.blue = scaled(pixels.blue);
        pixels.green = scaled(pixels.green);
        pixels.red = scaled(pixels.red);
        pixels.Store(pPixels + i * BYTES);
    }
    if constexpr (hn::MaxLanes(D()) > 1)
        ShiftRow<Pixels>(hn::Half<D>(), pPixels + i * BYTES, pMask + i, nCount - i, fLevels);
}

void ShiftValue(uint8_t* pPixels, const uint8_t* pMask, size_t nCount, int64_t nPixelBytes, float fLevels)
{
    const hn::ScalableTag<int32_t> ints;
    if (nPixelBytes == 4)
        ShiftRow<Pixels32>(ints, pPixels, pMask, nCount, fLevels);
    else
        ShiftRow<Pixels24>(ints, pPixels, pMask, nCount, fLevels);
}

} // namespace HWY_NAMESPACE
} // namespace Vorpix
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace Vorpix
{

HWY_EXPORT(ShiftValue);

void ShiftValue(uint8_t* pPixels, const uint8_t* pMask, size_t nCount, int64_t nPixelBytes, float fLevels)
{
    HWY_DYNAMIC_DISPATCH(ShiftValue)(pPixels, pMask, nCount, nPixelBytes, fLevels);
}

} // namespace Vorpix
#endif
