#pragma once

#include "document/Document.h"
#include "pixels/Turn.h"
#include "program/Jobs.h"
#include "program/ProgramParts.h"

#include <functional>
#include <optional>
#include <string>

// Changes of the photo's size or direction, as jobs: the selection goes along, and each is one step.

/// Cuts the photo down to a rectangle of it, bitmap pixels; none, with a message, when nothing of it lies inside.
std::optional<Job> CropJob(ProgramParts& parts, const CRect& rc, std::string& strError);

/// The same to the box of the selection.
std::optional<Job> CropToSelectionJob(ProgramParts& parts, std::string& strError);

/// Turns or mirrors it.
std::optional<Job> TurnJob(ProgramParts& parts, Turn eTurn);

/// Turns the photo about its middle by degrees, clockwise where positive; with bCrop what would have no picture is cut
/// off, otherwise the photo keeps its size.
std::optional<Job> StraightenJob(ProgramParts& parts, double dDegrees, bool bCrop);

/// Puts the photo as it was opened back, whatever its size is now.
std::optional<Job> RevertJob(ProgramParts& parts);

/// Lets the view go from a photo to the one that takes its place: replace does that and returns the old one.
void ShowShaped(ProgramParts& parts, const std::function<CPhoto()>& replace);
