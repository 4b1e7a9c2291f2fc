#pragma once

#include "document/JpegHeader.h"
#include "pixels/PixelView.h"
#include "pixels/Progress.h"

#include <string>

/// How a JPEG file is to be written.
struct JpegTarget
{
    int iQuality = 90;                  ///< 1 to 100.
    std::optional<JpegCoding> coding;   ///< Of the file the picture comes from, to code this one alike.
    std::vector<JpegSegment> vSegments; ///< Written unchanged, in this order.
    QByteArray profile;                 ///< An ICC profile to write beside the segments; empty for none.
};

/// The bytes of a JPEG file. Nothing on failure, with the reason, and nothing without one when it was cancelled.
/// Thread-safe.
std::optional<QByteArray> EncodeJpeg(PixelView picture, const JpegTarget& target, CProgress& progress,
                                     std::string& strReason);
