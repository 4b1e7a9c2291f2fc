#pragma once

#include "program/ToolSession.h"
#include "view/EmbeddedTool.h"

#include <limits>
#include <memory>
#include <span>
#include <string>
#include <vector>

class CPainter;
class CToolBox;
struct ProgramParts;

// The rows that a tool consists of outside its own source. Texts that people read are marked with
// QT_TRANSLATE_NOOP("Tool", ...), steps of the history with "History".

/// A drawing in a square of 24 units: M, L (x y) and C (three points) draw lines, R and E (left top width height)
/// rectangles and ellipses, Z closes.
struct Icon
{
    enum class Style
    {
        Line,
        Dashed, ///< Outlines of selections.
        Merge,  ///< What is left of two overlapping squares.
    };
    const char* pszPath;
    Style eStyle = Style::Line;
};

/// One of several buttons: a word in commands, what the person reads, and the key.
struct Choice
{
    const char* pszWord;
    const char* pszText;
    const char* pszKey;
    Icon icon;
};

/// A setting of a tool: a command of this word sets it, and the options bar shows it.
struct ToolOption
{
    const char* pszWord;
    const char* pszArgument; ///< The unit, as the list of commands shows it.
    const char* pszLabel;
    const char* pszSuffix;
    const char* pszTip;
    int iLeast;
    int iMost;
    std::vector<Choice> vChoices; ///< Unless empty, the value is one of these, counted from iLeast.
    int (*pGet)(const CToolBox& tools);
    void (*pSet)(ProgramParts& parts, int iValue);
    const char* pszLessKey = ""; ///< Keys that make a number smaller and larger by a step.
    const char* pszMoreKey = "";
    bool bDigits = false;                            ///< The keys 1 to 9 and 0 set it to tenths of the whole.
    int iMostKept = std::numeric_limits<int>::max(); ///< Values above are for the moment, and are not kept.

    /// A value as the command has it.
    std::string Text(int iValue) const;
};

/// What the history calls the change that the view tells of.
struct StepName
{
    UINT uCode;
    const char* pszName;
};

/// What the program does when the view tells of something: the command for it; empty for nothing.
struct ToolCommand
{
    UINT uCode;
    std::string (*pCommand)(ProgramParts& parts);
};

/// A picture of the tour: its name, and what a person does before it, separated by semicolons: commands, and what the
/// hand does in thousandths of the view ("press 300 300; move 500 600; release", "click 500 500").
struct TourStop
{
    const char* pszName;
    const char* pszScript;
};

/// What a modifier key does while it is held.
struct HeldHint
{
    UINT uKey; ///< VK_SHIFT, VK_CONTROL or VK_MENU.
    const char* pszText;
};

/// A tool of the palette.
struct Tool
{
    const char* pszWord;
    const char* pszText;
    const char* pszKey;
    const char* pszHint;
    Icon icon;
    std::span<const UINT> vKeys = {}; ///< Virtual codes of keys that go to the tool before the program's shortcuts.
    std::span<const HeldHint> vHeldHints = {};
    std::span<const ToolOption* const> vOptions = {};
    std::span<const StepName> vSteps = {}; ///< The notifications that make a step of the selection.
    const char* pszSettings = nullptr;     ///< The name that its settings are kept under; several tools may share it.
    bool bPicksColour = false;             ///< A change of the tolerance repeats its last click.

    /// Makes the library's tool ready for the view; NULL for a tool that is only there for one session.
    Pixtane::CPixtane::IEmbeddedTool& (*pPrepare)(CToolBox& tools) = nullptr;

    /// Makes the session that choosing it begins; NULL for a tool that stays.
    std::unique_ptr<CToolSession> (*pBegin)(ProgramParts& parts) = nullptr;

    // A brush.
    std::span<const StepName> vStrokes = {};                ///< The notifications that make a step of the pixels.
    CPainter* (*pPainter)(const CToolBox& tools) = nullptr; ///< The library's tool as a brush.
    std::span<const Choice> vActions = {};                  ///< Buttons for commands without arguments.

    std::span<const ToolCommand> vCommands = {};

    std::span<const TourStop> vTour = {}; ///< What the tour shows of it, once it is chosen.
};

/// All tools in the order of the palette, the first of them chosen at first.
std::span<const Tool> Tools();

/// The row of a word; NULL when there is none.
const Tool* FindTool(const std::string& strWord);

/// All options of all tools, each once.
std::vector<const ToolOption*> ToolOptions();
