#include "pixels/Straighten.h"

#include "pixels/Bands.h"
#include "pixels/CubicRow.h"
#include "pixels/CubicWeights.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <numbers>
#include <utility>

namespace
{

/// The cosine and sine of an angle, exact at multiples of 90 degrees.
struct Direction
{
    double dCos;
    double dSin;

    explicit Direction(double dAngleDegrees)
    {
        int nQuarters = 0;
        const double dRadians = std::remquo(dAngleDegrees, 90.0, &nQuarters) * std::numbers::pi / 180;
        dCos = std::cos(dRadians);
        dSin = std::sin(dRadians);
        for (int i = nQuarters & 3; i > 0; --i)
            dCos = -std::exchange(dSin, dCos);
    }
};

/// From the target's pixels back to the source.
class CRotation
{
public:
    CRotation(const PixelView& source, const PixelView& target, double dAngleDegrees)
        : m_source(source), m_target(target),
          m_direction(dAngleDegrees), m_step{Fine(m_direction.dCos), Fine(-m_direction.dSin)}
    {
    }

    /// Fills a part of a row of the target.
    void Fill(int iFirst, int iEnd, int y) const;

private:
    static std::int64_t Fine(double dPixels) { return std::llround(std::ldexp(dPixels, FinePoint::BITS)); }
    FinePoint At(int x, int y) const;
    FinePoint Further(FinePoint at, int nPixels) const
    {
        return {at.x + nPixels * m_step.x, at.y + nPixels * m_step.y};
    }
    bool HasAllAround(FinePoint at) const;
    int InnerRun(FinePoint at, int nPixels) const;
    void FillAtEdge(std::uint8_t* pTarget, FinePoint at) const;

    PixelView m_source;
    PixelView m_target;
    Direction m_direction;
    FinePoint m_step; ///< To the place in the source of the next pixel to the right.
};

/// The place in the source of a pixel of the target, such that cutting it off to the steps of the weights rounds it.
FinePoint CRotation::At(int x, int y) const
{
    constexpr std::int64_t HALF_STEP = std::int64_t{1} << (FinePoint::BITS - CubicWeights::STEP_BITS - 1);
    const double dRight = x - (m_target.cx - 1) / 2.0;
    const double dDown = y - (m_target.cy - 1) / 2.0;
    const double dX = dRight * m_direction.dCos + dDown * m_direction.dSin + (m_source.cx - 1) / 2.0;
    const double dY = dDown * m_direction.dCos - dRight * m_direction.dSin + (m_source.cy - 1) / 2.0;
    return {Fine(dX) + HALF_STEP, Fine(dY) + HALF_STEP};
}

bool CRotation::HasAllAround(FinePoint at) const
{
    const std::int64_t x = at.x >> FinePoint::BITS;
    const std::int64_t y = at.y >> FinePoint::BITS;
    return x >= 1 && x < m_source.cx - 2 && y >= 1 && y < m_source.cy - 2;
}

void CRotation::FillAtEdge(std::uint8_t* pTarget, FinePoint at) const
{
    constexpr std::int64_t PIXEL = std::int64_t{1} << FinePoint::BITS;
    const std::int64_t iLeft = (at.x >> FinePoint::BITS) - 1;
    const std::int64_t iTop = (at.y >> FinePoint::BITS) - 1;
    std::array<std::ptrdiff_t, 4> columns;
    for (int i = 0; i < 4; ++i)
        columns[static_cast<std::size_t>(i)] = 4 * std::clamp<std::int64_t>(iLeft + i, 0, m_source.cx - 1);
    std::array<std::uint8_t, 64> around;
    std::uint8_t* pAround = around.data();
    for (int i = 0; i < 4; ++i)
    {
        const auto y = std::clamp<std::int64_t>(iTop + i, 0, m_source.cy - 1);
        for (const std::ptrdiff_t iColumn : columns)
        {
            std::memcpy(pAround, m_source.Row(static_cast<int>(y)) + iColumn, 4);
            pAround += 4;
        }
    }
    const FinePoint inside = {PIXEL + (at.x & (PIXEL - 1)), PIXEL + (at.y & (PIXEL - 1))};
    CubicRow(pTarget, 1, around.data(), 16, inside, {});
}

/// How many of up to nPixels places in a row, from there on, have 4 x 4 pixels of the source around them.
int CRotation::InnerRun(FinePoint at, int nPixels) const
{
    if (!HasAllAround(at))
        return 0;
    // The places lie on a line: what holds for both ends holds between them.
    if (HasAllAround(Further(at, nPixels - 1)))
        return nPixels;
    int n = 1;
    while (HasAllAround(Further(at, n)))
        ++n;
    return n;
}

void CRotation::Fill(int iFirst, int iEnd, int y) const
{
    FinePoint at = At(iFirst, y);
    for (int x = iFirst; x < iEnd;)
    {
        std::uint8_t* const pTarget = m_target.Row(y) + std::ptrdiff_t{4} * x;
        const int nInside = InnerRun(at, iEnd - x);
        if (nInside > 0)
            CubicRow(pTarget, nInside, m_source.pTop, m_source.nStride, at, m_step);
        else
            FillAtEdge(pTarget, at);
        const int nDone = std::max(nInside, 1);
        at = Further(at, nDone);
        x += nDone;
    }
}

} // namespace

PixelSize InscribedSize(int cx, int cy, double dAngleDegrees)
{
    if (!std::isfinite(dAngleDegrees))
        return {};
    const Direction direction(dAngleDegrees);
    const double dCos = std::abs(direction.dCos);
    const double dSin = std::abs(direction.dSin);
    const double dLong = std::max(cx, cy);
    const double dShort = std::min(cx, cy);
    double dWidth = 0;
    double dHeight = 0;
    // At the limit both rules yield the same, but for a square the second divides by nearly nothing.
    constexpr double ABOVE_LIMIT = 1 + 1e-12;
    if (dShort <= 2 * dSin * dCos * dLong * ABOVE_LIMIT)
    {
        // Two opposite corners in the middle between the long sides.
        dWidth = dShort / 2 / (cx >= cy ? dSin : dCos);
        dHeight = dShort / 2 / (cx >= cy ? dCos : dSin);
    }
    else
    {
        // Width and height, rotated, span the source's: cx = width cos + height sin, cy = width sin + height cos.
        const double dCosTwice = dCos * dCos - dSin * dSin;
        dWidth = (cx * dCos - cy * dSin) / dCosTwice;
        dHeight = (cy * dCos - cx * dSin) / dCosTwice;
    }
    constexpr double ROUNDING_ERROR = 1e-7;
    return {std::max(1, static_cast<int>(dWidth + ROUNDING_ERROR)),
            std::max(1, static_cast<int>(dHeight + ROUNDING_ERROR))};
}

bool Straighten(const PixelView& source, const PixelView& target, double dAngleDegrees, CProgress& progress)
{
    if (!std::isfinite(dAngleDegrees))
        return false;
    // Squares: what lies side by side there lies close together in the source too, whatever the angle.
    constexpr int SIDE = 64;
    const CRotation rotation(source, target, dAngleDegrees);
    return ForBands(target.cy, progress,
                    [&](int iFirst, int iEnd)
                    {
                        for (int iLeft = 0; iLeft < target.cx; iLeft += SIDE)
                        {
                            for (int y = iFirst; y < iEnd; ++y)
                                rotation.Fill(iLeft, std::min(iLeft + SIDE, target.cx), y);
                        }
                    });
}
