#pragma once

#include "gdi/NearestScaler.h"

namespace winlite
{

/// One axis of a rectangle as block copies give it: a start and a size. A negative size includes the start and runs
/// towards smaller coordinates.
struct AxisSpan
{
    std::int64_t iStart;
    std::int64_t nSize;

    std::int64_t Length() const { return nSize < 0 ? -nSize : nSize; }
    std::int64_t Lowest() const { return nSize < 0 ? iStart + nSize + 1 : iStart; }
};

/// One axis of a block copy that scales and mirrors, with everything beyond the source's pixels cut off. Destination
/// pixel k of D takes source pixel floor((2k + 1) S / 2D) of S. A mirrored source is cut first and then mirrored within
/// what is left.
class StretchAxis
{
public:
    /// The source has pixels 0 to nSourcePixels. The destination shows only [iClipFirst, iClipEnd).
    StretchAxis(const AxisSpan& dest, const AxisSpan& source, int nSourcePixels, int iClipFirst, int iClipEnd);

    /// The destination positions that get something: First up to End.
    int First() const { return m_iFirst; }
    int End() const { return m_iEnd; }
    bool IsEmpty() const { return m_iFirst >= m_iEnd; }

    /// The source pixels that they get.
    NearestAxis Nearest() const;

private:
    int SourceOf(int iPosition) const;
    int SourceOfStep(std::int64_t iStep) const;
    std::int64_t FirstStepFrom(std::int64_t iSource) const;
    void LimitTo(int iClipFirst, int iClipEnd);

    std::int64_t m_iDestLow;
    std::int64_t m_nDest;
    std::int64_t m_iSourceLow;
    std::int64_t m_nSource;
    bool m_bMirrorDest;
    bool m_bMirrorSource;
    std::int64_t m_iStepFirst = 0; ///< Steps 0 to D count along the source; these have pixels there.
    std::int64_t m_iStepEnd = 0;
    int m_iFirst = 0;
    int m_iEnd = 0;
};

} // namespace winlite
