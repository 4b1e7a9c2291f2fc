#pragma once

#include "gdi/Gdi.h"
#include "gdiplus/Pens.h"
#include "gdiplus/Text.h"
#include "gdiplus/Types.h"

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <span>

// The part of GDI+ that winlite offers: start-up, drawing a bitmap with nearest-neighbour sampling at pixel centres,
// outlines one pixel wide, and text. User-interface thread only.

namespace winlite
{
class DeviceContext;
class Dib;
class Region;
} // namespace winlite

namespace Gdiplus
{

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

/// Draws on a device context's bitmap within the clip region that the device context had when this was made. Other GDI
/// state of it has no effect. Everything
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

    /// Outlines are never smoothed, and text is always antialiased in greys: the modes there are change nothing.
    Status SetSmoothingMode(SmoothingMode mode);
    Status SetTextRenderingHint(TextRenderingHint hint);

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

    /// Draws the line's pixels, both ends included, as GDI's lines run. Outlines take coordinates rounded to whole
    /// pixels, whatever the offset mode, and change each of their pixels once. InvalidParameter for a bad pen and for
    /// numbers that are not finite. Different from GDI+: NotImplemented for pens wider than 1, ValueOverflow for
    /// coordinates beyond 2^26; a line without length draws its one pixel.
    Status DrawLine(const Pen* pPen, REAL x1, REAL y1, REAL x2, REAL y2);
    Status DrawLine(const Pen* pPen, int x1, int y1, int x2, int y2);
    Status DrawLine(const Pen* pPen, const Point& ptFirst, const Point& ptLast);
    Status DrawLine(const Pen* pPen, const PointF& ptFirst, const PointF& ptLast);

    /// Draws the border of the pixels x..x + cx by y..y + cy, all inclusive; nothing when a size is not positive.
    Status DrawRectangle(const Pen* pPen, REAL x, REAL y, REAL cx, REAL cy);
    Status DrawRectangle(const Pen* pPen, int x, int y, int cx, int cy);
    Status DrawRectangle(const Pen* pPen, const Rect& rc);
    Status DrawRectangle(const Pen* pPen, const RectF& rc);

    /// Draws the midpoint ellipse that touches the sides of that border; nothing when a size is not positive.
    /// ValueOverflow for sizes of 65536 and more.
    Status DrawEllipse(const Pen* pPen, REAL x, REAL y, REAL cx, REAL cy);
    Status DrawEllipse(const Pen* pPen, int x, int y, int cx, int cy);
    Status DrawEllipse(const Pen* pPen, const Rect& rc);
    Status DrawEllipse(const Pen* pPen, const RectF& rc);

    /// Draws text of nLength characters, or up to its NUL for -1, beside the point as the format (NULL: a plain one)
    /// says. Lines end at line feeds and are never wrapped. x is where the first line's leading margin begins (Near),
    /// where its middle is (Center) or where its trailing margin ends (Far), and y the top of the first line (Near),
    /// the middle of all or the bottom of the last. Trailing blanks of a line do not count, unless the format says so.
    /// Text begins at whole pixels. Different from GDI+: advances are whole pixels; no tab stops of the format; lines
    /// too large for a picture of 32767 pixels each way give ValueOverflow.
    Status DrawString(const WCHAR* pszText, INT nLength, const Font* pFont, const PointF& ptOrigin,
                      const StringFormat* pFormat, const Brush* pBrush);
    Status DrawString(const WCHAR* pszText, INT nLength, const Font* pFont, const PointF& ptOrigin,
                      const Brush* pBrush);

    /// The box that DrawString would use: the widest line's advance and a margin of em/6 on either side, by whole
    /// lines. No size for no text.
    Status MeasureString(const WCHAR* pszText, INT nLength, const Font* pFont, const PointF& ptOrigin,
                         const StringFormat* pFormat, RectF* prcBounds) const;
    Status MeasureString(const WCHAR* pszText, INT nLength, const Font* pFont, const PointF& ptOrigin,
                         RectF* prcBounds) const;

private:
    Status CheckPen(const Pen* pPen, std::initializer_list<REAL> vNumbers) const;
    Status CheckText(const WCHAR* pszText, INT nLength, const Font* pFont, const PointF& ptOrigin,
                     const StringFormat& format) const;
    void DrawOutline(const Pen& pen, std::span<const RECT> vPixels) const;

    std::shared_ptr<winlite::DeviceContext> m_pDC;
    std::unique_ptr<const winlite::Region> m_pClip; ///< Of the creation, in logical coordinates; NULL for none.
    bool m_bHalfOffset = false;
    bool m_bNearest = false;
    mutable Status m_Status = Ok; ///< Measuring sets it too.
};

} // namespace Gdiplus
