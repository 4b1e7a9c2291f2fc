#include "journal/JournalWriter.h"

#include "base/Desktop.h"
#include "user/Workers.h"

#include <stdexcept>

namespace winlite
{

JournalWriter::JournalWriter(const std::string& strPath)
    : m_File(strPath), m_iFirstWindow(OldestWindowNumber()), m_nWorkersBefore(Workers::StartedCount())
{
    const SIZE szScreen = TheDesktop().ScreenSize();
    m_File << JOURNAL_TITLE << "\n"
           << "screen " << szScreen.cx << " " << szScreen.cy << " scale " << TheDesktop().Scale() << std::endl;
    if (!m_File)
        throw std::runtime_error(strPath + ": cannot be written");
    SetJournal(this);
}

JournalWriter::~JournalWriter() { SetJournal(nullptr); }

void JournalWriter::Write(JournalLine line)
{
    // One order for all threads: a line is written when its answer is there, and what follows from it comes later.
    const std::scoped_lock lock(m_Mutex);
    line.uTime = TheDesktop().TickCount();
    m_File << FormatLine(line) << std::endl;
}

void JournalWriter::OnCommand(const std::string& strCommand) { Write({0, "command", {}, strCommand}); }

void JournalWriter::WriteEnd(const std::string& strText) { Write({0, "end", {}, strText}); }

std::optional<InputEvent> JournalWriter::OnInput(std::optional<InputEvent> arrived)
{
    if (arrived)
        Write(LineOf(*arrived, m_iFirstWindow));
    return arrived;
}

std::optional<InputJournal::Timer> JournalWriter::OnTimer(std::optional<Timer> due, bool bTake)
{
    if (due && bTake)
        Write("timer", {Number(due->hWnd), static_cast<std::int64_t>(due->uId)});
    return due;
}

void JournalWriter::OnPaint(HWND hWnd) { Write("paint", {Number(hWnd)}); }

void JournalWriter::OnPosted(HWND hWnd, UINT uMessage) { Write("posted", {Number(hWnd), uMessage}); }

POINT JournalWriter::OnPointerAsked(POINT ptScreen)
{
    Write("pointer-is", {ptScreen.x, ptScreen.y});
    return ptScreen;
}

JournalNumbers JournalWriter::OnWorkerAsks(int iWorker, const char* pszWord, const JournalAnswer& answer)
{
    const JournalNumbers vAnswer = answer(nullptr);
    JournalNumbers vNumbers = {iWorker - m_nWorkersBefore};
    vNumbers.insert(vNumbers.end(), vAnswer.begin(), vAnswer.end());
    Write(pszWord, std::move(vNumbers));
    return vAnswer;
}

bool JournalWriter::OnKeyAsked(int iKey, bool bDown)
{
    Write("key-is", {iKey, bDown});
    return bDown;
}

void JournalWriter::OnPlaced(HWND hWnd, const RECT& rc)
{
    Write("place", {Number(hWnd), rc.left, rc.top, rc.right, rc.bottom});
}

void JournalWriter::OnShown(HWND hWnd, int iShow) { Write("show", {Number(hWnd), iShow}); }

void JournalWriter::OnEnabled(HWND hWnd, BOOL bEnable) { Write("enable", {Number(hWnd), bEnable}); }

} // namespace winlite
