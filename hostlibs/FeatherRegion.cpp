#include "platform/vorpix.h"

#include "hostlibs/FeatherStrip.h"
#include "hostlibs/ParallelFor.h"

#include <algorithm>
#include <functional>
#include <new>

namespace
{

struct Range
{
    int iFirst, iEnd;
    bool IsEmpty() const { return iFirst >= iEnd; }
    int Length() const { return iEnd - iFirst; }
    Range Grown(int iBy, int iSize) const { return {std::max(iFirst - iBy, 0), std::min(iEnd, iSize - iBy) + iBy}; }
};

/// A copy of a part of the mask.
class KeptPixels
{
public:
    KeptPixels(unsigned char* pMask, int iWidth, Range columns, Range rows)
        : m_pFirst(pMask + static_cast<size_t>(rows.iFirst) * iWidth + columns.iFirst), m_nPitch(iWidth),
          m_nLength(columns.Length()), m_nRows(rows.Length()), m_vBytes(m_nLength * m_nRows)
    {
        for (size_t y = 0; y < m_nRows; ++y)
            std::copy_n(m_pFirst + y * m_nPitch, m_nLength, m_vBytes.data() + y * m_nLength);
    }

    void Restore() const
    {
        for (size_t y = 0; y < m_nRows; ++y)
            std::copy_n(m_vBytes.data() + y * m_nLength, m_nLength, m_pFirst + y * m_nPitch);
    }

private:
    unsigned char* m_pFirst;
    size_t m_nPitch, m_nLength, m_nRows;
    std::vector<unsigned char> m_vBytes;
};

/// One feather: all it needs is allocated before it writes.
class Feather
{
public:
    Feather(unsigned char* pMask, int iWidth, int iHeight, int iRadius, Range columns, Range rows)
        : m_pMask(pMask), m_iWidth(iWidth), m_iHeight(iHeight), m_Kernel(iRadius),
          m_Columns(columns.Grown(m_Kernel.iReach, iWidth)), m_Rows(rows.Grown(m_Kernel.iReach, iHeight)),
          m_ReadColumns(m_Columns.Grown(m_Kernel.iReach, iWidth)), m_ReadRows(m_Rows.Grown(m_Kernel.iReach, iHeight)),
          m_Left(pMask, iWidth, {m_ReadColumns.iFirst, m_Columns.iFirst}, m_Rows),
          m_Right(pMask, iWidth, {m_Columns.iEnd, m_ReadColumns.iEnd}, m_Rows)
    {
        const int64_t nPixels = int64_t{m_ReadColumns.Length()} * m_Rows.Length();
        const size_t nWorkers = nPixels < PIXELS_WORTH_A_THREAD ? 1 : ParallelThreads();
        m_vStrips.assign(nWorkers, FeatherStrip(m_Kernel, std::max(m_ReadColumns.Length(), m_ReadRows.Length())));
    }

    /// The columns, those included whose pixels beside the grown box the rows want.
    void FilterColumns()
    {
        StripLines lines = {};
        lines.bColumns = true;
        lines.nCount = m_ReadRows.Length();
        lines.nFirst = m_Rows.iFirst - m_ReadRows.iFirst;
        lines.nEnd = m_Rows.iEnd - m_ReadRows.iFirst;
        FilterStrips(lines, m_ReadColumns, m_ReadRows.iFirst * static_cast<size_t>(m_iWidth), 1);
    }

    void FilterRows()
    {
        StripLines lines = {};
        lines.nCount = m_ReadColumns.Length();
        lines.nFirst = m_Columns.iFirst - m_ReadColumns.iFirst;
        lines.nEnd = m_Columns.iEnd - m_ReadColumns.iFirst;
        FilterStrips(lines, m_Rows, m_ReadColumns.iFirst, m_iWidth);
        m_Left.Restore();
        m_Right.Restore();
    }

private:
    static constexpr int64_t PIXELS_WORTH_A_THREAD = 1 << 18;

    /// Filters the lines of a range, each nLinePitch bytes after the one before it and with its first pixel at nOffset.
    void FilterStrips(StripLines lines, Range across, size_t nOffset, size_t nLinePitch)
    {
        lines.nPitch = m_iWidth;
        lines.pFirst = m_pMask + nOffset + across.iFirst * nLinePitch;
        const auto FilterSome = [this, &lines, nLinePitch](size_t nWorker, size_t nBegin, size_t nEnd)
        {
            StripLines strip = lines;
            for (size_t n = nBegin; n < nEnd; n += FEATHER_LANES)
            {
                strip.pFirst = lines.pFirst + n * nLinePitch;
                strip.iLines = static_cast<int>(std::min<size_t>(FEATHER_LANES, nEnd - n));
                m_vStrips[nWorker].Filter(strip);
            }
        };
        // Neighbouring strips of columns share cache lines, which is why a thread takes several.
        const size_t nGrain = (lines.bColumns ? 4 : 1) * FEATHER_LANES;
        ParallelFor(across.Length(), nGrain, m_vStrips.size(), std::ref(FilterSome));
    }

    unsigned char* m_pMask;
    int m_iWidth, m_iHeight;
    FeatherKernel m_Kernel;
    /// The grown box, and what its pixels depend on.
    Range m_Columns, m_Rows, m_ReadColumns, m_ReadRows;
    KeptPixels m_Left, m_Right;
    std::vector<FeatherStrip> m_vStrips;
};

} // namespace

bool Vorpix::FeatherRegion(std::vector<unsigned char>& vMask, RECT& rcBox, int iRadius, int iWidth, int iHeight,
                           void (*pfnProgress)(size_t, size_t), bool)
try
{
    if (iWidth <= 0 || iHeight <= 0 || vMask.size() != static_cast<uint64_t>(iWidth) * iHeight)
        return false;
    const Range columns = {std::max<int>(rcBox.left, 0), std::min<int>(rcBox.right, iWidth)};
    const Range rows = {std::max<int>(rcBox.top, 0), std::min<int>(rcBox.bottom, iHeight)};
    if (columns.IsEmpty() || rows.IsEmpty())
        return false;
    if (iRadius <= 0)
        return true;

    const int iLongest = std::min(std::max(iWidth, iHeight), FeatherKernel::MAX_RADIUS);
    Feather feather(vMask.data(), iWidth, iHeight, std::min(iRadius, iLongest), columns, rows);
    feather.FilterColumns();
    if (pfnProgress)
        pfnProgress(1, 2);
    feather.FilterRows();
    if (pfnProgress)
        pfnProgress(2, 2);
    return true;
}
catch (const std::bad_alloc&)
{
    return false;
}
