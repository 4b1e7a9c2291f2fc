#include "program/Brushes.h"
#include "program/ColourPick.h"
#include "program/Limits.h"
#include "program/PointTools.h"
#include "program/ShapeTool.h"
#include "program/StraightenTool.h"
#include "program/Tool.h"
#include "program/ToolBox.h"
#include "program/Transform.h"
#include "selection/RegionSelector.h"
#include "tools/ImageMover.h"
#include "view/Notifications.h"

#include <algorithm>
#include <array>
#include <QtGlobal>

namespace
{

using Pixtane::EmbeddedTool::ImageMover;
using Pixtane::EmbeddedTool::RegionSelector;
using Embedded = Pixtane::CPixtane::IEmbeddedTool;

constexpr UINT KEYS[] = {VK_SPACE, VK_DELETE, VK_LEFT, VK_UP, VK_RIGHT, VK_DOWN};

using Steps = std::array<StepName, 7>;

/// The steps of a tool that selects, by what its rule does.
constexpr Steps StepsOf(const char* pszNew, const char* pszAdd, const char* pszSubtract, const char* pszIntersect)
{
    return {{{Pixtane::PVN_SELECT_NEW, pszNew},
             {Pixtane::PVN_SELECT_ADD, pszAdd},
             {Pixtane::PVN_SELECT_SUBTRACT, pszSubtract},
             {Pixtane::PVN_SELECT_INTERSECT, pszIntersect},
             {Pixtane::PVN_SELECTION_CLEARED, QT_TRANSLATE_NOOP("History", "Deselect")},
             {Pixtane::PVN_SELECTION_INVERTED, QT_TRANSLATE_NOOP("History", "Invert Selection")},
             {Pixtane::PVN_SELECTION_MOVED, QT_TRANSLATE_NOOP("History", "Move Selection")}}};
}

constexpr Steps RECTANGLE_STEPS = StepsOf(
    QT_TRANSLATE_NOOP("History", "Rectangle Selection"), QT_TRANSLATE_NOOP("History", "Add Rectangle"),
    QT_TRANSLATE_NOOP("History", "Subtract Rectangle"), QT_TRANSLATE_NOOP("History", "Intersect with Rectangle"));
constexpr Steps ELLIPSE_STEPS =
    StepsOf(QT_TRANSLATE_NOOP("History", "Ellipse Selection"), QT_TRANSLATE_NOOP("History", "Add Ellipse"),
            QT_TRANSLATE_NOOP("History", "Subtract Ellipse"), QT_TRANSLATE_NOOP("History", "Intersect with Ellipse"));
constexpr Steps LASSO_STEPS =
    StepsOf(QT_TRANSLATE_NOOP("History", "Lasso Selection"), QT_TRANSLATE_NOOP("History", "Add by Lasso"),
            QT_TRANSLATE_NOOP("History", "Subtract by Lasso"), QT_TRANSLATE_NOOP("History", "Intersect by Lasso"));
constexpr Steps POLYGON_STEPS =
    StepsOf(QT_TRANSLATE_NOOP("History", "Polygon Selection"), QT_TRANSLATE_NOOP("History", "Add Polygon"),
            QT_TRANSLATE_NOOP("History", "Subtract Polygon"), QT_TRANSLATE_NOOP("History", "Intersect with Polygon"));
constexpr Steps WAND_STEPS = StepsOf(
    QT_TRANSLATE_NOOP("History", "Magic Wand"), QT_TRANSLATE_NOOP("History", "Add by Magic Wand"),
    QT_TRANSLATE_NOOP("History", "Subtract by Magic Wand"), QT_TRANSLATE_NOOP("History", "Intersect by Magic Wand"));

const RegionSelector& Selector(const CToolBox& tools) { return tools.Embedded<CShapeTool>(); }
RegionSelector& Selector(ProgramParts& parts) { return parts.tools.Embedded<CShapeTool>(); }

const std::vector<Choice> RULES = {
    {"new", QT_TRANSLATE_NOOP("Tool", "New selection"), "1", {"R 10 10 10 10", Icon::Style::Merge}},
    {"add", QT_TRANSLATE_NOOP("Tool", "Add to selection"), "2", {"R 4 4 10 10 R 10 10 10 10", Icon::Style::Merge}},
    {"subtract",
     QT_TRANSLATE_NOOP("Tool", "Subtract from selection"),
     "3",
     {"M 4 4 L 14 4 L 14 10 L 10 10 L 10 14 L 4 14 Z", Icon::Style::Merge}},
    {"intersect", QT_TRANSLATE_NOOP("Tool", "Intersect with selection"), "4", {"R 10 10 4 4", Icon::Style::Merge}},
};

const ToolOption RULE = {"rule",
                         "RULE",
                         "",
                         "",
                         "",
                         RegionSelector::OM_NEW,
                         RegionSelector::OM_INTERSECT,
                         RULES,
                         [](const CToolBox& tools) -> int { return Selector(tools).GetSelectOverlapMode(); },
                         [](ProgramParts& parts, int iRule)
                         { Selector(parts).SetSelectOverlapMode(static_cast<RegionSelector::emOverlapMode>(iRule)); },
                         "",
                         "",
                         false,
                         RegionSelector::OM_ADD};

const ToolOption FEATHER = {"feather",
                            "PIXELS",
                            QT_TRANSLATE_NOOP("Tool", " Fe&ather "),
                            QT_TRANSLATE_NOOP("Tool", " px"),
                            QT_TRANSLATE_NOOP("Tool", "How soft the edge of new shapes is"),
                            0,
                            MOST_PIXELS,
                            {},
                            [](const CToolBox& tools) { return Selector(tools).GetFeatherRadius(); },
                            [](ProgramParts& parts, int iPixels) { Selector(parts).SetFeatherRadius(iPixels); }};

const ToolOption TOLERANCE = {
    "tolerance",
    "LEVELS",
    QT_TRANSLATE_NOOP("Tool", "  &Tolerance "),
    "",
    QT_TRANSLATE_NOOP("Tool", "How far colours may differ for the magic wand and the colour range"),
    0,
    255,
    {},
    [](const CToolBox& tools) { return Selector(tools).GetTorlerance(); },
    [](ProgramParts& parts, int iLevels)
    {
        Selector(parts).SetTorlerance(iLevels);
        RepeatPick(parts);
    }};

const ToolOption* const SELECTOR_OPTIONS[] = {&RULE, &FEATHER, &TOLERANCE};
const ToolOption* const CLONE_OPTIONS[] = {&BRUSH_SIZE, &BRUSH_HARDNESS, &BRUSH_STRENGTH, &CLONE_ALIGNED};
const ToolOption* const DODGE_OPTIONS[] = {&BRUSH_SIZE, &BRUSH_HARDNESS, &BRUSH_STRENGTH, &DODGE_OR_BURN};
const ToolOption* const EFFECT_OPTIONS[] = {&BRUSH_SIZE, &BRUSH_HARDNESS, &BRUSH_STRENGTH, &BRUSH_EFFECT};

constexpr StepName CLONE_STROKES[] = {{Pixtane::PVN_CLONESTAMP_END, QT_TRANSLATE_NOOP("History", "Clone")}};
constexpr StepName DODGE_STROKES[] = {{Pixtane::PVN_DODGE_END, QT_TRANSLATE_NOOP("History", "Dodge")},
                                      {Pixtane::PVN_BURN_END, QT_TRANSLATE_NOOP("History", "Burn")}};
constexpr StepName EFFECT_STROKES[] = {{Pixtane::PVN_EFFECTBRUSH_END, QT_TRANSLATE_NOOP("History", "Effect Brush")}};

const ToolOption* const SPOT_OPTIONS[] = {&SPOT_SIZE};
const ToolOption* const REDEYE_OPTIONS[] = {&REDEYE_AMOUNT};
const ToolOption* const HORIZON_OPTIONS[] = {&HORIZON_CROP};
const ToolOption* const PICKER_OPTIONS[] = {&SAMPLE_SIZE};

constexpr ToolCommand SPOT_COMMANDS[] = {{Pixtane::PVN_SPOTREMOVER_SPOT, &HealCommand}};
constexpr ToolCommand REDEYE_COMMANDS[] = {{Pixtane::PVN_REDEYE_DETECT, &RedeyeCommand}};
constexpr ToolCommand PICKER_COMMANDS[] = {{Pixtane::PVN_COLORPICKER_COLOR, &PickBegins},
                                           {Pixtane::PVN_LBUTTONDOWN, &PickCommand},
                                           {Pixtane::PVN_MOUSEMOVE, &PickCommand}};

const Choice CLONE_ACTIONS[] = {{PICK_SOURCE_COMMAND,
                                 QT_TRANSLATE_NOOP("Tool", "Set the source with the next click"),
                                 "S",
                                 {"E 5 5 14 14 M 12 2 L 12 9 M 12 15 L 12 22 M 2 12 L 9 12 M 15 12 L 22 12"}}};

template<RegionSelector::emSelectMode MODE>
Embedded& Shape(CToolBox& tools)
{
    auto& selector = tools.Embedded<CShapeTool>();
    selector.SetSelectMode(MODE);
    return selector;
}

Embedded& Hand(CToolBox& tools) { return tools.Embedded<ImageMover>(); }

constexpr const char* SELECTOR_SETTINGS = "selectorSettings";
constexpr const char* BRUSH_HINT =
    QT_TRANSLATE_NOOP("Tool", "Shift+click: a straight line; [ and ]: size, Shift+[ and ]: hardness, digits: strength");
constexpr const char* SHAPE_HINT = QT_TRANSLATE_NOOP("Tool", "Shift: equal sides, Space: move the shape");

constexpr HeldHint SHAPE_HELD[] = {{VK_SHIFT, QT_TRANSLATE_NOOP("Tool", "Shift: equal sides")}};
constexpr HeldHint LASSO_HELD[] = {{VK_MENU, QT_TRANSLATE_NOOP("Tool", "Alt: clicks are corners, as of a polygon")}};
constexpr HeldHint POLYGON_HELD[] = {{VK_CONTROL, QT_TRANSLATE_NOOP("Tool", "Ctrl: the next click closes the shape")}};
constexpr HeldHint TRANSFORM_HELD[] = {{VK_SHIFT, QT_TRANSLATE_NOOP("Tool", "Shift: arrow keys go ten pixels")}};
constexpr HeldHint BRUSH_HELD[] = {
    {VK_SHIFT, QT_TRANSLATE_NOOP("Tool", "Shift: a click draws a straight line from the last stroke")}};
constexpr HeldHint CLONE_HELD[] = {BRUSH_HELD[0],
                                   {VK_MENU, QT_TRANSLATE_NOOP("Tool", "Alt: the next click sets where to copy from")}};

constexpr TourStop RECTANGLE_TOUR[] = {{"rectangle-being-drawn", "press 700 700; move 350 300"},
                                       {"rectangle", "release"}};
constexpr TourStop ELLIPSE_TOUR[] = {{"ellipse-being-added", "rule add; press 550 200; move 850 550"},
                                     {"ellipse-added", "release"}};
constexpr TourStop LASSO_TOUR[] = {
    {"lasso-being-subtracted",
     "rule subtract; press 400 400; move 450 350; move 500 370; move 530 450; move 500 550; move 430 530"},
    {"lasso-subtracted", "release"}};
constexpr TourStop POLYGON_TOUR[] = {
    {"polygon-being-intersected", "rule intersect; click 300 250; click 900 300; click 600 900; move 450 750"},
    {"polygon-intersected", "click 300 250"}};
constexpr TourStop WAND_TOUR[] = {
    {"wand", "select-none; rule new; tolerance 20; click 450 150"},
    {"wand-with-more-tolerance", "tolerance 45"},
    {"wand-inverted", "invert"},
    {"colour-range-tinted", "select-none; tolerance 30; pick-colour; click 500 600; tint"}};
constexpr TourStop TRANSFORM_TOUR[] = {
    {"feathered-selection-to-transform",
     "no-tint; select-none; tool ellipse; feather 20; press 300 300; move 500 600; release; tool transform"},
    {"transform-being-dragged", "press 400 450; move 600 500"},
    {"transform-moved", "release"},
    {"transform-applied-and-tinted", "apply-transform; tint"}};
constexpr TourStop CLONE_TOUR[] = {
    {"clone-being-painted",
     "no-tint; select-none; brush-size 60; pick-source; click 250 450; press 620 330; move 660 340; move 700 330"},
    {"clone", "release"}};
constexpr TourStop DODGE_TOUR[] = {
    {"dodge-being-painted", "brush-size 120; hardness 20; press 250 700; move 450 620; move 650 700"},
    {"dodged", "release"},
    {"burnt-where-selected", "tool ellipse; feather 30; press 350 350; move 650 800; release; tool dodge-burn; "
                             "range burn; brush-size 300; press 300 550; move 700 600; release; hide-outline"}};
constexpr TourStop EFFECT_TOUR[] = {
    {"blurred", "show-outline; select-none; brush-size 160; press 100 200; move 500 250; move 900 200; release"},
    {"mosaic", "effect mosaic; press 300 600; move 700 600; release"}};

constexpr TourStop SPOT_TOUR[] = {{"spots-removed", "spot-size 40; click 413 123; click 586 222"}};
constexpr TourStop REDEYE_TOUR[] = {{"red-eyes-being-framed", "press 180 650; move 330 760"},
                                    {"red-eyes-removed", "release"}};
constexpr TourStop STRAIGHTEN_TOUR[] = {{"horizon-being-drawn", "tool straighten; press 100 600; move 900 560"},
                                        {"straightening-shown", "release"},
                                        {"straightened", "apply-straighten"}};

const Tool TOOLS[] = {
    {.pszWord = "hand",
     .pszText = QT_TRANSLATE_NOOP("Tool", "Hand"),
     .pszKey = "H",
     .pszHint = QT_TRANSLATE_NOOP("Tool", "Drag to move the picture"),
     .icon = {"M 6.5 13 C 4 10.5 5.5 9 8 11.5 L 8 6 L 8 5.5 C 8 3.9 10.4 3.9 10.4 5.5 L 10.4 11 L 10.75 11 L 10.75 4.5 "
              "C 10.75 2.9 13.15 2.9 13.15 4.5 L 13.15 11 L 13.5 11 L 13.5 5.5 C 13.5 3.9 15.9 3.9 15.9 5.5 L 15.9 11 "
              "L 16.25 11 L 16.25 7.5 C 16.25 5.9 18.65 5.9 18.65 7.5 L 18.65 11 L 19 11 L 18.65 15 C 18.65 21 11 22.5 "
              "9 18 Z"},
     .vKeys = KEYS,
     .vOptions = SELECTOR_OPTIONS,
     .pPrepare = &Hand},
    {.pszWord = "rectangle",
     .pszText = QT_TRANSLATE_NOOP("Tool", "Rectangle"),
     .pszKey = "M",
     .pszHint = SHAPE_HINT,
     .icon = {"R 3.5 5.5 17 13", Icon::Style::Dashed},
     .vKeys = KEYS,
     .vHeldHints = SHAPE_HELD,
     .vOptions = SELECTOR_OPTIONS,
     .vSteps = RECTANGLE_STEPS,
     .pszSettings = SELECTOR_SETTINGS,
     .pPrepare = &Shape<RegionSelector::SM_RECTANGLE>,
     .vTour = RECTANGLE_TOUR},
    {.pszWord = "ellipse",
     .pszText = QT_TRANSLATE_NOOP("Tool", "Ellipse"),
     .pszKey = "E",
     .pszHint = SHAPE_HINT,
     .icon = {"E 3.5 5.5 17 13", Icon::Style::Dashed},
     .vKeys = KEYS,
     .vHeldHints = SHAPE_HELD,
     .vOptions = SELECTOR_OPTIONS,
     .vSteps = ELLIPSE_STEPS,
     .pszSettings = SELECTOR_SETTINGS,
     .pPrepare = &Shape<RegionSelector::SM_ELLIPSE>,
     .vTour = ELLIPSE_TOUR},
    {.pszWord = "lasso",
     .pszText = QT_TRANSLATE_NOOP("Tool", "Lasso"),
     .pszKey = "L",
     .pszHint = QT_TRANSLATE_NOOP("Tool", "Alt goes on as a polygon"),
     .icon = {"E 3 4 18 11 M 7 14 C 5 16 9 17 7 21"},
     .vKeys = KEYS,
     .vHeldHints = LASSO_HELD,
     .vOptions = SELECTOR_OPTIONS,
     .vSteps = LASSO_STEPS,
     .pszSettings = SELECTOR_SETTINGS,
     .pPrepare = &Shape<RegionSelector::SM_LASSO>,
     .vTour = LASSO_TOUR},
    {.pszWord = "polygon",
     .pszText = QT_TRANSLATE_NOOP("Tool", "Polygon"),
     .pszKey = "P",
     .pszHint = QT_TRANSLATE_NOOP("Tool", "Double click or Ctrl closes, Delete takes a corner back"),
     .icon = {"M 4 8 L 12 4 L 20 7 L 17 19 L 9 14 L 5 19 L 4 8"},
     .vKeys = KEYS,
     .vHeldHints = POLYGON_HELD,
     .vOptions = SELECTOR_OPTIONS,
     .vSteps = POLYGON_STEPS,
     .pszSettings = SELECTOR_SETTINGS,
     .pPrepare = &Shape<RegionSelector::SM_POLYGON>,
     .vTour = POLYGON_TOUR},
    {.pszWord = "wand",
     .pszText = QT_TRANSLATE_NOOP("Tool", "Magic wand"),
     .pszKey = "W",
     .pszHint = QT_TRANSLATE_NOOP("Tool", "Click a colour; the tolerance changes what was picked last"),
     .icon = {"M 10 10 L 20 20 M 3.8 7 L 10.2 7 M 7 3.8 L 7 10.2 M 12.2 5 L 15.8 5 M 14 3.2 L 14 6.8 M 3.2 14 L 6.8 14 "
              "M 5 12.2 L 5 15.8"},
     .vKeys = KEYS,
     .vOptions = SELECTOR_OPTIONS,
     .vSteps = WAND_STEPS,
     .pszSettings = SELECTOR_SETTINGS,
     .bPicksColour = true,
     .pPrepare = &Shape<RegionSelector::SM_MAGICWAND>,
     .vTour = WAND_TOUR},
    {.pszWord = "transform",
     .pszText = QT_TRANSLATE_NOOP("Tool", "Transform the selection"),
     .pszKey = "T",
     .pszHint =
         QT_TRANSLATE_NOOP("Tool", "Drag inside or by a handle, or the arrow keys; Enter applies, Esc puts back"),
     .icon = {"R 4.5 6.5 15 11 R 2.5 4.5 4 4 R 17.5 4.5 4 4 R 2.5 15.5 4 4 R 17.5 15.5 4 4"},
     .vKeys = KEYS,
     .vHeldHints = TRANSFORM_HELD,
     .pBegin = &MakeTransform,
     .vTour = TRANSFORM_TOUR},
    {.pszWord = "clone",
     .pszText = QT_TRANSLATE_NOOP("Tool", "Clone stamp"),
     .pszKey = "C",
     .pszHint = QT_TRANSLATE_NOOP("Tool", "Alt+click, or S and a click, sets where to copy from; then paint"),
     .icon = {"M 4 20 L 20 20 M 6 17 L 6 14 L 10.5 13 L 9.5 7 C 9 3 15 3 14.5 7 L 13.5 13 L 18 14 L 18 17 Z"},
     .vHeldHints = CLONE_HELD,
     .vOptions = CLONE_OPTIONS,
     .pszSettings = "cloneSettings",
     .pPrepare = &PrepareClone,
     .vStrokes = CLONE_STROKES,
     .pPainter = &CloneBrush,
     .vActions = CLONE_ACTIONS,
     .vTour = CLONE_TOUR},
    {.pszWord = "dodge-burn",
     .pszText = QT_TRANSLATE_NOOP("Tool", "Dodge and burn"),
     .pszKey = "O",
     .pszHint = BRUSH_HINT,
     .icon = {"E 4 4 16 16 M 12 4 L 12 20 M 12 8 L 19 8 M 12 12 L 20 12 M 12 16 L 19 16"},
     .vHeldHints = BRUSH_HELD,
     .vOptions = DODGE_OPTIONS,
     .pszSettings = "dodgeBurnSettings",
     .pPrepare = &PrepareDodge,
     .vStrokes = DODGE_STROKES,
     .pPainter = &DodgeBrush,
     .vTour = DODGE_TOUR},
    {.pszWord = "effect",
     .pszText = QT_TRANSLATE_NOOP("Tool", "Effect brush"),
     .pszKey = "J",
     .pszHint = BRUSH_HINT,
     .icon = {"M 20 3 L 11 13 M 18 4.5 L 13 7 M 10.5 13 C 7 13 8 18 4 20 C 9 21.5 13 20 12 14.5 Z"},
     .vHeldHints = BRUSH_HELD,
     .vOptions = EFFECT_OPTIONS,
     .pszSettings = "effectSettings",
     .pPrepare = &PrepareEffect,
     .vStrokes = EFFECT_STROKES,
     .pPainter = &EffectBrushOf,
     .vTour = EFFECT_TOUR},
    {.pszWord = "spot",
     .pszText = QT_TRANSLATE_NOOP("Tool", "Spot remover"),
     .pszKey = "R",
     .pszHint = QT_TRANSLATE_NOOP("Tool", "Click a spot that shall go; [ and ]: size"),
     .icon = {"E 5 5 14 14 M 10 10 L 14 14 M 14 10 L 10 14"},
     .vOptions = SPOT_OPTIONS,
     .pszSettings = "spotSettings",
     .pPrepare = &PrepareSpot,
     .vCommands = SPOT_COMMANDS,
     .vTour = SPOT_TOUR},
    {.pszWord = "red-eye",
     .pszText = QT_TRANSLATE_NOOP("Tool", "Red eyes"),
     .pszKey = "Y",
     .pszHint = QT_TRANSLATE_NOOP("Tool", "Drag a frame around an eye, or both"),
     .icon = {"M 2 12 C 7 4 17 4 22 12 C 17 20 7 20 2 12 Z E 8 8 8 8 E 11 11 2 2"},
     .vOptions = REDEYE_OPTIONS,
     .pszSettings = "redEyeSettings",
     .pPrepare = &PrepareRedeye,
     .vCommands = REDEYE_COMMANDS,
     .vTour = REDEYE_TOUR},
    {.pszWord = "straighten",
     .pszText = QT_TRANSLATE_NOOP("Tool", "Straighten"),
     .pszKey = "G",
     .pszHint = QT_TRANSLATE_NOOP("Tool", "Draw along what should be level or upright; Enter applies, Esc puts back"),
     .icon = {"M 2 15 L 22 9 M 2 20 L 22 20 M 5 17 L 5 20 M 12 17 L 12 20 M 19 17 L 19 20"},
     .vOptions = HORIZON_OPTIONS,
     .pBegin = &MakeStraighten,
     .vTour = STRAIGHTEN_TOUR},
    {.pszWord = "picker",
     .pszText = QT_TRANSLATE_NOOP("Tool", "Colour picker"),
     .pszKey = "I",
     .pszHint = QT_TRANSLATE_NOOP("Tool", "Click or drag: the colour under the pointer"),
     .icon = {"M 3 21 L 5 16 L 13 8 L 16 11 L 8 19 Z M 12 7 L 17 12 M 14 9 L 18 4 C 20 2 22 4 20 6 L 15 10"},
     .vOptions = PICKER_OPTIONS,
     .pPrepare = &PreparePicker,
     .vCommands = PICKER_COMMANDS},
};

} // namespace

std::span<const Tool> Tools() { return TOOLS; }

const Tool* FindTool(const std::string& strWord)
{
    const auto it = std::ranges::find(TOOLS, strWord, &Tool::pszWord);
    return it == std::end(TOOLS) ? nullptr : &*it;
}

std::vector<const ToolOption*> ToolOptions()
{
    std::vector<const ToolOption*> vOptions;
    for (const Tool& tool : TOOLS)
    {
        for (const ToolOption* const pOption : tool.vOptions)
        {
            if (std::ranges::find(vOptions, pOption) == vOptions.end())
                vOptions.push_back(pOption);
        }
    }
    return vOptions;
}

std::string ToolOption::Text(int iValue) const
{
    return vChoices.empty() ? std::to_string(iValue) : vChoices[static_cast<std::size_t>(iValue - iLeast)].pszWord;
}
