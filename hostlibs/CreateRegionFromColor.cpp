#include "platform/vorpix.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace
{

using Weights = std::array<unsigned char, 256>;

/// The weight of each distance.
Weights WeightsFor(int iTolerance)
{
    const int iFall = iTolerance == 0 ? 1 : std::max(16, iTolerance / 4);
    Weights weights;
    for (int i = 0; i < 256; ++i)
    {
        const int iBeyond = std::clamp(i - iTolerance, 0, iFall);
        weights[static_cast<size_t>(i)] = static_cast<unsigned char>((255 * (iFall - iBeyond) + iFall / 2) / iFall);
    }
    return weights;
}

unsigned char Difference(unsigned char one, unsigned char other)
{
    return static_cast<unsigned char>(std::max(one, other) - std::min(one, other));
}

/// The distances of pixels from a colour (blue, green, red), written so that compilers work on many at a time.
template<int BYTES>
void Distances(unsigned char* pDistances, const unsigned char* pPixels, int nPixels, const unsigned char (&vColour)[3])
{
    const unsigned char b = vColour[0], g = vColour[1], r = vColour[2];
    for (int i = 0; i < nPixels; ++i)
    {
        const unsigned char* const pPixel = pPixels + static_cast<ptrdiff_t>(i) * BYTES;
        const unsigned char uBlueGreen = std::max(Difference(pPixel[0], b), Difference(pPixel[1], g));
        pDistances[i] = std::max(uBlueGreen, Difference(pPixel[2], r));
    }
}

} // namespace

bool Vorpix::CreateRegionFromColor(const unsigned char* pBits, BITMAPINFO& info, RECT& rcArea,
                                   std::vector<unsigned char>& vMask, unsigned long uColour, int iTolerance,
                                   void (*pfnProgress)(size_t, size_t))
{
    const BITMAPINFOHEADER& header = info.bmiHeader;
    const int cx = header.biWidth;
    const int cy = header.biHeight;
    const int nPixelBytes = header.biBitCount / 8;
    if (!pBits || cx <= 0 || cy <= 0 || (header.biBitCount != 24 && header.biBitCount != 32) || iTolerance < 0 ||
        vMask.size() != static_cast<uint64_t>(cx) * cy)
        return false;
    const int iLeft = std::max<int>(rcArea.left, 0), iRight = std::min<int>(rcArea.right, cx);
    const int iTop = std::max<int>(rcArea.top, 0), iBottom = std::min<int>(rcArea.bottom, cy);
    if (iLeft >= iRight || iTop >= iBottom)
        return false;
    const unsigned char vColour[3] = {static_cast<unsigned char>(uColour >> 16),
                                      static_cast<unsigned char>(uColour >> 8), static_cast<unsigned char>(uColour)};
    const Weights weights = WeightsFor(std::min(iTolerance, 255));
    const size_t nStride = (static_cast<size_t>(cx) * nPixelBytes + 3) / 4 * 4;
    for (int y = iTop; y < iBottom; ++y)
    {
        const unsigned char* const pRow = pBits + static_cast<size_t>(cy - 1 - y) * nStride;
        unsigned char* const pMask = vMask.data() + static_cast<size_t>(y) * cx + iLeft;
        const auto distances = nPixelBytes == 4 ? Distances<4> : Distances<3>;
        distances(pMask, pRow + static_cast<size_t>(iLeft) * nPixelBytes, iRight - iLeft, vColour);
        for (int i = 0; i < iRight - iLeft; ++i)
            pMask[i] = weights[pMask[i]];
    }
    if (pfnProgress)
        pfnProgress(1, 1);
    return true;
}
