#include "program/StraightenTool.h"

#include "document/Message.h"
#include "pixels/StraightenPreview.h"
#include "program/Presenter.h"
#include "program/Reshape.h"
#include "program/ToolBox.h"
#include "tools/HoriLinePen.h"
#include "view/Notifications.h"

#include <cmath>

namespace
{

/// The library's horizon line, and whether what has no picture after the turn is cut off.
class CHorizonTool : public Pixtane::EmbeddedTool::HoriLinePen
{
public:
    int iCrop = TRUE;
};

class CStraighten : public CToolSession
{
public:
    explicit CStraighten(ProgramParts& parts) : m_parts(parts) {}

    bool Begin(std::string& strError) override;
    void End(bool bApply) override;
    void OnNotified(UINT uCode) override
    {
        if (uCode == Pixtane::PVN_HORILINE_DRAWN && Line().GetOffsetAngle() != 0)
            PlaceAngle(m_dAngle + Line().GetOffsetAngle());
    }
    std::string StepName() const override
    {
        return m_dAngle == 0 ? std::string() : QT_TRANSLATE_NOOP("History", "Straighten");
    }
    std::optional<double> Angle() const override { return m_dAngle; }
    bool PlaceAngle(double dDegrees) override;

    /// Shows the photo as it would be.
    void ShowPreview();

private:
    CHorizonTool& Line() const { return m_parts.tools.Embedded<CHorizonTool>(); }

    ProgramParts& m_parts;
    double m_dAngle = 0; ///< Clockwise, in degrees.
};

bool CStraighten::Begin(std::string& strError)
{
    if (m_parts.document.Photo() && m_parts.view.LoadEmbeddedTool(Line()))
        return true;
    strError = Message(QT_TRANSLATE_NOOP("Program", "there is no photo to straighten"));
    return false;
}

void CStraighten::End(bool bApply)
{
    m_parts.presenter.EndPreview();
    m_parts.tools.LoadChosen();
    if (!bApply || m_dAngle == 0)
        return;
    const CWaitCursor wait;
    std::string strError;
    if (std::optional<Job> job = StraightenJob(m_parts, m_dAngle, Line().iCrop != FALSE))
        CJobs(false).Run(std::move(*job), strError);
    if (!strError.empty())
        m_parts.failed(strError);
}

bool CStraighten::PlaceAngle(double dDegrees)
{
    constexpr double FULL_TURN = 360;
    constexpr double STEPS = 1000; // As a command has it.
    m_dAngle = std::round(std::remainder(dDegrees, FULL_TURN) * STEPS) / STEPS;
    ShowPreview();
    m_parts.changed();
    return true;
}

void CStraighten::ShowPreview()
{
    if (m_dAngle == 0)
    {
        m_parts.presenter.EndPreview();
        return;
    }
    m_parts.presenter.ShowDrawing(
        [this](const VisiblePart& part, PixelView cover)
        {
            DrawStraightened(m_parts.document.Photo()->View(), cover, {m_dAngle, Line().iCrop != FALSE},
                             {part.vColumns, part.vRows});
        });
}

} // namespace

const ToolOption HORIZON_CROP = {"horizon",
                                 "CORNERS",
                                 "",
                                 "",
                                 "",
                                 FALSE,
                                 TRUE,
                                 {{"whole",
                                   QT_TRANSLATE_NOOP("Tool", "Keep the size; the edge fills the corners"),
                                   "",
                                   {"R 3 6 18 12 M 3 14 L 21 10"}},
                                  {"crop",
                                   QT_TRANSLATE_NOOP("Tool", "Cut the empty corners off"),
                                   "",
                                   {"R 6 8 12 8 M 3 6 L 18 6 L 18 19 M 6 5 L 6 16 L 21 16"}}},
                                 [](const CToolBox& tools) { return tools.Embedded<CHorizonTool>().iCrop; },
                                 [](ProgramParts& parts, int iCrop)
                                 {
                                     parts.tools.Embedded<CHorizonTool>().iCrop = iCrop;
                                     parts.presenter.Update();
                                 }};

std::unique_ptr<CToolSession> MakeStraighten(ProgramParts& parts) { return std::make_unique<CStraighten>(parts); }
