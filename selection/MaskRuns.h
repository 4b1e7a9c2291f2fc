#pragma once

#include "platform/framework.h"

#include <bit>
#include <cstdint>
#include <cstring>

namespace Pixtane
{

/// Which of eight bytes are not 0, the first as the lowest bit.
inline std::uint64_t NonZeroBytes(std::uint64_t uBytes)
{
    constexpr std::uint64_t LOW_SEVEN = 0x7F7F7F7F7F7F7F7F;
    // The top bit of each byte that is not 0; then all eight of them side by side.
    const std::uint64_t uTopBits = (((uBytes & LOW_SEVEN) + LOW_SEVEN) | uBytes) & ~LOW_SEVEN;
    return (uTopBits >> 7) * 0x0102040810204080 >> 56;
}

/// The same of up to 64 bytes; those beyond nBytes count as 0. Little-endian.
inline std::uint64_t NonZeroBytes(const BYTE* pBytes, int nBytes)
{
    constexpr int WORD = sizeof(std::uint64_t);
    std::uint64_t uBits = 0;
    int i = 0;
    for (; i + WORD <= nBytes; i += WORD)
    {
        std::uint64_t uBytes;
        std::memcpy(&uBytes, pBytes + i, WORD);
        uBits |= NonZeroBytes(uBytes) << i;
    }
    for (; i < nBytes; ++i)
        uBits |= std::uint64_t{pBytes[i] != 0} << i;
    return uBits;
}

/// Calls emit(iFirst, iEnd) for each run of set bits of a row, 64 bits at a time from bits(iWord); nBits in all, and
/// none set beyond.
template<class Bits, class Emit>
void ForEachRun(int nBits, Bits bits, Emit emit)
{
    constexpr int WORD_BITS = 64;
    std::uint64_t uLastBit = 0;
    int iFirst = 0;
    for (int iBase = 0; iBase < nBits; iBase += WORD_BITS)
    {
        const std::uint64_t uBits = bits(iBase / WORD_BITS);
        std::uint64_t uEdges = uBits ^ (uBits << 1 | uLastBit);
        for (bool bInside = uLastBit; uEdges; uEdges &= uEdges - 1, bInside = !bInside)
        {
            const int iEdge = iBase + std::countr_zero(uEdges);
            if (bInside)
                emit(iFirst, iEdge);
            else
                iFirst = iEdge;
        }
        uLastBit = uBits >> (WORD_BITS - 1);
    }
    if (uLastBit)
        emit(iFirst, nBits);
}

/// The same for the bytes of a row that are not 0.
template<class Emit>
void ForEachMaskRun(const BYTE* pRow, int nBytes, Emit emit)
{
    constexpr int WORD_BITS = 64;
    const auto bits = [=](int iWord)
    {
        const int nLeft = nBytes - iWord * WORD_BITS;
        return NonZeroBytes(pRow + iWord * WORD_BITS, nLeft < WORD_BITS ? nLeft : WORD_BITS);
    };
    ForEachRun(nBytes, bits, emit);
}

} // namespace Pixtane
