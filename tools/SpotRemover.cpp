#include "tools/SpotRemover.h"

#include "view/Notifications.h"
#include "view/RoundOutline.h"
#include "view/ToolSettings.h"

#include "platform/minmax.h"

#include <algorithm>
#include <cwchar>
#include <utility>

namespace Pixtane::EmbeddedTool
{

namespace
{

constexpr ToolSettingsLayout LAYOUTS[] = {{1, 1}};

} // namespace

const int SpotRemover::MAX_SIZE;

SpotRemover::SpotRemover() { std::wcscpy(szToolName, L"spot_remover"); }

int SpotRemover::OnUnload()
{
    pView = nullptr;
    return TRUE;
}

// ---- the size

int SpotRemover::SetSize(int iNewSize)
{
    const int iOldSize = std::exchange(iSpotSize, iNewSize);
    MeasureSpot();
    return iOldSize;
}

void SpotRemover::MeasureSpot() { iDispSize = RoundScreenSize(iSpotSize, pView ? pView->dbZoom() : 1.0); }

void SpotRemover::OnZoomChanged()
{
    MeasureSpot();
    OnSetCursor(pView, 0, WM_SETCURSOR);
}

void SpotRemover::SerializeToolSettings(std::vector<BYTE>& vData) const
{
    WriteToolSettings(vData, uSettingsVersion, {static_cast<DWORD>(iSpotSize)});
}

int SpotRemover::UnserializeToolSettings(const std::vector<BYTE>& vData)
{
    const auto blob = ReadToolSettings(vData, uSettingsVersion, LAYOUTS, L"SpotRemover::UnserializeToolSettings");
    if (!blob)
        return FALSE;
    if (!blob->vSettings.empty())
        iSpotSize = static_cast<int>(blob->vSettings[0]);
    iSpotSize = std::clamp(iSpotSize, 1, MAX_SIZE);
    return TRUE;
}

// ---- the spot

int SpotRemover::OnLButtonUp(UINT, CPoint point)
{
    if (!IsHosted())
        return FALSE;
    pView->FromWndToBitmap(point);
    ptSpot = point;
    pView->NotifyParent(PVN_SPOTREMOVER_SPOT, FALSE);
    return FALSE;
}

// ---- the outline

int SpotRemover::OnMouseMove(UINT, CPoint)
{
    if (!IsHosted())
        return FALSE;
    CPixtane& view = *pView;
    view.Invalidate(FALSE); // The paint asks for the pointer itself.
    view.UpdateWindow();
    return FALSE;
}

int SpotRemover::OnSetCursor(CWnd*, UINT, UINT)
{
    constexpr int LARGEST_WITHOUT_CURSOR = 32;
    if (!IsHosted() || iDispSize > LARGEST_WITHOUT_CURSOR || !IsCursorOverView())
        return FALSE;
    ::SetCursor(nullptr);
    return TRUE;
}

int SpotRemover::OnPostPaint(CDC& dc, CRect&)
{
    if (!IsHosted())
        return FALSE;
    CPoint ptBitmap = CursorInView();
    pView->FromWndToBitmap(ptBitmap);
    DrawRoundOutline(dc, *pView, ptBitmap, iSpotSize, iDispSize);
    return FALSE;
}

} // namespace Pixtane::EmbeddedTool
