#pragma once

#include "journal/JournalLine.h"

#include <chrono>
#include <condition_variable>
#include <istream>
#include <mutex>

namespace winlite
{

/// The lines of a journal and the place where playing has come to. The program's thread and its workers take turns:
/// each line is somebody's, and whoever comes to it early waits. Any thread.
class JournalScript
{
public:
    /// A turn that has not come after so long never comes: program and journal have parted.
    static constexpr std::chrono::seconds PATIENCE{20};

    /// Reads all of it. Throws std::runtime_error, naming the line, when it is no journal.
    explicit JournalScript(std::istream& stream);

    SIZE ScreenSize() const { return m_szScreen; }
    double Scale() const { return m_dScale; }

    /// What the session came to, in the words of its end; empty when it was cut off.
    const std::string& End() const { return m_strEnd; }

    /// Before it begins and after its end everybody gets the answers of the moment; after its end for good.
    void SetPlaying(bool bPlaying);

    /// The line that is to come; NULL after the last, and while it is not played. Lines stay where they are.
    const JournalLine* Next() const;
    void Advance();

    /// The same, and it is no worker's: waits until the workers have taken theirs. Program's thread.
    const JournalLine* NextOfProgram();

    /// The worker's next line: waits for its turn. NULL when there are no more lines. Workers are numbered as in the
    /// journal.
    const JournalLine* NextOfWorker(int iWorker);

    /// Program and journal have parted; the first such event stands. Playing ends with it.
    void Part(const std::string& strHappened);

    /// How they parted, with the line; empty while they have not.
    std::string Parted() const;

    /// The line to come, as a message names it.
    std::size_t LineNumber() const;

private:
    bool IsOver() const { return !m_bPlaying || !m_strParted.empty() || m_iNext == m_vLines.size(); }
    void PartLocked(const std::string& strHappened);

    SIZE m_szScreen = {};
    double m_dScale = 1;
    std::vector<JournalLine> m_vLines;
    std::string m_strEnd;

    mutable std::mutex m_Mutex; ///< Guards what follows.
    std::condition_variable m_cvMoved;
    std::size_t m_iNext = 0;
    bool m_bPlaying = false;
    std::string m_strParted;
};

} // namespace winlite
