#pragma once

#include "document/Document.h"
#include "document/SessionJournal.h"

/// Keeps the steps of the work on the document in a file: for a history beyond the memory, and for a recovery.
/// User-interface thread.
class CStepKeeper
{
public:
    /// In a folder of the user's own; the document must outlive it.
    CStepKeeper(CDocument& document, const std::string& strFolder);
    ~CStepKeeper();
    CStepKeeper(const CStepKeeper&) = delete;
    CStepKeeper& operator=(const CStepKeeper&) = delete;

    /// Something may have changed. Returns a message once when nothing can be kept from here on.
    std::string Follow();

    /// Waits until all of it is in the file.
    void Flush() { m_journal.Flush(); }

private:
    void Begin();
    void Append();

    CDocument& m_document;
    CSessionJournal m_journal;
    unsigned m_uPhotos = 0;
    unsigned m_uSaves = 0;
    unsigned m_uRevision = 0;
    bool m_bWhole = false;        ///< The photo's file has been written since it was opened.
    bool m_bWholeWritten = false; ///< And all of the photo as it was opened is in the session's file.
};
