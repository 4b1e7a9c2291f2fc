#pragma once

#include "user/InputQueue.h"

#include <cstdint>
#include <string>
#include <vector>

namespace winlite
{

/// One line of a journal: `TIME WORD NUMBER... TEXT`. The time is the desktop's clock in milliseconds; how many numbers
/// a word has, and whether text follows up to the line's end, docs/recordings.md lists.
struct JournalLine
{
    std::uint64_t uTime = 0;
    std::string strWord;
    std::vector<std::int64_t> vNumbers;
    std::string strText;

    bool operator==(const JournalLine&) const = default;
};

/// The first line of every journal, and the text between it and the screen's measures.
constexpr const char* JOURNAL_TITLE = "winlite journal 1";

std::string FormatLine(const JournalLine& line);

/// Nothing when the word is unknown, a number is missing or malformed, or something is left over.
std::optional<JournalLine> ParseLine(const std::string& strLine);

/// Windows as journals number them: 1 is the first that was there or came when the journal began. 0 for no window.
int JournalNumberOf(HWND hWnd, int iFirstWindow);
HWND JournalWindowOf(std::int64_t iNumber, int iFirstWindow);

/// An input event as word and numbers, InputOf gives nothing for a word
/// that is no input, and for numbers out of range.
JournalLine LineOf(const InputEvent& event, int iFirstWindow);
std::optional<InputEvent> InputOf(const JournalLine& line, int iFirstWindow);

/// Whether the word is that of an input event.
bool IsInputWord(const std::string& strWord);

/// Whether the word is that of a worker's question; its first number is then the worker's, the rest the answer.
bool IsWorkerWord(const std::string& strWord);

} // namespace winlite
