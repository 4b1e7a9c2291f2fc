#include "program/CommandText.h"

#include "document/Message.h"

#include <algorithm>

namespace
{

constexpr const char* BLANKS = " \t";

bool IsQuote(char c) { return c == '"' || c == '\''; }
bool IsBlank(char c) { return c == ' ' || c == '\t'; }

/// The position after the quotes that begin there; nothing, with a message, when they do not end.
std::optional<std::size_t> AfterQuotes(const std::string& strText, std::size_t iBegin, std::string& strError)
{
    const char cQuote = strText[iBegin];
    for (std::size_t i = iBegin + 1; i < strText.size(); ++i)
    {
        const bool bTwice = strText[i] == cQuote && i + 1 < strText.size() && strText[i + 1] == cQuote;
        if (strText[i] == cQuote && !bTwice)
            return i + 1;
        i += bTwice ? 1 : 0;
    }
    strError = Message(QT_TRANSLATE_NOOP("Program", "the quotes of %1 do not end"), {strText.substr(iBegin)});
    return std::nullopt;
}

std::string WithoutQuotes(const std::string& strQuoted)
{
    std::string strText;
    for (std::size_t i = 1; i + 1 < strQuoted.size(); ++i)
    {
        strText += strQuoted[i];
        i += strQuoted[i] == strQuoted.front() ? 1 : 0;
    }
    return strText;
}

} // namespace

std::string Trimmed(const std::string& strText)
{
    const std::size_t iFirst = strText.find_first_not_of(BLANKS);
    if (iFirst == std::string::npos)
        return {};
    return strText.substr(iFirst, strText.find_last_not_of(BLANKS) + 1 - iFirst);
}

std::optional<std::vector<std::string>> SplitCommands(const std::string& strText, std::string& strError)
{
    std::vector<std::string> vCommands(1);
    for (std::size_t i = 0; i < strText.size();)
    {
        // Quotes in the middle of a word are a part of it.
        const bool bQuoted = IsQuote(strText[i]) && i > 0 && IsBlank(strText[i - 1]);
        const std::optional<std::size_t> iEnd = bQuoted ? AfterQuotes(strText, i, strError) : i + 1;
        if (!iEnd)
            return std::nullopt;
        if (strText[i] == ';')
            vCommands.emplace_back();
        else
            vCommands.back() += strText.substr(i, *iEnd - i);
        i = *iEnd;
    }
    std::ranges::transform(vCommands, vCommands.begin(), Trimmed);
    std::erase(vCommands, std::string());
    return vCommands;
}

std::optional<std::string> TakeWord(std::string& strText, std::string& strError)
{
    strText = Trimmed(strText);
    const bool bQuoted = !strText.empty() && IsQuote(strText.front());
    const std::optional<std::size_t> iEnd =
        bQuoted ? AfterQuotes(strText, 0, strError) : std::min(strText.find_first_of(BLANKS), strText.size());
    if (!iEnd)
        return std::nullopt;
    const std::string strWord = strText.substr(0, *iEnd);
    strText = Trimmed(strText.substr(*iEnd));
    return bQuoted ? WithoutQuotes(strWord) : strWord;
}

std::string Quoted(const std::string& strText)
{
    std::string strQuoted = "\"";
    for (const char c : strText)
        strQuoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return strQuoted + "\"";
}
