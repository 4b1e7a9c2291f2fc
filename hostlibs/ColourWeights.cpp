// This file is compiled once for each instruction set, and the best one is chosen when the program runs.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "hostlibs/ColourWeights.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "hostlibs/ColourWeights.h"

#include <algorithm>

HWY_BEFORE_NAMESPACE();
namespace
{
namespace HWY_NAMESPACE
{

namespace hn = hwy::HWY_NAMESPACE;

uint8_t Difference(uint8_t uOne, uint8_t uOther)
{
    return static_cast<uint8_t>(std::max(uOne, uOther) - std::min(uOne, uOther));
}

uint8_t Weight(const uint8_t* pPixel, const ColourMatch& match)
{
    const int iDistance = std::max({Difference(pPixel[0], match.vColour[0]), Difference(pPixel[1], match.vColour[1]),
                                    Difference(pPixel[2], match.vColour[2])});
    const auto nBeyond = static_cast<size_t>(std::max(iDistance - match.uTolerance, 0));
    return nBeyond < ColourMatch::BEYOND ? match.vBeyond[nBeyond] : uint8_t{0};
}

#if HWY_TARGET != HWY_SCALAR

using Bytes = hn::ScalableTag<uint8_t>;
using Vector = hn::Vec<Bytes>;

/// The weights of as many pixels as a vector has bytes.
class VectorMatch
{
public:
    explicit VectorMatch(const ColourMatch& match)
        : m_vBlue(hn::Set(m_d, match.vColour[0])), m_vGreen(hn::Set(m_d, match.vColour[1])),
          m_vRed(hn::Set(m_d, match.vColour[2])), m_vTolerance(hn::Set(m_d, match.uTolerance))
    {
        for (size_t i = 0; i < TABLES; ++i)
        {
            std::copy_n(match.vBeyond.begin() + i * ENTRIES, ENTRIES, m_vTables[i]);
            m_nUsed =
                std::any_of(m_vTables[i], m_vTables[i] + ENTRIES, [](uint8_t u) { return u != 0; }) ? i + 1 : m_nUsed;
        }
    }

    Vector Weights(Vector vBlue, Vector vGreen, Vector vRed) const
    {
        const Vector vDistance =
            hn::Max(hn::Max(Difference(vBlue, m_vBlue), Difference(vGreen, m_vGreen)), Difference(vRed, m_vRed));
        const Vector vBeyond = hn::SaturatedSub(vDistance, m_vTolerance);
        Vector vWeights = hn::Zero(m_d);
        for (size_t i = 0; i < m_nUsed; ++i)
        {
            // Of indices beyond these sixteen entries the top bit becomes set, which looks up 0.
            const Vector vIndex = hn::Xor(vBeyond, hn::Set(m_d, static_cast<uint8_t>(i * ENTRIES)));
            const Vector vTable = hn::LoadDup128(m_d, m_vTables[i]);
            vWeights = hn::Or(vWeights, hn::TableLookupBytesOr0(vTable, hn::SaturatedAdd(vIndex, hn::Set(m_d, 0x70))));
        }
        return vWeights;
    }

private:
    static constexpr size_t ENTRIES = 16;
    static constexpr size_t TABLES = ColourMatch::BEYOND / ENTRIES;

    static Vector Difference(Vector vOne, Vector vOther)
    {
        return hn::Or(hn::SaturatedSub(vOne, vOther), hn::SaturatedSub(vOther, vOne));
    }

    Bytes m_d;
    Vector m_vBlue, m_vGreen, m_vRed, m_vTolerance;
    alignas(16) uint8_t m_vTables[TABLES][ENTRIES];
    size_t m_nUsed = 0;
};

/// Weighs whole vectors of pixels, and gives how many pixels that were.
size_t WeighVectors(uint8_t* pWeights, const uint8_t* pPixels, size_t nPixels, size_t nPixelBytes,
                    const ColourMatch& match)
{
    const Bytes d;
    const size_t nLanes = hn::Lanes(d);
    const VectorMatch vectorMatch(match);
    size_t i = 0;
    for (; i + nLanes <= nPixels; i += nLanes)
    {
        Vector vBlue, vGreen, vRed, vUnused;
        if (nPixelBytes == 4)
            hn::LoadInterleaved4(d, pPixels + 4 * i, vBlue, vGreen, vRed, vUnused);
        else
            hn::LoadInterleaved3(d, pPixels + 3 * i, vBlue, vGreen, vRed);
        hn::StoreU(vectorMatch.Weights(vBlue, vGreen, vRed), d, pWeights + i);
    }
    return i;
}

#else

size_t WeighVectors(uint8_t*, const uint8_t*, size_t, size_t, const ColourMatch&) { return 0; }

#endif

void Weigh(uint8_t* pWeights, const uint8_t* pPixels, size_t nPixels, size_t nPixelBytes, const ColourMatch& match)
{
    for (size_t i = WeighVectors(pWeights, pPixels, nPixels, nPixelBytes, match); i < nPixels; ++i)
        pWeights[i] = Weight(pPixels + i * nPixelBytes, match);
}

} // namespace HWY_NAMESPACE
} // namespace
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace
{
HWY_EXPORT(Weigh);
}

ColourMatch::ColourMatch(const std::array<uint8_t, 3>& vColourOfMatch, int iToleranceOfMatch)
    : vColour(vColourOfMatch), uTolerance(static_cast<uint8_t>(iToleranceOfMatch))
{
    const int iFall = iToleranceOfMatch == 0 ? 1 : std::max(16, iToleranceOfMatch / 4);
    for (int i = 0; i < static_cast<int>(BEYOND); ++i)
        vBeyond[static_cast<size_t>(i)] =
            static_cast<uint8_t>((255 * (iFall - std::min(i, iFall)) + iFall / 2) / iFall);
}

void WeighPixels(uint8_t* pWeights, const uint8_t* pPixels, size_t nPixels, size_t nPixelBytes,
                 const ColourMatch& match)
{
    HWY_DYNAMIC_DISPATCH(Weigh)(pWeights, pPixels, nPixels, nPixelBytes, match);
}

#endif
