#pragma once

#include "headless/HeadlessDesktop.h"
#include "journal/JournalScript.h"
#include "user/Journal.h"

#include <functional>
#include <istream>

namespace winlite
{

/// Plays a journal on a headless desktop: the program and its workers get the same input between the same paints and
/// timers, and the same answers, so it comes to the same pixels. Where the program asks for something else than the
/// journal has, the two have parted, and playing ends with an error that names the line. User-interface thread.
class JournalPlayer : public InputJournal
{
public:
    /// Reads all of it. Throws std::runtime_error, naming the line, when it is no journal.
    explicit JournalPlayer(std::istream& stream);
    ~JournalPlayer() override;

    /// The screen that the desktop must have.
    SIZE ScreenSize() const { return m_script.ScreenSize(); }
    double Scale() const { return m_script.Scale(); }

    /// Plays it all. The command of each such line goes to the program, which says whether it could be carried out.
    /// Throws std::runtime_error when a command could not, or when program and journal have parted.
    void Play(HeadlessDesktop& desktop, const std::function<bool(const std::string& strCommand)>& execute);

    /// What the session came to, in the words of its end; empty when it was cut off.
    const std::string& End() const { return m_script.End(); }

    std::optional<InputEvent> OnInput(std::optional<InputEvent> arrived) override;
    std::optional<Timer> OnTimer(std::optional<Timer> due, bool bTake) override;
    bool AdmitsPaint(HWND hWnd) override;
    bool AdmitsPosted() override;
    void OnPaint(HWND hWnd) override;
    void OnPosted(HWND hWnd, UINT uMessage) override;
    POINT OnPointerAsked(POINT ptScreen) override;
    bool OnKeyAsked(int iKey, bool bDown) override;
    JournalNumbers OnWorkerAsks(int iWorker, const char* pszWord, const JournalAnswer& answer) override;

private:
    void Follow(HeadlessDesktop& desktop, const JournalLine& line,
                const std::function<bool(const std::string&)>& execute);
    void Pump(HeadlessDesktop& desktop, const JournalLine& line);
    const JournalLine* NextAfterAnswers();
    void Expect(const char* pszWord, const std::vector<std::int64_t>& vNumbers);
    HWND Window(std::int64_t iNumber) const { return JournalWindowOf(iNumber, m_iFirstWindow); }
    std::int64_t Number(HWND hWnd) const { return JournalNumberOf(hWnd, m_iFirstWindow); }

    JournalScript m_script;
    int m_iFirstWindow;
    int m_nWorkersBefore;
    bool m_bPlaying = false;
};

} // namespace winlite
