#pragma once

#include <string>

// Recorded sessions: docs/recordings.md describes the file and what is promised.

namespace winlite
{
struct Picture;
}

/// What a session came to: the size of the host window's picture and a digest of its pixels. Equal pixels, equal text.
std::string DescribePicture(const winlite::Picture& picture);

/// Plays a recorded session without a display and writes its last picture as a PNG file. strPhoto, unless empty, is
/// opened in place of the photo that was opened when it was recorded. Returns what the session came to now and then
/// (empty when it was cut off). Throws std::runtime_error, naming file and line, when it cannot be played.
struct ReplayResult
{
    std::string strNow;
    std::string strRecorded;
};
ReplayResult ReplaySession(const std::string& strPath, const std::string& strPicture, const std::string& strPhoto);
