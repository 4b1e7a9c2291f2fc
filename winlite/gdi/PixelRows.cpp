#include "gdi/PixelRows.h"

#include "gdi/RectMath.h"
#include "gdi/UnpackRgb.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <memory>
#include <utility>

namespace winlite
{

static_assert(std::endian::native == std::endian::little, "Pixels are loaded as whole words.");

namespace
{

template<class T>
T Load(const BYTE* pBytes)
{
    T value;
    std::memcpy(&value, pBytes, sizeof value);
    return value;
}

template<int BITS>
std::uint32_t PixelAt(const BYTE* pRow, std::ptrdiff_t x);

template<>
std::uint32_t PixelAt<32>(const BYTE* pRow, std::ptrdiff_t x)
{
    return Load<std::uint32_t>(pRow + 4 * x);
}

template<>
std::uint32_t PixelAt<24>(const BYTE* pRow, std::ptrdiff_t x)
{
    const BYTE* pPixel = pRow + 3 * x;
    return Load<WORD>(pPixel) | std::uint32_t{pPixel[2]} << 16;
}

template<>
std::uint32_t PixelAt<16>(const BYTE* pRow, std::ptrdiff_t x)
{
    // Five bits become eight by repeating their upper three below them.
    const std::uint32_t u = Load<WORD>(pRow + 2 * x);
    const std::uint32_t uHigh = (u & 0x7C00) << 9 | (u & 0x03E0) << 6 | (u & 0x001F) << 3;
    return uHigh | (uHigh >> 5 & 0x070707);
}

template<int BITS>
void CopyRun(std::uint32_t* pDest, const BYTE* pRow, std::ptrdiff_t xFirst, std::ptrdiff_t nPixels)
{
    for (std::ptrdiff_t i = 0; i < nPixels; ++i)
        pDest[i] = PixelAt<BITS>(pRow, xFirst + i);
}

template<>
void CopyRun<32>(std::uint32_t* pDest, const BYTE* pRow, std::ptrdiff_t xFirst, std::ptrdiff_t nPixels)
{
    std::memcpy(pDest, pRow + 4 * xFirst, static_cast<std::size_t>(4 * nPixels));
}

template<>
void CopyRun<24>(std::uint32_t* pDest, const BYTE* pRow, std::ptrdiff_t xFirst, std::ptrdiff_t nPixels)
{
    UnpackRgb(pDest, pRow + 3 * xFirst, static_cast<std::size_t>(nPixels));
}

bool IsSteady(std::span<const int> vSource, int iStep)
{
    // Both ends tell it apart almost always, so that the walk is rarely in vain.
    const auto nSteps = static_cast<std::ptrdiff_t>(vSource.size()) - 1;
    if (vSource.back() - vSource.front() != nSteps * iStep)
        return false;
    for (std::size_t i = 1; i < vSource.size(); ++i)
    {
        if (vSource[i] != vSource[i - 1] + iStep)
            return false;
    }
    return true;
}

/// Takes every STEP-th pixel.
template<int BITS, int STEP>
void TakeEvery(std::uint32_t* pDest, const BYTE* pRow, std::ptrdiff_t xFirst, std::ptrdiff_t nPixels)
{
    for (std::ptrdiff_t i = 0; i < nPixels; ++i)
        pDest[i] = PixelAt<BITS>(pRow, xFirst + i * STEP);
}

/// Each source pixel is wanted more than once: all are converted once, and then repeated from there.
template<int BITS>
void RepeatPixels(std::uint32_t* pDest, const BYTE* pRow, std::span<const int> vSource)
{
    const int xFirst = vSource.front();
    const std::ptrdiff_t nConverted = vSource.back() - xFirst + 1;
    const auto pConverted = std::make_unique_for_overwrite<std::uint32_t[]>(static_cast<std::size_t>(nConverted));
    CopyRun<BITS>(pConverted.get(), pRow, xFirst, nConverted);
    const auto* const pBytes = reinterpret_cast<const BYTE*>(pConverted.get());
    for (std::size_t i = 0; i < vSource.size(); ++i)
        pDest[i] = PixelAt<32>(pBytes, vSource[i] - xFirst);
}

template<int BITS>
void ConvertRow(std::uint32_t* pDest, const BYTE* pRow, std::span<const int> vSource, Order order)
{
    const auto nPixels = static_cast<std::ptrdiff_t>(vSource.size());
    switch (order)
    {
    case Order::Ascending:
        return CopyRun<BITS>(pDest, pRow, vSource.front(), nPixels);
    case Order::Descending:
        return TakeEvery<BITS, -1>(pDest, pRow, vSource.front(), nPixels);
    case Order::EverySecond:
        return TakeEvery<BITS, 2>(pDest, pRow, vSource.front(), nPixels);
    case Order::EveryFourth:
        return TakeEvery<BITS, 4>(pDest, pRow, vSource.front(), nPixels);
    case Order::Repeating:
        // Whole words need no conversion that could be saved.
        if constexpr (BITS != 32)
            return RepeatPixels<BITS>(pDest, pRow, vSource);
        break;
    case Order::Any:
        break;
    }
    for (std::ptrdiff_t i = 0; i < nPixels; ++i)
        pDest[i] = PixelAt<BITS>(pRow, vSource[static_cast<std::size_t>(i)]);
}

using RowConverter = void (*)(std::uint32_t*, const BYTE*, std::span<const int>, Order);

RowConverter ConverterFor(int iBitsPixel)
{
    return iBitsPixel == 32 ? ConvertRow<32> : iBitsPixel == 24 ? ConvertRow<24> : ConvertRow<16>;
}

/// The source indices of the axis for destinations iFirst to iEnd, which lie on it.
std::span<const int> Part(const NearestAxis& axis, int iFirst, int iEnd)
{
    return std::span(axis.vSource).subspan(iFirst - axis.iFirst, iEnd - iFirst);
}

void DrawRect(Surface& surface, const RECT& rc, const PixelRows& rows, std::span<const int> vColumns,
              std::span<const int> vRows)
{
    const RowConverter pConvert = ConverterFor(rows.iBitsPixel);
    const Order order = OrderOf(vColumns);
    std::uint32_t* pDest = surface.PixelsForOverwrite(rc) + rc.top * surface.Stride() + rc.left;
    for (std::size_t i = 0; i < vRows.size(); ++i, pDest += surface.Stride())
    {
        if (i > 0 && vRows[i] == vRows[i - 1])
            std::memcpy(pDest, pDest - surface.Stride(), vColumns.size_bytes());
        else
            pConvert(pDest, rows.Row(vRows[i]), vColumns, order);
    }
}

} // namespace

Order OrderOf(std::span<const int> vSource)
{
    for (const auto& [order, iStep] : {std::pair{Order::Ascending, 1}, std::pair{Order::Descending, -1},
                                       std::pair{Order::EverySecond, 2}, std::pair{Order::EveryFourth, 4}})
    {
        if (IsSteady(vSource, iStep))
            return order;
    }
    const bool bRepeats = std::ranges::is_sorted(vSource) &&
                          vSource.back() - vSource.front() < static_cast<std::ptrdiff_t>(vSource.size());
    return bRepeats ? Order::Repeating : Order::Any;
}

RECT DrawRows(Surface& surface, const Region& rgnClip, const PixelRows& rows, const NearestAxis& axisX,
              const NearestAxis& axisY)
{
    const RECT rcAxes = {axisX.iFirst, axisY.iFirst, axisX.End(), axisY.End()};
    const RECT rcLimit = Intersection(rcAxes, surface.Bounds());
    RECT rcDrawn = {};
    for (const RECT& rcClip : rgnClip.Rects())
    {
        const RECT rc = Intersection(rcClip, rcLimit);
        if (!HasArea(rc))
            continue;
        DrawRect(surface, rc, rows, Part(axisX, rc.left, rc.right), Part(axisY, rc.top, rc.bottom));
        rcDrawn = UnionBox(rcDrawn, rc);
    }
    return rcDrawn;
}

} // namespace winlite
