#include "journal/JournalLine.h"

#include "user/Journal.h"

#include <algorithm>
#include <limits>
#include <sstream>

namespace winlite
{

namespace
{

enum class Kind
{
    Input,
    Other,
    Worker,
    Text,
};

struct Word
{
    const char* pszName;
    std::size_t nNumbers;
    Kind kind;
};

// Input ends with the time it arrived at, which is not the one it was taken at.
constexpr Word WORDS[] = {
    {"move", 4, Kind::Input},
    {"button", 6, Kind::Input},
    {"wheel", 4, Kind::Input},
    {"key", 5, Kind::Input},
    {"active", 3, Kind::Input},
    {"capture-lost", 1, Kind::Input},
    {"paint", 1, Kind::Other},
    {"timer", 2, Kind::Other},
    {"posted", 2, Kind::Other},
    {"pointer-is", 2, Kind::Other},
    {"key-is", 2, Kind::Other},
    {"place", 5, Kind::Other},
    {"show", 2, Kind::Other},
    {"enable", 2, Kind::Other},
    {"worker-pointer", 3, Kind::Worker},
    {"worker-key", 3, Kind::Worker},
    {"worker-origin", 3, Kind::Worker},
    {"worker-wait", 2, Kind::Worker},
    {"command", 0, Kind::Text},
    {"end", 0, Kind::Text},
};

const Word* FindWord(const std::string& strName)
{
    const auto it = std::ranges::find(WORDS, strName, &Word::pszName);
    return it == std::end(WORDS) ? nullptr : &*it;
}

/// The words and numbers of each kind of event, without the time.
struct Describe
{
    int iFirstWindow;

    JournalLine operator()(const PointerMoveEvent& event) const
    {
        return {0, "move", {JournalNumberOf(event.hTopLevel, iFirstWindow), event.ptScreen.x, event.ptScreen.y}, {}};
    }
    JournalLine operator()(const ButtonEvent& event) const
    {
        return {0,
                "button",
                {JournalNumberOf(event.hTopLevel, iFirstWindow), static_cast<int>(event.button), event.bDown,
                 event.ptScreen.x, event.ptScreen.y},
                {}};
    }
    JournalLine operator()(const WheelEvent& event) const
    {
        return {0, "wheel", {event.zDelta, event.ptScreen.x, event.ptScreen.y}, {}};
    }
    JournalLine operator()(const KeyEvent& event) const
    {
        return {0, "key", {event.uKey, event.bDown, event.bExtended, event.uScanCode}, {}};
    }
    JournalLine operator()(const ActivationEvent& event) const
    {
        return {0, "active", {JournalNumberOf(event.hTopLevel, iFirstWindow), event.bActive}, {}};
    }
    JournalLine operator()(const CaptureLostEvent&) const { return {0, "capture-lost", {}, {}}; }
};

} // namespace

int JournalNumberOf(HWND hWnd, int iFirstWindow) { return hWnd ? NumberOf(hWnd) - iFirstWindow + 1 : 0; }

HWND JournalWindowOf(std::int64_t iNumber, int iFirstWindow)
{
    return iNumber ? WindowOfNumber(static_cast<int>(iNumber) + iFirstWindow - 1) : nullptr;
}

std::string FormatLine(const JournalLine& line)
{
    std::string strLine = std::to_string(line.uTime) + " " + line.strWord;
    for (const std::int64_t iNumber : line.vNumbers)
        strLine += " " + std::to_string(iNumber);
    return line.strText.empty() ? strLine : strLine + " " + line.strText;
}

std::optional<JournalLine> ParseLine(const std::string& strLine)
{
    std::istringstream stream(strLine);
    JournalLine line;
    stream >> line.uTime >> line.strWord;
    const bool bTimed = stream && line.uTime <= static_cast<std::uint64_t>(std::numeric_limits<LONG>::max());
    const Word* pWord = bTimed ? FindWord(line.strWord) : nullptr;
    if (!pWord)
        return std::nullopt;
    line.vNumbers.resize(pWord->nNumbers);
    for (std::int64_t& iNumber : line.vNumbers)
    {
        // Every number is a coordinate, a code or a time that 32 bits hold.
        stream >> iNumber;
        if (!stream || iNumber < std::numeric_limits<LONG>::min() || iNumber > std::numeric_limits<DWORD>::max())
            return std::nullopt;
    }
    if (stream.peek() == ' ')
        stream.ignore();
    std::getline(stream, line.strText);
    return line.strText.empty() || pWord->kind == Kind::Text ? std::optional(line) : std::nullopt;
}

bool IsInputWord(const std::string& strWord)
{
    const Word* pWord = FindWord(strWord);
    return pWord && pWord->kind == Kind::Input;
}

bool IsWorkerWord(const std::string& strWord)
{
    const Word* pWord = FindWord(strWord);
    return pWord && pWord->kind == Kind::Worker;
}

JournalLine LineOf(const InputEvent& event, int iFirstWindow)
{
    JournalLine line = std::visit(Describe{iFirstWindow}, event.what);
    line.vNumbers.push_back(event.uTime);
    return line;
}

std::optional<InputEvent> InputOf(const JournalLine& line, int iFirstWindow)
{
    const std::vector<std::int64_t>& v = line.vNumbers;
    const auto point = [&v](std::size_t i) { return POINT{static_cast<LONG>(v[i]), static_cast<LONG>(v[i + 1])}; };
    const auto event = [&v](const auto& what) { return InputEvent{what, static_cast<DWORD>(v.back())}; };
    if (line.strWord == "move")
        return event(PointerMoveEvent{JournalWindowOf(v[0], iFirstWindow), point(1)});
    if (line.strWord == "button" && v[1] >= 0 && v[1] <= static_cast<int>(MouseButton::Middle))
        return event(
            ButtonEvent{JournalWindowOf(v[0], iFirstWindow), point(3), static_cast<MouseButton>(v[1]), v[2] != 0});
    if (line.strWord == "wheel")
        return event(WheelEvent{point(1), static_cast<int>(v[0])});
    if (line.strWord == "key")
        return event(KeyEvent{static_cast<UINT>(v[0] & 0xFF), v[1] != 0, v[2] != 0, static_cast<BYTE>(v[3])});
    if (line.strWord == "active")
        return event(ActivationEvent{JournalWindowOf(v[0], iFirstWindow), v[1] != 0});
    if (line.strWord == "capture-lost")
        return event(CaptureLostEvent{});
    return std::nullopt;
}

} // namespace winlite
