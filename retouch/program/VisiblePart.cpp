#include "program/VisiblePart.h"

#include "view/Rounding.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace
{

/// One direction of a view's picture, in the single precision of its paint.
struct Axis
{
    int nWindow, nBitmap; ///< Pixels of the view area and of the bitmap.
    float fPosition, fZoomed, fZoom;

    float First() const { return fPosition < 0 ? -fPosition : 0; }
    float Length() const { return std::min(static_cast<float>(nWindow), fZoomed - fPosition) - First(); }
    bool IsWhole() const { return Pixtane::Truncate(Length()) >= Pixtane::Truncate(fZoomed); }
};

struct Samples
{
    int iFirst = 0;
    std::vector<int> vPixels;
};

/// A bitmap that is visible as a whole is stretched between whole pixels.
Samples Stretched(const Axis& axis)
{
    const int iFirst = Pixtane::FloorLike(axis.First());
    const int nShown = Pixtane::RoundHalfAway(axis.First() + axis.Length()) - iFirst;
    Samples samples = {iFirst, {}};
    for (int i = 0; i < std::min(nShown, axis.nWindow - iFirst); ++i)
        samples.vPixels.push_back(static_cast<int>((2 * std::int64_t{i} + 1) * axis.nBitmap / (2 * nShown)));
    return samples;
}

/// Otherwise each pixel of the window takes what is at its centre.
Samples Scaled(const Axis& axis)
{
    const bool bWhole = axis.IsWhole();
    const float fSource = bWhole ? 0 : axis.fPosition / axis.fZoom;
    const float fSourceSize = bWhole ? static_cast<float>(axis.nBitmap) : static_cast<float>(axis.nWindow) / axis.fZoom;
    Samples samples;
    for (int i = 0; i < axis.nWindow; ++i)
    {
        const float fCentre = static_cast<float>(i) + 0.5F;
        if (fCentre < axis.First() || fCentre >= axis.First() + axis.Length())
            continue;
        if (samples.vPixels.empty())
            samples.iFirst = i;
        const float fPixel = std::floor(fSource + (fCentre - axis.First()) * fSourceSize / axis.Length());
        samples.vPixels.push_back(std::clamp(Pixtane::Truncate(fPixel), 0, axis.nBitmap - 1));
    }
    return samples;
}

} // namespace

VisiblePart VisiblePartOf(Pixtane::CPixtane& view)
{
    if (!view.pBmpData())
        return {};
    CRect rcView;
    view.GetClientRect(&rcView);
    const auto fZoom = static_cast<float>(view.dbZoom());
    const Gdiplus::Point ptPosition = view.ptDispPos();
    const Gdiplus::SizeF szZoomed = view.ZoomedSize();
    const Axis axisX = {rcView.Width(), view.iBmpWidth(), static_cast<float>(ptPosition.X), szZoomed.Width, fZoom};
    const Axis axisY = {rcView.Height(), view.iBmpHeight(), static_cast<float>(ptPosition.Y), szZoomed.Height, fZoom};
    const auto samplesOf = axisX.IsWhole() && axisY.IsWhole() ? &Stretched : &Scaled;
    Samples columns = samplesOf(axisX);
    Samples rows = samplesOf(axisY);
    const CSize szShown(static_cast<int>(columns.vPixels.size()), static_cast<int>(rows.vPixels.size()));
    return {CRect(CPoint(columns.iFirst, rows.iFirst), szShown), std::move(columns.vPixels), std::move(rows.vPixels)};
}
