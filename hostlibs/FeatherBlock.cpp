#include "hostlibs/FeatherBlock.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "hostlibs/FeatherBlock.cpp"
#include <hwy/foreach_target.h>

#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace feather::HWY_NAMESPACE
{
namespace hn = hwy::HWY_NAMESPACE;

/// Plain loops over the lanes, which the compiler turns into vectors: for the rare wide radii, and for processors
/// without vectors that the explicit ones below could use.
template<class T>
void PlainBlock(const FeatherKernel& kernel, const FeatherTaps* pTaps, FeatherSums<T>& sums, unsigned char* pLevels)
{
    using Signed = std::make_signed_t<T>;
    const bool bOdd = kernel.iRadius % 2;
    for (int i = 0; i < FEATHER_STEPS; ++i, pLevels += FEATHER_LANES)
    {
        const FeatherTaps taps = pTaps[i];
        std::array<T, FEATHER_LANES> aSums;
        for (int n = 0; n < FEATHER_LANES; ++n)
        {
            const T cBefore = sums.c[n];
            sums.a[n] += taps[0][n] - taps[3][n] + 3 * (taps[2][n] - taps[1][n]);
            sums.b[n] += sums.a[n];
            sums.c[n] += sums.b[n];
            aSums[n] = cBefore + (bOdd ? static_cast<Signed>(sums.a[n] + 4) >> 3 : static_cast<Signed>(sums.b[n]) >> 1);
        }
        for (int n = 0; n < FEATHER_LANES; ++n)
            pLevels[n] = kernel.LevelOf(aSums[n]);
    }
}

void WideBlock(const FeatherKernel& kernel, const FeatherTaps* pTaps, FeatherSums<uint64_t>& sums,
               unsigned char* pLevels)
{
    PlainBlock(kernel, pTaps, sums, pLevels);
}

#if HWY_TARGET == HWY_SCALAR

void NarrowBlock(const FeatherKernel& kernel, const FeatherTaps* pTaps, FeatherSums<uint32_t>& sums,
                 unsigned char* pLevels)
{
    PlainBlock(kernel, pTaps, sums, pLevels);
}

void Transpose(const unsigned char* pFrom, size_t nFromPitch, unsigned char* pTo, size_t nToPitch)
{
    for (size_t y = 0; y < FEATHER_LANES; ++y)
        for (size_t x = 0; x < FEATHER_STEPS; ++x)
            pTo[x * nToPitch + y] = pFrom[y * nFromPitch + x];
}

#else

// Half the pixels are the even lanes of a vector of 32-bit sums and half the odd ones of another, as they lie in a
// vector of 16-bit pixels, so that widening and narrowing move nothing between lanes.
using Tag32 = hn::ScalableTag<int32_t>;
using Tag16 = hn::Repartition<int16_t, Tag32>;
using TagU16 = hn::Repartition<uint16_t, Tag32>;
using Tag8 = hn::Rebind<uint8_t, Tag16>;
using Sum = hn::Vec<Tag32>;

HWY_INLINE hn::Vec<Tag16> ThirdDifference(const FeatherTaps& taps, size_t nLane)
{
    const Tag16 tag16;
    const Tag8 tag8;
    const auto x0 = hn::PromoteTo(tag16, hn::LoadU(tag8, taps[0] + nLane));
    const auto x1 = hn::PromoteTo(tag16, hn::LoadU(tag8, taps[1] + nLane));
    const auto x2 = hn::PromoteTo(tag16, hn::LoadU(tag8, taps[2] + nLane));
    const auto x3 = hn::PromoteTo(tag16, hn::LoadU(tag8, taps[3] + nLane));
    const auto inner = hn::Sub(x2, x1);
    return hn::Add(hn::Add(hn::Sub(x0, x3), inner), hn::Add(inner, inner));
}

/// One step of the running sums; returns the smoothed threefold sum.
template<bool ODD>
HWY_INLINE Sum Step(Sum d, Sum& a, Sum& b, Sum& c)
{
    const Sum cBefore = c;
    a = hn::Add(a, d);
    b = hn::Add(b, a);
    c = hn::Add(c, b);
    if constexpr (ODD)
        return hn::Add(cBefore, hn::ShiftRight<3>(hn::Add(a, hn::Set(Tag32(), 4))));
    else
        return hn::Add(cBefore, hn::ShiftRight<1>(b));
}

template<bool ODD>
void LanesOfBlock(const FeatherKernel& kernel, const FeatherTaps* pTaps, int32_t* pA, int32_t* pB, int32_t* pC,
                  size_t nLane, unsigned char* pLevels)
{
    const Tag32 tag32;
    const TagU16 tagU16;
    const hn::Repartition<uint32_t, Tag32> tagU32;
    Sum aEven, aOdd, bEven, bOdd, cEven, cOdd;
    hn::LoadInterleaved2(tag32, pA + nLane, aEven, aOdd);
    hn::LoadInterleaved2(tag32, pB + nLane, bEven, bOdd);
    hn::LoadInterleaved2(tag32, pC + nLane, cEven, cOdd);
    const auto factor = hn::Set(tagU16, kernel.uFactor);
    for (int i = 0; i < FEATHER_STEPS; ++i)
    {
        const auto d = hn::BitCast(tag32, ThirdDifference(pTaps[i], nLane));
        const Sum even = Step<ODD>(hn::ShiftRight<16>(hn::ShiftLeft<16>(d)), aEven, bEven, cEven);
        const Sum odd = Step<ODD>(hn::ShiftRight<16>(d), aOdd, bOdd, cOdd);
        const auto evenShort = hn::ShiftRightSame(hn::BitCast(tagU32, even), kernel.iRight);
        const auto oddShort = hn::ShiftRightSame(hn::BitCast(tagU32, odd), kernel.iRight);
        const auto all = hn::BitCast(tagU16, hn::Or(evenShort, hn::ShiftLeft<16>(oddShort)));
        const auto levels = hn::ShiftRight<6>(hn::MulHigh(hn::ShiftLeftSame(all, kernel.iLeft), factor));
        hn::StoreU(hn::DemoteTo(Tag8(), hn::BitCast(Tag16(), levels)), Tag8(), pLevels + i * FEATHER_LANES + nLane);
    }
    hn::StoreInterleaved2(aEven, aOdd, tag32, pA + nLane);
    hn::StoreInterleaved2(bEven, bOdd, tag32, pB + nLane);
    hn::StoreInterleaved2(cEven, cOdd, tag32, pC + nLane);
}

void NarrowBlock(const FeatherKernel& kernel, const FeatherTaps* pTaps, FeatherSums<uint32_t>& sums,
                 unsigned char* pLevels)
{
    int32_t* pA = reinterpret_cast<int32_t*>(sums.a.data());
    int32_t* pB = reinterpret_cast<int32_t*>(sums.b.data());
    int32_t* pC = reinterpret_cast<int32_t*>(sums.c.data());
    const auto pfnLanes = kernel.iRadius % 2 ? &LanesOfBlock<true> : &LanesOfBlock<false>;
    for (size_t nLane = 0; nLane < FEATHER_LANES; nLane += hn::Lanes(Tag16()))
        pfnLanes(kernel, pTaps, pA, pB, pC, nLane, pLevels);
}

/// Sixteen rows become columns by four perfect shuffles.
void TransposeSixteen(const unsigned char* pFrom, size_t nFromPitch, unsigned char* pTo, size_t nToPitch)
{
    const hn::FixedTag<uint8_t, 16> tag;
    hn::Vec<decltype(tag)> aRows[16], aShuffled[16];
    for (int i = 0; i < 16; ++i)
        aRows[i] = hn::LoadU(tag, pFrom + i * nFromPitch);
    for (int iRound = 0; iRound < 4; ++iRound)
    {
        for (int i = 0; i < 8; ++i)
        {
            aShuffled[2 * i] = hn::InterleaveLower(tag, aRows[i], aRows[i + 8]);
            aShuffled[2 * i + 1] = hn::InterleaveUpper(tag, aRows[i], aRows[i + 8]);
        }
        for (int i = 0; i < 16; ++i)
            aRows[i] = aShuffled[i];
    }
    for (int i = 0; i < 16; ++i)
        hn::StoreU(aRows[i], tag, pTo + i * nToPitch);
}

void Transpose(const unsigned char* pFrom, size_t nFromPitch, unsigned char* pTo, size_t nToPitch)
{
    for (size_t y = 0; y < FEATHER_LANES; y += 16)
        for (size_t x = 0; x < FEATHER_STEPS; x += 16)
            TransposeSixteen(pFrom + y * nFromPitch + x, nFromPitch, pTo + x * nToPitch + y, nToPitch);
}

#endif

} // namespace feather::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace feather
{
HWY_EXPORT(NarrowBlock);
HWY_EXPORT(WideBlock);
HWY_EXPORT(Transpose);
} // namespace feather

void FeatherBlock(const FeatherKernel& kernel, const FeatherTaps* pTaps, FeatherSums<uint32_t>& sums,
                  unsigned char* pLevels)
{
    using namespace feather;
    HWY_DYNAMIC_DISPATCH(NarrowBlock)(kernel, pTaps, sums, pLevels);
}

void FeatherBlock(const FeatherKernel& kernel, const FeatherTaps* pTaps, FeatherSums<uint64_t>& sums,
                  unsigned char* pLevels)
{
    using namespace feather;
    HWY_DYNAMIC_DISPATCH(WideBlock)(kernel, pTaps, sums, pLevels);
}

void TransposeBlock(const unsigned char* pFrom, size_t nFromPitch, unsigned char* pTo, size_t nToPitch)
{
    using namespace feather;
    HWY_DYNAMIC_DISPATCH(Transpose)(pFrom, nFromPitch, pTo, nToPitch);
}

#endif
