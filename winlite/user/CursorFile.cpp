#include "user/Cursor.h"

#include "gdi/Gdi.h"

#include <algorithm>
#include <array>
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

/// One image: a header with twice the height, a colour table, the colours' rows and then those of a mask of one bit a
/// pixel; all rows from the bottom up and padded to 4 bytes.
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
    void ReadColourTable(Bytes vTable);
    std::size_t RowBytes(int iBitsPixel) const { return (static_cast<std::size_t>(m_cx) * iBitsPixel + 31) / 32 * 4; }
    bool HasAlpha() const;
    bool IsMasked(int x, int y) const;
    std::uint32_t ColourAt(int x, int y) const;
    std::uint32_t PixelAt(int x, int y, bool bAlpha) const;

    int m_cx = 0;
    int m_cy = 0;
    int m_iBitsPixel = 0;
    std::size_t m_nHeaderBytes = 0;
    std::size_t m_nTableColours = 0;
    std::array<std::uint32_t, 256> m_vTable = {}; ///< A number beyond the file's table is black.
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
    constexpr WORD DEPTHS[] = {1, 4, 8, 24, 32};
    const auto header = ReadAt<BITMAPINFOHEADER>(vImage, 0);
    if (!header || header->biSize < sizeof(BITMAPINFOHEADER) || header->biCompression != BI_RGB)
        return false;
    if (std::ranges::find(DEPTHS, header->biBitCount) == std::end(DEPTHS))
        return false;
    if (header->biWidth <= 0 || header->biWidth > LARGEST_SIDE || header->biHeight <= 0 || header->biHeight % 2 != 0 ||
        header->biHeight / 2 > LARGEST_SIDE)
        return false;
    m_cx = header->biWidth;
    m_cy = header->biHeight / 2;
    m_iBitsPixel = header->biBitCount;
    m_nHeaderBytes = header->biSize;
    const std::size_t nMostColours = m_iBitsPixel <= 8 ? std::size_t{1} << m_iBitsPixel : 0;
    m_nTableColours = m_iBitsPixel <= 8 && header->biClrUsed ? header->biClrUsed : nMostColours;
    return m_nTableColours <= nMostColours;
}

bool CursorImage::TakeParts(Bytes vImage)
{
    const std::size_t nTableBytes = m_nTableColours * sizeof(RGBQUAD);
    const std::size_t nColourBytes = RowBytes(m_iBitsPixel) * m_cy;
    const auto vTable = PartOf(vImage, m_nHeaderBytes, nTableBytes);
    const auto vColours = PartOf(vImage, m_nHeaderBytes + nTableBytes, nColourBytes);
    const auto vMask = PartOf(vImage, m_nHeaderBytes + nTableBytes + nColourBytes, RowBytes(1) * m_cy);
    if (!vTable || !vColours || !vMask)
        return false;
    ReadColourTable(*vTable);
    m_vColours = *vColours;
    m_vMask = *vMask;
    return true;
}

void CursorImage::ReadColourTable(Bytes vTable)
{
    for (std::size_t i = 0; i < m_nTableColours; ++i)
        m_vTable[i] = *ReadAt<std::uint32_t>(vTable, i * sizeof(RGBQUAD)) & 0xFFFFFF;
}

/// The colour of a pixel, y from the top: 0x00RRGGBB, with the alpha byte in front for 32 bits.
std::uint32_t CursorImage::ColourAt(int x, int y) const
{
    const BYTE* pRow = m_vColours.data() + RowBytes(m_iBitsPixel) * (m_cy - 1 - y);
    if (m_iBitsPixel <= 8)
    {
        const int iBit = x * m_iBitsPixel;
        const int iShift = 8 - m_iBitsPixel - iBit % 8; // The leftmost pixel is in the highest bits.
        return m_vTable[pRow[iBit / 8] >> iShift & ((1 << m_iBitsPixel) - 1)];
    }
    const BYTE* pPixel = pRow + x * m_iBitsPixel / 8;
    const std::uint32_t uAlpha = m_iBitsPixel == 32 ? pPixel[3] : 0;
    return uAlpha << 24 | static_cast<std::uint32_t>(pPixel[2]) << 16 | static_cast<std::uint32_t>(pPixel[1]) << 8 |
           pPixel[0];
}

bool CursorImage::IsMasked(int x, int y) const
{
    return (m_vMask[RowBytes(1) * (m_cy - 1 - y) + x / 8] << x % 8 & 0x80) != 0;
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
