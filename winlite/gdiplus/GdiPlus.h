#pragma once

#include "gdi/Gdi.h"

#include <cstdint>
#include <memory>

// The part of GDI+ that winlite offers: start-up, and drawing a bitmap with nearest-neighbour sampling at pixel
// centres.

namespace winlite
{
class DeviceContext;
class Dib;
} // namespace winlite

namespace Gdiplus
{

using REAL = float;

enum Status
{
    Ok = 0,
    GenericError = 1,
    InvalidParameter = 2,
    NotImplemented = 6,
    GdiplusNotInitialized = 18,
};

enum Unit
{
    UnitPixel = 2,
};

enum InterpolationMode
{
    InterpolationModeNearestNeighbor = 5,
};

enum PixelOffsetMode
{
    PixelOffsetModeHalf = 4,
};

class Point
{
public:
    int X = 0;
    int Y = 0;
    Point() = default;
    Point(int x, int y) : X(x), Y(y) {}
    bool operator==(const Point&) const = default;
    bool Equals(const Point& other) const { return *this == other; }
};

class PointF
{
public:
    REAL X = 0;
    REAL Y = 0;
    PointF() = default;
    PointF(REAL x, REAL y) : X(x), Y(y) {}
    bool operator==(const PointF&) const = default;
    bool Equals(const PointF& other) const { return *this == other; }
};

class SizeF
{
public:
    REAL Width = 0;
    REAL Height = 0;
    SizeF() = default;
    SizeF(REAL cx, REAL cy) : Width(cx), Height(cy) {}
    bool operator==(const SizeF&) const = default;
    bool Equals(const SizeF& other) const { return *this == other; }
};

class RectF
{
public:
    REAL X = 0;
    REAL Y = 0;
    REAL Width = 0;
    REAL Height = 0;
    RectF() = default;
    RectF(REAL x, REAL y, REAL cx, REAL cy) : X(x), Y(y), Width(cx), Height(cy) {}
    bool operator==(const RectF&) const = default;
    bool Equals(const RectF& other) const { return *this == other; }
};

/// Input version 1 only; the other members have no effect here: there is no background thread and there are no codecs.
struct GdiplusStartupInput
{
    std::uint32_t GdiplusVersion = 1;
    void* DebugEventCallback = nullptr;
    BOOL SuppressBackgroundThread = FALSE;
    BOOL SuppressExternalCodecs = FALSE;
};
struct GdiplusStartupOutput;
class ImageAttributes;

/// Starts GDI+ and gives a token (never 0). Fails with InvalidParameter for a NULL token or input, or another version.
/// Starts and shutdowns count.
Status GdiplusStartup(ULONG_PTR* puToken, const GdiplusStartupInput* pInput, GdiplusStartupOutput* pOutput);
void GdiplusShutdown(ULONG_PTR uToken);

class Image
{
public:
    virtual ~Image() = default;
    Image(const Image&) = delete;
    Image& operator=(const Image&) = delete;

    virtual UINT GetWidth() = 0;
    virtual UINT GetHeight() = 0;
    virtual Status GetLastStatus() const = 0;

protected:
    Image() = default;
    friend class Graphics;
    virtual const winlite::Dib* Pixels() const = 0;
};

/// A bitmap over the caller's DIB; the pixels are neither copied nor owned. Bottom-up, 16 (555), 24 or 32 bits without
/// colour table; for anything else the last status is InvalidParameter and drawing fails with it.
class Bitmap : public Image
{
public:
    Bitmap(const BITMAPINFO* pInfo, void* pBits);
    ~Bitmap() override;

    UINT GetWidth() override;
    UINT GetHeight() override;
    Status GetLastStatus() const override;

private:
    const winlite::Dib* Pixels() const override;
    std::unique_ptr<winlite::Dib> m_pDib;
};

/// Draws on a device context's bitmap within its clip region. GDI state of the device context has no effect. Everything
/// fails with InvalidParameter for a bad handle, and drawing with GdiplusNotInitialized while GDI+ is not started.
class Graphics
{
public:
    explicit Graphics(HDC hDC);
    ~Graphics();
    Graphics(const Graphics&) = delete;
    Graphics& operator=(const Graphics&) = delete;

    Status SetPixelOffsetMode(PixelOffsetMode mode);
    Status SetInterpolationMode(InterpolationMode mode);

    /// What the latest call came to, the constructor included.
    Status GetLastStatus() const;

    /// Draws the source rectangle of the image into the destination: destination pixel i is drawn when
    /// dx <= i + 0.5 < dx + dw and takes source pixel floor(sx + (i + 0.5 - dx) * sw / dw), limited to the image; all
    /// in single precision. Sizes that are not positive draw nothing; InvalidParameter for numbers that are not finite.
    /// Different from GDI+: works only after both modes above were set, NotImplemented before; attributes and callback
    /// must be NULL.
    Status DrawImage(Image* pImage, const RectF& rcDest, REAL xSrc, REAL ySrc, REAL cxSrc, REAL cySrc, Unit unit,
                     const ImageAttributes* pAttributes = nullptr, void* pCallback = nullptr,
                     void* pCallbackData = nullptr);

private:
    std::shared_ptr<winlite::DeviceContext> m_pDC;
    bool m_bHalfOffset = false;
    bool m_bNearest = false;
    Status m_Status = Ok;
};

} // namespace Gdiplus
