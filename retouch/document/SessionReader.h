#pragma once

#include "document/Photo.h"
#include "document/SessionFile.h"

#include <optional>
#include <string>
#include <vector>

/// What is left of sessions that came to an unexpected end (CSessionJournal). Any thread.
struct LostSession
{
    std::string strFile;
    SessionPhoto photo;
};

/// The sessions of a folder that no running program holds, and in which something was done; files without that, and
/// those of other versions, are removed. The last one comes first.
std::vector<LostSession> FindLostSessions(const std::string& strFolder);

/// One of them by its file; nothing when nothing was done in it.
std::optional<LostSession> LostSessionOf(const std::string& strFile);

/// The work of a session as far as it is whole in its file.
struct RecoveredWork
{
    CPhoto photo;
    std::vector<BYTE> vMask; ///< The selection's weights, a byte a pixel, top row first; none without a selection.
    std::string strStep;     ///< The last step.
};

/// Does a session's work again: on the original, which is what the session's photo was opened as, or without it where
/// the session has all of the photo. Nothing in the file is trusted. Nothing on failure, with a message.
std::optional<RecoveredWork> RecoverWork(const std::string& strFile, std::optional<CPhoto> original,
                                         std::string& strError);
