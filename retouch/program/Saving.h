#pragma once

#include "program/Jobs.h"
#include "program/ProgramParts.h"

#include <optional>
#include <string>

/// Writes the photo as a file, in the background: one that is there already only with bOverwrite. None, with a message,
/// when there is no photo. User-interface thread.
std::optional<Job> SaveJob(ProgramParts& parts, const std::string& strPath, bool bOverwrite, std::string& strError);
