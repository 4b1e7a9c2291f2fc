#include "selection/RegionSelector.h"

#include "view/CursorIds.h"
#include "view/Module.h"
#include "view/Rounding.h"
#include "view/ToolSettings.h"

#include <algorithm>
#include <cwchar>
#include <utility>

namespace Pixtane::EmbeddedTool
{

namespace
{

constexpr UINT VERSION = 3;

// The replace rule's cursor of each shape; intersect, subtract and add follow it.
constexpr UINT SHAPE_CURSORS[] = {0, CURSOR_LASSO, CURSOR_POLYGON, CURSOR_RECTANGLE, CURSOR_ELLIPSE, CURSOR_WAND};
constexpr UINT RULE_OFFSETS[] = {0, 0, 3, 2, 1};

UINT ShapeCursor(RegionSelector::emSelectMode eShape, RegionSelector::emOverlapMode eRule)
{
    const bool bKnown = eShape > RegionSelector::SM_NONE && eShape <= RegionSelector::SM_MAGICWAND &&
                        eRule >= RegionSelector::OM_NEW && eRule <= RegionSelector::OM_INTERSECT;
    return bKnown ? SHAPE_CURSORS[eShape] + RULE_OFFSETS[eRule] : 0;
}

} // namespace

RegionSelector::RegionSelector()
{
    std::wcscpy(szToolName, L"region_selector");
    uSettingsVersion = VERSION;
}

RegionSelector::~RegionSelector() = default;

// ---- settings

RegionSelector::emSelectMode RegionSelector::SetSelectMode(emSelectMode eMode)
{
    const emSelectMode eOld = eSelectMode;
    if (static_cast<UINT>(eMode) <= SM_MAGICWAND)
        eSelectMode = eMode;
    return eOld;
}

RegionSelector::emOverlapMode RegionSelector::SetSelectOverlapMode(emOverlapMode eMode)
{
    const emOverlapMode eOld = eOverlapMode;
    if (eMode >= OM_NEW && eMode <= OM_INTERSECT)
        eOverlapMode = eMode;
    return eOld;
}

int RegionSelector::SetFeatherRadius(int iRadius)
{
    if (iRadius < 0)
        return -1;
    return std::exchange(iFeatherRadius, iRadius);
}

int RegionSelector::SetTorlerance(int iTol)
{
    if (iTol < 0 || iTol > 255)
        return -1;
    return std::exchange(iTolerance, iTol);
}

void RegionSelector::SerializeToolSettings(std::vector<BYTE>& vData) const
{
    WriteToolSettings(
        vData, VERSION,
        {static_cast<DWORD>(eOverlapMode), static_cast<DWORD>(iFeatherRadius), static_cast<DWORD>(iTolerance)});
}

int RegionSelector::UnserializeToolSettings(const std::vector<BYTE>& vData)
{
    static constexpr ToolSettingsLayout LAYOUTS[] = {{1, 2}, {2, 2}, {3, 3}};
    const auto blob = ReadToolSettings(vData, uSettingsVersion, LAYOUTS, L"RegionSelector::UnserializeToolSettings");
    if (!blob)
        return FALSE;
    if (blob->vSettings.empty())
        return TRUE;
    // The first version counted the rules from 0.
    eOverlapMode = static_cast<emOverlapMode>(blob->vSettings[0] + (blob->uVersion == 1 ? 1 : 0));
    iFeatherRadius = static_cast<int>(blob->vSettings[1]);
    if (blob->vSettings.size() > 2)
        iTolerance = static_cast<int>(blob->vSettings[2]);
    return TRUE;
}

// ---- the view

int RegionSelector::OnUnload()
{
    // Region and mask must not part, and another tool must not find the mouse taken: a gesture under way comes to
    // nothing.
    if (bMovingSelection)
    {
        PutBack();
        pView->UpdateSelectBorderMaskDC();
    }
    ForgetMove();
    ForgetShape();
    bSelecting = FALSE;
    eSelectingMode = SM_NONE;
    ReleaseMouse();
    pView = nullptr;
    return TRUE;
}

int RegionSelector::OnPostPaint(CDC& dc, CRect& rcView)
{
    if (pView)
        DrawSelectingBorder(dc, rcView);
    return FALSE;
}

int RegionSelector::OnSetCursor(CWnd*, UINT, UINT)
{
    if (!IsHosted())
        return FALSE;
    if (!bSelecting && !IsCursorOverView())
        return FALSE;
    const CPoint ptCursor = CursorInView();
    if (GetSelectingOverlapMode() == OM_NEW && IsInSelection(ToBitmap(ptCursor)))
        return ShowOwnCursor(CURSOR_MOVES_SELECTION);
    const bool bCloses = GetSelectingMode() == SM_POLYGON && bSelecting && arrPoints.GetSize() >= 2 &&
                         (IsCloseToFirstVertex(ptCursor) || ::GetKeyState(VK_CONTROL) < 0);
    return ShowOwnCursor(bCloses ? CURSOR_CLOSES_POLYGON : ShapeCursor(GetSelectingMode(), GetSelectingOverlapMode()));
}

CPoint RegionSelector::ToBitmap(CPoint ptClient) const
{
    // As far as regions reach, with room for what shapes add.
    constexpr LONG FARTHEST = (1 << 27) - 16;
    pView->FromWndToBitmap(ptClient);
    return {std::clamp(ptClient.x, -FARTHEST, FARTHEST), std::clamp(ptClient.y, -FARTHEST, FARTHEST)};
}

CPoint RegionSelector::ToWindow(CPoint ptBmp) const
{
    pView->FromBitmapToWnd(ptBmp);
    return ptBmp;
}

bool RegionSelector::HasSelection() const { return pView->rgnSelect().GetSafeHandle() != nullptr; }

bool RegionSelector::IsInSelection(CPoint ptBmp) const
{
    return HasSelection() && pView->rgnSelect().PtInRegion(ptBmp);
}

} // namespace Pixtane::EmbeddedTool
