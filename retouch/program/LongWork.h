#pragma once

#include "document/Photo.h"
#include "pixels/BrightnessContrast.h"
#include "program/Jobs.h"
#include "program/ProgramParts.h"

#include <optional>
#include <string>

// The work that takes long on large photos, as jobs: made ready on the user-interface thread, with copies of what they
// need. None when there is nothing to do.

/// Another photo takes the place of the one that is shown.
Job OpenJob(ProgramParts& parts, const std::string& strPath);
Job OpenSampleJob(ProgramParts& parts);

std::optional<Job> AutoContrastJob(ProgramParts& parts);
std::optional<Job> BrightnessContrastJob(ProgramParts& parts, BrightnessContrast settings);

/// Puts the pixels back that were opened; the photo must have their size.
std::optional<Job> RevertPixelsJob(ProgramParts& parts, const char* pszStep);

std::optional<Job> GrowJob(ProgramParts& parts, int iPixels);
std::optional<Job> ShrinkJob(ProgramParts& parts, int iPixels);
std::optional<Job> FeatherJob(ProgramParts& parts, int iPixels);

/// Shows a photo, and drops everything about the one before.
void ShowPhoto(ProgramParts& parts, CPhoto photo, const std::string& strPath);
