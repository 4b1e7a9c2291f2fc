#pragma once

#include "journal/JournalLine.h"
#include "user/Journal.h"

#include <fstream>
#include <mutex>

namespace winlite
{

/// Writes down what reaches the program on this thread, from its construction to its destruction, so that JournalPlayer
/// can play it again. Made after the desktop and before the first window; each line reaches the file at once, so that
/// even a session that crashed can be played. User-interface thread, but for what workers ask.
class JournalWriter : public InputJournal
{
public:
    /// Throws std::runtime_error, naming the file, when it cannot be written.
    explicit JournalWriter(const std::string& strPath);
    ~JournalWriter() override;

    /// The session is over; strText says what it came to.
    void WriteEnd(const std::string& strText);

    /// Whether all was written so far.
    bool IsGood() const { return m_File.good(); }

    std::optional<InputEvent> OnInput(std::optional<InputEvent> arrived) override;
    std::optional<Timer> OnTimer(std::optional<Timer> due, bool bTake) override;
    void OnPaint(HWND hWnd) override;
    void OnPosted(HWND hWnd, UINT uMessage) override;
    POINT OnPointerAsked(POINT ptScreen) override;
    bool OnKeyAsked(int iKey, bool bDown) override;
    JournalNumbers OnWorkerAsks(int iWorker, const char* pszWord, const JournalAnswer& answer) override;
    void OnCommand(const std::string& strCommand) override;
    void OnPlaced(HWND hWnd, const RECT& rcScreen) override;
    void OnShown(HWND hWnd, int iShow) override;
    void OnEnabled(HWND hWnd, BOOL bEnable) override;

private:
    void Write(JournalLine line);
    void Write(const char* pszWord, std::vector<std::int64_t> vNumbers)
    {
        Write({0, pszWord, std::move(vNumbers), {}});
    }
    std::int64_t Number(HWND hWnd) const { return JournalNumberOf(hWnd, m_iFirstWindow); }

    std::mutex m_Mutex; ///< Guards the file.
    std::ofstream m_File;
    int m_iFirstWindow;
    int m_nWorkersBefore; ///< Workers are numbered from the first that starts in the session on.
};

} // namespace winlite
