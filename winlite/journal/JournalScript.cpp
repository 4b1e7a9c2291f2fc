#include "journal/JournalScript.h"

#include <sstream>
#include <stdexcept>

namespace winlite
{

namespace
{

// The title and the screen come before the first entry.
constexpr std::size_t HEADER_LINES = 2;

void ReadHeader(std::istream& stream, SIZE& szScreen, double& dScale)
{
    constexpr double MOST_SCALE = 16;
    std::string strTitle;
    std::getline(stream, strTitle);
    if (strTitle != JOURNAL_TITLE)
        throw std::runtime_error(std::string("does not begin with \"") + JOURNAL_TITLE + "\"");
    std::string strScreen, strScale, strLine;
    std::getline(stream, strLine);
    std::istringstream line(strLine);
    line >> strScreen >> szScreen.cx >> szScreen.cy >> strScale >> dScale;
    if (!line || strScreen != "screen" || strScale != "scale" || !(dScale > 0 && dScale <= MOST_SCALE))
        throw std::runtime_error("line 2: not of the form \"screen WIDTH HEIGHT scale FACTOR\"");
}

} // namespace

JournalScript::JournalScript(std::istream& stream)
{
    ReadHeader(stream, m_szScreen, m_dScale);
    std::string strLine;
    for (std::size_t iEntry = 0; std::getline(stream, strLine); ++iEntry)
    {
        std::optional<JournalLine> line = ParseLine(strLine);
        if (!line || !m_strEnd.empty())
            throw std::runtime_error("line " + std::to_string(HEADER_LINES + iEntry + 1) +
                                     ": not understood: " + strLine);
        if (line->strWord == "end")
            m_strEnd = line->strText;
        else
            m_vLines.push_back(std::move(*line));
    }
}

void JournalScript::SetPlaying(bool bPlaying)
{
    const std::scoped_lock lock(m_Mutex);
    m_bPlaying = bPlaying;
    m_cvMoved.notify_all();
}

const JournalLine* JournalScript::Next() const
{
    const std::scoped_lock lock(m_Mutex);
    return IsOver() ? nullptr : &m_vLines[m_iNext];
}

void JournalScript::Advance()
{
    const std::scoped_lock lock(m_Mutex);
    ++m_iNext;
    m_cvMoved.notify_all();
}

const JournalLine* JournalScript::NextOfProgram()
{
    std::unique_lock lock(m_Mutex);
    const auto isMine = [this] { return IsOver() || !IsWorkerWord(m_vLines[m_iNext].strWord); };
    if (!m_cvMoved.wait_for(lock, PATIENCE, isMine))
        PartLocked("no worker that asks");
    return IsOver() ? nullptr : &m_vLines[m_iNext];
}

const JournalLine* JournalScript::NextOfWorker(int iWorker)
{
    std::unique_lock lock(m_Mutex);
    const auto isMine = [this, iWorker]
    { return IsOver() || (IsWorkerWord(m_vLines[m_iNext].strWord) && m_vLines[m_iNext].vNumbers.front() == iWorker); };
    if (!m_cvMoved.wait_for(lock, PATIENCE, isMine))
        PartLocked("a question of worker " + std::to_string(iWorker));
    return IsOver() ? nullptr : &m_vLines[m_iNext];
}

void JournalScript::Part(const std::string& strHappened)
{
    const std::scoped_lock lock(m_Mutex);
    PartLocked(strHappened);
}

void JournalScript::PartLocked(const std::string& strHappened)
{
    if (!m_strParted.empty())
        return;
    const bool bEnd = m_iNext == m_vLines.size();
    m_strParted = "line " + std::to_string(HEADER_LINES + m_iNext + 1) + ": the journal has \"" +
                  (bEnd ? "its end" : FormatLine(m_vLines[m_iNext])) + "\" where the program has " + strHappened;
    m_cvMoved.notify_all();
}

std::string JournalScript::Parted() const
{
    const std::scoped_lock lock(m_Mutex);
    return m_strParted;
}

std::size_t JournalScript::LineNumber() const
{
    const std::scoped_lock lock(m_Mutex);
    return HEADER_LINES + m_iNext + 1;
}

} // namespace winlite
