#pragma once

#include "document/PhotoOrigin.h"
#include "pixels/PixelView.h"
#include "pixels/Progress.h"

struct SaveOptions
{
    int iQuality = 90;           ///< Of JPEG, 1 to 100.
    bool bOverwrite = false;     ///< Also for the photo's own file.
    bool bEvenIfChanged = false; ///< Also when another program changed that file since it was read.
};

/// Writes a picture as a file of the format that its name asks for; its thread may be any, and nothing of the old file
/// is lost whatever fails. Metadata, profile and chroma sampling are those of the origin, as far as the format holds
/// them. The same picture, origin and quality give the same bytes. The photo's own file stays where the new one would
/// not hold all that it does.
///
/// Nothing on success, and the origin then tells of the file written: its losses have happened. Otherwise a message
/// that names the file and the reason.
std::optional<std::string> SavePhoto(const std::string& strPath, PixelView picture, PhotoOrigin& origin,
                                     const SaveOptions& options, CProgress& progress);
