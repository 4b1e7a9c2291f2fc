#pragma once

#include "platform/vorpix.h"
#include "view/EmbeddedTool.h"
#include "view/UnsetPoint.h"

namespace Pixtane::EmbeddedTool
{

/// The tool with which the user moves and resizes the selection as a whole: a frame with eight handles around it. When
/// a drag ends, the weights of the selection as it was at load are resampled to the new rectangle, always afresh, so
/// that nothing is lost by going back and forth. The bitmap is never touched. The parent hears of every step
/// (PVN_SELMOD_LEFT to PVN_SELMOD_RECT).
///
/// A host may do the same by numbers: SetLeftTop, SetSize and SetRect change the selection's region, and ApplyModify
/// then makes the weights follow. Without a view, and when the view meanwhile shows a bitmap of another size than at
/// load, these do nothing. Host and view must be of one thread.
class AFX_EXT_CLASS SelectionModifier : public CPixtane::IEmbeddedTool
{
public:
    SelectionModifier();
    ~SelectionModifier() override;
    SelectionModifier(const SelectionModifier&) = delete;
    SelectionModifier& operator=(const SelectionModifier&) = delete;

    /// Moves the rectangle's left top corner to a bitmap pixel. The parent is not told.
    void SetLeftTop(int x, int y);

    /// Gives the rectangle a size in bitmap pixels; one that is not positive keeps the shape there is. The left top
    /// corner stays. The parent is told PVN_SELMOD_SIZE.
    void SetSize(int cx, int cy);

    /// Both at once. The parent is not told.
    void SetRect(int x, int y, int cx, int cy);

    /// The rectangle in bitmap pixels, also in the middle of a drag.
    void GetRect(CRect& rc);

    /// Makes the selection of the weights at load, resampled to the rectangle with the sharper filter; a rectangle of
    /// the size at load gets them unchanged. One that is not inside the bitmap is first made no larger than it and
    /// shifted back. The parent is not told.
    void ApplyModify();

    /// Puts the region at load back. Weights that a drag or ApplyModify has written stay, and so does the rectangle:
    /// what follows still starts from the selection at load.
    void CancelModify();

    BOOL IsMouseDragging() const { return bDragging; }

    // ---- the tool's part of the view

    const wchar_t* GetToolName() override { return szToolName; }

    /// Takes over what is selected inside the bitmap; FALSE when that is nothing, or memory is short.
    int OnLoad(CPixtane& view) override;
    void SerializeToolSettings(std::vector<BYTE>&) const override {}
    int OnUnload() override;
    void Reset() override {}
    int OnPrePaint(CDC&, CRect&) override { return FALSE; }
    int OnPostPaint(CDC& dc, CRect& rcView) override;
    int OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message) override;
    int OnTimer(UINT_PTR) override { return FALSE; }
    int OnLButtonDown(UINT nFlags, CPoint point) override;
    int OnLButtonUp(UINT nFlags, CPoint point) override;
    int OnLButtonDblClk(UINT, CPoint) override { return FALSE; }
    int OnMouseMove(UINT nFlags, CPoint point) override;
    int OnMouseWheel(UINT, short, CPoint) override { return FALSE; }
    int OnKeyDown(UINT, UINT, UINT) override { return FALSE; }
    int OnKeyUp(UINT, UINT, UINT) override { return FALSE; }
    int OnSysKeyDown(UINT, UINT, UINT) override { return FALSE; }
    int OnSysKeyUp(UINT, UINT, UINT) override { return FALSE; }
    int OnCaptureChanged(CWnd*) override { return FALSE; }
    void OnZoomChanged() override;
    void OnDispPosChanged() override;

protected:
    /// Makes the handles anew from rcDisplay.
    void UpdateAdjustData();

    /// The same, with bFromRegion nonzero after rcDisplay from the view's scaled region.
    void UpdateDispData(BOOL bFromRegion);

    /// From window to bitmap coordinates, cut off at the bitmap's borders: left and top from below, right and bottom
    /// from above.
    void DisplayToImageRect(CRect& rc);

private:
    bool TakeSnapshot();
    void Forget();
    bool ShowsItsBitmap() const;
    CRect IntoBitmap(CRect rc) const;
    void ScaleSelection(int x, int y, int cx, int cy);
    void ResampleForDrag(CSize szMask);
    void Resample(CSize szMask, Vorpix::RESIZE_ALGORITHM eAlgorithm);
    void PlaceSelection(const CRect& rc);
    void Paste(const CRect& rc);
    void RegionChanged(bool bFrameFollows);
    void RefreshBorder();
    CRect ZoomedImageRect() const;

    bool DragTo(CPoint point);
    bool IsStillDragging(const CPixtane& view);
    void MoveWithin(const CRect& rcLimits, CPoint point);
    void ResizeWithin(const CRect& rcLimits, CPoint point);
    CRect DraggedRect();

protected:
    CRgn rgnOrigin;              ///< The selection at load.
    CRect rcOrigin{0, 0, 0, 0};  ///< Its box.
    CRect rcImage{0, 0, 0, 0};   ///< The rectangle, bitmap coordinates.
    CRect rcDisplay{0, 0, 0, 0}; ///< The frame, window coordinates.
    CRect rcHandle[8];           ///< Left top, left bottom, right top, right bottom, left, top, right, bottom.
    CRect rcHandleHit[8];
    CPoint ptDragStart = POINT_UNSET;
    CRect rcDragStart{0, 0, 0, 0}; ///< The frame at the press.
    BOOL bDragging = FALSE;
    int iDragMode = 0; ///< 0 moves; 1 to 8 drag the handles left top, right top, right bottom, left bottom, then the
                       ///< sides left, top, right, bottom.
    std::vector<BYTE> vCropMask; ///< The weights at load within rcOrigin: top row first, no padding, as all masks here.
    BITMAPINFO bmiCropMask = {};
    std::vector<BYTE> vResizedMask; ///< The weights as they were resampled last.
    BITMAPINFO bmiResizedMask = {};
    std::vector<BYTE> vNewMask; ///< Of the bitmap's size.
    std::vector<BYTE> vOrigMask;
    BITMAPINFO bmiNewMask = {};
};

} // namespace Pixtane::EmbeddedTool
