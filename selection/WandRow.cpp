// This file is compiled once for each instruction set, and the best one is chosen when the program runs.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "selection/WandRow.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "selection/WandRow.h"

#include "platform/minmax.h"

HWY_BEFORE_NAMESPACE();
namespace Pixtane
{
namespace HWY_NAMESPACE
{

namespace hn = hwy::HWY_NAMESPACE;

#if HWY_TARGET != HWY_SCALAR

using Bytes = hn::ScalableTag<uint8_t>;

/// How many pixels vectors do: they read and write 8 bytes of bits at a time, which must be the row's own.
size_t VectorPixels(size_t nPixels)
{
    const size_t nLanes = hn::Lanes(Bytes());
    const size_t nBits = (nPixels + 63) / 64 * 64;
    return std::min(nPixels, nBits + nLanes - 64) / nLanes * nLanes;
}

template<int PIXEL_BYTES>
HWY_INLINE hn::Mask<Bytes> Matches(const uint8_t* pPixels, const ColourRange& range)
{
    const Bytes bytes;
    hn::Vec<Bytes> blue, green, red, unused;
    if constexpr (PIXEL_BYTES == 4)
        hn::LoadInterleaved4(bytes, pPixels, blue, green, red, unused);
    else
        hn::LoadInterleaved3(bytes, pPixels, blue, green, red);
    const auto beyond = [&](auto channel, int i)
    { return hn::SaturatedSub(hn::Sub(channel, hn::Set(bytes, range.vLeast[i])), hn::Set(bytes, range.vAbove[i])); };
    return hn::Eq(hn::Or(hn::Or(beyond(blue, 0), beyond(green, 1)), beyond(red, 2)), hn::Zero(bytes));
}

#endif

template<int PIXEL_BYTES>
void MatchRow(const uint8_t* HWY_RESTRICT pPixels, size_t nPixels, const ColourRange& range,
              uint8_t* HWY_RESTRICT pBits)
{
    size_t i = 0;
#if HWY_TARGET != HWY_SCALAR
    for (; i < VectorPixels(nPixels); i += hn::Lanes(Bytes()))
        hn::StoreMaskBits(Bytes(), Matches<PIXEL_BYTES>(pPixels + i * PIXEL_BYTES, range), pBits + i / 8);
#endif
    std::fill(pBits + i / 8, pBits + (nPixels + 63) / 64 * 8, uint8_t{0});
    for (; i < nPixels; ++i)
        pBits[i / 8] = static_cast<uint8_t>(pBits[i / 8] | range.Has(pPixels + i * PIXEL_BYTES) << i % 8);
}

void MatchPixels(const uint8_t* pPixels, int nPixelBytes, size_t nPixels, const ColourRange& range, uint8_t* pBits)
{
    if (nPixelBytes == 4)
        MatchRow<4>(pPixels, nPixels, range, pBits);
    else
        MatchRow<3>(pPixels, nPixels, range, pBits);
}

void WidenBits(const uint8_t* HWY_RESTRICT pBits, size_t nPixels, uint8_t* HWY_RESTRICT pBytes)
{
    size_t i = 0;
#if HWY_TARGET != HWY_SCALAR
    const Bytes bytes;
    for (; i < VectorPixels(nPixels); i += hn::Lanes(bytes))
        hn::StoreU(hn::VecFromMask(bytes, hn::LoadMaskBits(bytes, pBits + i / 8)), bytes, pBytes + i);
#endif
    for (; i < nPixels; ++i)
        pBytes[i] = pBits[i / 8] >> i % 8 & 1 ? 255 : 0;
}

} // namespace HWY_NAMESPACE
} // namespace Pixtane
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

#include <bit>

namespace Pixtane
{

// A row's words are its bytes in order.
static_assert(std::endian::native == std::endian::little);

HWY_EXPORT(MatchPixels);
HWY_EXPORT(WidenBits);

void MatchPixels(const std::uint8_t* pPixels, int nPixelBytes, std::size_t nPixels, const ColourRange& range,
                 std::uint64_t* pBits)
{
    HWY_DYNAMIC_DISPATCH(MatchPixels)(pPixels, nPixelBytes, nPixels, range, reinterpret_cast<std::uint8_t*>(pBits));
}

void WidenBits(const std::uint64_t* pBits, std::size_t nPixels, std::uint8_t* pBytes)
{
    HWY_DYNAMIC_DISPATCH(WidenBits)(reinterpret_cast<const std::uint8_t*>(pBits), nPixels, pBytes);
}

} // namespace Pixtane

#endif
