#include "document/PhotoOrigin.h"

#include "document/Message.h"

#include "document/JpegEnd.h"
#include "document/TiffFields.h"

#include <algorithm>
#include <QColorSpace>
#include <QCryptographicHash>
#include <QFileInfo>
#include <QtEndian>
#include <span>

namespace
{

constexpr int MARKER_APP0 = 0xE0;
constexpr int MARKER_APP2 = 0xE2;
constexpr int MARKER_APP14 = 0xEE;
constexpr char XMP_OF_PNG[] = "XML:com.adobe.xmp";

bool IsProfilePart(const JpegSegment& segment)
{
    return segment.iMarker == MARKER_APP2 && segment.data.startsWith("ICC_PROFILE");
}

/// A list of further pictures in the file, by their places.
bool IsPictureList(const JpegSegment& segment)
{
    return segment.iMarker == MARKER_APP2 && segment.data.startsWith("MPF");
}

/// Whether a segment tells how the file is coded. The encoder writes its own.
bool BelongsToCoding(const JpegSegment& segment)
{
    return (segment.iMarker == MARKER_APP0 && segment.data.startsWith("JF")) ||
           (segment.iMarker == MARKER_APP14 && segment.data.startsWith("Adobe"));
}

/// Whether an ICC profile is one for RGB; the name of its colour space stands at byte 16.
bool IsForRgb(const QByteArray& profile) { return profile.mid(16, 4) == "RGB "; }

bool HasTransparentPixel(const QImage& image)
{
    if (!image.hasAlphaChannel())
        return false;
    const QImage alpha = image.convertToFormat(QImage::Format_Alpha8);
    for (int y = 0; y < alpha.height(); ++y)
    {
        const std::span vRow(alpha.constScanLine(y), static_cast<std::size_t>(alpha.width()));
        if (std::ranges::any_of(vRow, [](uchar uAlpha) { return uAlpha != 255; }))
            return true;
    }
    return false;
}

void LookIntoJpeg(PhotoOrigin& origin, const QByteArray& bytes)
{
    origin.bCutOff = !IsCompleteJpeg(
        {reinterpret_cast<const unsigned char*>(bytes.constData()), static_cast<std::size_t>(bytes.size())});
    std::optional<JpegHeader> header = ReadJpegHeader(bytes);
    if (!header)
        return;
    origin.bCmyk = header->coding.vSampling.size() == 4;
    origin.coding = std::move(header->coding);
    origin.profile = IsForRgb(header->profile) ? header->profile : QByteArray();
    for (JpegSegment& segment : header->vSegments)
    {
        origin.bMorePictures |= IsPictureList(segment);
        origin.bProfileLost |= IsProfilePart(segment) && origin.profile.isEmpty();
        if (!BelongsToCoding(segment) && !IsPictureList(segment) && !IsProfilePart(segment))
            origin.vSegments.push_back(std::move(segment));
    }
    origin.bMetadata = !origin.vSegments.empty();
}

/// Whether a PNG file has a chunk of this name before its picture.
bool HasPngChunk(const QByteArray& bytes, const char* pszName)
{
    for (qint64 i = 8; i + 8 <= bytes.size();)
    {
        if (bytes.mid(i + 4, 4) == pszName)
            return true;
        i += qint64{12} + qFromBigEndian<quint32>(bytes.constData() + i); // Length, name and check sum are 12.
    }
    return false;
}

void LookIntoPng(PhotoOrigin& origin, const QByteArray& bytes, const QImage& image)
{
    for (const QString& strKey : image.textKeys())
    {
        if (strKey != QLatin1String(XMP_OF_PNG))
            origin.mapTexts[strKey] = image.text(strKey);
    }
    origin.bMetadata = HasPngChunk(bytes, "eXIf") || image.textKeys().contains(QLatin1String(XMP_OF_PNG));
    origin.bMorePictures = HasPngChunk(bytes, "acTL");
    origin.bProfileLost = HasPngChunk(bytes, "iCCP") && origin.profile.isEmpty();
}

void LookIntoTiff(PhotoOrigin& origin, const QByteArray& bytes)
{
    constexpr int TAG_PHOTOMETRIC = 262;
    constexpr std::uint32_t SEPARATED = 5;
    constexpr int TAG_PROFILE = 34675;
    constexpr int TAGS_OF_METADATA[] = {700, 33723, 34377, 34665, 34853}; // XMP, IPTC, Photoshop's, EXIF, GPS.
    const CTiffFields fields(bytes);
    const std::uint32_t uMain = fields.MainDirectory();
    origin.bMorePictures = fields.DirectoryAfter(uMain) > 0;
    origin.bCmyk = fields.Number(uMain, TAG_PHOTOMETRIC) == SEPARATED;
    origin.bMetadata = std::ranges::any_of(TAGS_OF_METADATA, [&](int iTag) { return fields.Has(uMain, iTag); });
    origin.bProfileLost = fields.Has(uMain, TAG_PROFILE) && origin.profile.isEmpty();
}

} // namespace

std::optional<PictureFormat> FormatOfName(const std::string& strPath)
{
    const QString strEnding = QFileInfo(QString::fromStdString(strPath)).suffix().toLower();
    if (strEnding == "jpg" || strEnding == "jpeg" || strEnding == "jpe")
        return PictureFormat::Jpeg;
    if (strEnding == "png")
        return PictureFormat::Png;
    if (strEnding == "tif" || strEnding == "tiff")
        return PictureFormat::Tiff;
    return std::nullopt;
}

QByteArray ChecksumOf(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Blake2b_256);
}

PhotoOrigin OriginOf(const std::string& strPath, const QByteArray& bytes, PictureFormat format, const QImage& image)
{
    PhotoOrigin origin;
    origin.strPath = strPath;
    origin.checksum = ChecksumOf(bytes);
    origin.format = format;
    origin.bDeep = image.depth() > 32 || image.format() == QImage::Format_Grayscale16;
    origin.bTransparent = HasTransparentPixel(image);
    origin.iDotsPerMetreX = image.dotsPerMeterX();
    origin.iDotsPerMetreY = image.dotsPerMeterY();
    if (const QByteArray profile = image.colorSpace().iccProfile(); IsForRgb(profile))
        origin.profile = profile;
    if (format == PictureFormat::Jpeg)
        LookIntoJpeg(origin, bytes);
    else if (format == PictureFormat::Png)
        LookIntoPng(origin, bytes, image);
    else
        LookIntoTiff(origin, bytes);
    return origin;
}

bool PhotoOrigin::CanHoldProfile(PictureFormat target) const
{
    return target == PictureFormat::Jpeg || profile.isEmpty() || QColorSpace::fromIccProfile(profile).isValid();
}

void PhotoOrigin::BecomeSaved(const std::string& strSaved, PictureFormat saved, const QByteArray& bytes)
{
    bMetadata = bMetadata && saved == PictureFormat::Jpeg && !vSegments.empty();
    bDeep = bTransparent = bCmyk = bCutOff = bMorePictures = bProfileLost = false;
    if (!CanHoldProfile(saved))
        profile.clear();
    if (saved != PictureFormat::Png)
        mapTexts.clear();
    strPath = strSaved;
    format = saved;
    checksum = ChecksumOf(bytes);
}

std::vector<std::string> PhotoOrigin::WhatWouldBeLost(PictureFormat target) const
{
    const bool bKeepsMetadata = target == PictureFormat::Jpeg && !vSegments.empty();
    const struct
    {
        bool bLost;
        const char* pszWords;
    } vKinds[] = {
        {bDeep, QT_TRANSLATE_NOOP("Program", "16 bits a channel")},
        {bTransparent, QT_TRANSLATE_NOOP("Program", "transparency")},
        {bCmyk, QT_TRANSLATE_NOOP("Program", "CMYK colours")},
        {bCutOff, QT_TRANSLATE_NOOP("Program", "what is left of a picture that is cut off")},
        {bMorePictures, QT_TRANSLATE_NOOP("Program", "further pictures in the file")},
        {bProfileLost || !CanHoldProfile(target), QT_TRANSLATE_NOOP("Program", "the colour profile")},
        {bMetadata && !bKeepsMetadata, QT_TRANSLATE_NOOP("Program", "metadata (EXIF, XMP, IPTC, comments)")},
        {!mapTexts.empty() && target != PictureFormat::Png, QT_TRANSLATE_NOOP("Program", "texts in the file")}};
    std::vector<std::string> vWords;
    for (const auto& kind : vKinds)
    {
        if (kind.bLost)
            vWords.push_back(Message(kind.pszWords));
    }
    return vWords;
}
