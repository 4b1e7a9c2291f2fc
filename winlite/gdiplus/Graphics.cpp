#include "gdi/Handles.h"
#include "gdi/NearestScaler.h"
#include "gdiplus/ClipScope.h"
#include "gdiplus/GdiPlus.h"
#include "gdiplus/Startup.h"

#include <algorithm>
#include <cmath>

namespace Gdiplus
{

namespace
{

/// One axis of a picture to draw: where it goes and what it shows.
struct FloatAxis
{
    REAL fDest;
    REAL fDestSize;
    REAL fSource;
    REAL fSourceSize;

    bool IsFinite() const
    {
        return std::isfinite(fDest) && std::isfinite(fDestSize) && std::isfinite(fSource) && std::isfinite(fSourceSize);
    }

    /// Whether a pixel with that centre is drawn.
    bool Covers(REAL fCentre) const { return fDest <= fCentre && fCentre < fDest + fDestSize; }

    /// The source pixel that such a centre falls on.
    REAL SourceOf(REAL fCentre) const { return std::floor(fSource + (fCentre - fDest) * fSourceSize / fDestSize); }
};

int Limited(REAL fSource, int nPixels)
{
    // The comparison comes before the conversion, which is not defined for values that no int can hold.
    if (!(fSource > 0))
        return 0;
    return fSource >= static_cast<REAL>(nPixels) ? nPixels - 1 : std::min(static_cast<int>(fSource), nPixels - 1);
}

/// The source pixels for the surface positions from iFirst to iEnd that are covered; the axis begins at iOrigin.
winlite::NearestAxis SourcePixels(const FloatAxis& axis, int nPixels, int iOrigin, int iFirst, int iEnd)
{
    winlite::NearestAxis pixels;
    for (int i = iFirst; i < iEnd; ++i)
    {
        const REAL fCentre = static_cast<REAL>(std::int64_t{i} - iOrigin) + 0.5F;
        if (!axis.Covers(fCentre))
            continue;
        if (pixels.vSource.empty())
            pixels.iFirst = i;
        pixels.vSource.push_back(Limited(axis.SourceOf(fCentre), nPixels));
    }
    return pixels;
}

void Draw(const winlite::DeviceContext& dc, const winlite::Dib& dib, const FloatAxis& axisX, const FloatAxis& axisY)
{
    const RECT rcClip = dc.Clip().Box();
    const auto pixelsX = SourcePixels(axisX, dib.Width(), dc.Origin().x, rcClip.left, rcClip.right);
    const auto pixelsY = SourcePixels(axisY, dib.Height(), dc.Origin().y, rcClip.top, rcClip.bottom);
    dc.ReportDamage(winlite::DrawNearest(dc.Target(), dc.Clip(), dib, pixelsX, pixelsY));
}

} // namespace

Graphics::Graphics(HDC hDC) : m_pDC(winlite::FindDC(hDC))
{
    if (!IsStarted())
        m_Status = GdiplusNotInitialized;
    else if (!m_pDC)
        m_Status = InvalidParameter;
    if (m_pDC && m_pDC->ApplicationClip())
        m_pClip = std::make_unique<winlite::Region>(*m_pDC->ApplicationClip());
}

Graphics::~Graphics() = default;

Status Graphics::SetPixelOffsetMode(PixelOffsetMode mode)
{
    if (!m_pDC)
        return InvalidParameter;
    m_bHalfOffset = mode == PixelOffsetModeHalf;
    return m_Status = m_bHalfOffset ? Ok : NotImplemented;
}

Status Graphics::SetInterpolationMode(InterpolationMode mode)
{
    if (!m_pDC)
        return InvalidParameter;
    m_bNearest = mode == InterpolationModeNearestNeighbor;
    return m_Status = m_bNearest ? Ok : NotImplemented;
}

Status Graphics::SetSmoothingMode(SmoothingMode mode)
{
    if (!m_pDC)
        return InvalidParameter;
    return m_Status = mode == SmoothingModeNone ? Ok : NotImplemented;
}

Status Graphics::SetTextRenderingHint(TextRenderingHint hint)
{
    if (!m_pDC)
        return InvalidParameter;
    const bool bOffered = hint == TextRenderingHintSystemDefault || hint == TextRenderingHintAntiAliasGridFit;
    return m_Status = bOffered ? Ok : NotImplemented;
}

Status Graphics::GetLastStatus() const { return m_Status; }

Status Graphics::DrawImage(Image* pImage, const RectF& rcDest, REAL xSrc, REAL ySrc, REAL cxSrc, REAL cySrc, Unit unit,
                           const ImageAttributes* pAttributes, void* pCallback, void*)
{
    const winlite::Dib* pDib = pImage ? pImage->Pixels() : nullptr;
    const FloatAxis axisX = {rcDest.X, rcDest.Width, xSrc, cxSrc};
    const FloatAxis axisY = {rcDest.Y, rcDest.Height, ySrc, cySrc};
    if (!IsStarted())
        return m_Status = GdiplusNotInitialized;
    if (!m_pDC || !pDib || !axisX.IsFinite() || !axisY.IsFinite())
        return m_Status = InvalidParameter;
    if (!m_bHalfOffset || !m_bNearest || unit != UnitPixel || pAttributes || pCallback)
        return m_Status = NotImplemented;
    const winlite::ClipScope scope(*m_pDC, m_pClip.get());
    if (cxSrc > 0 && cySrc > 0)
        Draw(*m_pDC, *pDib, axisX, axisY);
    return m_Status = Ok;
}

} // namespace Gdiplus
