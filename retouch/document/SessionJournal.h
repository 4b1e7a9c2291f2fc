#pragma once

#include "document/History.h"
#include "document/LockedFile.h"
#include "document/SessionFile.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <QByteArray>
#include <thread>

/// Writes the history of a photo down as it is made: the tiles of each step, compressed, are appended to a file, and
/// leave the memory. So a history may be longer than the memory, and work comes back after an unexpected end of the
/// program (RecoverWork). The file is the user's own, locked while the program runs, and removed with it. Writing is
/// done on a thread of its own; the rest is the user-interface thread's.
class CSessionJournal
{
public:
    /// Makes a file in a folder, which is made too. Whether that went well says TakeFailure.
    explicit CSessionJournal(std::string strFolder);

    /// The work is over, and nothing of it is to be recovered.
    ~CSessionJournal();
    CSessionJournal(const CSessionJournal&) = delete;
    CSessionJournal& operator=(const CSessionJournal&) = delete;

    /// From here on it is the work on that photo, in a file of its own; what was written down so far is not needed any
    /// more.
    void Begin(const std::string& strPath);

    /// Goes on with a file that has states up to uLastId already.
    void GoOn(std::shared_ptr<CLockedFile> pFile, unsigned uLastId);

    /// What the program knows about the work beside its states.
    struct About
    {
        std::string strPath;   ///< Where the photo is saved to; empty for the sample picture.
        bool bUnsaved = false; ///< There is something to recover.
        bool bWhole = false;   ///< The photo's file is not what the work began with any more.
    };

    /// Writes what has come since the last time. opened is the photo as it was opened, as far as anything changed it;
    /// vOpened are all of its tiles, to be written once its file is not what it was.
    void Append(const CHistory& history, const About& about, const CTiledSnapshot& opened,
                std::vector<CTiledSnapshot::KeptTile> vOpened);

    /// Why nothing is written any more; empty while all is well. Each failure is told once.
    std::string TakeFailure();

    /// Waits until all that was appended is in the file.
    void Flush();

    /// Bytes of memory that wait to be written, about.
    std::size_t Waiting();

private:
    /// A state that is new.
    struct NewState
    {
        unsigned uId = 0;
        unsigned uBefore = 0; ///< The state that it is told from; 0 for none.
        QByteArray about;     ///< Name, size and number of its pixels.
        std::vector<CTiledSnapshot::KeptTile> vPixels;
        std::vector<CTiledSnapshot::KeptTile> vMask;
        std::vector<RECT> vSelected;
    };

    /// What the thread is to write: a new beginning, or what has come.
    struct Entry
    {
        std::shared_ptr<CLockedFile> pFile;
        std::optional<SessionPhoto> photo; ///< What a new file begins with.
        QByteArray opened;
        std::vector<CTiledSnapshot::KeptTile> vOpened;
        std::vector<NewState> vStates;
        QByteArray list;
        std::size_t nBytes = 0;
    };

    static NewState TellFrom(const CHistory::State* pBefore, const CHistory::State& state,
                             const CTiledSnapshot& opened);
    void Begin(std::shared_ptr<CLockedFile> pFile, std::optional<SessionPhoto> photo, unsigned uLastId);
    void Add(Entry entry);
    void Work();
    void Write(Entry& entry);
    QByteArray WriteTiles(const std::vector<CTiledSnapshot::KeptTile>& vTiles, bool bLeave);
    void WriteBlocks(const std::vector<CTiledSnapshot::KeptTile>& vTiles, std::size_t iFirst, std::size_t iEnd,
                     std::vector<TilePlace>& vPlaces);
    void WriteRecord(SessionRecord record, const QByteArray& says);
    void Fail(int iError);

    const std::string m_strFolder;
    std::shared_ptr<CLockedFile> m_pFile; ///< The one that is appended to by now.
    unsigned m_uLastId = 0;               ///< The last state that was appended.

    std::shared_ptr<CLockedFile> m_pWritten; ///< The thread's.

    std::mutex m_mutex; ///< Guards what follows.
    std::condition_variable m_changed;
    std::deque<Entry> m_vWaiting;
    std::size_t m_nWaiting = 0;
    bool m_bWriting = false;
    bool m_bEnding = false;
    std::atomic<bool> m_bFailed = false;
    std::string m_strFailure;
    std::thread m_thread;
};
