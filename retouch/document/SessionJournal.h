#pragma once

#include "document/History.h"
#include "document/SessionFile.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

/// Writes the work on a photo down as it is done, for the case that the program comes to an unexpected end: each step's
/// changed tiles, compressed, appended to a file of the user's own that only he can read. The file is locked while the
/// program runs, and removed with it. Writing is done on a thread of its own; the rest is the user-interface thread's.
class CSessionJournal
{
public:
    /// Makes a file in a folder, which is made too. Whether that went well says Failure.
    explicit CSessionJournal(std::string strFolder);

    /// The work is over, and nothing of it is to be recovered.
    ~CSessionJournal();
    CSessionJournal(const CSessionJournal&) = delete;
    CSessionJournal& operator=(const CSessionJournal&) = delete;

    /// From here on it is the work on that photo; what was written down is not needed any more. With bWhole all of the
    /// photo is written with the first step: the file is not what it was opened from.
    void Begin(const std::string& strPath, bool bWhole);

    /// A step has been done. pixels and mask are what there is now: without tiles where nothing has changed, but for a
    /// photo that began as a whole.
    void Append(const std::string& strStep, const CTiledSnapshot& pixels, const CTiledSnapshot& mask, bool bSelected);

    /// Whether Append shall get all of the photo's tiles.
    bool WantsWhole() const { return m_bWhole && !m_bBegun; }

    /// Why nothing is written any more; empty while all is well. Each failure is told once.
    std::string TakeFailure();

    /// Waits until all that was appended is in the file.
    void Flush();

private:
    /// What the thread is to write: a new beginning, or a step.
    struct Entry
    {
        std::optional<SessionPhoto> photo;
        QByteArray size;
        std::vector<CTiledSnapshot::KeptTile> vPixels;
        std::vector<CTiledSnapshot::KeptTile> vMask;
        bool bSelected = false;
        std::string strStep;
    };

    void Add(Entry entry);
    void Work();
    void Write(Entry& entry);
    void WriteTiles(SessionRecord record, const std::vector<CTiledSnapshot::KeptTile>& vTiles, const QByteArray& first);
    void WriteRecord(SessionRecord record, const QByteArray& says);
    void WriteBytes(const char* pBytes, std::size_t nBytes);
    void Fail(int iError);

    std::string m_strPath;
    int m_iFile = -1;
    bool m_bWhole = false;
    bool m_bBegun = false;   ///< A step has been appended since the beginning.
    CTiledSnapshot m_pixels; ///< As of the last step.
    CTiledSnapshot m_mask;

    std::mutex m_mutex; ///< Guards what follows.
    std::condition_variable m_changed;
    std::deque<Entry> m_vWaiting;
    bool m_bWriting = false;
    bool m_bEnding = false;
    std::atomic<bool> m_bFailed = false;
    std::string m_strFailure;
    std::uint64_t m_nWritten = 0;
    std::thread m_thread;
};
