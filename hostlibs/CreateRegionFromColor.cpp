#include "platform/vorpix.h"

#include "hostlibs/ColourWeights.h"

#include <algorithm>
#include <cstdint>

bool Vorpix::CreateRegionFromColor(const unsigned char* pBits, BITMAPINFO& info, RECT& rcArea,
                                   std::vector<unsigned char>& vMask, unsigned long uColour, int iTolerance,
                                   void (*pfnProgress)(size_t, size_t))
{
    const BITMAPINFOHEADER& header = info.bmiHeader;
    const int cx = header.biWidth;
    const int cy = header.biHeight;
    if (!pBits || cx <= 0 || cy <= 0 || (header.biBitCount != 24 && header.biBitCount != 32) || iTolerance < 0 ||
        vMask.size() != static_cast<uint64_t>(cx) * cy)
        return false;
    const int iLeft = std::max<int>(rcArea.left, 0), iRight = std::min<int>(rcArea.right, cx);
    const int iTop = std::max<int>(rcArea.top, 0), iBottom = std::min<int>(rcArea.bottom, cy);
    if (iLeft >= iRight || iTop >= iBottom)
        return false;
    const auto channel = [uColour](int iShift) { return static_cast<uint8_t>(uColour >> iShift); };
    const ColourMatch match({channel(16), channel(8), channel(0)}, std::min(iTolerance, 255));
    const auto nPixelBytes = static_cast<size_t>(header.biBitCount / 8);
    const size_t nStride = (static_cast<size_t>(cx) * nPixelBytes + 3) / 4 * 4;
    for (int y = iTop; y < iBottom; ++y)
    {
        const unsigned char* const pRow = pBits + static_cast<size_t>(cy - 1 - y) * nStride;
        WeighPixels(vMask.data() + static_cast<size_t>(y) * cx + iLeft, pRow + static_cast<size_t>(iLeft) * nPixelBytes,
                    static_cast<size_t>(iRight - iLeft), nPixelBytes, match);
    }
    if (pfnProgress)
        pfnProgress(1, 1);
    return true;
}
