#include "brushes/DodgeBurn.h"

#include "view/Notifications.h"
#include "view/ToolSettings.h"

#include <cwchar>

namespace Pixtane::EmbeddedTool
{

namespace
{

constexpr UINT SETTINGS_VERSION = 1;
constexpr std::size_t PEN_SETTINGS = 4;
constexpr ToolSettingsLayout LAYOUTS[] = {{SETTINGS_VERSION, PEN_SETTINGS + 1}};
constexpr float VALUE_STEP = 0.1f;

} // namespace

DodgeBurn::DodgeBurn() { std::wcscpy(szToolName, L"dodge_burn"); }

void DodgeBurn::SerializeToolSettings(std::vector<BYTE>& vData) const
{
    WriteToolSettings(vData, SETTINGS_VERSION,
                      {static_cast<DWORD>(m_Pen.eStyle), static_cast<DWORD>(m_Pen.iSize),
                       static_cast<DWORD>(m_Pen.iHardness), static_cast<DWORD>(m_Pen.iStrength),
                       static_cast<DWORD>(m_bDodge)});
}

int DodgeBurn::UnserializeToolSettings(const std::vector<BYTE>& vData)
{
    const auto blob = ReadToolSettings(vData, uSettingsVersion, LAYOUTS, L"DodgeBurn::UnserializeToolSettings");
    if (!blob)
        return FALSE;
    if (!blob->vSettings.empty())
    {
        RestorePen(blob->vSettings);
        m_bDodge = static_cast<int>(blob->vSettings[PEN_SETTINGS]);
    }
    return TRUE;
}

int DodgeBurn::OnTimer(UINT_PTR)
{
    EndStrokeWithoutBitmap();
    return FALSE;
}

int DodgeBurn::OnLButtonDown(UINT, CPoint point)
{
    EndLostStroke();
    if (CanStroke() && CaptureForStroke())
        StartSketching(BitmapPoint(point));
    return FALSE;
}

int DodgeBurn::OnLButtonUp(UINT nFlags, CPoint point)
{
    EndStroke();
    return Sketcher::OnLButtonUp(nFlags, point);
}

int DodgeBurn::OnCaptureChanged(CWnd*)
{
    EndStroke();
    return FALSE;
}

void DodgeBurn::EndStroke()
{
    if (!m_bSketching)
        return;
    EndSketching();
    if (IsHosted())
        pView->Invalidate(FALSE);
}

void DodgeBurn::StartSketching(CPoint pt)
{
    Sketcher::StartSketching(pt);
    TellBegin(m_bDodge ? PVN_DODGE_BEGIN : PVN_BURN_BEGIN);
}

void DodgeBurn::EndSketching()
{
    Sketcher::EndSketching();
    FinishStroke(m_bDodge ? PVN_DODGE_END : PVN_BURN_END);
}

int DodgeBurn::ProcessLineSegment(std::list<CPoint>& points, CRect& rcDirty)
{
    const double dValue = m_bDodge ? VALUE_STEP : -VALUE_STEP;
    return StampAndShow(points, rcDirty,
                        [=, this]
                        { Vorpix::AdjustHSV(m_vBmpData, m_bmiBmp, m_ProcessRegion, 0.0, 0.0, dValue, nullptr, true); });
}

} // namespace Pixtane::EmbeddedTool
