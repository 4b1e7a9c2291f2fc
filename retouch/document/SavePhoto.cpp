#include "document/SavePhoto.h"

#include "document/Message.h"

#include "document/JpegWriter.h"
#include "document/SafeFile.h"
#include "document/UprightSegment.h"

#include <cstring>
#include <filesystem>
#include <new>
#include <QBuffer>
#include <QColorSpace>
#include <QFile>
#include <QImageWriter>

namespace
{

std::optional<QByteArray> EncodeAsJpeg(PixelView picture, const PhotoOrigin& origin, int iQuality, CProgress& progress,
                                       std::string& strReason)
{
    JpegTarget target{iQuality, origin.coding, {}, origin.profile};
    for (const JpegSegment& segment : origin.vSegments)
        target.vSegments.push_back(UprightSegment(segment, picture.cx, picture.cy));
    return EncodeJpeg(picture, target, progress, strReason);
}

QImage ImageOf(PixelView picture, const PhotoOrigin& origin)
{
    QImage image(picture.cx, picture.cy, QImage::Format_RGB32);
    if (image.isNull())
        throw std::bad_alloc();
    for (int y = 0; y < picture.cy; ++y)
        std::memcpy(image.scanLine(y), picture.Row(y), static_cast<std::size_t>(picture.cx) * 4);
    if (!origin.profile.isEmpty())
        image.setColorSpace(QColorSpace::fromIccProfile(origin.profile));
    if (origin.iDotsPerMetreX > 0 && origin.iDotsPerMetreY > 0)
    {
        image.setDotsPerMeterX(origin.iDotsPerMetreX);
        image.setDotsPerMeterY(origin.iDotsPerMetreY);
    }
    for (const auto& [strKey, strText] : origin.mapTexts)
        image.setText(strKey, strText);
    return image;
}

std::optional<QByteArray> EncodeByQt(const QImage& image, PictureFormat format, std::string& strReason)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter writer(&buffer, format == PictureFormat::Png ? "png" : "tiff");
    if (format == PictureFormat::Tiff)
        writer.setCompression(1); // LZW, which loses nothing.
    if (writer.write(image))
        return bytes;
    strReason = writer.errorString().toStdString();
    return std::nullopt;
}

/// Whether this is the file that the photo came from.
bool IsOwn(const std::string& strPath, const PhotoOrigin& origin)
{
    std::error_code error;
    return !origin.strPath.empty() && std::filesystem::equivalent(strPath, origin.strPath, error);
}

/// Whether the photo's own file is not any more what was read.
bool IsChanged(const std::string& strPath, const PhotoOrigin& origin)
{
    QFile file(QString::fromStdString(strPath));
    return file.open(QIODevice::ReadOnly) && ChecksumOf(file.readAll()) != origin.checksum;
}

std::optional<std::string> WhyNotSaved(const std::string& strPath, PixelView picture, PhotoOrigin& origin,
                                       const SaveOptions& options, CProgress& progress)
{
    const auto format = FormatOfName(strPath);
    std::error_code error;
    if (!format)
        return Message(QT_TRANSLATE_NOOP("Program", "has no ending of a known format: .jpg, .png or .tif"));
    if (!options.bOverwrite && std::filesystem::exists(strPath, error))
        return Message(QT_TRANSLATE_NOOP("Program", "exists already"));
    if (IsOwn(strPath, origin))
    {
        if (!options.bEvenIfChanged && IsChanged(strPath, origin))
            return Message(QT_TRANSLATE_NOOP("Program", "was changed by another program since it was opened"));
        if (const auto vLost = origin.WhatWouldBeLost(*format); !vLost.empty())
            return Message(
                QT_TRANSLATE_NOOP("Program", "is left as it is, since it would lose %1; save under another name"),
                {vLost.front()});
    }
    std::string strReason;
    const auto bytes = *format == PictureFormat::Jpeg
                           ? EncodeAsJpeg(picture, origin, options.iQuality, progress, strReason)
                           : EncodeByQt(ImageOf(picture, origin), *format, strReason);
    if (progress.IsCancelled())
        return Message(QT_TRANSLATE_NOOP("Program", "was not saved: cancelled"));
    if (!bytes)
        return Message(QT_TRANSLATE_NOOP("Program", "cannot be written: %1"), {strReason});
    if (auto reason = WriteWhole(strPath, *bytes, options.bOverwrite))
        return reason;
    origin.BecomeSaved(strPath, *format, *bytes);
    return std::nullopt;
}

} // namespace

std::optional<std::string> SavePhoto(const std::string& strPath, PixelView picture, PhotoOrigin& origin,
                                     const SaveOptions& options, CProgress& progress)
try
{
    auto reason = WhyNotSaved(strPath, picture, origin, options, progress);
    return reason ? std::optional(strPath + ": " + *reason) : std::nullopt;
}
catch (const std::bad_alloc&)
{
    return strPath + ": " + Message(QT_TRANSLATE_NOOP("Program", "is too large for the memory"));
}
