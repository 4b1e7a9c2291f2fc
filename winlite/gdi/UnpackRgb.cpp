// This file is compiled once for each instruction set, and the best one is chosen when the program runs.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "gdi/UnpackRgb.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "gdi/UnpackRgb.h"

HWY_BEFORE_NAMESPACE();
namespace winlite
{
namespace HWY_NAMESPACE
{

namespace hn = hwy::HWY_NAMESPACE;

void UnpackRgb(std::uint32_t* HWY_RESTRICT pDest, const std::uint8_t* HWY_RESTRICT pSource, std::size_t nPixels)
{
    std::size_t i = 0;
#if HWY_TARGET != HWY_SCALAR
    // Four pixels at a time: 16 bytes are read, of which 12 count and go where the fourth of each pixel is zero.
    constexpr std::size_t READ_BYTES = 16;
    constexpr std::uint8_t NONE = 0x80;
    alignas(READ_BYTES) static constexpr std::uint8_t PLACES[READ_BYTES] = {0, 1, 2, NONE, 3, 4,  5,  NONE,
                                                                            6, 7, 8, NONE, 9, 10, 11, NONE};
    const hn::FixedTag<std::uint8_t, READ_BYTES> bytes;
    const hn::Repartition<std::uint32_t, decltype(bytes)> pixels;
    const auto places = hn::Load(bytes, PLACES);
    for (; 3 * i + READ_BYTES <= 3 * nPixels; i += 4)
    {
        const auto four = hn::TableLookupBytesOr0(hn::LoadU(bytes, pSource + 3 * i), places);
        hn::StoreU(hn::BitCast(pixels, four), pixels, pDest + i);
    }
#endif
    for (; i < nPixels; ++i)
    {
        const std::uint8_t* const pPixel = pSource + 3 * i;
        pDest[i] = pPixel[0] | std::uint32_t{pPixel[1]} << 8 | std::uint32_t{pPixel[2]} << 16;
    }
}

} // namespace HWY_NAMESPACE
} // namespace winlite
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace winlite
{

HWY_EXPORT(UnpackRgb);

void UnpackRgb(std::uint32_t* pDest, const std::uint8_t* pSource, std::size_t nPixels)
{
    HWY_DYNAMIC_DISPATCH(UnpackRgb)(pDest, pSource, nPixels);
}

} // namespace winlite
#endif
