#include "program/CommandTable.h"

#include "document/Message.h"
#include "host/ViewHost.h"
#include "pixels/Average.h"
#include "program/AreaWork.h"
#include "program/Brushes.h"
#include "program/ColourPick.h"
#include "program/Limits.h"
#include "program/LongWork.h"
#include "program/Recovery.h"
#include "program/Reshape.h"
#include "program/Saving.h"
#include "program/Selection.h"
#include "program/StrokeCommand.h"
#include "program/ToolBox.h"
#include "program/Undo.h"

#include <algorithm>
#include <cmath>

namespace
{

using Middle = Command::Middle;
using DuringJob = Command::DuringJob;
using P = ProgramParts;

constexpr int ANY = Argument::ANY;

const Argument PIXELS = {"PIXELS", Argument::Kind::Number, 1, MOST_PIXELS};
const Argument LEVELS = {"LEVELS", Argument::Kind::Number, -100, 100};
const Argument PERCENT = {"PERCENT", Argument::Kind::Number, -100, 100};
const Argument PLACE_X = {"X", Argument::Kind::Number, 0, ANY};
const Argument PLACE_Y = {"Y", Argument::Kind::Number, 0, ANY};
const Argument ANY_X = {"X", Argument::Kind::Number, -ANY, ANY};
const Argument ANY_Y = {"Y", Argument::Kind::Number, -ANY, ANY};
const Argument WIDTH = {"WIDTH", Argument::Kind::Number, 1, ANY};
const Argument HEIGHT = {"HEIGHT", Argument::Kind::Number, 1, ANY};

int Number(const Values& vValues, std::size_t i) { return std::get<int>(vValues[i]); }
const std::string& Text(const Values& vValues, std::size_t i) { return std::get<std::string>(vValues[i]); }

constexpr int FAR = 1 << 28; ///< Beyond any photo.

/// A place and a size, as the first four arguments; far beyond any photo it is cut off.
CRect RectOf(const Values& vValues)
{
    const CPoint pt(std::min(Number(vValues, 0), FAR), std::min(Number(vValues, 1), FAR));
    return {pt, CSize(std::min(Number(vValues, 2), FAR), std::min(Number(vValues, 3), FAR))};
}

Spot SpotOf(const Values& vValues)
{
    return {std::clamp(Number(vValues, 0), -FAR, FAR), std::clamp(Number(vValues, 1), -FAR, FAR), Number(vValues, 2)};
}

/// What cannot fail and takes no arguments.
Command::Do Simply(void (*pDo)(P& parts))
{
    return [pDo](P& parts, const Values&, std::string&)
    {
        pDo(parts);
        return true;
    };
}

/// The same for what needs a photo: without one it does nothing.
Command::Do OnPhoto(void (*pDo)(P& parts))
{
    return [pDo](P& parts, const Values&, std::string&)
    {
        if (parts.document.Photo())
            pDo(parts);
        return true;
    };
}

template<class F>
Command::Prepare AsJob(F prepare)
{
    return [prepare](P& parts, const Values& vValues, std::string&) -> std::optional<Job>
    { return prepare(parts, vValues); };
}

bool ChooseTool(P& parts, const Values& vValues, std::string& strError)
{
    return parts.tools.Choose(*FindTool(Text(vValues, 0)), parts, strError);
}

void Preview(P& parts, BrightnessContrast settings)
{
    parts.presenter.ShowPreview(
        [settings](PixelView pixels, MaskView weights)
        {
            CProgress progress;
            AdjustBrightnessContrast(pixels, weights, settings, progress);
        });
}

bool SampleColour(P& parts, const Values& vValues, std::string& strError)
{
    const CPoint pt(Number(vValues, 0), Number(vValues, 1));
    if (!CRect(0, 0, parts.view.iBmpWidth(), parts.view.iBmpHeight()).PtInRect(pt))
    {
        strError = Message(QT_TRANSLATE_NOOP("Program", "the photo has no pixel %1, %2"),
                           {std::to_string(pt.x), std::to_string(pt.y)});
        return false;
    }
    const auto vColour = AverageColour(parts.document.Photo()->View(), pt.x, pt.y, Number(vValues, 2));
    parts.picked = RGB(vColour[2], vColour[1], vColour[0]);
    return true;
}

bool PlaceTransform(P& parts, const Values& vValues, std::string& strError)
{
    CToolSession* const pSession = parts.tools.Session();
    if (!pSession || !pSession->Frame())
    {
        strError = Message(QT_TRANSLATE_NOOP("Program", "no selection is being transformed"));
        return false;
    }
    const CRect rc(CPoint(Number(vValues, 0), Number(vValues, 1)), CSize(Number(vValues, 2), Number(vValues, 3)));
    const CPhoto& photo = *parts.document.Photo();
    if (rc.left < photo.Width() && rc.top < photo.Height() && Number(vValues, 2) <= photo.Width() &&
        Number(vValues, 3) <= photo.Height())
        return pSession->PlaceFrame(rc);
    strError = Message(QT_TRANSLATE_NOOP("Program", "\"%1 %2 %3 %4\" is no place and size inside the photo"),
                       {std::to_string(rc.left), std::to_string(rc.top), std::to_string(Number(vValues, 2)),
                        std::to_string(Number(vValues, 3))});
    return false;
}

bool PlaceAngle(P& parts, const Values& vValues, std::string& strError)
{
    CToolSession* const pSession = parts.tools.Session();
    const double dDegrees = std::get<double>(vValues[0]);
    if (!pSession || !pSession->Angle())
        strError = Message(QT_TRANSLATE_NOOP("Program", "the photo is not being straightened"));
    else if (!std::isfinite(dDegrees))
        strError = Message(QT_TRANSLATE_NOOP("Program", "that is no angle"));
    return strError.empty() && pSession->PlaceAngle(dDegrees);
}

void PickColour(P& parts)
{
    std::string strError; // It always begins.
    parts.tools.BeginSession(MakeColourPick(parts), strError);
}

/// Gives up what the person is in the middle of: a stroke, a shape, the pick of a colour.
void Drop(P& parts)
{
    if (parts.tools.Session() && parts.tools.Session()->MayBeDropped())
        parts.tools.EndSession(false);
    const bool bSelecting = parts.tools.IsSelecting();
    parts.tools.DropGesture();
    if (!bSelecting)
        return;
    // The press may have cleared what was selected.
    parts.selection.Restore(parts.document.History().Current());
    parts.presenter.Update();
}

void ZoomAboutCentre(P& parts, int nSteps) { parts.host.Zoom().StepZoom(nSteps, parts.host.Zoom().ViewCentre()); }

std::vector<Command> PhotoCommands()
{
    return {
        {"open",
         {{"PATH", Argument::Kind::Path}},
         AsJob([](P& parts, const Values& vValues) { return OpenJob(parts, Text(vValues, 0)); }),
         Middle::Ends,
         DuringJob::Cancels},
        {"open-sample",
         {},
         AsJob([](P& parts, const Values&) { return OpenSampleJob(parts); }),
         Middle::Ends,
         DuringJob::Cancels},
        {"recover",
         {{"FILE", Argument::Kind::Path}},
         Command::Prepare([](P& parts, const Values& v, std::string& strError)
                          { return RecoverJob(parts, Text(v, 0), strError); }),
         Middle::Ends,
         DuringJob::Cancels},
        {"save",
         {{"FILE", Argument::Kind::Path}, {"--overwrite", Argument::Kind::Flag}},
         Command::Prepare([](P& parts, const Values& v, std::string& strError)
                          { return SaveJob(parts, Text(v, 0), Number(v, 1) != 0, strError); })},
        {"jpeg-quality",
         {{"QUALITY", Argument::Kind::Number, 1, 100}},
         [](P& parts, const Values& v, std::string&)
         {
             parts.iJpegQuality = Number(v, 0);
             return true;
         },
         Middle::Keeps},
        {"auto-contrast", {}, AsJob([](P& parts, const Values&) { return AutoContrastJob(parts); })},
        {"brightness-contrast",
         {LEVELS, PERCENT},
         AsJob(
             [](P& parts, const Values& v) {
                 return BrightnessContrastJob(parts, {Number(v, 0), Number(v, 1)});
             })},
        {"preview-brightness-contrast",
         {LEVELS, PERCENT},
         [](P& parts, const Values& v, std::string&)
         {
             Preview(parts, {Number(v, 0), Number(v, 1)});
             return true;
         }},
        {"end-preview", {}, Simply([](P& parts) { parts.presenter.EndPreview(); })},
        {"red-eye",
         {PLACE_X, PLACE_Y, WIDTH, HEIGHT, {"AMOUNT", Argument::Kind::Number, 1, 100}},
         AsJob([](P& parts, const Values& v) { return RedeyeJob(parts, RectOf(v), Number(v, 4)); })},
        {"heal",
         {ANY_X, ANY_Y, {"SIZE", Argument::Kind::Number, 1, LARGEST_SPOT}},
         AsJob([](P& parts, const Values& v) { return HealJob(parts, SpotOf(v)); })},
        {"crop",
         {PLACE_X, PLACE_Y, WIDTH, HEIGHT},
         Command::Prepare([](P& parts, const Values& v, std::string& strError)
                          { return CropJob(parts, RectOf(v), strError); })},
        {"crop-to-selection",
         {},
         Command::Prepare([](P& parts, const Values&, std::string& strError)
                          { return CropToSelectionJob(parts, strError); })},
        {"straighten",
         {{"DEGREES", Argument::Kind::Decimal}, {"CORNERS", Argument::Kind::Word, 0, 0, {"whole", "crop"}}},
         AsJob([](P& parts, const Values& v)
               { return StraightenJob(parts, std::get<double>(v[0]), Text(v, 1) == "crop"); })},
        {"turn-left", {}, AsJob([](P& parts, const Values&) { return TurnJob(parts, Turn::Left); })},
        {"turn-right", {}, AsJob([](P& parts, const Values&) { return TurnJob(parts, Turn::Right); })},
        {"turn-around", {}, AsJob([](P& parts, const Values&) { return TurnJob(parts, Turn::Around); })},
        {"mirror", {}, AsJob([](P& parts, const Values&) { return TurnJob(parts, Turn::MirrorLeftRight); })},
        {"flip", {}, AsJob([](P& parts, const Values&) { return TurnJob(parts, Turn::MirrorUpsideDown); })},
        {"revert", {}, AsJob([](P& parts, const Values&) { return RevertJob(parts); })},
        {"undo", {}, Simply(&Undo), Middle::TakesBack},
        {"redo", {}, Simply(&Redo)},
        {"history",
         {{"STEP", Argument::Kind::Number, 0, ANY}},
         [](P& parts, const Values& v, std::string& strError)
         {
             const auto iState = static_cast<std::size_t>(Number(v, 0));
             if (iState >= parts.document.History().States().size())
                 strError = Message(QT_TRANSLATE_NOOP("Program", "there is no step %1"), {std::to_string(iState)});
             else
                 GoToState(parts, iState);
             return strError.empty();
         }},
        {"cancel", {}, Simply([](P&) {}), Middle::Keeps, DuringJob::Cancels},
    };
}

std::vector<Command> SelectionCommands()
{
    return {
        {"select-all", {}, OnPhoto([](P& parts) { parts.selection.SelectAll(); })},
        {"select-none", {}, OnPhoto([](P& parts) { parts.selection.SelectNone(); })},
        {"invert", {}, OnPhoto([](P& parts) { parts.selection.Invert(); })},
        {"reselect", {}, OnPhoto([](P& parts) { parts.selection.Reselect(); })},
        {"pick-colour", {}, OnPhoto(&PickColour)},
        {"select-colour",
         {PLACE_X, PLACE_Y},
         [](P& parts, const Values& v, std::string& strError) {
             return SelectColour(parts, {Number(v, 0), Number(v, 1)}, strError);
         }},
        {"grow", {PIXELS}, AsJob([](P& parts, const Values& v) { return GrowJob(parts, Number(v, 0)); })},
        {"shrink", {PIXELS}, AsJob([](P& parts, const Values& v) { return ShrinkJob(parts, Number(v, 0)); })},
        {"feather-selection",
         {PIXELS},
         AsJob([](P& parts, const Values& v) { return FeatherJob(parts, Number(v, 0)); })},
    };
}

std::vector<Command> ViewCommands()
{
    constexpr auto KEEPS = Middle::Keeps;
    constexpr auto RUNS = DuringJob::Runs;
    return {
        {"show-original", {}, Simply([](P& parts) { parts.presenter.ShowOriginal(true); }), KEEPS, RUNS},
        {"show-result", {}, Simply([](P& parts) { parts.presenter.ShowOriginal(false); }), KEEPS, RUNS},
        {"tint", {}, Simply([](P& parts) { parts.presenter.ShowTint(true); }), KEEPS, RUNS},
        {"no-tint", {}, Simply([](P& parts) { parts.presenter.ShowTint(false); }), KEEPS, RUNS},
        {"hide-outline", {}, Simply([](P& parts) { parts.selection.HideOutline(true); })},
        {"show-outline", {}, Simply([](P& parts) { parts.selection.HideOutline(false); })},
        {"still-outline", {}, Simply([](P& parts) { parts.selection.HoldOutlineStill(true); }), KEEPS, RUNS},
        {"crawling-outline", {}, Simply([](P& parts) { parts.selection.HoldOutlineStill(false); }), KEEPS, RUNS},
        {"zoom-in", {}, Simply([](P& parts) { ZoomAboutCentre(parts, 1); }), KEEPS, RUNS},
        {"zoom-out", {}, Simply([](P& parts) { ZoomAboutCentre(parts, -1); }), KEEPS, RUNS},
        {"fit", {}, Simply([](P& parts) { parts.host.Zoom().ZoomToFit(); }), KEEPS, RUNS},
        {"one-to-one",
         {},
         Simply([](P& parts) { parts.host.Zoom().ZoomAbout(1, parts.host.Zoom().ViewCentre()); }),
         KEEPS,
         RUNS},
    };
}

std::vector<Command> ToolCommands()
{
    Argument tool = {"TOOL", Argument::Kind::Word};
    for (const Tool& row : Tools())
        tool.vWords.emplace_back(row.pszWord);
    return {
        {"tool", {tool}, &ChooseTool},
        {"transform-to", {PLACE_X, PLACE_Y, WIDTH, HEIGHT}, &PlaceTransform, Middle::Keeps},
        {"apply-transform", {}, Simply([](P& parts) { parts.tools.EndSession(true); })},
        {"cancel-transform", {}, Simply([](P& parts) { parts.tools.EndSession(false); }), Middle::Keeps},
        {"straighten-to", {{"DEGREES", Argument::Kind::Decimal}}, &PlaceAngle, Middle::Keeps},
        {"apply-straighten", {}, Simply([](P& parts) { parts.tools.EndSession(true); })},
        {"cancel-straighten", {}, Simply([](P& parts) { parts.tools.EndSession(false); }), Middle::Keeps},
        {END_MIDDLE_COMMAND, {}, Simply([](P&) {})},
        {PICK_SOURCE_COMMAND,
         {},
         [](P& parts, const Values&, std::string& strError)
         { return parts.tools.BeginSession(MakeSourcePick(parts), strError); }},
        {"clone-source",
         {PLACE_X, PLACE_Y},
         [](P& parts, const Values& v, std::string& strError) {
             return SetCloneSource(parts, {Number(v, 0), Number(v, 1)}, strError);
         }},
        {"stroke",
         {{"X,Y ...", Argument::Kind::Points}},
         [](P& parts, const Values& v, std::string& strError)
         { return PaintStroke(parts, std::get<Points>(v[0]), strError); }},
        {"sample-colour", {PLACE_X, PLACE_Y, {"SIDE", Argument::Kind::Number, 1, 101}}, &SampleColour},
        {"drop", {}, Simply(&Drop), Middle::Keeps, DuringJob::Runs},
    };
}

Command OptionCommand(const ToolOption& option)
{
    const bool bWords = !option.vChoices.empty();
    Argument argument = {option.pszArgument, bWords ? Argument::Kind::Word : Argument::Kind::Number, option.iLeast,
                         option.iMost};
    for (const Choice& choice : option.vChoices)
        argument.vWords.emplace_back(choice.pszWord);
    const auto set = [&option, argument](P& parts, const Values& vValues, std::string&)
    {
        const auto& vWords = argument.vWords;
        option.pSet(parts, vWords.empty()
                               ? Number(vValues, 0)
                               : option.iLeast +
                                     static_cast<int>(std::ranges::find(vWords, Text(vValues, 0)) - vWords.begin()));
        return true;
    };
    return {option.pszWord, {argument}, set, Middle::Keeps};
}

} // namespace

const std::vector<Command>& Commands()
{
    static const std::vector<Command> s_vCommands = []
    {
        std::vector<Command> vAll = PhotoCommands();
        for (const std::vector<Command>& vMore : {SelectionCommands(), ToolCommands(), ViewCommands()})
            vAll.insert(vAll.end(), vMore.begin(), vMore.end());
        for (const ToolOption* pOption : ToolOptions())
            vAll.push_back(OptionCommand(*pOption));
        return vAll;
    }();
    return s_vCommands;
}
