// This file is compiled once for each instruction set, and the best one is chosen when the program runs.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "hostlibs/CreateRegionFromColor.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "hostlibs/ColourWeights.h"
#include "platform/vorpix.h"

#include <algorithm>
#include <cstdint>

HWY_BEFORE_NAMESPACE();
namespace Vorpix
{
namespace HWY_NAMESPACE
{

namespace hn = hwy::HWY_NAMESPACE;

#if HWY_TARGET != HWY_SCALAR

using Bytes = hn::ScalableTag<uint8_t>;

/// The weights of as many pixels as a vector has bytes.
template<int PIXEL_BYTES>
HWY_INLINE hn::Vec<Bytes> WeightsOf(const uint8_t* pPixels, const ColourWeights& weights)
{
    const Bytes bytes;
    hn::Vec<Bytes> blue, green, red, unused;
    if constexpr (PIXEL_BYTES == 4)
        hn::LoadInterleaved4(bytes, pPixels, blue, green, red, unused);
    else
        hn::LoadInterleaved3(bytes, pPixels, blue, green, red);
    const auto apart = [&](auto channel, uint8_t uLevel)
    {
        const auto level = hn::Set(bytes, uLevel);
        return hn::Or(hn::SaturatedSub(channel, level), hn::SaturatedSub(level, channel));
    };
    const auto distance =
        hn::Max(hn::Max(apart(blue, weights.uBlue), apart(green, weights.uGreen)), apart(red, weights.uRed));
    const auto beyond = hn::SaturatedSub(distance, hn::Set(bytes, weights.uTolerance));
    const auto rest = hn::SaturatedSub(hn::Set(bytes, weights.uFall), beyond);

    // Every other byte on its own, as the product needs 16 bits.
    const hn::Repartition<uint16_t, Bytes> words;
    const auto pairs = hn::BitCast(words, rest);
    const auto scaled = [&](auto levels)
    { return hn::Add(hn::Mul(levels, hn::Set(words, weights.uFactor)), hn::Set(words, uint16_t{128})); };
    const auto even = hn::ShiftRight<8>(scaled(hn::And(pairs, hn::Set(words, uint16_t{0x00FF}))));
    const auto odd = hn::And(scaled(hn::ShiftRight<8>(pairs)), hn::Set(words, uint16_t{0xFF00}));
    return hn::BitCast(bytes, hn::Or(even, odd));
}

#endif

template<int PIXEL_BYTES>
void WeighRow(const uint8_t* HWY_RESTRICT pPixels, uint8_t* HWY_RESTRICT pMask, size_t nPixels,
              const ColourWeights& weights)
{
    size_t i = 0;
#if HWY_TARGET != HWY_SCALAR
    const size_t nLanes = hn::Lanes(Bytes());
    for (; i + nLanes <= nPixels; i += nLanes)
        hn::StoreU(WeightsOf<PIXEL_BYTES>(pPixels + i * PIXEL_BYTES, weights), Bytes(), pMask + i);
#endif
    for (; i < nPixels; ++i)
        pMask[i] = weights.WeightOf(pPixels + i * PIXEL_BYTES);
}

void WeighPixels(const uint8_t* pPixels, int64_t nPixelBytes, uint8_t* pMask, size_t nPixels,
                 const ColourWeights& weights)
{
    if (nPixelBytes == 4)
        WeighRow<4>(pPixels, pMask, nPixels, weights);
    else
        WeighRow<3>(pPixels, pMask, nPixels, weights);
}

} // namespace HWY_NAMESPACE
} // namespace Vorpix
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace Vorpix
{
HWY_EXPORT(WeighPixels);
}

bool Vorpix::CreateRegionFromColor(const unsigned char* pBits, BITMAPINFO& info, RECT& rcArea,
                                   std::vector<unsigned char>& vMask, unsigned long crColor, int iTolerance,
                                   void (*pfnProgress)(size_t, size_t))
{
    const int64_t nWidth = info.bmiHeader.biWidth, nHeight = info.bmiHeader.biHeight;
    const int64_t nPixelBytes = info.bmiHeader.biBitCount / 8;
    if (!pBits || (info.bmiHeader.biBitCount != 24 && info.bmiHeader.biBitCount != 32) || iTolerance < 0)
        return false;
    if (nWidth <= 0 || nHeight <= 0 || vMask.size() != static_cast<uint64_t>(nWidth * nHeight))
        return false;
    const int64_t nLeft = std::max<int64_t>(rcArea.left, 0), nRight = std::min<int64_t>(rcArea.right, nWidth);
    const int64_t nTop = std::max<int64_t>(rcArea.top, 0), nBottom = std::min<int64_t>(rcArea.bottom, nHeight);
    if (nLeft >= nRight || nTop >= nBottom)
        return false;

    const ColourWeights weights(crColor, iTolerance);
    const int64_t nStride = (nWidth * nPixelBytes + 3) / 4 * 4;
    const auto pWeighPixels = HWY_DYNAMIC_DISPATCH(WeighPixels);
    for (int64_t y = nTop; y < nBottom; ++y)
        pWeighPixels(pBits + (nHeight - 1 - y) * nStride + nLeft * nPixelBytes, nPixelBytes, &vMask[y * nWidth + nLeft],
                     nRight - nLeft, weights);
    if (pfnProgress)
        pfnProgress(1, 1);
    return true;
}

#endif
