#include "journal/JournalPlayer.h"

#include "user/Timers.h"
#include "user/Window.h"
#include "user/Workers.h"

#include <stdexcept>

namespace winlite
{

namespace
{

/// Answers were asked for inside a message; what asked for them may be something that only watched.
bool IsAnswer(const JournalLine& line) { return line.strWord == "pointer-is" || line.strWord == "key-is"; }

/// Lines that stand for a message, which the program fetches.
bool IsFetched(const JournalLine& line)
{
    return IsInputWord(line.strWord) || line.strWord == "timer" || line.strWord == "posted" || line.strWord == "paint";
}

/// Takes and dispatches one paint that is due; false when there is none.
bool PaintOne()
{
    MSG msg;
    if (!::PeekMessage(&msg, nullptr, 0, 0, PM_REMOVE | PM_QS_PAINT))
        return false;
    ::DispatchMessage(&msg);
    return true;
}

} // namespace

JournalPlayer::JournalPlayer(std::istream& stream)
    : m_script(stream), m_iFirstWindow(OldestWindowNumber()), m_nWorkersBefore(Workers::StartedCount())
{
    SetJournal(this);
}

JournalPlayer::~JournalPlayer()
{
    m_script.SetPlaying(false);
    SetJournal(nullptr);
}

void JournalPlayer::Play(HeadlessDesktop& desktop, const std::function<bool(const std::string&)>& execute)
{
    m_bPlaying = true;
    m_script.SetPlaying(true);
    while (const JournalLine* pLine = m_script.NextOfProgram())
    {
        const std::size_t iBefore = m_script.LineNumber();
        Follow(desktop, *pLine, execute);
        if (m_script.LineNumber() == iBefore)
            m_script.Part("nothing to do with it");
    }
    while (m_script.Parted().empty() && PaintOne()) // What workers asked for last.
    {
    }
    m_script.SetPlaying(false);
    m_bPlaying = false;
    if (const std::string strParted = m_script.Parted(); !strParted.empty())
        throw std::runtime_error(strParted);
}

void JournalPlayer::Follow(HeadlessDesktop& desktop, const JournalLine& line,
                           const std::function<bool(const std::string&)>& execute)
{
    if (IsFetched(line))
    {
        Pump(desktop, line);
        return;
    }
    const std::vector<std::int64_t>& v = line.vNumbers;
    const auto number = [&v](std::size_t i) { return static_cast<int>(v[i]); };
    const std::size_t iLine = m_script.LineNumber();
    m_script.Advance();
    if (line.strWord == "place")
        PlaceTopLevel(Window(v[0]), {number(1), number(2), number(3), number(4)});
    else if (line.strWord == "show")
        ShowTopLevel(Window(v[0]), number(1));
    else if (line.strWord == "enable")
        EnableTopLevel(Window(v[0]), number(1));
    else if (line.strWord == "command" && !execute(line.strText))
        throw std::runtime_error("line " + std::to_string(iLine) + ": the program cannot do \"" + line.strText + "\"");
}

void JournalPlayer::Pump(HeadlessDesktop& desktop, const JournalLine& line)
{
    if (line.uTime > desktop.TickCount())
        desktop.Advance(static_cast<int>(line.uTime - desktop.TickCount()));
    const std::size_t iBefore = m_script.LineNumber();
    const auto isTaken = [&] { return m_script.LineNumber() != iBefore; };
    // It may have been painted ahead of other messages; and paints that are free come in between.
    const auto pump = line.strWord == "paint" ? &PaintOne : &PumpOneMessage;
    while (pump() && !isTaken())
    {
    }
    // What a worker posts comes when the worker has come so far.
    while (line.strWord == "posted" && !isTaken() && desktop.WaitForWake(JournalScript::PATIENCE))
        PumpOneMessage();
}

/// The line that is to come, other than answers that nobody has asked for.
const JournalLine* JournalPlayer::NextAfterAnswers()
{
    const JournalLine* pLine = m_script.NextOfProgram();
    for (; pLine && IsAnswer(*pLine); pLine = m_script.NextOfProgram())
        m_script.Advance();
    return pLine;
}

void JournalPlayer::Expect(const char* pszWord, const std::vector<std::int64_t>& vNumbers)
{
    if (!m_bPlaying)
        return;
    const JournalLine* pLine = NextAfterAnswers();
    if (pLine && pLine->strWord == pszWord && pLine->vNumbers == vNumbers)
        m_script.Advance();
    else
        m_script.Part("\"" + FormatLine({0, pszWord, vNumbers, {}}) + "\"");
}

// ---- what the program asks for

std::optional<InputEvent> JournalPlayer::OnInput(std::optional<InputEvent> arrived)
{
    if (!m_bPlaying)
        return arrived;
    const JournalLine* pLine = m_script.Next();
    const auto event = pLine ? InputOf(*pLine, m_iFirstWindow) : std::nullopt;
    if (event)
        m_script.Advance();
    return event;
}

std::optional<InputJournal::Timer> JournalPlayer::OnTimer(std::optional<Timer> due, bool bTake)
{
    if (!m_bPlaying)
        return due;
    const JournalLine* pLine = m_script.Next();
    if (!pLine || pLine->strWord != "timer")
        return std::nullopt;
    const Timer timer = {Window(pLine->vNumbers[0]), static_cast<UINT_PTR>(pLine->vNumbers[1])};
    if (!IsTimerSet(timer.hWnd, timer.uId))
        return std::nullopt;
    if (bTake)
        m_script.Advance();
    return timer;
}

bool JournalPlayer::AdmitsPaint(HWND hWnd)
{
    if (!m_bPlaying)
        return true;
    const std::int64_t iNumber = Number(hWnd);
    const JournalLine* pLine = m_script.Next();
    return pLine && pLine->strWord == "paint" && pLine->vNumbers[0] == iNumber;
}

bool JournalPlayer::AdmitsPosted()
{
    const JournalLine* pLine = m_bPlaying ? m_script.Next() : nullptr;
    return !m_bPlaying || (pLine && pLine->strWord == "posted");
}

void JournalPlayer::OnPaint(HWND hWnd) { Expect("paint", {Number(hWnd)}); }

void JournalPlayer::OnPosted(HWND hWnd, UINT uMessage) { Expect("posted", {Number(hWnd), uMessage}); }

POINT JournalPlayer::OnPointerAsked(POINT ptScreen)
{
    const JournalLine* pLine = m_bPlaying ? m_script.NextOfProgram() : nullptr;
    if (!pLine || pLine->strWord != "pointer-is")
        return ptScreen;
    m_script.Advance();
    return {static_cast<LONG>(pLine->vNumbers[0]), static_cast<LONG>(pLine->vNumbers[1])};
}

bool JournalPlayer::OnKeyAsked(int iKey, bool bDown)
{
    const JournalLine* pLine = m_bPlaying ? m_script.NextOfProgram() : nullptr;
    if (!pLine || pLine->strWord != "key-is" || pLine->vNumbers[0] != iKey)
        return bDown;
    m_script.Advance();
    return pLine->vNumbers[1] != 0;
}

JournalNumbers JournalPlayer::OnWorkerAsks(int iWorker, const char* pszWord, const JournalAnswer& answer)
{
    const JournalLine* pLine = m_script.NextOfWorker(iWorker - m_nWorkersBefore);
    if (!pLine)
        return answer(nullptr);
    if (pLine->strWord != pszWord)
    {
        m_script.Part("\"" + std::string(pszWord) + "\" of the same worker");
        return answer(nullptr);
    }
    const JournalNumbers vRecorded(pLine->vNumbers.begin() + 1, pLine->vNumbers.end());
    const JournalNumbers vAnswer = answer(&vRecorded);
    m_script.Advance();
    return vAnswer;
}

} // namespace winlite
