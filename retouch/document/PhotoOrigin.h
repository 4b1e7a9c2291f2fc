#pragma once

#include "document/JpegHeader.h"

#include <map>
#include <QImage>
#include <string>

enum class PictureFormat
{
    Jpeg,
    Png,
    Tiff
};

/// The format that a file's name asks for by its ending; nothing for another ending.
std::optional<PictureFormat> FormatOfName(const std::string& strPath);

/// What a photo was in its file, beyond the pixels of 8 bits that are worked on.
struct PhotoOrigin
{
    std::string strPath; ///< Empty for a photo that comes from no file.
    QByteArray checksum; ///< Of the file when it was read or written, to notice that another program changed it.
    PictureFormat format = PictureFormat::Png;

    bool bDeep = false;         ///< More than 8 bits a channel.
    bool bTransparent = false;  ///< At least one pixel is.
    bool bCmyk = false;         ///< Made for print.
    bool bCutOff = false;       ///< The file ends before its picture does.
    bool bMorePictures = false; ///< It holds further ones.
    bool bMetadata = false;     ///< EXIF, XMP, IPTC, comments.

    std::vector<JpegSegment> vSegments;  ///< Those to carry over into a JPEG file; the profile's are not among them.
    std::optional<JpegCoding> coding;    ///< Of a JPEG file.
    QByteArray profile;                  ///< The ICC profile of the pixels; empty for none.
    bool bProfileLost = false;           ///< The file's own does not fit the pixels, or is unreadable.
    std::map<QString, QString> mapTexts; ///< Of a PNG file.
    int iDotsPerMetreX = 0, iDotsPerMetreY = 0; ///< 0 when the file does not say.

    /// What the file holds that one saved in this format would not, in words; empty when nothing is lost.
    std::vector<std::string> WhatWouldBeLost(PictureFormat target) const;

    /// Tells of the file that was just written from here on: what it could not hold is lost already. Segments stay, for
    /// a JPEG file that the photo may become again.
    void BecomeSaved(const std::string& strSaved, PictureFormat saved, const QByteArray& bytes);

private:
    bool CanHoldProfile(PictureFormat target) const;
};

/// What comes to notice of a file with these bytes that was read as this picture.
PhotoOrigin OriginOf(const std::string& strPath, const QByteArray& bytes, PictureFormat format, const QImage& image);

QByteArray ChecksumOf(const QByteArray& bytes);
