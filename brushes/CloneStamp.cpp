#include "brushes/CloneStamp.h"

#include "brushes/StrokeImage.h"
#include "view/CursorIds.h"
#include "view/Module.h"
#include "view/Notifications.h"
#include "view/Rounding.h"
#include "view/ToolSettings.h"
#include "view/TwoPassOutline.h"

#include <cwchar>

namespace Pixtane::EmbeddedTool
{

namespace
{

constexpr UINT SETTINGS_VERSION = 2;
constexpr std::size_t PEN_SETTINGS = 4;
constexpr ToolSettingsLayout LAYOUTS[] = {{1, PEN_SETTINGS}, {SETTINGS_VERSION, PEN_SETTINGS + 1}};

} // namespace

const UINT CloneStamp::TIMER_CHECKKEYDOWN;
const UINT CloneStamp::TIMER_CHECKKEYDOWN_INTERVAL;

CloneStamp::CloneStamp()
{
    std::wcscpy(szToolName, L"clone_stamp");
    uSettingsVersion = SETTINGS_VERSION;
}

void CloneStamp::SetAligned(int bAligned)
{
    m_bAligned = bAligned;
    if (!bAligned)
        m_ptDestAnchor = POINT_UNSET;
}

int CloneStamp::OnLoad(CPixtane& view)
{
    Sketcher::OnLoad(view);
    view.SetTimer(TIMER_CHECKKEYDOWN, TIMER_CHECKKEYDOWN_INTERVAL, nullptr);
    return TRUE;
}

int CloneStamp::OnUnload()
{
    CPixtane& view = *pView;
    Sketcher::OnUnload();
    m_iState = STATE_IDLE;
    if (view.m_hWnd)
    {
        view.KillTimer(TIMER_CHECKKEYDOWN);
        view.Invalidate(FALSE);
    }
    return TRUE;
}

void CloneStamp::Reset()
{
    m_ptSource = POINT_UNSET;
    m_ptDestAnchor = POINT_UNSET;
    m_ptCurSource = POINT_UNSET;
    m_ptCurDest = POINT_UNSET;
}

void CloneStamp::FromDestToSource(POINT& pt)
{
    pt.x = SaturatedSum(pt.x, static_cast<long long>(m_ptSource.x) - m_ptDestAnchor.x);
    pt.y = SaturatedSum(pt.y, static_cast<long long>(m_ptSource.y) - m_ptDestAnchor.y);
}

// ---- settings

void CloneStamp::SerializeToolSettings(std::vector<BYTE>& vData) const
{
    WriteToolSettings(vData, SETTINGS_VERSION,
                      {static_cast<DWORD>(m_Pen.eStyle), static_cast<DWORD>(m_Pen.iSize),
                       static_cast<DWORD>(m_Pen.iHardness), static_cast<DWORD>(m_Pen.iStrength),
                       static_cast<DWORD>(m_bAligned)});
}

int CloneStamp::UnserializeToolSettings(const std::vector<BYTE>& vData)
{
    const auto blob = ReadToolSettings(vData, uSettingsVersion, LAYOUTS, L"CloneStamp::UnserializeToolSettings");
    if (!blob)
        return FALSE;
    if (!blob->vSettings.empty())
        RestorePen(blob->vSettings);
    if (blob->vSettings.size() > PEN_SETTINGS)
        m_bAligned = static_cast<BOOL>(blob->vSettings[PEN_SETTINGS]);
    return TRUE;
}

// ---- the source

int CloneStamp::OnTimer(UINT_PTR nIDEvent)
{
    EndStrokeWithoutBitmap();
    if (nIDEvent != TIMER_CHECKKEYDOWN || !IsHosted() || m_iState == STATE_STROKE)
        return FALSE;
    CPoint ptCursor(0, 0);
    ::GetCursorPos(&ptCursor);
    if (::WindowFromPoint(ptCursor) != pView->m_hWnd)
        return FALSE;
    const bool bAlt = ::GetAsyncKeyState(VK_LMENU) < 0 || ::GetAsyncKeyState(VK_RMENU) < 0;
    m_iState = bAlt ? STATE_PICKING : STATE_IDLE;
    OnSetCursor(pView, 0, WM_SETCURSOR);
    return FALSE;
}

int CloneStamp::OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message)
{
    if (m_iState != STATE_PICKING)
        return Sketcher::OnSetCursor(pWnd, nHitTest, message);
    if (!m_hSourceCursor)
        m_hSourceCursor = ::LoadCursor(ModuleInstance(), MAKEINTRESOURCE(CURSOR_CLONE_SOURCE));
    ::SetCursor(m_hSourceCursor);
    return TRUE;
}

void CloneStamp::PickSource(CPoint ptBitmap)
{
    const CRect rcBitmap(0, 0, pView->iBmpWidth(), pView->iBmpHeight());
    m_ptSource = rcBitmap.PtInRect(ptBitmap) ? ptBitmap : CPoint(POINT_UNSET);
    m_ptDestAnchor = POINT_UNSET;
    pView->Invalidate(FALSE);
    pView->NotifyParent(PVN_CLONESTAMP_SOURCE, FALSE);
}

// ---- the stroke

int CloneStamp::OnLButtonDown(UINT, CPoint point)
{
    EndLostStroke();
    if (!IsHosted() || m_iState == STATE_STROKE)
        return FALSE;
    if (m_iState == STATE_IDLE && IsSet(m_ptSource))
    {
        BeginStroke(point);
        return FALSE;
    }
    pView->SetCapture();
    if (m_iState == STATE_PICKING)
        PickSource(BitmapPoint(point));
    else
        pView->NotifyParent(PVN_CLONESTAMP_NOSOURCE, TRUE);
    return FALSE;
}

void CloneStamp::BeginStroke(CPoint ptClient)
{
    if (!CanStroke() || !CaptureForStroke())
        return;
    const CPoint pt = BitmapPoint(ptClient);
    if (!IsSet(m_ptDestAnchor))
        m_ptDestAnchor = pt;
    m_iState = STATE_STROKE;
    StartSketching(pt);
}

void CloneStamp::StartSketching(CPoint pt)
{
    CPoint ptSource = pt;
    FromDestToSource(ptSource);
    m_szStrokeOffset = ptSource - pt;
    SetStampOffset(m_szStrokeOffset);
    Sketcher::StartSketching(pt);
    TellBegin(PVN_CLONESTAMP_BEGIN);
}

int CloneStamp::OnMouseMove(UINT nFlags, CPoint point)
{
    if (IsHosted() && m_iState == STATE_STROKE && (nFlags & MK_LBUTTON))
    {
        m_ptCurDest = point;
        pView->FromWndToBitmap(m_ptCurDest);
        m_ptCurSource = m_ptCurDest + m_szStrokeOffset;
    }
    return Sketcher::OnMouseMove(nFlags, point);
}

int CloneStamp::OnLButtonUp(UINT, CPoint)
{
    ReleaseMouse(); // Losing the capture ends a stroke.
    if (m_iState == STATE_STROKE)
        EndStroke();
    return FALSE;
}

int CloneStamp::OnCaptureChanged(CWnd*)
{
    if (m_iState == STATE_PICKING)
        m_iState = STATE_IDLE;
    else if (m_iState == STATE_STROKE)
        EndStroke();
    return FALSE;
}

void CloneStamp::EndStroke()
{
    m_iState = STATE_IDLE;
    EndSketching();
    m_ptCurSource = POINT_UNSET;
    m_ptCurDest = POINT_UNSET;
    if (!m_bAligned)
        m_ptDestAnchor = POINT_UNSET;
    if (IsHosted())
        pView->Invalidate(FALSE);
}

void CloneStamp::EndSketching()
{
    Sketcher::EndSketching();
    FinishStroke(PVN_CLONESTAMP_END);
}

int CloneStamp::ProcessLineSegment(std::list<CPoint>& points, CRect& rcDirty)
{
    // The coverage lies where the pixels come from, so that weights and pixels are read at the same place.
    bool bStamped = false;
    for (const CPoint& pt : points)
    {
        const CPoint ptSource = pt + m_szStrokeOffset;
        if (IsTooCloseToLast(pt) || !m_rcStampArea.PtInRect(ptSource))
            continue;
        StampAt(ptSource);
        m_ptLastStamp = pt;
        bStamped = true;
    }
    if (!bStamped)
        return TRUE;
    const CSingleLock lock(&m_csBitmap, TRUE);
    if (IsCoverOurs())
    {
        std::vector<BYTE>& vCover = pView->vCoverBmpData();
        CopyRect(vCover, m_vBmpData, m_bmiBmp, rcDirty);
        BlendRect(vCover, rcDirty, m_vBmpData, rcDirty.TopLeft() + m_szStrokeOffset, m_bmiBmp, m_vCoverage);
    }
    return TRUE;
}

// ---- drawing

int CloneStamp::OnPostPaint(CDC& dc, CRect& rcView)
{
    Sketcher::OnPostPaint(dc, rcView);
    if (IsSet(m_ptSource) && IsSet(m_ptDestAnchor))
        DrawCross(dc, m_ptSource);
    if (IsSet(m_ptCurSource))
        DrawCross(dc, m_ptCurSource);
    return FALSE;
}

void CloneStamp::DrawCross(CDC& dc, CPoint ptBitmap)
{
    constexpr int ARM = 3;
    CPoint pt = ptBitmap;
    pView->FromBitmapToWnd(pt);
    CTwoPassOutline outline(dc);
    outline.DrawInverting(
        [&]
        {
            dc.MoveTo(pt.x - ARM, pt.y);
            dc.LineTo(pt.x + ARM + 1, pt.y);
            dc.MoveTo(pt.x, pt.y - ARM);
            dc.LineTo(pt.x, pt.y + ARM + 1);
        });
}

} // namespace Pixtane::EmbeddedTool
