#pragma once

#include "platform/framework.h"
#include "program/Jobs.h"

#include <limits>
#include <optional>
#include <string>
#include <variant>
#include <vector>

struct ProgramParts;

/// What a command expects after its word.
struct Argument
{
    enum class Kind
    {
        Number,  ///< A whole number from iLeast to iMost.
        Decimal, ///< Any number, with a point.
        Word,    ///< One of vWords.
        Path,    ///< A file's name: quoted, or the rest of the line.
        Points,  ///< One or more "X,Y", the rest of the line.
        Flag,    ///< pszName itself at the end of the line, or nothing: the number 1 or 0.
    };
    static constexpr int ANY = std::numeric_limits<int>::max(); ///< No limit that the command knows beforehand.

    const char* pszName; ///< As the list of commands shows it.
    Kind eKind = Kind::Number;
    int iLeast = 0;
    int iMost = 0;
    std::vector<std::string> vWords = {};
};

using Points = std::vector<CPoint>;
using Values = std::vector<std::variant<int, double, std::string, Points>>;

/// A row of the table of commands: what one is called, what it expects and does.
struct Command
{
    /// What it does to what the tool is in the middle of: a shape, a transform, a colour pick.
    enum class Middle
    {
        Ends,      ///< It is ended first, and counts.
        Keeps,     ///< It goes on.
        TakesBack, ///< What would be a step is taken back instead; anything else is ended first.
    };
    /// What becomes of it while a job runs.
    enum class DuringJob
    {
        Waits,   ///< It is done when the job has ended.
        Runs,    ///< It is done at once.
        Cancels, ///< It cancels the job and is done then.
    };
    /// Does it; FALSE with a message, and nothing changed, when it is not possible.
    using Do = std::function<bool(ProgramParts& parts, const Values& vValues, std::string& strError)>;
    /// Prepares it as a job; no job with a message when it is not possible, without one when there is nothing to do.
    using Prepare =
        std::function<std::optional<Job>(ProgramParts& parts, const Values& vValues, std::string& strError)>;

    std::string strWord;
    std::vector<Argument> vArguments;
    std::variant<Do, Prepare> action;
    Middle eMiddle = Middle::Ends;
    DuringJob eDuringJob = DuringJob::Waits;

    bool IsJob() const { return std::holds_alternative<Prepare>(action); }
};

/// A command and the values of its arguments.
struct CommandCall
{
    const Command* pCommand;
    Values vValues;
};

/// Finds the command that a line of text is, and reads its arguments; nothing, with a message, when it is none.
std::optional<CommandCall> ParseCommand(const std::vector<Command>& vCommands, const std::string& strText,
                                        std::string& strError);

/// A line about a command: its word and what it expects.
std::string DescribeCommand(const Command& command);
