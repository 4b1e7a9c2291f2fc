#pragma once

#include "Canvas.h"

#include "gdiplus/GdiPlus.h"

/// Draws with both modes set, as the view does.
inline Gdiplus::Status DrawNearest(HDC hDC, Gdiplus::Image* pImage, const Gdiplus::RectF& rcDest,
                                   const Gdiplus::RectF& rcSource)
{
    Gdiplus::Graphics graphics(hDC);
    ::SelectClipRgn(hDC, nullptr); // The clip region is that of its creation.
    graphics.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHalf);
    graphics.SetInterpolationMode(Gdiplus::InterpolationModeNearestNeighbor);
    return graphics.DrawImage(pImage, rcDest, rcSource.X, rcSource.Y, rcSource.Width, rcSource.Height,
                              Gdiplus::UnitPixel);
}

/// A test with GDI+ started, that must leave as many handles as it found.
class GdiPlusStarted : public HandleTest
{
protected:
    GdiPlusStarted()
    {
        const Gdiplus::GdiplusStartupInput input;
        EXPECT_EQ(Gdiplus::GdiplusStartup(&m_uToken, &input, nullptr), Gdiplus::Ok);
        EXPECT_NE(m_uToken, 0u);
    }
    ~GdiPlusStarted() override { Gdiplus::GdiplusShutdown(m_uToken); }

    ULONG_PTR m_uToken = 0;
};
