#include "tools/RedeyeReduction.h"

#include "view/Notifications.h"
#include "view/ToolSettings.h"
#include "view/TwoPassOutline.h"

#include "platform/minmax.h"

#include <algorithm>
#include <cwchar>

namespace Pixtane::EmbeddedTool
{

namespace
{

constexpr ToolSettingsLayout LAYOUTS[] = {{1, 1}};
constexpr int MIN_AMOUNT = 1;
constexpr int MAX_AMOUNT = 100;

} // namespace

RedeyeReduction::RedeyeReduction() { std::wcscpy(szToolName, L"redeye_reduction"); }

int RedeyeReduction::OnUnload()
{
    if (IsDragging())
        EndDrag();
    pView = nullptr;
    return TRUE;
}

// ---- settings

void RedeyeReduction::SetDarkenAmount(int iAmount) { iDarkenAmount = std::clamp(iAmount, MIN_AMOUNT, MAX_AMOUNT); }

void RedeyeReduction::SerializeToolSettings(std::vector<BYTE>& vData) const
{
    WriteToolSettings(vData, uSettingsVersion, {static_cast<DWORD>(iDarkenAmount)});
}

int RedeyeReduction::UnserializeToolSettings(const std::vector<BYTE>& vData)
{
    const auto blob = ReadToolSettings(vData, uSettingsVersion, LAYOUTS, L"RedeyeReduction::UnserializeToolSettings");
    if (!blob)
        return FALSE;
    if (!blob->vSettings.empty())
        SetDarkenAmount(static_cast<int>(blob->vSettings[0]));
    return TRUE;
}

// ---- the drag

bool RedeyeReduction::IsDragging() const { return IsSet(ptAnchor); }

int RedeyeReduction::OnLButtonDown(UINT, CPoint point)
{
    if (!IsHosted())
        return FALSE;
    ptAnchor = point;
    CaptureMouse();
    return FALSE;
}

int RedeyeReduction::OnMouseMove(UINT, CPoint)
{
    if (IsHosted() && IsDragging())
        pView->Invalidate(FALSE); // The paint asks for the pointer itself.
    return FALSE;
}

int RedeyeReduction::OnLButtonUp(UINT, CPoint point)
{
    if (!IsHosted())
        return FALSE;
    CPixtane& view = *pView;
    if (IsDragging() && point != ptAnchor)
    {
        CPoint ptFrom = ptAnchor;
        view.FromWndToBitmap(ptFrom);
        view.FromWndToBitmap(point);
        rcDetect.SetRect(std::min(ptFrom.x, point.x), std::min(ptFrom.y, point.y), std::max(ptFrom.x, point.x),
                         std::max(ptFrom.y, point.y));
        view.NotifyParent(PVN_REDEYE_DETECT, FALSE);
        if (!IsIn(view))
            return FALSE;
        view.Invalidate(FALSE);
    }
    EndDrag();
    return FALSE;
}

int RedeyeReduction::OnCaptureChanged(CWnd* pWnd)
{
    if (!IsHosted() || pWnd == pView || !IsDragging())
        return FALSE;
    ptAnchor = POINT_UNSET;
    pView->Invalidate(FALSE); // The frame disappears.
    return FALSE;
}

void RedeyeReduction::EndDrag()
{
    ReleaseMouse();
    ptAnchor = POINT_UNSET; // A view without a bitmap does not tell of its capture.
}

int RedeyeReduction::OnPostPaint(CDC& dc, CRect&)
{
    if (!IsHosted() || !IsDragging())
        return FALSE;
    const CPoint ptCursor = CursorInView();
    CTwoPassOutline(dc).DrawInverting([&] { dc.Rectangle(ptAnchor.x, ptAnchor.y, ptCursor.x, ptCursor.y); });
    return FALSE;
}

} // namespace Pixtane::EmbeddedTool
