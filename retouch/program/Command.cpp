#include "program/Command.h"

#include "document/Message.h"
#include "program/CommandText.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace
{

using Value = Values::value_type;

std::string Range(const Argument& argument)
{
    return Message(QT_TRANSLATE_NOOP("Program", "from %1 to %2"),
                   {std::to_string(argument.iLeast), std::to_string(argument.iMost)});
}

std::string OneOf(const Argument& argument)
{
    std::string strWords;
    for (const std::string& strWord : argument.vWords)
        strWords += (strWords.empty() ? "" : "|") + strWord;
    return strWords;
}

std::optional<Value> ReadNumber(const Argument& argument, const std::string& strWord, std::string& strError)
{
    int iNumber = 0;
    const char* const pEnd = strWord.data() + strWord.size();
    const auto [pRead, error] = std::from_chars(strWord.data(), pEnd, iNumber);
    if (error == std::errc() && pRead == pEnd && iNumber >= argument.iLeast && iNumber <= argument.iMost)
        return iNumber;
    strError = Message(QT_TRANSLATE_NOOP("Program", "\"%1\" is no number %2"), {strWord, Range(argument)});
    return std::nullopt;
}

std::optional<Value> ReadDecimal(const std::string& strWord, std::string& strError)
{
    double dNumber = 0;
    const char* const pEnd = strWord.data() + strWord.size();
    const auto [pRead, error] = std::from_chars(strWord.data(), pEnd, dNumber);
    if (error == std::errc() && pRead == pEnd && std::isfinite(dNumber))
        return dNumber;
    strError = Message(QT_TRANSLATE_NOOP("Program", "\"%1\" is no number like -1.5"), {strWord});
    return std::nullopt;
}

std::optional<Value> ReadWord(const Argument& argument, const std::string& strWord, std::string& strError)
{
    if (std::ranges::find(argument.vWords, strWord) != argument.vWords.end())
        return strWord;
    strError = Message(QT_TRANSLATE_NOOP("Program", "\"%1\" is none of %2"), {strWord, OneOf(argument)});
    return std::nullopt;
}

/// A point, like "100,80".
std::optional<CPoint> ReadPoint(const std::string& strWord)
{
    CPoint pt(0, 0);
    const char* const pEnd = strWord.data() + strWord.size();
    const auto [pComma, errorX] = std::from_chars(strWord.data(), pEnd, pt.x);
    if (errorX != std::errc() || pComma == pEnd || *pComma != ',')
        return std::nullopt;
    const auto [pRead, errorY] = std::from_chars(pComma + 1, pEnd, pt.y);
    return errorY == std::errc() && pRead == pEnd ? std::optional(pt) : std::nullopt;
}

std::optional<Value> TakePoints(std::string& strRest, std::string& strError)
{
    Points vPoints;
    while (!strRest.empty())
    {
        const std::optional<std::string> strWord = TakeWord(strRest, strError);
        const std::optional<CPoint> pt = strWord ? ReadPoint(*strWord) : std::nullopt;
        if (!pt)
        {
            strError = Message(QT_TRANSLATE_NOOP("Program", "\"%1\" is no point like 100,80"), {strWord.value_or("")});
            return std::nullopt;
        }
        vPoints.push_back(*pt);
    }
    return vPoints;
}

std::optional<Value> TakeValue(const Argument& argument, std::string& strRest, std::string& strError)
{
    if (strRest.empty())
    {
        strError = Message(QT_TRANSLATE_NOOP("Program", "%1 is missing"), {argument.pszName});
        return std::nullopt;
    }
    if (argument.eKind == Argument::Kind::Points)
        return TakePoints(strRest, strError);
    // A name without quotes may have blanks in it.
    const bool bRest = argument.eKind == Argument::Kind::Path && strRest.front() != '"' && strRest.front() != '\'';
    const std::optional<std::string> strWord =
        bRest ? std::exchange(strRest, std::string()) : TakeWord(strRest, strError);
    if (!strWord || argument.eKind == Argument::Kind::Path)
        return strWord;
    if (argument.eKind == Argument::Kind::Decimal)
        return ReadDecimal(*strWord, strError);
    return argument.eKind == Argument::Kind::Number ? ReadNumber(argument, *strWord, strError)
                                                    : ReadWord(argument, *strWord, strError);
}

/// Takes a flag off the end of the line; whether it was there.
bool TakeFlag(const Argument& argument, std::string& strRest)
{
    const std::string strFlag = std::string(" ") + argument.pszName;
    const std::string strLine = " " + strRest;
    if (!strLine.ends_with(strFlag))
        return false;
    strRest = Trimmed(strLine.substr(0, strLine.size() - strFlag.size()));
    return true;
}

/// The values of the arguments, in their order, from what follows the command's word.
std::optional<Values> TakeValues(const std::vector<Argument>& vArguments, std::string& strRest, std::string& strError)
{
    // First, since a name without quotes would take it for a part of itself.
    const auto isFlag = [](const Argument& argument) { return argument.eKind == Argument::Kind::Flag; };
    const auto itFlag = std::ranges::find_if(vArguments, isFlag);
    const bool bFlag = itFlag != vArguments.end() && TakeFlag(*itFlag, strRest);
    Values vValues;
    for (const Argument& argument : vArguments)
    {
        std::optional<Value> value =
            isFlag(argument) ? std::optional<Value>(bFlag ? 1 : 0) : TakeValue(argument, strRest, strError);
        if (!value)
            return std::nullopt;
        vValues.push_back(std::move(*value));
    }
    return vValues;
}

} // namespace

std::optional<CommandCall> ParseCommand(const std::vector<Command>& vCommands, const std::string& strText,
                                        std::string& strError)
{
    std::string strRest = strText;
    const std::optional<std::string> strWord = TakeWord(strRest, strError);
    if (!strWord)
        return std::nullopt;
    const auto it = std::ranges::find(vCommands, *strWord, &Command::strWord);
    if (it == vCommands.end())
    {
        strError = Message(QT_TRANSLATE_NOOP("Program", "there is no command \"%1\""), {*strWord});
        return std::nullopt;
    }
    std::optional<Values> vValues = TakeValues(it->vArguments, strRest, strError);
    if (!vValues)
        return std::nullopt;
    if (strRest.empty())
        return CommandCall{&*it, std::move(*vValues)};
    strError = Message(QT_TRANSLATE_NOOP("Program", "\"%1\" is one argument too many"), {strRest});
    return std::nullopt;
}

std::string DescribeCommand(const Command& command)
{
    std::string strLine = command.strWord;
    std::string strRanges;
    for (const Argument& argument : command.vArguments)
    {
        const bool bWords = argument.eKind == Argument::Kind::Word;
        const bool bFlag = argument.eKind == Argument::Kind::Flag;
        const std::string strName = bFlag ? "[" + std::string(argument.pszName) + "]" : argument.pszName;
        strLine += " " + (bWords ? OneOf(argument) : strName);
        if (argument.eKind == Argument::Kind::Number && argument.iMost < Argument::ANY)
            strRanges += (strRanges.empty() ? "   " : ", ") + std::string(argument.pszName) + " " + Range(argument);
    }
    return strLine + strRanges;
}
