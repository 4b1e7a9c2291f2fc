#include "gdi/Handles.h"
#include "gdi/RectMath.h"
#include "gdi/SourceCopy.h"
#include "gdi/StretchAxis.h"

using namespace winlite;

namespace
{

constexpr std::uint32_t COLOUR_MASK = 0xFFFFFF;

struct SourcePixels
{
    const std::uint32_t* pFirst;
    std::ptrdiff_t nStride;
};

void DrawRow(std::uint32_t* pDest, const std::uint32_t* pSource, std::size_t nPixels, std::uint32_t uKey)
{
    // Writing every pixel, be it as it was, leaves no branch in the loop.
    for (std::size_t i = 0; i < nPixels; ++i)
        pDest[i] = (pSource[i] & COLOUR_MASK) == uKey ? pDest[i] : pSource[i];
}

/// Draws within a rectangle that lies on both axes.
void DrawRect(Surface& dest, const RECT& rc, const SourcePixels& source, const NearestAxis& axisX,
              const NearestAxis& axisY, std::uint32_t uKey)
{
    const auto vColumns = std::span(axisX.vSource).subspan(rc.left - axisX.iFirst, rc.right - rc.left);
    const bool bUnscaled = axisX.IsUnscaled();
    std::vector<std::uint32_t> vScaled(bUnscaled ? 0 : vColumns.size());
    std::uint32_t* pDest = dest.PixelsForUpdate() + rc.top * dest.Stride() + rc.left;
    for (int y = rc.top; y < rc.bottom; ++y, pDest += dest.Stride())
    {
        const int ySource = axisY.vSource[static_cast<std::size_t>(y - axisY.iFirst)];
        const std::uint32_t* pRow = source.pFirst + ySource * source.nStride;
        if (bUnscaled)
        {
            DrawRow(pDest, pRow + vColumns.front(), vColumns.size(), uKey);
            continue;
        }
        std::ranges::transform(vColumns, vScaled.begin(), [pRow](int iColumn) { return pRow[iColumn]; });
        DrawRow(pDest, vScaled.data(), vScaled.size(), uKey);
    }
}

void DrawKeyed(const DeviceContext& dcDest, const SourcePixels& source, const NearestAxis& axisX,
               const NearestAxis& axisY, std::uint32_t uKey)
{
    const RECT rcAxes = {axisX.iFirst, axisY.iFirst, axisX.End(), axisY.End()};
    const Region rgnDrawn = dcDest.Clip() & rcAxes;
    for (const RECT& rc : rgnDrawn.Rects())
        DrawRect(dcDest.Target(), rc, source, axisX, axisY, uKey);
    dcDest.ReportDamage(rgnDrawn);
}

bool IsWithin(const RECT& rc, const RECT& rcWhole)
{
    return rc.left >= rcWhole.left && rc.top >= rcWhole.top && rc.right <= rcWhole.right && rc.bottom <= rcWhole.bottom;
}

} // namespace

BOOL TransparentBlt(HDC hDest, int x, int y, int cx, int cy, HDC hSrc, int xSrc, int ySrc, int cxSrc, int cySrc,
                    UINT crTransparent)
{
    const auto pDest = FindDC(hDest);
    const auto pSource = FindDC(hSrc);
    if (!pDest || !pSource || std::min({cx, cy, cxSrc, cySrc}) < 0)
        return FALSE;
    if (std::min({cx, cy, cxSrc, cySrc}) == 0)
        return TRUE;
    const Surface& source = pSource->Target();
    const POINT ptSource = pSource->ToSurface(POINT{xSrc, ySrc});
    const RECT rcSource = {ptSource.x, ptSource.y, Saturated(std::int64_t{ptSource.x} + cxSrc),
                           Saturated(std::int64_t{ptSource.y} + cySrc)};
    if (!IsWithin(rcSource, source.Bounds()))
        return FALSE;
    const RECT rcClip = pDest->Clip().Box();
    const AxisSpan destX = {std::int64_t{x} + pDest->Origin().x, cx};
    const AxisSpan destY = {std::int64_t{y} + pDest->Origin().y, cy};
    const StretchAxis stretchX(destX, {rcSource.left, cxSrc}, source.Width(), rcClip.left, rcClip.right);
    const StretchAxis stretchY(destY, {rcSource.top, cySrc}, source.Height(), rcClip.top, rcClip.bottom);
    if (stretchX.IsEmpty() || stretchY.IsEmpty())
        return TRUE;
    NearestAxis axisX = stretchX.Nearest();
    NearestAxis axisY = stretchY.Nearest();
    const std::uint32_t uKey = PixelFromColorRef(crTransparent);
    if (&pDest->Target() == &source)
    {
        const SourceCopy copy(source, axisX, axisY);
        DrawKeyed(*pDest, {copy.Pixels(), copy.Stride()}, axisX, axisY, uKey);
        return TRUE;
    }
    DrawKeyed(*pDest, {source.Pixels(), source.Stride()}, axisX, axisY, uKey);
    return TRUE;
}
