#pragma once

#include "document/PhotoOrigin.h"
#include "pixels/LargeBuffer.h"
#include "pixels/PixelView.h"
#include "platform/framework.h"

#include <optional>
#include <string>
#include <utility>

/// A photo as the view wants it: one bottom-up buffer of 32 bits a pixel (blue, green, red, unused), upright.
class CPhoto
{
public:
    /// A black photo.
    CPhoto(int cx, int cy);

    /// Reads a JPEG, PNG or TIFF file, turned upright as its EXIF orientation says; transparent parts become white. A
    /// JPEG file that ends too early comes as far as it goes, and its origin says so. Nothing on failure, with a
    /// message that names the file and the reason.
    static std::optional<CPhoto> Load(const std::string& strPath, std::string& strError);

    int Width() const { return m_info.bmiHeader.biWidth; }
    int Height() const { return m_info.bmiHeader.biHeight; }
    BITMAPINFO& Info() { return m_info; }
    BYTE* Pixels() { return m_pixels.Data(); }
    std::size_t ByteCount() const { return m_pixels.Size(); }
    std::size_t RowBytes() const { return static_cast<std::size_t>(Width()) * 4; }
    PixelView View() { return ViewOf(m_pixels); }

    /// Other pixels of a photo of this size, to look at and to put in place of those there are; the old ones come back.
    PixelView ViewOf(CLargeBuffer& pixels) const;
    CLargeBuffer ReplacePixels(CLargeBuffer pixels) { return std::exchange(m_pixels, std::move(pixels)); }

    /// What the file was; one without a path for a photo that comes from none.
    const PhotoOrigin& Origin() const { return m_origin; }
    void SetOrigin(PhotoOrigin origin) { m_origin = std::move(origin); }

    /// The first byte of a row; row 0 is the top of the picture.
    BYTE* Row(int y) { return Pixels() + static_cast<std::size_t>(Height() - 1 - y) * RowBytes(); }

private:
    BITMAPINFO m_info = {};
    CLargeBuffer m_pixels;
    PhotoOrigin m_origin;
};
