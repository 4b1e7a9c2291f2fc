#include "platform/vorpix.h"

#include "hostlibs/ResampleAxis.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <new>

namespace
{

using Sums = std::vector<int32_t>;

constexpr int SHIFT = 14;
static_assert(1 << SHIFT == ResampleAxis::UNIT);

/// The nearest whole level, halves upwards.
unsigned char LevelOf(int32_t iSum)
{
    return static_cast<unsigned char>(std::clamp((iSum + ResampleAxis::UNIT / 2) >> SHIFT, 0, 255));
}

/// One row of the result's height, still of the source's width.
void CombineRows(unsigned char* pRow, const unsigned char* pBits, int nWidth, const ResampleAxis::Taps& taps,
                 Sums& vSums)
{
    const unsigned char* pSource = pBits + static_cast<size_t>(taps.iFirst) * nWidth;
    if (taps.nTaps == 1)
    {
        std::memcpy(pRow, pSource, static_cast<size_t>(nWidth));
        return;
    }
    std::fill(vSums.begin(), vSums.end(), 0);
    for (int i = 0; i < taps.nTaps; ++i, pSource += nWidth)
    {
        const int16_t iWeight = taps.pWeights[i];
        for (int x = 0; x < nWidth; ++x)
            vSums[static_cast<size_t>(x)] += static_cast<int16_t>(pSource[x]) * iWeight;
    }
    for (int x = 0; x < nWidth; ++x)
        pRow[x] = LevelOf(vSums[static_cast<size_t>(x)]);
}

void ResizeRow(unsigned char* pDest, const unsigned char* pSource, const ResampleAxis& axis)
{
    for (int x = 0; x < axis.nDest; ++x)
    {
        const ResampleAxis::Taps taps = axis.Of(x);
        int32_t iSum = 0;
        for (int i = 0; i < taps.nTaps; ++i)
            iSum += pSource[taps.iFirst + i] * taps.pWeights[i];
        pDest[x] = LevelOf(iSum);
    }
}

bool Fits(const BITMAPINFOHEADER& header, size_t nBytes)
{
    return header.biWidth > 0 && header.biHeight > 0 && header.biBitCount == 8 &&
           nBytes >= static_cast<uint64_t>(header.biWidth) * header.biHeight;
}

} // namespace

bool Vorpix::Resize(const unsigned char* pBits, size_t nBytes, const BITMAPINFO& info, std::vector<unsigned char>& vOut,
                    BITMAPINFO& infoOut, int iWidth, int iHeight, RESIZE_ALGORITHM eAlgorithm,
                    void (*pfnProgress)(size_t, size_t))
try
{
    const BITMAPINFOHEADER& header = info.bmiHeader;
    const int64_t nOut = static_cast<int64_t>(iWidth) * iHeight;
    if (!pBits || !Fits(header, nBytes) || iWidth <= 0 || iHeight <= 0 || nOut > std::numeric_limits<LONG>::max() ||
        (eAlgorithm != RESIZE_SMOOTH && eAlgorithm != RESIZE_SHARP))
        return false;
    const auto filter = eAlgorithm == RESIZE_SHARP ? ResampleAxis::Filter::Cubic : ResampleAxis::Filter::Linear;
    const ResampleAxis axisX(header.biWidth, iWidth, filter);
    const ResampleAxis axisY(header.biHeight, iHeight, filter);
    std::vector<unsigned char> vResized(static_cast<size_t>(nOut));
    std::vector<unsigned char> vRow(static_cast<size_t>(header.biWidth));
    Sums vSums(vRow.size());
    for (int y = 0; y < iHeight; ++y)
    {
        unsigned char* const pDest = vResized.data() + static_cast<size_t>(y) * iWidth;
        const bool bSameWidth = iWidth == header.biWidth;
        CombineRows(bSameWidth ? pDest : vRow.data(), pBits, header.biWidth, axisY.Of(y), vSums);
        if (!bSameWidth)
            ResizeRow(pDest, vRow.data(), axisX);
    }
    infoOut = info;
    infoOut.bmiHeader.biWidth = iWidth;
    infoOut.bmiHeader.biHeight = iHeight;
    infoOut.bmiHeader.biSizeImage = static_cast<DWORD>(nOut);
    vOut = std::move(vResized);
    if (pfnProgress)
        pfnProgress(1, 1);
    return true;
}
catch (const std::bad_alloc&)
{
    return false;
}
