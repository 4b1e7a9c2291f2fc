#pragma once

#include "document/History.h"
#include "document/LockedFile.h"
#include "document/Photo.h"
#include "document/SessionFile.h"

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

/// What is left of sessions that came to an unexpected end (CSessionJournal). Any thread.
struct LostSession
{
    std::string strFile;
    std::string strPath; ///< Where its photo was saved to; empty for the sample picture.
    SessionPhoto photo;  ///< What it began with.
};

/// The sessions of a folder that no running program holds, and in which there is something to recover; the files of
/// others, and those of other versions, are removed. The last one comes first.
std::vector<LostSession> FindLostSessions(const std::string& strFolder);

/// One of them by its file; nothing when there is nothing to recover.
std::optional<LostSession> LostSessionOf(const std::string& strFile);

/// The work of a session as far as it is whole in its file.
struct RecoveredWork
{
    CPhoto photo;          ///< As it was in the end.
    CTiledSnapshot opened; ///< As it was opened: all of it.
    std::deque<CHistory::State> vStates;
    std::size_t iCurrent = 0;
    unsigned uSaved = 0; ///< The number of the pixels that were saved.
    bool bWhole = false; ///< The file has all of the photo as it was opened.
    std::shared_ptr<CLockedFile> pFile; ///< Ends with that work, and can be gone on with.
};

/// Reads a session's work: with the original, which is what the session's photo was opened as, or without it where the
/// session has all of the photo. Nothing in the file is trusted. Nothing on failure, with a message.
std::optional<RecoveredWork> RecoverWork(const std::string& strFile, std::optional<CPhoto> original,
                                         std::string& strError);
