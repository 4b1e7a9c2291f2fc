#include "platform/vorpix.h"

#include "hostlibs/FeatherKernel.h"

#include <algorithm>
#include <cstdint>
#include <new>

namespace
{

/// Filters a line of nCount pixels, nStride bytes apart; writes those from nFirst up to nEnd.
void FilterLine(const FeatherKernel& kernel, unsigned char* pLine, size_t nStride, int64_t nCount, int64_t nFirst,
                int64_t nEnd, std::vector<unsigned char>& vCopy)
{
    vCopy.resize(nCount);
    for (int64_t i = 0; i < nCount; ++i)
        vCopy[i] = pLine[i * nStride];
    const auto At = [&](int64_t n) -> uint64_t { return vCopy[std::clamp<int64_t>(n, 0, nCount - 1)]; };

    const int64_t r = kernel.iRadius;
    uint64_t a = 0, b = 0, c = At(0) * kernel.nUnit + kernel.nUnit / 2;
    for (int64_t n = 1; n < nEnd + kernel.iReach; ++n)
    {
        a += At(n) - 3 * At(n - r) + 3 * At(n - 2 * r) - At(n - 3 * r);
        b += a;
        const int64_t nSmoother = r % 2 ? (static_cast<int64_t>(a) + 4) >> 3 : static_cast<int64_t>(b) >> 1;
        const uint64_t nSum = c + nSmoother;
        c += b;
        if (n - kernel.iReach >= nFirst)
            pLine[(n - kernel.iReach) * nStride] = kernel.LevelOf(nSum);
    }
}

} // namespace

bool Vorpix::FeatherRegion(std::vector<unsigned char>& vMask, RECT& rcBox, int iRadius, int iWidth, int iHeight,
                           void (*pfnProgress)(size_t, size_t), bool)
{
    if (iWidth <= 0 || iHeight <= 0 || vMask.size() != static_cast<uint64_t>(iWidth) * iHeight)
        return false;
    int64_t nLeft = std::max<int64_t>(rcBox.left, 0), nRight = std::min<int64_t>(rcBox.right, iWidth);
    int64_t nTop = std::max<int64_t>(rcBox.top, 0), nBottom = std::min<int64_t>(rcBox.bottom, iHeight);
    if (nLeft >= nRight || nTop >= nBottom)
        return false;
    if (iRadius <= 0)
        return true;

    const FeatherKernel kernel(std::min(iRadius, FeatherKernel::MAX_RADIUS));
    nLeft = std::max<int64_t>(nLeft - kernel.iReach, 0), nRight = std::min<int64_t>(nRight + kernel.iReach, iWidth);
    nTop = std::max<int64_t>(nTop - kernel.iReach, 0), nBottom = std::min<int64_t>(nBottom + kernel.iReach, iHeight);
    std::vector<unsigned char> vResult = vMask, vCopy;
    for (int64_t x = 0; x < iWidth; ++x)
        FilterLine(kernel, &vResult[x], iWidth, iHeight, nTop, nBottom, vCopy);
    for (int64_t y = nTop; y < nBottom; ++y)
    {
        FilterLine(kernel, &vResult[y * iWidth], 1, iWidth, nLeft, nRight, vCopy);
        std::copy_n(&vResult[y * iWidth + nLeft], nRight - nLeft, &vMask[y * iWidth + nLeft]);
    }
    if (pfnProgress)
        pfnProgress(1, 1);
    return true;
}
