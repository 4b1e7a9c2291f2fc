#pragma once

#include "program/Jobs.h"
#include "program/ProgramParts.h"

/// Brings the work of a session that came to an unexpected end back, with all its steps (SessionReader). None, with a message, when the file is not there.
std::optional<Job> RecoverJob(ProgramParts& parts, const std::string& strFile, std::string& strError);
