#include "pixels/Effects.h"
#include "pixels/Neighbourhood.h"

#include <array>
#include <cmath>
#include <cstdlib>

// Effects that look at a pixel's neighbours.

namespace
{

constexpr int CHANNELS = 3;

std::uint8_t Byte(float fValue) { return static_cast<std::uint8_t>(std::clamp(std::lround(fValue), 0L, 255L)); }

float BellCurve(float fDistance, float fDeviation)
{
    return std::exp(-fDistance * fDistance / (2 * fDeviation * fDeviation));
}

/// Half a Gaussian, from its middle outwards; the whole sums to 1.
std::vector<float> GaussianHalf(float fDeviation)
{
    const int iRadius = static_cast<int>(std::ceil(fDeviation * 3));
    std::vector<float> vHalf;
    float fSum = 0;
    for (int i = 0; i <= iRadius; ++i)
    {
        vHalf.push_back(BellCurve(static_cast<float>(i), fDeviation));
        fSum += i ? 2 * vHalf.back() : vHalf.back();
    }
    for (float& fWeight : vHalf)
        fWeight /= fSum;
    return vHalf;
}

/// A rectangle of a picture through a Gaussian, rows first: three values a pixel, row by row.
std::vector<float> Smoothed(const PixelView& picture, const PixelRect& rect, float fDeviation)
{
    const std::vector<float> vHalf = GaussianHalf(fDeviation);
    const int iRadius = static_cast<int>(vHalf.size()) - 1;
    const CNeighbourhood around(picture, rect, iRadius);
    const std::ptrdiff_t nRow = std::ptrdiff_t{rect.Width()} * CHANNELS;
    std::vector<float> vAcross(static_cast<std::size_t>(nRow * (rect.Height() + 2 * iRadius)));
    float* pAcross = vAcross.data();
    for (int y = rect.top - iRadius; y < rect.bottom + iRadius; ++y)
    {
        const std::uint8_t* pPixel = around.At(rect.left, y);
        for (int x = rect.left; x < rect.right; ++x, pPixel += 4)
        {
            for (int iChannel = 0; iChannel < CHANNELS; ++iChannel)
            {
                float fSum = vHalf[0] * static_cast<float>(pPixel[iChannel]);
                for (int i = 1; i <= iRadius; ++i)
                    fSum += vHalf[static_cast<std::size_t>(i)] *
                            static_cast<float>(pPixel[iChannel - 4 * i] + pPixel[iChannel + 4 * i]);
                *pAcross++ = fSum;
            }
        }
    }
    std::vector<float> vSmooth(static_cast<std::size_t>(nRow * rect.Height()));
    for (std::ptrdiff_t i = 0; i < static_cast<std::ptrdiff_t>(vSmooth.size()); ++i)
    {
        const float* const pMiddle = vAcross.data() + i + nRow * iRadius;
        float fSum = vHalf[0] * *pMiddle;
        for (int iAway = 1; iAway <= iRadius; ++iAway)
            fSum += vHalf[static_cast<std::size_t>(iAway)] * (pMiddle[-nRow * iAway] + pMiddle[nRow * iAway]);
        vSmooth[static_cast<std::size_t>(i)] = fSum;
    }
    return vSmooth;
}

/// Makes each value of a rectangle combine(value, smoothed value).
template<class F>
void CombineWithSmooth(const PixelView& picture, const PixelRect& rect, float fDeviation, F combine)
{
    const PixelRect inside = rect.Within(picture);
    if (inside.IsEmpty())
        return;
    const std::vector<float> vSmooth = Smoothed(picture, inside, fDeviation);
    const float* pSmooth = vSmooth.data();
    for (int y = inside.top; y < inside.bottom; ++y)
    {
        std::uint8_t* pPixel = picture.Row(y) + std::ptrdiff_t{inside.left} * 4;
        for (int x = inside.left; x < inside.right; ++x, pPixel += 4)
        {
            for (int iChannel = 0; iChannel < CHANNELS; ++iChannel)
                pPixel[iChannel] = Byte(combine(static_cast<float>(pPixel[iChannel]), *pSmooth++));
        }
    }
}

/// Fills the part of a rectangle that lies in a square of the picture with the square's average.
void FillWithAverage(const PixelView& picture, const PixelRect& square, const PixelRect& rect,
                     const CNeighbourhood& around)
{
    std::array<int, CHANNELS> vSums = {};
    for (int y = square.top; y < square.bottom; ++y)
    {
        for (int x = square.left; x < square.right; ++x)
        {
            for (std::size_t i = 0; i < vSums.size(); ++i)
                vSums[i] += around.At(x, y)[i];
        }
    }
    const int nPixels = square.Width() * square.Height();
    for (int y = std::max(square.top, rect.top); y < std::min(square.bottom, rect.bottom); ++y)
    {
        for (int x = std::max(square.left, rect.left); x < std::min(square.right, rect.right); ++x)
        {
            for (std::size_t i = 0; i < vSums.size(); ++i)
                picture.Row(y)[std::ptrdiff_t{x} * 4 + static_cast<std::ptrdiff_t>(i)] =
                    static_cast<std::uint8_t>((vSums[i] + nPixels / 2) / nPixels);
        }
    }
}

/// The weights of the bilateral filter: by distance in space, and by difference in colour (the channels' sum).
struct BilateralWeights
{
    static constexpr int RADIUS = 3;
    static constexpr int SIDE = 2 * RADIUS + 1;
    static constexpr int DIFFERENCES = 3 * 255 + 1;
    std::array<float, SIDE* SIDE> vSpace = {};
    std::array<float, DIFFERENCES> vColour = {};

    BilateralWeights()
    {
        constexpr float SPACE = 2;
        constexpr float COLOUR = 60;
        for (int i = 0; i < SIDE * SIDE; ++i)
        {
            const auto fX = static_cast<float>(i % SIDE - RADIUS);
            const auto fY = static_cast<float>(i / SIDE - RADIUS);
            vSpace[static_cast<std::size_t>(i)] = BellCurve(std::hypot(fX, fY), SPACE);
        }
        for (std::size_t i = 0; i < vColour.size(); ++i)
            vColour[i] = BellCurve(static_cast<float>(i), COLOUR);
    }
};

void FilterPixel(const CNeighbourhood& around, int x, int y, std::uint8_t* pPixel)
{
    static const BilateralWeights s_Weights;
    constexpr int RADIUS = BilateralWeights::RADIUS;
    const std::uint8_t* const pMiddle = around.At(x, y);
    std::array<float, CHANNELS> vSums = {};
    float fSum = 0;
    const float* pSpace = s_Weights.vSpace.data();
    for (int dy = -RADIUS; dy <= RADIUS; ++dy)
    {
        const std::uint8_t* pNear = around.At(x - RADIUS, y + dy);
        for (int dx = -RADIUS; dx <= RADIUS; ++dx, pNear += 4)
        {
            const int iDifference =
                std::abs(pNear[0] - pMiddle[0]) + std::abs(pNear[1] - pMiddle[1]) + std::abs(pNear[2] - pMiddle[2]);
            const float fWeight = *pSpace++ * s_Weights.vColour[static_cast<std::size_t>(iDifference)];
            fSum += fWeight;
            for (std::size_t i = 0; i < vSums.size(); ++i)
                vSums[i] += fWeight * static_cast<float>(pNear[i]);
        }
    }
    for (std::size_t i = 0; i < vSums.size(); ++i)
        pPixel[i] = Byte(vSums[i] / fSum);
}

} // namespace

void Blur(PixelView picture, PixelRect rect)
{
    CombineWithSmooth(picture, rect, 2.5F, [](float, float fSmooth) { return fSmooth; });
}

void Sharpen(PixelView picture, PixelRect rect)
{
    CombineWithSmooth(picture, rect, 1.5F, [](float fValue, float fSmooth) { return 2 * fValue - fSmooth; });
}

void Mosaic(PixelView picture, PixelRect rect)
{
    constexpr int SIDE = 12;
    const PixelRect inside = rect.Within(picture);
    if (inside.IsEmpty())
        return;
    const CNeighbourhood around(picture, inside, SIDE);
    for (int y = inside.top / SIDE * SIDE; y < inside.bottom; y += SIDE)
    {
        for (int x = inside.left / SIDE * SIDE; x < inside.right; x += SIDE)
            FillWithAverage(picture, PixelRect{x, y, x + SIDE, y + SIDE}.Within(picture), inside, around);
    }
}

void Denoise(PixelView picture, PixelRect rect)
{
    const PixelRect inside = rect.Within(picture);
    if (inside.IsEmpty())
        return;
    const CNeighbourhood around(picture, inside, BilateralWeights::RADIUS);
    for (int y = inside.top; y < inside.bottom; ++y)
    {
        for (int x = inside.left; x < inside.right; ++x)
            FilterPixel(around, x, y, picture.Row(y) + std::ptrdiff_t{x} * 4);
    }
}
