#include "program/PointTools.h"

#include "document/Document.h"
#include "pixels/Spot.h"
#include "program/Limits.h"
#include "program/ToolBox.h"
#include "tools/ColorPicker.h"
#include "tools/RedeyeReduction.h"
#include "tools/SpotRemover.h"

#include <QtGlobal>
#include <utility>

namespace
{

using namespace Pixtane::EmbeddedTool;
using Embedded = Pixtane::CPixtane::IEmbeddedTool;

/// The library's frame for red eyes, with an amount that most eyes need.
class CRedeyeTool : public RedeyeReduction
{
public:
    CRedeyeTool() { SetDarkenAmount(60); }
};

/// The library's spot, whose outline has its size from the beginning: the library measures it with the next zoom.
class CSpotTool : public SpotRemover
{
public:
    int OnLoad(Pixtane::CPixtane& view) override
    {
        const int iLoaded = SpotRemover::OnLoad(view);
        SetSize(GetSize());
        return iLoaded;
    }
    int UnserializeToolSettings(const std::vector<BYTE>& vData) override
    {
        const int iRead = SpotRemover::UnserializeToolSettings(vData);
        SetSize(GetSize());
        return iRead;
    }
};

/// The colour picker, and over how many pixels it averages.
class CPickerTool : public ColorPicker
{
public:
    int iSample = 0;      ///< 0, 1, 2: squares of 1, 3, 5 pixels.
    bool bPicked = false; ///< The view has yet to tell where.
};

std::string Command(const char* pszWord, std::initializer_list<int> vNumbers)
{
    std::string strCommand = pszWord;
    for (const int iNumber : vNumbers)
        strCommand += " " + std::to_string(iNumber);
    return strCommand;
}

} // namespace

const ToolOption REDEYE_AMOUNT = {"red-eye-amount",
                                  "PERCENT",
                                  QT_TRANSLATE_NOOP("Tool", " &Amount "),
                                  QT_TRANSLATE_NOOP("Tool", " %"),
                                  QT_TRANSLATE_NOOP("Tool", "How much of the pupil's red goes"),
                                  1,
                                  100,
                                  {},
                                  [](const CToolBox& tools) { return tools.Embedded<CRedeyeTool>().GetDarkenAmount(); },
                                  [](ProgramParts& parts, int iAmount)
                                  { parts.tools.Embedded<CRedeyeTool>().SetDarkenAmount(iAmount); },
                                  "",
                                  "",
                                  true};

static_assert(LARGEST_SPOT == SpotRemover::MAX_SIZE);

const ToolOption SPOT_SIZE = {"spot-size",
                              "PIXELS",
                              QT_TRANSLATE_NOOP("Tool", " Si&ze "),
                              QT_TRANSLATE_NOOP("Tool", " px"),
                              QT_TRANSLATE_NOOP("Tool", "The spot's diameter in the photo's pixels"),
                              1,
                              LARGEST_SPOT,
                              {},
                              [](const CToolBox& tools) { return tools.Embedded<CSpotTool>().GetSize(); },
                              [](ProgramParts& parts, int iSize)
                              {
                                  parts.tools.Embedded<CSpotTool>().SetSize(iSize);
                                  parts.view.Invalidate(FALSE);
                              },
                              "[",
                              "]"};

const ToolOption SAMPLE_SIZE = {
    "sample",
    "PIXELS",
    "",
    "",
    "",
    0,
    2,
    {{"1", QT_TRANSLATE_NOOP("Tool", "One pixel"), "", {"R 10 10 4 4"}},
     {"3", QT_TRANSLATE_NOOP("Tool", "The average of 3 by 3 pixels"), "", {"R 8 8 8 8 R 10.5 10.5 3 3"}},
     {"5", QT_TRANSLATE_NOOP("Tool", "The average of 5 by 5 pixels"), "", {"R 4 4 16 16 R 10.5 10.5 3 3"}}},
    [](const CToolBox& tools) { return tools.Embedded<CPickerTool>().iSample; },
    [](ProgramParts& parts, int iSample) { parts.tools.Embedded<CPickerTool>().iSample = iSample; }};

Embedded& PrepareRedeye(CToolBox& tools) { return tools.Embedded<CRedeyeTool>(); }
Embedded& PrepareSpot(CToolBox& tools) { return tools.Embedded<CSpotTool>(); }
Embedded& PreparePicker(CToolBox& tools) { return tools.Embedded<CPickerTool>(); }

std::string RedeyeCommand(ProgramParts& parts)
{
    CRedeyeTool& tool = parts.tools.Embedded<CRedeyeTool>();
    CRect rc = tool.GetDetectRect();
    rc.NormalizeRect();
    ++rc.right; // Its sides are the last pixels.
    ++rc.bottom;
    if (!rc.IntersectRect(CRect(rc), CRect(0, 0, parts.view.iBmpWidth(), parts.view.iBmpHeight())))
        return {};
    return Command("red-eye", {rc.left, rc.top, rc.Width(), rc.Height(), tool.GetDarkenAmount()});
}

std::string HealCommand(ProgramParts& parts)
{
    const CSpotTool& tool = parts.tools.Embedded<CSpotTool>();
    const POINT pt = tool.GetSpotPos();
    const CRect rcReached(-LARGEST_SPOT, -LARGEST_SPOT, parts.view.iBmpWidth() + LARGEST_SPOT,
                          parts.view.iBmpHeight() + LARGEST_SPOT);
    if (!parts.document.Photo() || !rcReached.PtInRect(pt))
        return {};
    const PixelRect box = Spot{pt.x, pt.y, tool.GetSize()}.Box();
    const bool bInside =
        box.right > 0 && box.bottom > 0 && box.left < parts.view.iBmpWidth() && box.top < parts.view.iBmpHeight();
    return bInside ? Command("heal", {pt.x, pt.y, tool.GetSize()}) : std::string();
}

std::string PickBegins(ProgramParts& parts)
{
    // The view knows the pointer's place only after its tool has answered.
    parts.tools.Embedded<CPickerTool>().bPicked = true;
    return {};
}

std::string PickCommand(ProgramParts& parts)
{
    CPickerTool& tool = parts.tools.Embedded<CPickerTool>();
    if (!std::exchange(tool.bPicked, false))
        return {};
    const CPoint pt = parts.view.GetCursorPos(TRUE);
    if (CRect(0, 0, parts.view.iBmpWidth(), parts.view.iBmpHeight()).PtInRect(pt))
        return Command("sample-colour", {pt.x, pt.y, 2 * tool.iSample + 1});
    parts.picked = tool.GetColor(); // What the screen shows there.
    parts.changed();
    return {};
}
