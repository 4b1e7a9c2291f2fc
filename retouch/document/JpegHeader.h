#pragma once

#include <optional>
#include <QByteArray>
#include <vector>

/// An application segment or a comment of a JPEG file: its marker (0xE0 to 0xEF, 0xFE), and what follows its length.
struct JpegSegment
{
    int iMarker = 0;
    QByteArray data;

    bool operator==(const JpegSegment&) const = default;
};

/// How a JPEG file is coded, as far as another one can be coded like it.
struct JpegCoding
{
    struct Factors
    {
        int iHorizontal = 1;
        int iVertical = 1;

        bool operator==(const Factors&) const = default;
    };
    std::vector<Factors>
        vSampling; ///< Samples of each component; those of the colours are less where they are coarser.

    bool bHasJfif = false; ///< Whether the file says its resolution; the next three are meaningful then.
    int iDensityUnit = 0;  ///< 0 for an aspect ratio, 1 for inches, 2 for centimetres.
    int iDensityX = 1;
    int iDensityY = 1;

    bool operator==(const JpegCoding&) const = default;
};

/// What stands before the picture in a JPEG file.
struct JpegHeader
{
    JpegCoding coding;
    std::vector<JpegSegment> vSegments; ///< All of them, in their order.
    QByteArray profile;                 ///< The ICC profile put together; empty for none or a broken one.
};

/// Reads the header, safe from lengths that lie. Nothing when it does not come to the picture.
std::optional<JpegHeader> ReadJpegHeader(const QByteArray& bytes);
