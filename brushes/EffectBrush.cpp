#include "brushes/EffectBrush.h"

#include "view/Notifications.h"
#include "view/ToolSettings.h"

#include <cstring>
#include <cwchar>

namespace Pixtane::EmbeddedTool
{

namespace
{

constexpr UINT SETTINGS_VERSION = 1;
constexpr std::size_t PEN_SETTINGS = 4;
constexpr std::size_t GUID_WORDS = sizeof(GUID) / sizeof(DWORD);
constexpr ToolSettingsLayout LAYOUTS[] = {{SETTINGS_VERSION, PEN_SETTINGS + GUID_WORDS}};

} // namespace

EffectBrush::EffectBrush() { std::wcscpy(szToolName, L"effect_brush"); }

void EffectBrush::SetEffect(GUID& guid, void* pContext, EffectCallback pfnEffect)
{
    m_guidEffect = guid;
    m_pEffectContext = pContext;
    m_pfnEffect = pfnEffect;
}

void EffectBrush::SerializeToolSettings(std::vector<BYTE>& vData) const
{
    DWORD vGuid[GUID_WORDS];
    std::memcpy(vGuid, &m_guidEffect, sizeof(vGuid));
    WriteToolSettings(vData, SETTINGS_VERSION,
                      {static_cast<DWORD>(m_Pen.eStyle), static_cast<DWORD>(m_Pen.iSize),
                       static_cast<DWORD>(m_Pen.iHardness), static_cast<DWORD>(m_Pen.iStrength), vGuid[0], vGuid[1],
                       vGuid[2], vGuid[3]});
}

int EffectBrush::UnserializeToolSettings(const std::vector<BYTE>& vData)
{
    const auto blob = ReadToolSettings(vData, uSettingsVersion, LAYOUTS, L"EffectBrush::UnserializeToolSettings");
    if (!blob)
        return FALSE;
    if (!blob->vSettings.empty())
    {
        RestorePen(blob->vSettings);
        std::memcpy(&m_guidEffect, &blob->vSettings[PEN_SETTINGS], sizeof(m_guidEffect));
    }
    return TRUE;
}

int EffectBrush::OnTimer(UINT_PTR)
{
    EndStrokeWithoutBitmap();
    return FALSE;
}

int EffectBrush::OnLButtonDown(UINT, CPoint point)
{
    EndLostStroke();
    if (!CanStroke() || !CaptureForStroke())
        return FALSE;
    CPixtane& view = *pView;
    const bool bAllowed = view.NotifyParent(PVN_EFFECTBRUSH_BEGIN, FALSE) == 0;
    // The host may have taken anything away while it was asked.
    if (bAllowed && IsIn(view) && ::GetCapture() == view.m_hWnd && CanStroke())
        StartSketching(BitmapPoint(point));
    else if (IsIn(view) && !view.pBmpData())
        ReleaseMouse(); // A view without a bitmap does not pass the release on.
    return FALSE;
}

int EffectBrush::OnLButtonUp(UINT nFlags, CPoint point)
{
    EndStroke();
    return Sketcher::OnLButtonUp(nFlags, point);
}

int EffectBrush::OnCaptureChanged(CWnd*)
{
    EndStroke();
    return FALSE;
}

void EffectBrush::EndStroke()
{
    if (!m_bSketching)
        return;
    EndSketching();
    if (IsHosted())
        pView->Invalidate(FALSE);
}

void EffectBrush::StartSketching(CPoint pt)
{
    m_pfnStroke = m_pfnEffect;
    m_pStrokeContext = m_pEffectContext;
    Sketcher::StartSketching(pt);
}

void EffectBrush::EndSketching()
{
    Sketcher::EndSketching();
    m_HostRegion = {};
    FinishStroke(PVN_EFFECTBRUSH_END);
}

int EffectBrush::ProcessLineSegment(std::list<CPoint>& points, CRect& rcDirty)
{
    return StampAndShow(points, rcDirty,
                        [this]
                        {
                            if (!m_pfnStroke)
                                return;
                            // Copies: what the host changes of them is its own. The mask is one for the stroke.
                            BITMAPINFO bmi = m_bmiBmp;
                            if (m_HostRegion.vRegionMask.empty())
                                m_HostRegion.vRegionMask = m_ProcessRegion.vRegionMask;
                            m_HostRegion.rcRegion = m_ProcessRegion.rcRegion;
                            m_pfnStroke(m_vBmpData, bmi, m_HostRegion, m_pStrokeContext);
                        });
}

} // namespace Pixtane::EmbeddedTool
