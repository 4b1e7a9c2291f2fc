#include "platform/minmax.h"
#include "selection/RegionBox.h"
#include "selection/SelectionModifier.h"
#include "view/CursorIds.h"
#include "view/EdgeScroll.h"
#include "view/Module.h"
#include "view/Notifications.h"
#include "view/Rounding.h"

#include <algorithm>
#include <span>

namespace Pixtane::EmbeddedTool
{

namespace
{

/// Places in rcHandle and rcHandleHit.
enum emHandle : std::size_t
{
    LEFT_TOP,
    LEFT_BOTTOM,
    RIGHT_TOP,
    RIGHT_BOTTOM,
    LEFT,
    TOP,
    RIGHT,
    BOTTOM,
};

constexpr int HANDLE_REACH = 3; ///< Of the square that is drawn, from its middle.
constexpr int HIT_REACH = 10;   ///< Of what reacts to the mouse.

/// What a drag by a handle moves and tells; iDragMode is the place in the table and one more.
struct DragMode
{
    emHandle eHandle;
    bool bLeft, bTop, bRight, bBottom;
    UINT uCode;
};
constexpr DragMode HANDLE_MODES[] = {
    {LEFT_TOP, true, true, false, false, PVN_SELMOD_RECT},     {RIGHT_TOP, false, true, true, false, PVN_SELMOD_RECT},
    {RIGHT_BOTTOM, false, false, true, true, PVN_SELMOD_SIZE}, {LEFT_BOTTOM, true, false, false, true, PVN_SELMOD_RECT},
    {LEFT, true, false, false, false, PVN_SELMOD_LEFT},        {TOP, false, true, false, false, PVN_SELMOD_TOP},
    {RIGHT, false, false, true, false, PVN_SELMOD_RIGHT},      {BOTTOM, false, false, false, true, PVN_SELMOD_BOTTOM},
};

struct HandleCursor
{
    emHandle eHandle;
    UINT uId;
};
constexpr HandleCursor HANDLE_CURSORS[] = {
    {LEFT_TOP, CURSOR_SIZE_FALLING},   {RIGHT_BOTTOM, CURSOR_SIZE_FALLING}, {RIGHT_TOP, CURSOR_SIZE_RISING},
    {LEFT_BOTTOM, CURSOR_SIZE_RISING}, {LEFT, CURSOR_SIZE_HORIZONTAL},      {RIGHT, CURSOR_SIZE_HORIZONTAL},
    {TOP, CURSOR_SIZE_VERTICAL},       {BOTTOM, CURSOR_SIZE_VERTICAL},
};

CRect Around(int x, int y, int iReach) { return {x - iReach, y - iReach, x + iReach, y + iReach}; }

/// How far a side may be moved towards where the pointer went.
int LimitedMove(int iMove, LONG iLow, LONG iHigh, LONG iLimitLow, LONG iLimitHigh)
{
    return iMove >= 0 ? std::min(iMove, SaturatedSum(iLimitHigh, -static_cast<long long>(iHigh)))
                      : std::max(iMove, SaturatedSum(iLimitLow, -static_cast<long long>(iLow)));
}

// An edge that follows the pointer to the image's border; the least size counts for more than that.
LONG LowEdge(LONG iPoint, LONG iLimit, LONG iHigh, int iLeast)
{
    return std::min<LONG>(std::max(iPoint, iLimit), SaturatedSum(iHigh, -iLeast));
}
LONG HighEdge(LONG iPoint, LONG iLimit, LONG iLow, int iLeast)
{
    return std::max<LONG>(std::min<LONG>(SaturatedSum(iPoint, 1), iLimit), SaturatedSum(iLow, iLeast));
}

/// Where the zoomed image begins in the window.
CPoint ImageOrigin(CPixtane& view)
{
    const Gdiplus::Point ptPos = view.ptDispPos();
    return {SaturatedSum(0, -static_cast<long long>(ptPos.X)), SaturatedSum(0, -static_cast<long long>(ptPos.Y))};
}

/// Not so far that a width, or handles beside it, would overflow.
constexpr int FAR_AWAY = 1 << 29;

CRect Moved(const CRect& rc, CPoint ptBy)
{
    const auto moved = [](LONG iEdge, LONG iBy) { return std::clamp(SaturatedSum(iEdge, iBy), -FAR_AWAY, FAR_AWAY); };
    return {moved(rc.left, ptBy.x), moved(rc.top, ptBy.y), moved(rc.right, ptBy.x), moved(rc.bottom, ptBy.y)};
}

} // namespace

// ---- where things are

void SelectionModifier::UpdateDispData(BOOL bFromRegion)
{
    if (bFromRegion && pView)
        rcDisplay = Moved(BoxOf(pView->rgnSelectScaled()), ImageOrigin(*pView));
    UpdateAdjustData();
}

void SelectionModifier::UpdateAdjustData()
{
    const auto [L, T, R, B] = static_cast<RECT>(rcDisplay);
    const int mx = L + (R - L) / 2;
    const int my = T + (B - T) / 2;
    const CPoint vPlaces[] = {{L, T}, {L, B}, {R, T}, {R, B}, {L, my}, {mx, T}, {R, my}, {mx, B}};
    for (std::size_t i = 0; i < std::size(vPlaces); ++i)
    {
        rcHandle[i] = Around(vPlaces[i].x, vPlaces[i].y, HANDLE_REACH);
        rcHandleHit[i] = Around(vPlaces[i].x, vPlaces[i].y, HIT_REACH);
    }
    // The sides are sensitive wherever the corners are not.
    for (const emHandle eSide : {LEFT, RIGHT})
    {
        rcHandleHit[eSide].top = T + HIT_REACH;
        rcHandleHit[eSide].bottom = B - HIT_REACH;
    }
    for (const emHandle eSide : {TOP, BOTTOM})
    {
        rcHandleHit[eSide].left = L + HIT_REACH;
        rcHandleHit[eSide].right = R - HIT_REACH;
    }
}

void SelectionModifier::DisplayToImageRect(CRect& rc)
{
    if (!pView)
        return;
    POINT ptLow = {rc.left, rc.top};
    POINT ptHigh = {rc.right, rc.bottom};
    pView->FromWndToBitmap(ptLow);
    pView->FromWndToBitmap(ptHigh);
    rc = {std::max<LONG>(ptLow.x, 0), std::max<LONG>(ptLow.y, 0), std::min<LONG>(ptHigh.x, pView->iBmpWidth()),
          std::min<LONG>(ptHigh.y, pView->iBmpHeight())};
}

CRect SelectionModifier::DraggedRect()
{
    CRect rc = rcDisplay;
    DisplayToImageRect(rc);
    if (iDragMode == 0)
    {
        rc.right = SaturatedSum(rc.left, rcImage.Width());
        rc.bottom = SaturatedSum(rc.top, rcImage.Height());
    }
    return rc;
}

CRect SelectionModifier::ZoomedImageRect() const
{
    constexpr double NEARLY_ONE = 0.9999999f;
    const auto low = [dbZoom = pView->dbZoom()](LONG iEdge)
    {
        const double dEdge = iEdge * dbZoom;
        return Truncate(dEdge > 0 ? dEdge + NEARLY_ONE : dEdge);
    };
    const auto high = [dbZoom = pView->dbZoom()](LONG iEdge)
    {
        const double dEdge = iEdge * dbZoom;
        return Truncate(dEdge >= 0 ? dEdge : dEdge - NEARLY_ONE);
    };
    return Moved({low(rcImage.left), low(rcImage.top), high(rcImage.right), high(rcImage.bottom)}, ImageOrigin(*pView));
}

void SelectionModifier::OnZoomChanged()
{
    if (!ShowsItsBitmap())
        return;
    UpdateDispData(TRUE);
    pView->Invalidate(FALSE);
}

void SelectionModifier::OnDispPosChanged()
{
    // During a drag its step keeps the frame.
    if (!bDragging)
        OnZoomChanged();
}

// ---- the mouse

int SelectionModifier::OnSetCursor(CWnd*, UINT, UINT)
{
    if (!IsHosted())
        return TRUE;
    const CPoint ptCursor = CursorInView();
    const auto it = std::ranges::find_if(HANDLE_CURSORS, [&](const HandleCursor& cursor)
                                         { return rcHandleHit[cursor.eHandle].PtInRect(ptCursor); });
    ShowOwnCursor(it == std::end(HANDLE_CURSORS) ? CURSOR_MOVES_SELECTION : it->uId);
    return TRUE;
}

int SelectionModifier::OnLButtonDown(UINT, CPoint point)
{
    if (!ShowsItsBitmap())
        return FALSE;
    const auto it = std::ranges::find_if(HANDLE_MODES, [&](const DragMode& mode)
                                         { return rcHandleHit[mode.eHandle].PtInRect(point); });
    iDragMode = it == std::end(HANDLE_MODES) ? 0 : static_cast<int>(it - HANDLE_MODES) + 1;
    bDragging = TRUE;
    ptDragStart = point;
    rcDragStart = rcDisplay;
    pView->SetCapture();
    return FALSE;
}

int SelectionModifier::OnMouseMove(UINT, CPoint point)
{
    if (IsHosted() && bDragging)
        ScrollWhileAtEdge(*pView, point, [this](CPoint ptClient) { return DragTo(ptClient); });
    return FALSE;
}

bool SelectionModifier::DragTo(CPoint point)
{
    CPixtane& view = *pView;
    if (!IsStillDragging(view))
        return false;
    const Gdiplus::Point ptBefore = view.ptDispPos();
    const Gdiplus::SizeF szZoomed = view.ZoomedSize();
    const CSize szStep = EdgeStep(view, point);
    const bool bScrolled = ScrollBy(view, szStep);
    if (!IsStillDragging(view))
        return false;
    if (bScrolled)
        rcDisplay = Moved(rcDisplay, {-szStep.cx, -szStep.cy});
    // Right and bottom are those from before the scroll.
    const CPoint ptOrigin = ImageOrigin(view);
    const CRect rcLimits(ptOrigin.x, ptOrigin.y,
                         SaturatedSum(CeilingLike(szZoomed.Width), -static_cast<long long>(ptBefore.X)),
                         SaturatedSum(CeilingLike(szZoomed.Height), -static_cast<long long>(ptBefore.Y)));
    if (iDragMode == 0)
        MoveWithin(rcLimits, point);
    else
        ResizeWithin(rcLimits, point);
    UpdateAdjustData();
    view.Invalidate(FALSE);
    view.UpdateWindow();
    view.NotifyParent(iDragMode == 0 ? PVN_SELMOD_RECT : HANDLE_MODES[iDragMode - 1].uCode, FALSE);
    return IsStillDragging(view) && bScrolled;
}

bool SelectionModifier::IsStillDragging(const CPixtane& view)
{
    if (!IsIn(view) || !bDragging)
        return false;
    if (ShowsItsBitmap())
        return true;
    // Without a bitmap nothing would tell when the button goes up.
    bDragging = FALSE;
    ReleaseMouse();
    return false;
}

void SelectionModifier::MoveWithin(const CRect& rcLimits, CPoint point)
{
    const CPoint ptMove = point - ptDragStart;
    rcDisplay = rcDragStart;
    rcDisplay.OffsetRect(LimitedMove(ptMove.x, rcDragStart.left, rcDragStart.right, rcLimits.left, rcLimits.right),
                         LimitedMove(ptMove.y, rcDragStart.top, rcDragStart.bottom, rcLimits.top, rcLimits.bottom));
}

void SelectionModifier::ResizeWithin(const CRect& rcLimits, CPoint point)
{
    const int iLeast = std::clamp(Truncate(pView->dbZoom()), 1, FAR_AWAY);
    const DragMode& mode = HANDLE_MODES[iDragMode - 1];
    if (mode.bLeft)
        rcDisplay.left = LowEdge(point.x, rcLimits.left, rcDisplay.right, iLeast);
    if (mode.bTop)
        rcDisplay.top = LowEdge(point.y, rcLimits.top, rcDisplay.bottom, iLeast);
    if (mode.bRight)
        rcDisplay.right = HighEdge(point.x, rcLimits.right, rcDisplay.left, iLeast);
    if (mode.bBottom)
        rcDisplay.bottom = HighEdge(point.y, rcLimits.bottom, rcDisplay.top, iLeast);
    rcDisplay = Moved(rcDisplay, {0, 0});
}

int SelectionModifier::OnLButtonUp(UINT, CPoint)
{
    if (!IsHosted() || !bDragging)
        return FALSE;
    CPixtane& view = *pView;
    bDragging = FALSE;
    ReleaseMouse();
    if (!ShowsItsBitmap() || rcDisplay == rcDragStart)
        return FALSE;
    const CWaitCursor wait;
    const CRect rc = IntoBitmap(DraggedRect());
    ResampleForDrag(rc.Size());
    PlaceSelection(rc);
    RegionChanged(true);
    view.NotifyParent(PVN_SELMOD_RECT, FALSE);
    return FALSE;
}

// ---- the frame

int SelectionModifier::OnPostPaint(CDC& dc, CRect&)
{
    if (!ShowsItsBitmap())
        return FALSE;
    CPen penBlack(PS_SOLID, 1, RGB(0, 0, 0));
    CPen penWhite(PS_SOLID, 1, RGB(255, 255, 255));
    CPen* const pOldPen = dc.SelectObject(&penBlack);
    CGdiObject* const pOldBrush = dc.SelectStockObject(NULL_BRUSH);
    const auto outline = [&dc](CPen& pen, int iGrown, std::span<const CRect> vRects)
    {
        dc.SelectObject(&pen);
        for (CRect rc : vRects)
        {
            rc.InflateRect(iGrown, iGrown);
            dc.Rectangle(&rc);
        }
    };
    // White just outside black shows on any ground.
    outline(penBlack, 0, {&rcDisplay, 1});
    outline(penWhite, 1, {&rcDisplay, 1});
    outline(penBlack, 0, rcHandle);
    outline(penWhite, 1, rcHandle);
    dc.SelectObject(static_cast<CBrush*>(pOldBrush));
    dc.SelectObject(pOldPen);
    return FALSE;
}

} // namespace Pixtane::EmbeddedTool
