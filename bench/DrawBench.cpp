#include "bench/BenchView.h"
#include "bench/Suite.h"

#include <algorithm>
#include <libyuv.h>
#include <memory>
#include <pixman.h>

namespace
{

/// A picture to scale: the source's upper left part that fills the destination, and where it goes.
struct Scaling
{
    Scaling(double dbZoom, int iBitsPixel) : bitmap(6000, 4000, iBitsPixel)
    {
        cx = std::min(3840, static_cast<int>(bitmap.Width() * dbZoom));
        cy = std::min(2160, static_cast<int>(bitmap.Height() * dbZoom));
        cxSource = static_cast<int>(cx / dbZoom);
        cySource = static_cast<int>(cy / dbZoom);
    }
    CBenchBitmap bitmap;
    int cx, cy, cxSource, cySource;

    int SourceStride() const { return bitmap.Width() * bitmap.info.bmiHeader.biBitCount / 8; }

    /// The picture's top row, which is stored last.
    const BYTE* TopRow() const
    {
        return bitmap.vBits.data() + std::size_t(bitmap.Height() - 1) * std::size_t(SourceStride());
    }
};

/// A memory device context with a bitmap, and the source wrapped for drawing.
struct OurTarget
{
    explicit OurTarget(Scaling& scaling) : source(&scaling.bitmap.info, scaling.bitmap.vBits.data())
    {
        const HDC hScreen = ::GetDC(nullptr);
        dc.Attach(::CreateCompatibleDC(hScreen));
        hBitmap = ::CreateCompatibleBitmap(hScreen, scaling.cx, scaling.cy);
        ::ReleaseDC(nullptr, hScreen);
        hOld = ::SelectObject(dc, hBitmap);
    }
    ~OurTarget()
    {
        ::SelectObject(dc, hOld);
        ::DeleteObject(hBitmap);
    }
    CDC dc;
    HBITMAP hBitmap;
    HGDIOBJ hOld;
    Gdiplus::Bitmap source;
};

Work Ours(const std::shared_ptr<Scaling>& pScaling)
{
    const auto pTarget = std::make_shared<OurTarget>(*pScaling);
    return [=]
    {
        Gdiplus::Graphics graphics(pTarget->dc);
        graphics.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHalf);
        graphics.SetInterpolationMode(Gdiplus::InterpolationModeNearestNeighbor);
        const Gdiplus::RectF rcDest(0, 0, static_cast<float>(pScaling->cx), static_cast<float>(pScaling->cy));
        graphics.DrawImage(&pTarget->source, rcDest, 0, 0, static_cast<float>(pScaling->cxSource),
                           static_cast<float>(pScaling->cySource), Gdiplus::UnitPixel);
    };
}

std::shared_ptr<std::vector<std::uint32_t>> Pixels(const Scaling& scaling)
{
    return std::make_shared<std::vector<std::uint32_t>>(static_cast<std::size_t>(scaling.cx) * scaling.cy);
}

Work Pixman(const std::shared_ptr<Scaling>& pScaling)
{
    const auto pDest = Pixels(*pScaling);
    auto* const pTopRow = const_cast<std::uint32_t*>(reinterpret_cast<const std::uint32_t*>(pScaling->TopRow()));
    const std::shared_ptr<pixman_image_t> pSource(pixman_image_create_bits(PIXMAN_x8r8g8b8, pScaling->cxSource,
                                                                           pScaling->cySource, pTopRow,
                                                                           -pScaling->SourceStride()),
                                                  &pixman_image_unref);
    pixman_transform_t transform;
    pixman_transform_init_scale(&transform, pixman_double_to_fixed(double(pScaling->cxSource) / pScaling->cx),
                                pixman_double_to_fixed(double(pScaling->cySource) / pScaling->cy));
    pixman_image_set_transform(pSource.get(), &transform);
    pixman_image_set_filter(pSource.get(), PIXMAN_FILTER_NEAREST, nullptr, 0);
    const std::shared_ptr<pixman_image_t> pTarget(
        pixman_image_create_bits(PIXMAN_x8r8g8b8, pScaling->cx, pScaling->cy, pDest->data(), pScaling->cx * 4),
        &pixman_image_unref);
    return [=]
    {
        pixman_image_composite32(PIXMAN_OP_SRC, pSource.get(), nullptr, pTarget.get(), 0, 0, 0, 0, 0, 0, pScaling->cx,
                                 pScaling->cy);
        pDest->front() += pScaling->bitmap.vBits.front();
    };
}

Work Libyuv(const std::shared_ptr<Scaling>& pScaling)
{
    const auto pDest = Pixels(*pScaling);
    return [=]
    {
        libyuv::ARGBScale(pScaling->TopRow(), -pScaling->SourceStride(), pScaling->cxSource, pScaling->cySource,
                          reinterpret_cast<BYTE*>(pDest->data()), pScaling->cx * 4, pScaling->cx, pScaling->cy,
                          libyuv::kFilterNone);
    };
}

CComparison Draw32(double dbZoom)
{
    const auto pScaling = std::make_shared<Scaling>(dbZoom, 32);
    const double dMost = dbZoom < 1 ? 0.9 : dbZoom > 1 ? 0.75 : 1.05;
    return CComparison(Ours(pScaling))
        .Beside("pixman nearest", Pixman(pScaling))
        .Beside("libyuv ARGBScale", Libyuv(pScaling))
        .AtMost(dMost, {"pixman nearest", "libyuv ARGBScale"});
}

CComparison Draw24(double dbZoom)
{
    return CComparison(Ours(std::make_shared<Scaling>(dbZoom, 24)))
        .Beside("our 32 bits", Ours(std::make_shared<Scaling>(dbZoom, 32)))
        .AtMost(1.2, {"our 32 bits"});
}

} // namespace

void AddDrawBenchmarks(CSuite& suite)
{
    for (const double dbZoom : {0.25, 1.0, 2.5, 8.0})
    {
        char szName[64];
        std::snprintf(szName, sizeof(szName), "Paint/Draw/Zoom:%g", dbZoom);
        suite.Add(std::string(szName) + "/32bit", [=] { return Draw32(dbZoom); });
        suite.Add(std::string(szName) + "/24bit", [=] { return Draw24(dbZoom); });
    }
}
