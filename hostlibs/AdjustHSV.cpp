#include "hostlibs/BitmapRows.h"
#include "hostlibs/HsvShift.h"
#include "platform/vorpix.h"

#include <algorithm>
#include <cmath>

bool Vorpix::AdjustHSV(std::vector<unsigned char>& vBits, BITMAPINFO& info, tagPROCESS_REGION& region, double dHue,
                       double dSaturation, double dValue, void (*pfnProgress)(size_t, size_t), bool)
{
    const BitmapRows rows(info);
    if (!rows.bValid || vBits.size() < static_cast<uint64_t>(rows.nStride * rows.nHeight))
        return false;
    if (region.vRegionMask.size() != static_cast<uint64_t>(rows.nWidth * rows.nHeight))
        return false;
    if (!std::isfinite(dHue) || !std::isfinite(dSaturation) || !std::isfinite(dValue))
        return false;
    const RECT& rcArea = region.rcRegion;
    const int64_t nLeft = std::max<int64_t>(rcArea.left, 0), nRight = std::min<int64_t>(rcArea.right, rows.nWidth);
    const int64_t nTop = std::max<int64_t>(rcArea.top, 0), nBottom = std::min<int64_t>(rcArea.bottom, rows.nHeight);
    if (nLeft >= nRight || nTop >= nBottom)
        return false;

    const bool bValueAlone = dHue == 0 && dSaturation == 0;
    const float fLevels = static_cast<float>(255 * std::clamp(dValue, -1.0, 1.0));
    for (int64_t y = nTop; y < nBottom; ++y)
    {
        unsigned char* const pPixels = vBits.data() + rows.OffsetOf(nLeft, y);
        const unsigned char* const pMask = region.vRegionMask.data() + y * rows.nWidth + nLeft;
        if (bValueAlone)
            ShiftValue(pPixels, pMask, nRight - nLeft, rows.nPixelBytes, fLevels);
        else
            ShiftHsv(pPixels, pMask, nRight - nLeft, rows.nPixelBytes, {dHue, dSaturation, dValue});
    }
    if (pfnProgress)
        pfnProgress(1, 1);
    return true;
}
