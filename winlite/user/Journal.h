#pragma once

#include "user/InputQueue.h"

#include <functional>
#include <string>
#include <vector>

namespace winlite
{

using JournalNumbers = std::vector<std::int64_t>;

/// Makes an answer for a worker: the one of the moment, or for a recorded one, which it returns, what goes with it.
using JournalAnswer = std::function<JournalNumbers(const JournalNumbers* pRecorded)>;

/// Stands between the program and everything that comes from outside in an order that chance decides: the input that
/// the queue goes on with, timers, the order of paints and posted messages, and where pointer and keys are right now.
/// One that writes it all down makes a session that can be played again: the other kind supplies it. The base class
/// lets everything pass as it is. User-interface thread, but for what workers ask; threads that the class library did
/// not start get the real answers.
class InputJournal
{
public:
    virtual ~InputJournal() = default;

    /// The oldest event that waits, if any, is about to be taken. Returns what the queue goes on with.
    virtual std::optional<InputEvent> OnInput(std::optional<InputEvent> arrived) { return arrived; }

    /// A timer that is due, if any. Returns the one that is handed out; with bTake false it is only looked at.
    struct Timer
    {
        HWND hWnd;
        UINT_PTR uId;
    };
    virtual std::optional<Timer> OnTimer(std::optional<Timer> due, bool) { return due; }

    /// Whether the paint that a window is due, or a posted message, may be handed out now.
    virtual bool AdmitsPaint(HWND) { return true; }
    virtual bool AdmitsPosted() { return true; }

    /// A paint or a posted message was handed out.
    virtual void OnPaint(HWND) {}
    virtual void OnPosted(HWND, UINT) {}

    /// A program asks where the pointer is, or whether a key is down, at this moment. Returns the answer.
    virtual POINT OnPointerAsked(POINT ptScreen) { return ptScreen; }
    virtual bool OnKeyAsked(int, bool bDown) { return bDown; }

    /// A worker asks for something that chance decides; pszWord says what. Returns the answer. Any thread.
    virtual JournalNumbers OnWorkerAsks(int iWorker, const char* pszWord, const JournalAnswer& answer);

    /// The program does something that did not come through winlite (a menu, a gesture of the toolkit), in its own
    /// words without line breaks.
    virtual void OnCommand(const std::string&) {}

    /// The desktop is about to place, show or enable a top-level window.
    virtual void OnPlaced(HWND, const RECT&) {}
    virtual void OnShown(HWND, int) {}
    virtual void OnEnabled(HWND, BOOL) {}
};

/// Makes a journal, which stays the caller's, the program's; NULL takes it away, once no worker is in a call of it any
/// more.
void SetJournal(InputJournal* pJournal);

/// The journal for what the calling thread does; one that changes nothing when there is none, on other threads than the
/// user-interface one, and inside a free paint.
InputJournal& TheJournal();

/// What a worker asks goes this way: to the program's journal, or straight to the answer. Any thread.
JournalNumbers AskAsWorker(const char* pszWord, const JournalAnswer& answer);

/// A paint that only workers asked for comes when chance has it. While this lives, with bFree, nothing of what happens
/// on this thread concerns the journal.
class FreePaintScope
{
public:
    explicit FreePaintScope(bool bFree);
    ~FreePaintScope();
    FreePaintScope(const FreePaintScope&) = delete;
    FreePaintScope& operator=(const FreePaintScope&) = delete;

private:
    bool m_bOutside;
};

/// Windows by the order of their creation in this program, from 1 on: the same in a session and in its replay. 0 for no
/// window.
int NumberOf(HWND hWnd);
HWND WindowOfNumber(int iNumber);

/// The number of the oldest window there is, or of the next when there is none.
int OldestWindowNumber();

} // namespace winlite
