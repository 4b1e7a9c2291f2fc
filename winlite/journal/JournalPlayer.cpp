#include "journal/JournalPlayer.h"

#include "user/Timers.h"
#include "user/Window.h"

#include <sstream>
#include <stdexcept>
#include <utility>

namespace winlite
{

namespace
{

// The title and the screen come before the first entry.
constexpr std::size_t HEADER_LINES = 2;

[[noreturn]] void FailAt(std::size_t iEntry, const std::string& strWhat)
{
    throw std::runtime_error("line " + std::to_string(HEADER_LINES + iEntry + 1) + ": " + strWhat);
}

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

/// Answers were asked for inside a message; what asked for them may be something that only watched.
bool IsAnswer(const JournalLine& line) { return line.strWord == "pointer-is" || line.strWord == "key-is"; }

} // namespace

JournalPlayer::JournalPlayer(std::istream& stream) : m_iFirstWindow(OldestWindowNumber())
{
    ReadHeader(stream, m_szScreen, m_dScale);
    std::string strLine;
    for (std::size_t iEntry = 0; std::getline(stream, strLine); ++iEntry)
    {
        std::optional<JournalLine> line = ParseLine(strLine);
        if (!line || !m_strEnd.empty())
            FailAt(iEntry, "not understood: " + strLine);
        if (line->strWord == "end")
            m_strEnd = line->strText;
        else
            m_vLines.push_back(std::move(*line));
    }
    SetJournal(this);
}

JournalPlayer::~JournalPlayer() { SetJournal(nullptr); }

void JournalPlayer::Play(HeadlessDesktop& desktop, const std::function<bool(const std::string&)>& execute)
{
    m_pDesktop = &desktop;
    while (const JournalLine* pLine = Next())
    {
        const std::size_t iBefore = m_iNext;
        Follow(*pLine, execute);
        if (m_iNext == iBefore && m_strParted.empty())
            FailAt(iBefore, "the program has nothing to do with \"" + FormatLine(*pLine) + "\"");
        if (!m_strParted.empty())
            throw std::runtime_error(m_strParted);
    }
    m_pDesktop = nullptr;
}

void JournalPlayer::Follow(const JournalLine& line, const std::function<bool(const std::string&)>& execute)
{
    const std::vector<std::int64_t>& v = line.vNumbers;
    const auto number = [&v](std::size_t i) { return static_cast<int>(v[i]); };
    if (IsInputWord(line.strWord) || line.strWord == "timer" || line.strWord == "posted" || line.strWord == "paint")
    {
        Pump(line);
        return;
    }
    Advance();
    if (line.strWord == "place")
        PlaceTopLevel(Window(v[0]), {number(1), number(2), number(3), number(4)});
    else if (line.strWord == "show")
        ShowTopLevel(Window(v[0]), number(1));
    else if (line.strWord == "enable")
        EnableTopLevel(Window(v[0]), number(1));
    else if (line.strWord == "command" && !execute(line.strText))
        FailAt(m_iNext - 1, "the program cannot do \"" + line.strText + "\"");
}

void JournalPlayer::Pump(const JournalLine& line)
{
    if (line.uTime > m_pDesktop->TickCount())
        m_pDesktop->Advance(static_cast<int>(line.uTime - m_pDesktop->TickCount()));
    if (line.strWord != "paint")
    {
        PumpOneMessage();
        return;
    }
    // It may have been painted ahead of other messages.
    MSG msg;
    if (::PeekMessage(&msg, nullptr, 0, 0, PM_REMOVE | PM_QS_PAINT))
        ::DispatchMessage(&msg);
}

const JournalLine* JournalPlayer::Next(const char* pszWord) const
{
    const JournalLine* pLine = Next();
    return pLine && pLine->strWord == pszWord ? pLine : nullptr;
}

void JournalPlayer::Advance() { ++m_iNext; }

void JournalPlayer::Part(const std::string& strHappened)
{
    if (!m_strParted.empty())
        return;
    const JournalLine* pLine = Next();
    m_strParted = "line " + std::to_string(HEADER_LINES + m_iNext + 1) + ": the journal has \"" +
                  (pLine ? FormatLine(*pLine) : "its end") + "\" where the program has " + strHappened;
}

void JournalPlayer::Expect(const char* pszWord, const std::vector<std::int64_t>& vNumbers)
{
    if (!m_pDesktop)
        return;
    while (Next() && IsAnswer(*Next()))
        Advance();
    const JournalLine* pLine = Next(pszWord);
    if (pLine && pLine->vNumbers == vNumbers)
        Advance();
    else
        Part("\"" + FormatLine({0, pszWord, vNumbers, {}}) + "\"");
}

// ---- what the program asks for

std::optional<InputEvent> JournalPlayer::OnInput(std::optional<InputEvent> arrived)
{
    if (!m_pDesktop)
        return arrived;
    const JournalLine* pLine = Next();
    const auto event = pLine ? InputOf(*pLine, m_iFirstWindow) : std::nullopt;
    if (event)
        Advance();
    return event;
}

std::optional<InputJournal::Timer> JournalPlayer::OnTimer(std::optional<Timer> due, bool bTake)
{
    if (!m_pDesktop)
        return due;
    const JournalLine* pLine = Next("timer");
    if (!pLine)
        return std::nullopt;
    const Timer timer = {Window(pLine->vNumbers[0]), static_cast<UINT_PTR>(pLine->vNumbers[1])};
    if (!IsTimerSet(timer.hWnd, timer.uId))
        return std::nullopt;
    if (bTake)
        Advance();
    return timer;
}

void JournalPlayer::OnPaint(HWND hWnd) { Expect("paint", {Number(hWnd)}); }

void JournalPlayer::OnPosted(HWND hWnd, UINT uMessage) { Expect("posted", {Number(hWnd), uMessage}); }

POINT JournalPlayer::OnPointerAsked(POINT ptScreen)
{
    const JournalLine* pLine = m_pDesktop ? Next("pointer-is") : nullptr;
    if (!pLine)
        return ptScreen;
    const POINT ptAnswer = {static_cast<LONG>(pLine->vNumbers[0]), static_cast<LONG>(pLine->vNumbers[1])};
    Advance();
    return ptAnswer;
}

bool JournalPlayer::OnKeyAsked(int iKey, bool bDown)
{
    const JournalLine* pLine = m_pDesktop ? Next("key-is") : nullptr;
    if (!pLine || pLine->vNumbers[0] != iKey)
        return bDown;
    Advance();
    return pLine->vNumbers[1] != 0;
}

} // namespace winlite
