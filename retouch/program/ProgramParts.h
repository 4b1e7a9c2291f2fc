#pragma once

#include "platform/framework.h"

#include <functional>
#include <optional>
#include <string>

class CDocument;
class CJobs;
class CPresenter;
class CSelection;
class CToolBox;
class CViewHost;

namespace Pixtane
{
class CPixtane;
}

/// The last selection by colour, which counts for as long as nothing else has changed the document.
struct LastPick
{
    CPoint ptBitmap;
    bool bRange;        ///< A colour range, otherwise the wand.
    bool bStep;         ///< It changed something.
    unsigned uRevision; ///< The history's right after it.
};

/// What the program consists of, for its commands, tools and jobs. The window knows none of it.
struct ProgramParts
{
    CViewHost& host;
    Pixtane::CPixtane& view;
    CDocument& document;
    CPresenter& presenter;
    CSelection& selection;
    CToolBox& tools;
    std::optional<LastPick> lastPick = {};

    /// The colour that was picked last.
    std::optional<COLORREF> picked = {};
    int iJpegQuality = 90; ///< 1 to 100.

    /// Is called when another photo has come.
    std::function<void()> photoShown = {};

    /// Tells the person that something could not be done.
    std::function<void(const std::string& strError)> failed = {};

    /// Tells whoever shows the program's state that it has changed.
    std::function<void()> changed = {};
};
