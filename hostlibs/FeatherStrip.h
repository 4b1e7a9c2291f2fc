#pragma once

#include "hostlibs/FeatherBlock.h"

#include <variant>
#include <vector>

/// Where a strip's lines lie in the mask, and which of their pixels are to be written.
struct StripLines
{
    /// Lines are FEATHER_LANES neighbouring columns or rows, or what is left of them at the end of the mask.
    unsigned char* pFirst;
    int iLines;
    size_t nPitch;
    bool bColumns;
    /// Pixels a line has, and those to write.
    int64_t nCount, nFirst, nEnd;
};

/// Feathers strips in place, with a scratch ring that remembers the pixels overwritten which the running sums still
/// want.
class FeatherStrip
{
public:
    /// For lines of up to nCount pixels. Allocates all that is needed.
    FeatherStrip(const FeatherKernel& kernel, int64_t nCount);

    void Filter(const StripLines& lines);

private:
    template<class T>
    void FilterWith(FeatherSums<T>& sums, const StripLines& lines);
    void Load(const StripLines& lines, int64_t nFrom);
    void Store(const StripLines& lines, int64_t nFrom) const;
    bool IsBlockEven(int64_t nFrom, int64_t nCount) const;
    void PointTaps(int64_t nFrom, int64_t nCount);

    unsigned char* At(int64_t n) { return &m_vRing[n % m_nCapacity * FEATHER_LANES]; }
    const unsigned char* At(int64_t n) const { return &m_vRing[n % m_nCapacity * FEATHER_LANES]; }

    FeatherKernel m_Kernel;
    int64_t m_nCapacity;
    std::vector<unsigned char> m_vRing;
    std::array<FeatherTaps, FEATHER_STEPS> m_aTaps;
    std::array<unsigned char, FEATHER_STEPS * FEATHER_LANES> m_aLevels;
    std::variant<FeatherSums<uint32_t>, FeatherSums<uint64_t>> m_Sums;
};
