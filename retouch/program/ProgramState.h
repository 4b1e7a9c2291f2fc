#pragma once

#include "platform/framework.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

/// What the window shows of the program, as it was at a moment. Words are those of the commands; names of steps, jobs
/// and hints are yet to be translated (contexts "History" and "Tool").
struct ProgramState
{
    // The photo.
    std::string strPath; ///< Empty for one that is no file.
    CSize szPhoto;       ///< 0 x 0 without one.
    bool bUnsaved;       ///< Its pixels are not those of its file.
    unsigned uPhotos;    ///< How many have been shown so far.
    std::string strUndo; ///< What would be undone or done again; empty for nothing.
    std::string strRedo;

    /// What the person did to come to a state of the photo; the first is what was opened, or the oldest that is kept.
    struct Step
    {
        std::string strName; ///< Empty for the first.
        unsigned uPixels;    ///< Equal numbers, equal pixels.
    };
    std::vector<Step> vSteps; ///< Also those that were undone.
    int iStep;                ///< The one that is shown.
    bool bForgot;             ///< The oldest steps are forgotten, to save memory.

    // The tool.
    std::string strTool;
    std::string strHint;
    std::map<std::string, int> vOptions; ///< The values of all options.
    bool bInSession;                     ///< Something with an end of its own is under way, like a transform.
    std::optional<CRect> frame;          ///< Its rectangle, bitmap pixels, if a person may place that by numbers.

    std::optional<double> angle; ///< Its angle in degrees, if a person may give that as a number.

    std::optional<COLORREF> picked; ///< The colour that was picked last.

    // The selection.
    CRect rcSelection; ///< Its box in bitmap pixels; empty for none.
    bool bOutlineHidden;
    bool bOutlineStill;
    bool bTinted;

    /// The work that is under way.
    struct Work
    {
        std::string strName;
        int iPercent;
    };
    std::optional<Work> work;
};

class CJobs;
struct ProgramParts;

/// The state of a program. User-interface thread.
ProgramState StateOf(const ProgramParts& parts, const CJobs& jobs);
