#include "user/Cursor.h"

#include "gdi/Gdi.h"

#include <cstring>
#include <optional>

namespace winlite
{

namespace
{

using Bytes = std::span<const BYTE>;

/// The file begins with this, one directory entry per image after it.
struct CursorDirectory
{
    WORD wReserved;
    WORD wType;
    WORD nImages;
};
static_assert(sizeof(CursorDirectory) == 6);

struct DirectoryEntry
{
    BYTE cx; ///< 0 means 256.
    BYTE cy;
    BYTE nColours;
    BYTE bReserved;
    WORD xHotSpot;
    WORD yHotSpot;
    DWORD nBytes;
    DWORD iOffset;
};
static_assert(sizeof(DirectoryEntry) == 16);

constexpr WORD TYPE_CURSOR_FILE = 2;
constexpr int LARGEST_SIDE = 256;

/// The part of the bytes that begins at iOffset; empty when fewer than nBytes follow there.
std::optional<Bytes> PartOf(Bytes vBytes, std::size_t iOffset, std::size_t nBytes)
{
    if (iOffset > vBytes.size() || nBytes > vBytes.size() - iOffset)
        return std::nullopt;
    return vBytes.subspan(iOffset, nBytes);
}

template<class T>
std::optional<T> ReadAt(Bytes vBytes, std::size_t iOffset)
{
    const auto vPart = PartOf(vBytes, iOffset, sizeof(T));
    if (!vPart)
        return std::nullopt;
    T value;
    std::memcpy(&value, vPart->data(), sizeof value);
    return value;
}

/// The directory entry of the 32 x 32 image, else the first; empty when the directory is broken.
std::optional<DirectoryEntry> ChooseImage(Bytes vFile)
{
    constexpr int PREFERRED_SIDE = 32;
    const auto directory = ReadAt<CursorDirectory>(vFile, 0);
    if (!directory || directory->wReserved != 0 || directory->wType != TYPE_CURSOR_FILE)
        return std::nullopt;
    std::optional<DirectoryEntry> chosen;
    for (std::size_t i = 0; i < directory->nImages; ++i)
    {
        const auto entry = ReadAt<DirectoryEntry>(vFile, sizeof(CursorDirectory) + i * sizeof(DirectoryEntry));
        if (!entry)
            return std::nullopt;
        if (entry->cx == PREFERRED_SIDE && entry->cy == PREFERRED_SIDE)
            return entry;
        if (!chosen)
            chosen = entry;
    }
    return chosen;
}

/// One image of 32 bits a pixel: a header with twice the height, the colours' rows and then those of a mask of one bit
/// a pixel; all rows from the bottom up and padded to 4 bytes.
class CursorImage
{
public:
    static std::optional<CursorImage> From(Bytes vImage);

    int Width() const { return m_cx; }
    int Height() const { return m_cy; }
    std::vector<std::uint32_t> Pixels() const;

private:
    bool ReadHeader(Bytes vImage);
    bool TakeParts(Bytes vImage);
    std::size_t MaskRowBytes() const { return (static_cast<std::size_t>(m_cx) + 31) / 32 * 4; }
    bool HasAlpha() const;
    bool IsMasked(int x, int y) const;
    std::uint32_t ColourAt(int x, int y) const;
    std::uint32_t PixelAt(int x, int y, bool bAlpha) const;

    int m_cx = 0;
    int m_cy = 0;
    std::size_t m_nHeaderBytes = 0;
    Bytes m_vColours;
    Bytes m_vMask;
};

std::optional<CursorImage> CursorImage::From(Bytes vImage)
{
    CursorImage image;
    if (!image.ReadHeader(vImage) || !image.TakeParts(vImage))
        return std::nullopt;
    return image;
}

bool CursorImage::ReadHeader(Bytes vImage)
{
    const auto header = ReadAt<BITMAPINFOHEADER>(vImage, 0);
    if (!header || header->biSize < sizeof(BITMAPINFOHEADER) || header->biCompression != BI_RGB)
        return false;
    if (header->biBitCount != 32)
        return false;
    if (header->biWidth <= 0 || header->biWidth > LARGEST_SIDE || header->biHeight <= 0 || header->biHeight % 2 != 0 ||
        header->biHeight / 2 > LARGEST_SIDE)
        return false;
    m_cx = header->biWidth;
    m_cy = header->biHeight / 2;
    m_nHeaderBytes = header->biSize;
    return true;
}

bool CursorImage::TakeParts(Bytes vImage)
{
    const std::size_t nColourBytes = sizeof(std::uint32_t) * m_cx * m_cy;
    const auto vColours = PartOf(vImage, m_nHeaderBytes, nColourBytes);
    const auto vMask = PartOf(vImage, m_nHeaderBytes + nColourBytes, MaskRowBytes() * m_cy);
    if (!vColours || !vMask)
        return false;
    m_vColours = *vColours;
    m_vMask = *vMask;
    return true;
}

/// A pixel as 0xAARRGGBB, y from the top.
std::uint32_t CursorImage::ColourAt(int x, int y) const
{
    return *ReadAt<std::uint32_t>(m_vColours,
                                  sizeof(std::uint32_t) * (static_cast<std::size_t>(m_cx) * (m_cy - 1 - y) + x));
}

bool CursorImage::IsMasked(int x, int y) const
{
    return (m_vMask[MaskRowBytes() * (m_cy - 1 - y) + x / 8] << x % 8 & 0x80) != 0;
}

bool CursorImage::HasAlpha() const
{
    for (int y = 0; y < m_cy; ++y)
    {
        for (int x = 0; x < m_cx; ++x)
        {
            if (ColourAt(x, y) >> 24)
                return true;
        }
    }
    return false;
}

/// With an alpha channel the mask means nothing. Otherwise it makes a pixel transparent, or, where the colour is not
/// black, invert the screen; those are drawn black, because a picture with alpha cannot invert.
std::uint32_t CursorImage::PixelAt(int x, int y, bool bAlpha) const
{
    constexpr std::uint32_t OPAQUE_BLACK = 0xFF000000;
    const std::uint32_t uColour = ColourAt(x, y);
    if (bAlpha)
        return uColour;
    if (!IsMasked(x, y))
        return OPAQUE_BLACK | uColour;
    return uColour ? OPAQUE_BLACK : 0;
}

std::vector<std::uint32_t> CursorImage::Pixels() const
{
    const bool bAlpha = HasAlpha();
    std::vector<std::uint32_t> vPixels;
    vPixels.reserve(static_cast<std::size_t>(m_cx) * m_cy);
    for (int y = 0; y < m_cy; ++y)
    {
        for (int x = 0; x < m_cx; ++x)
            vPixels.push_back(PixelAt(x, y, bAlpha));
    }
    return vPixels;
}

} // namespace

std::shared_ptr<CursorObject> ReadCursorFile(Bytes vBytes)
{
    const auto entry = ChooseImage(vBytes);
    const auto vImage = entry ? PartOf(vBytes, entry->iOffset, entry->nBytes) : std::nullopt;
    const auto image = vImage ? CursorImage::From(*vImage) : std::nullopt;
    if (!image || entry->xHotSpot >= image->Width() || entry->yHotSpot >= image->Height())
        return nullptr;
    auto pCursor = std::make_shared<CursorObject>();
    pCursor->cx = image->Width();
    pCursor->cy = image->Height();
    pCursor->ptHotSpot = {entry->xHotSpot, entry->yHotSpot};
    pCursor->vPixels = image->Pixels();
    return pCursor;
}

} // namespace winlite
