#include "program/Brushes.h"

#include "brushes/DodgeBurn.h"
#include "document/Message.h"
#include "program/CloneTool.h"
#include "program/EffectTool.h"
#include "program/ToolBox.h"
#include "view/Notifications.h"

#include <QtGlobal>

namespace
{

using Embedded = Pixtane::CPixtane::IEmbeddedTool;
using CDodgeTool = CPaintTool<Pixtane::EmbeddedTool::DodgeBurn>;

constexpr int LARGEST_PEN = 500;
constexpr int FULL_PERCENT = 100;

template<class T>
CPainter& Painter(const CToolBox& tools)
{
    return tools.Embedded<T>();
}

template<class T>
Embedded& Prepare(CToolBox& tools)
{
    T& tool = tools.Embedded<T>();
    tool.ended = [&tools]
    {
        if (tools.strokeEnded)
            tools.strokeEnded();
    };
    return tool;
}

CPainter::Pen PenOf(const CToolBox& tools)
{
    const CPainter* const pChosen = tools.Painter();
    return (pChosen ? *pChosen : Painter<CCloneTool>(tools)).GetPen();
}

void ChangePen(ProgramParts& parts, int CPainter::Pen::*pValue, int iValue)
{
    CPainter::Pen pen = PenOf(parts.tools);
    pen.*pValue = iValue;
    for (CPainter* const pPainter : {CloneBrush(parts.tools), DodgeBrush(parts.tools), EffectBrushOf(parts.tools)})
        pPainter->SetPen(pen.iSize, pen.iHardness, pen.iStrength);
    parts.view.Invalidate(FALSE); // The outline follows.
}

class CSourcePick : public CToolSession
{
public:
    explicit CSourcePick(ProgramParts& parts) : m_parts(parts) {}

    bool Begin(std::string& strError) override
    {
        if (m_parts.tools.Painter() == CloneBrush(m_parts.tools))
        {
            Tool().PickNext(true);
            return true;
        }
        strError = Message(QT_TRANSLATE_NOOP("Program", "only the clone stamp has a source"));
        return false;
    }
    void End(bool) override { Tool().PickNext(false); }
    void OnNotified(UINT uCode) override
    {
        if (uCode == Pixtane::PVN_CLONESTAMP_SOURCE)
            m_parts.tools.EndSession(true);
    }
    const char* Hint() const override { return QT_TRANSLATE_NOOP("Tool", "Click the place to copy from"); }

private:
    CCloneTool& Tool() const { return m_parts.tools.Embedded<CCloneTool>(); }

    ProgramParts& m_parts;
};

} // namespace

const ToolOption BRUSH_SIZE = {"brush-size",
                               "PIXELS",
                               QT_TRANSLATE_NOOP("Tool", " Si&ze "),
                               QT_TRANSLATE_NOOP("Tool", " px"),
                               QT_TRANSLATE_NOOP("Tool", "The brush's diameter in the photo's pixels"),
                               1,
                               LARGEST_PEN,
                               {},
                               [](const CToolBox& tools) { return PenOf(tools).iSize; },
                               [](ProgramParts& parts, int iSize) { ChangePen(parts, &CPainter::Pen::iSize, iSize); },
                               "[",
                               "]"};

const ToolOption BRUSH_HARDNESS = {"hardness",
                                   "PERCENT",
                                   QT_TRANSLATE_NOOP("Tool", "  Har&dness "),
                                   QT_TRANSLATE_NOOP("Tool", " %"),
                                   QT_TRANSLATE_NOOP("Tool", "How sharp the brush's edge is"),
                                   1,
                                   FULL_PERCENT,
                                   {},
                                   [](const CToolBox& tools) { return PenOf(tools).iHardness; },
                                   [](ProgramParts& parts, int iHardness)
                                   { ChangePen(parts, &CPainter::Pen::iHardness, iHardness); },
                                   "{",
                                   "}"};

const ToolOption BRUSH_STRENGTH = {"strength",
                                   "PERCENT",
                                   QT_TRANSLATE_NOOP("Tool", "  S&trength "),
                                   QT_TRANSLATE_NOOP("Tool", " %"),
                                   QT_TRANSLATE_NOOP("Tool", "How much of its effect one stroke shows"),
                                   1,
                                   FULL_PERCENT,
                                   {},
                                   [](const CToolBox& tools) { return PenOf(tools).iStrength; },
                                   [](ProgramParts& parts, int iStrength)
                                   { ChangePen(parts, &CPainter::Pen::iStrength, iStrength); },
                                   "",
                                   "",
                                   true};

const ToolOption CLONE_ALIGNED = {
    "aligned",
    "ALIGNED",
    "",
    "",
    "",
    FALSE,
    TRUE,
    {{"off",
      QT_TRANSLATE_NOOP("Tool", "Every stroke begins at the source again"),
      "",
      {"E 3 3 5 5 M 10 8 L 20 8 M 10 14 L 20 14 M 10 20 L 20 20"}},
     {"on",
      QT_TRANSLATE_NOOP("Tool", "Later strokes keep the distance of the first"),
      "",
      {"E 3 3 5 5 M 10 8 L 20 8 E 3 15 5 5 M 10 20 L 20 20"}}},
    [](const CToolBox& tools) -> int { return tools.Embedded<CCloneTool>().IsAligned() != FALSE; },
    [](ProgramParts& parts, int iAligned) { parts.tools.Embedded<CCloneTool>().SetAligned(iAligned); }};

const ToolOption DODGE_OR_BURN = {
    "range",
    "RANGE",
    "",
    "",
    "",
    FALSE,
    TRUE,
    {{"burn", QT_TRANSLATE_NOOP("Tool", "Burn: darken"), "", {"E 3.5 3.5 17 17 M 12 7 L 12 17 M 8 13 L 12 17 L 16 13"}},
     {"dodge",
      QT_TRANSLATE_NOOP("Tool", "Dodge: lighten"),
      "",
      {"E 3.5 3.5 17 17 M 12 17 L 12 7 M 8 11 L 12 7 L 16 11"}}},
    [](const CToolBox& tools) -> int { return tools.Embedded<CDodgeTool>().bDodge() != FALSE; },
    [](ProgramParts& parts, int iDodge) { parts.tools.Embedded<CDodgeTool>().bDodge() = iDodge; }};

const ToolOption BRUSH_EFFECT = {
    "effect",
    "EFFECT",
    "",
    "",
    "",
    0,
    EFFECT_COUNT - 1,
    {{"blur", QT_TRANSLATE_NOOP("Tool", "Blur"), "", {"E 4 4 16 16 E 7.5 7.5 9 9 E 10.5 10.5 3 3"}},
     {"sharpen", QT_TRANSLATE_NOOP("Tool", "Sharpen"), "", {"M 12 3 L 20 20 L 4 20 Z M 12 3 L 12 20"}},
     {"mosaic",
      QT_TRANSLATE_NOOP("Tool", "Mosaic"),
      "",
      {"R 4 4 16 16 M 4 9.3 L 20 9.3 M 4 14.6 L 20 14.6 M 9.3 4 L 9.3 20 M 14.6 4 L 14.6 20"}},
     {"saturate",
      QT_TRANSLATE_NOOP("Tool", "Saturate"),
      "",
      {"M 12 3 C 16 9 19 12 19 15 C 19 23 5 23 5 15 C 5 12 8 9 12 3"}},
     {"warm",
      QT_TRANSLATE_NOOP("Tool", "Warm"),
      "",
      {"E 8 8 8 8 M 12 2 L 12 5 M 12 19 L 12 22 M 2 12 L 5 12 M 19 12 L 22 12 M 5 5 L 7 7 M 17 17 L 19 19 M 5 19 L 7 "
       "17 "
       "M 17 7 L 19 5"}},
     {"denoise",
      QT_TRANSLATE_NOOP("Tool", "Denoise"),
      "",
      {"M 3 12 L 5 6 L 7 17 L 9 8 L 11 14 L 13 12 C 15 10 18 10 21 12"}}},
    [](const CToolBox& tools) { return tools.Embedded<CEffectTool>().Effect(); },
    [](ProgramParts& parts, int iEffect) { parts.tools.Embedded<CEffectTool>().ChooseEffect(iEffect); }};

Embedded& PrepareClone(CToolBox& tools) { return Prepare<CCloneTool>(tools); }
Embedded& PrepareDodge(CToolBox& tools) { return Prepare<CDodgeTool>(tools); }
Embedded& PrepareEffect(CToolBox& tools) { return Prepare<CEffectTool>(tools); }
CPainter* CloneBrush(const CToolBox& tools) { return &Painter<CCloneTool>(tools); }
CPainter* DodgeBrush(const CToolBox& tools) { return &Painter<CDodgeTool>(tools); }
CPainter* EffectBrushOf(const CToolBox& tools) { return &Painter<CEffectTool>(tools); }

std::unique_ptr<CToolSession> MakeSourcePick(ProgramParts& parts) { return std::make_unique<CSourcePick>(parts); }

bool SetCloneSource(ProgramParts& parts, CPoint ptBitmap, std::string& strError)
{
    const CRect rcPhoto(0, 0, parts.view.iBmpWidth(), parts.view.iBmpHeight());
    if (rcPhoto.PtInRect(ptBitmap))
    {
        parts.tools.Embedded<CCloneTool>().SetSource(ptBitmap);
        return true;
    }
    strError = Message(QT_TRANSLATE_NOOP("Program", "the photo has no pixel %1, %2"),
                       {std::to_string(ptBitmap.x), std::to_string(ptBitmap.y)});
    return false;
}

void ForgetStrokes(CToolBox& tools)
{
    tools.Embedded<CCloneTool>().Reset();
    for (CPainter* const pPainter : {CloneBrush(tools), DodgeBrush(tools), EffectBrushOf(tools)})
        pPainter->Forget();
}
