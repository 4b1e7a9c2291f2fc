#pragma once

#include "program/Jobs.h"
#include "program/ProgramParts.h"

#include <optional>
#include <string>

/// The path that a pattern stands for: in it {dir} and {name} are folder and base name, without the ending, of the file
/// that the photo was opened from. Nothing, with a message, when there is no such file.
std::optional<std::string> FilledIn(const std::string& strPattern, const std::string& strOpened, std::string& strError);

/// Writes the photo as the file that the pattern stands for, in the background: one that is there already only with
/// bOverwrite. None, with a message, when there is no photo. User-interface thread.
std::optional<Job> SaveJob(ProgramParts& parts, const std::string& strPattern, bool bOverwrite, std::string& strError);
