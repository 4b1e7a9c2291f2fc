#include "hostlibs/BitBltKernels.h"
#include "hostlibs/BitmapRows.h"
#include "platform/vorpix.h"

#include <algorithm>
#include <cstring>

namespace
{

/// What is processed in one direction.
struct Span
{
    /// Leaves the part inside both images, if there is one.
    Span(int iDest, int iSource, int iCount, int64_t nDestSize, int64_t nSourceSize) : nDest(iDest), nSource(iSource)
    {
        const int64_t nSkipped = std::max<int64_t>({-nDest, -nSource, 0});
        nCount = std::min<int64_t>({iCount, nDestSize - nDest, nSourceSize - nSource}) - nSkipped;
        nDest += nSkipped;
        nSource += nSkipped;
    }

    int64_t nDest, nSource, nCount;
};

void CopyPixels(uint8_t* pDest, const BitmapRows& dest, const uint8_t* pSource, const BitmapRows& source,
                const Span& columns, const Span& rows)
{
    for (int64_t y = 0; y < rows.nCount; ++y)
        std::memcpy(pDest + dest.OffsetOf(columns.nDest, rows.nDest + y),
                    pSource + source.OffsetOf(columns.nSource, rows.nSource + y), columns.nCount * dest.nPixelBytes);
}

void BlendPixels(uint8_t* pDest, const BitmapRows& dest, const uint8_t* pSource, const BitmapRows& source,
                 const Span& columns, const Span& rows, const int* pWeights)
{
    for (int64_t y = rows.nCount; y-- > 0;) // In the order of memory.
        Vorpix::BlendRow(pDest + dest.OffsetOf(columns.nDest, rows.nDest + y),
                         pSource + source.OffsetOf(columns.nSource, rows.nSource + y),
                         pWeights + (rows.nSource + y) * source.nWidth + columns.nSource, columns.nCount,
                         dest.nPixelBytes);
}

void StampPen(int* pCoverage, const BitmapRows& coverage, const int* pPen, const BitmapRows& pen, const Span& columns,
              const Span& rows, int iHighest)
{
    if (iHighest == 0)
        return;
    Vorpix::StampWeights({pCoverage + rows.nDest * coverage.nWidth + columns.nDest, size_t(coverage.nWidth),
                          pPen + rows.nSource * pen.nWidth + columns.nSource, size_t(pen.nWidth),
                          size_t(columns.nCount), size_t(rows.nCount), iHighest});
}

} // namespace

bool Vorpix::BitBlt(bool bStampToWeights, void* pDest, BITMAPINFO& infoDest, int xDest, int yDest, const void* pSource,
                    const BITMAPINFO& infoSource, int xSource, int ySource, int cx, int cy, emBitBltFlag eFlag,
                    const int* pWeights, size_t nWeights, bool, void (*pfnProgress)(size_t, size_t))
{
    const BitmapRows dest(infoDest), source(infoSource);
    if (!pDest || !pSource || !dest.bValid || !source.bValid || dest.nPixelBytes != source.nPixelBytes)
        return false;
    if (cx <= 0 || cy <= 0 || eFlag != (bStampToWeights ? BITBLT_STAMP : BITBLT_COPY))
        return false;
    const bool bWeighted = pWeights || nWeights > 0;
    if (bWeighted && (!pWeights || nWeights < static_cast<uint64_t>(source.nWidth * source.nHeight)))
        return false;
    const auto pPen = static_cast<const int*>(pSource);
    int iHighest = 0;
    if (bStampToWeights &&
        (bWeighted || dest.nPixelBytes != 4 || !FindHighest(pPen, source.nWidth * source.nHeight, iHighest)))
        return false;

    const Span columns(xDest, xSource, cx, dest.nWidth, source.nWidth);
    const Span rows(yDest, ySource, cy, dest.nHeight, source.nHeight);
    if (columns.nCount > 0 && rows.nCount > 0)
    {
        const auto pDestBytes = static_cast<uint8_t*>(pDest);
        const auto pSourceBytes = static_cast<const uint8_t*>(pSource);
        if (bStampToWeights)
            StampPen(static_cast<int*>(pDest), dest, pPen, source, columns, rows, iHighest);
        else if (bWeighted)
            BlendPixels(pDestBytes, dest, pSourceBytes, source, columns, rows, pWeights);
        else
            CopyPixels(pDestBytes, dest, pSourceBytes, source, columns, rows);
    }
    if (pfnProgress)
        pfnProgress(1, 1);
    return true;
}
