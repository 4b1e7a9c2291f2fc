#include "pixels/Straighten.h"

#include "pixels/Bands.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace
{

constexpr int TAPS = 4;
constexpr int STEPS = 256;      ///< Between two pixels.
constexpr int WEIGHT_BITS = 12; ///< Products of two weights and a level fit 32 bits.

using Weights = std::array<int, TAPS>;

/// The kernel of cubic convolution with a = -1/2.
double Kernel(double dDistance)
{
    const double d = std::abs(dDistance);
    if (d < 1)
        return (1.5 * d - 2.5) * d * d + 1;
    return d < 2 ? ((-0.5 * d + 2.5) * d - 4) * d + 2 : 0;
}

/// The weights of four neighbours for each step, which sum to 1 exactly.
const std::array<Weights, STEPS>& AllWeights()
{
    static const auto s_vWeights = []
    {
        std::array<Weights, STEPS> vAll = {};
        for (int iStep = 0; iStep < STEPS; ++iStep)
        {
            int iSum = 0;
            for (int i = 0; i < TAPS; ++i)
            {
                const double dWeight = Kernel(i - 1 - static_cast<double>(iStep) / STEPS);
                vAll[static_cast<std::size_t>(iStep)][static_cast<std::size_t>(i)] =
                    static_cast<int>(std::lround(dWeight * (1 << WEIGHT_BITS)));
                iSum += vAll[static_cast<std::size_t>(iStep)][static_cast<std::size_t>(i)];
            }
            // What rounding left over goes to the nearest neighbour.
            vAll[static_cast<std::size_t>(iStep)][iStep < STEPS / 2 ? 1 : 2] += (1 << WEIGHT_BITS) - iSum;
        }
        return vAll;
    }();
    return s_vWeights;
}

std::uint8_t Level(int iSum)
{
    return static_cast<std::uint8_t>(std::clamp((iSum + (1 << (WEIGHT_BITS - 1))) >> WEIGHT_BITS, 0, 255));
}

/// The pixel at a place in steps, from the sixteen around it.
void Interpolate(const std::array<const std::uint8_t*, TAPS>& vRows, const std::array<int, TAPS>& vColumns,
                 const Weights& across, const Weights& down, std::uint8_t* pPixel)
{
    for (int iChannel = 0; iChannel < 4; ++iChannel)
    {
        int iSum = 0;
        for (std::size_t y = 0; y < TAPS; ++y)
        {
            int iRow = 0;
            for (std::size_t x = 0; x < TAPS; ++x)
                iRow += across[x] * vRows[y][vColumns[x] + iChannel];
            iSum += down[y] * ((iRow + (1 << (WEIGHT_BITS / 2 - 1))) >> (WEIGHT_BITS / 2));
        }
        pPixel[iChannel] = Level(iSum >> (WEIGHT_BITS / 2));
    }
}

void FillPixel(const PixelView& source, double dX, double dY, std::uint8_t* pPixel)
{
    // The nearest step; a place on a pixel's middle takes that pixel as it is.
    const auto iX = static_cast<long long>(std::floor(dX * STEPS + 0.5));
    const auto iY = static_cast<long long>(std::floor(dY * STEPS + 0.5));
    const auto iColumn = static_cast<int>(iX >> 8);
    const auto iRow = static_cast<int>(iY >> 8);
    std::array<const std::uint8_t*, TAPS> vRows = {};
    std::array<int, TAPS> vColumns = {};
    for (int i = 0; i < TAPS; ++i)
    {
        vRows[static_cast<std::size_t>(i)] = source.Row(std::clamp(iRow - 1 + i, 0, source.cy - 1));
        vColumns[static_cast<std::size_t>(i)] = std::clamp(iColumn - 1 + i, 0, source.cx - 1) * 4;
    }
    Interpolate(vRows, vColumns, AllWeights()[static_cast<std::size_t>(iX & (STEPS - 1))],
                AllWeights()[static_cast<std::size_t>(iY & (STEPS - 1))], pPixel);
}

} // namespace

PixelSize InscribedSize(PixelSize size, double dDegrees)
{
    const double dAngle = dDegrees * std::numbers::pi / 180;
    const double dSin = std::abs(std::sin(dAngle));
    const double dCos = std::abs(std::cos(dAngle));
    const double dLong = std::max(size.cx, size.cy);
    const double dShort = std::min(size.cx, size.cy);
    double dWidth = 0;
    double dHeight = 0;
    if (dShort <= 2 * dSin * dCos * dLong || std::abs(dSin - dCos) < 1e-10)
    {
        const double dHalf = dShort / 2;
        dWidth = size.cx >= size.cy ? dHalf / dSin : dHalf / dCos;
        dHeight = size.cx >= size.cy ? dHalf / dCos : dHalf / dSin;
    }
    else
    {
        const double dDifference = dCos * dCos - dSin * dSin;
        dWidth = (size.cx * dCos - size.cy * dSin) / dDifference;
        dHeight = (size.cy * dCos - size.cx * dSin) / dDifference;
    }
    // A whole number that rounding made a little less stays.
    const auto whole = [](double d) { return std::max(static_cast<int>(std::floor(d + 1e-6)), 1); };
    return {whole(dWidth), whole(dHeight)};
}

bool Straighten(PixelView source, PixelView target, double dDegrees, CProgress& progress)
{
    if (!std::isfinite(dDegrees))
        return false;
    const double dAngle = std::remainder(dDegrees, 360) * std::numbers::pi / 180;
    const double dSin = std::sin(dAngle);
    const double dCos = std::cos(dAngle);
    const auto fillRows = [&](int iFirst, int iEnd)
    {
        for (int y = iFirst; y < iEnd; ++y)
        {
            const double dDown = y - (target.cy - 1) / 2.0;
            for (int x = 0; x < target.cx; ++x)
            {
                const double dRight = x - (target.cx - 1) / 2.0;
                FillPixel(source, dRight * dCos + dDown * dSin + (source.cx - 1) / 2.0,
                          dDown * dCos - dRight * dSin + (source.cy - 1) / 2.0, target.Row(y) + std::ptrdiff_t{x} * 4);
            }
        }
    };
    return ForBands(target.cy, progress, fillRows);
}
