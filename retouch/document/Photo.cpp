#include "document/Photo.h"

#include "document/Message.h"

#include <cstring>
#include <new>
#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>

namespace
{

// A photo of 100 megapixels needs 400; the reader's own limit would refuse it.
constexpr int MOST_MEGABYTES = 4096;

// The view takes bitmaps whose byte count fits 31 bits.
constexpr qint64 MOST_PIXELS = 0x7FFFFFFF / 4;

std::optional<QByteArray> ReadFile(const std::string& strPath, std::string& strReason)
{
    const QString strName = QString::fromStdString(strPath);
    QFile file(strName);
    const QFileInfo info(strName);
    if (info.isDir())
        strReason = Message(QT_TRANSLATE_NOOP("Program", "is a folder"));
    else if (info.exists() && !info.isFile())
        strReason = Message(QT_TRANSLATE_NOOP("Program", "is not an ordinary file")); // Reading a pipe might never end.
    else if (!file.open(QIODevice::ReadOnly))
        strReason = file.errorString().toStdString();
    else if (file.size() == 0)
        strReason = Message(QT_TRANSLATE_NOOP("Program", "is empty"));
    if (!strReason.empty())
        return std::nullopt;
    return file.readAll();
}

std::optional<PictureFormat> FormatOf(const QImageReader& reader)
{
    if (reader.format() == "jpeg")
        return PictureFormat::Jpeg;
    if (reader.format() == "png")
        return PictureFormat::Png;
    if (reader.format() == "tiff")
        return PictureFormat::Tiff;
    return std::nullopt;
}

std::optional<QImage> Decode(QByteArray bytes, const std::string& strPath, PhotoOrigin& origin, std::string& strReason)
{
    QBuffer buffer(&bytes);
    QImageReader::setAllocationLimit(MOST_MEGABYTES);
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    const auto format = FormatOf(reader);
    if (!format)
    {
        strReason = Message(QT_TRANSLATE_NOOP("Program", "is not a JPEG, PNG or TIFF picture"));
        return std::nullopt;
    }
    if (qint64{reader.size().width()} * reader.size().height() > MOST_PIXELS)
    {
        strReason = Message(QT_TRANSLATE_NOOP("Program", "is too large: a picture has at most 536 million pixels"));
        return std::nullopt;
    }
    QImage image = reader.read();
    if (!image.isNull())
    {
        origin = OriginOf(strPath, bytes, *format, image);
        return image;
    }
    strReason = Message(QT_TRANSLATE_NOOP("Program", "is broken: %1"), {reader.errorString().toStdString()});
    return std::nullopt;
}

/// The picture with transparent parts over white, 32 bits a pixel.
QImage Flattened(QImage image)
{
    if (!image.hasAlphaChannel())
        return std::move(image).convertToFormat(QImage::Format_RGB32);
    QImage flat(image.size(), QImage::Format_RGB32);
    flat.fill(Qt::white);
    QPainter(&flat).drawImage(0, 0, image);
    return flat;
}

} // namespace

CPhoto::CPhoto(int cx, int cy) : m_pixels(static_cast<std::size_t>(cx) * cy * 4)
{
    m_info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    m_info.bmiHeader.biWidth = cx;
    m_info.bmiHeader.biHeight = cy;
    m_info.bmiHeader.biPlanes = 1;
    m_info.bmiHeader.biBitCount = 32;
    m_info.bmiHeader.biSizeImage = static_cast<DWORD>(m_pixels.Size());
}

PixelView CPhoto::ViewOf(CLargeBuffer& pixels) const
{
    const auto nRow = static_cast<std::ptrdiff_t>(RowBytes());
    return {pixels.Data() + nRow * (Height() - 1), Width(), Height(), -nRow};
}

std::optional<CPhoto> CPhoto::Load(const std::string& strPath, std::string& strError)
try
{
    std::string strReason;
    std::optional<QByteArray> bytes = ReadFile(strPath, strReason);
    PhotoOrigin origin;
    std::optional<QImage> image = bytes ? Decode(std::move(*bytes), strPath, origin, strReason) : std::nullopt;
    if (!image)
    {
        strError = strPath + ": " + strReason;
        return std::nullopt;
    }
    const QImage flat = Flattened(std::move(*image));
    CPhoto photo(flat.width(), flat.height());
    photo.SetOrigin(std::move(origin));
    for (int y = 0; y < flat.height(); ++y)
        std::memcpy(photo.Row(y), flat.constScanLine(y), static_cast<std::size_t>(flat.width()) * 4);
    return photo;
}
catch (const std::bad_alloc&)
{
    strError = strPath + ": " + Message(QT_TRANSLATE_NOOP("Program", "is too large for the memory"));
    return std::nullopt;
}
