#pragma once

#include "view/EmbeddedTool.h"
#include "view/UnsetPoint.h"

namespace Pixtane
{
class CTwoPassOutline;
}

namespace Pixtane::EmbeddedTool
{

/// The tool with which the user makes the selection: draws a shape (lasso, polygon, rectangle, ellipse) or picks an
/// area by colour, and combines it with the selection there is. With the replace rule a drag inside the selection moves
/// it and a click there removes it; the arrow keys move it about one screen pixel. What it does it tells the view's
/// parent (PVN_SELECT_NEW to PVN_SELECTION_MOVED). Host and view must be of one thread. The tool must be loaded into a
/// view for anything but its settings.
class AFX_EXT_CLASS RegionSelector : public CPixtane::IEmbeddedTool
{
public:
    enum emSelectMode : int
    {
        SM_NONE = 0, ///< The tool ignores mouse and cursor.
        SM_LASSO = 1,
        SM_POLYGON = 2,
        SM_RECTANGLE = 3,
        SM_ELLIPSE = 4,
        SM_MAGICWAND = 5,
    };
    enum emOverlapMode : int
    {
        OM_NEW = 1,       ///< The shape replaces the selection.
        OM_ADD = 2,       ///< Weights add up to 255 at most.
        OM_SUBTRACT = 3,  ///< Weights are taken away, down to 0.
        OM_INTERSECT = 4, ///< Weights multiply.
    };

    RegionSelector();
    ~RegionSelector() override;
    RegionSelector(const RegionSelector&) = delete;
    RegionSelector& operator=(const RegionSelector&) = delete;

    // ---- settings

    /// Each returns the value before, and leaves it when the new one is none of the enumeration.
    emSelectMode SetSelectMode(emSelectMode eMode);
    emOverlapMode SetSelectOverlapMode(emOverlapMode eMode);
    emSelectMode GetSelectMode() const { return eSelectMode; }
    emOverlapMode GetSelectOverlapMode() const { return eOverlapMode; }

    /// What is in force now: a lasso goes on as a polygon while Alt is held.
    emSelectMode GetSelectingMode() const { return eSelectingMode ? eSelectingMode : eSelectMode; }
    emOverlapMode GetSelectingOverlapMode() const
    {
        return eSelectingOverlapMode ? eSelectingOverlapMode : eOverlapMode;
    }

    /// How soft the edge of new shapes is, in bitmap pixels. Returns the radius before; -1 refuses a negative one.
    int SetFeatherRadius(int iRadius);
    int GetFeatherRadius() const { return iFeatherRadius; }

    /// The magic wand's tolerance. Returns the one before; -1 refuses a value outside 0 to 255.
    int SetTorlerance(int iTol);
    int GetTorlerance() const { return iTolerance; }

    // ---- selections by colour, all and inverse

    /// Selects the pixels that match a colour within a tolerance: of the selection, whose weights they are multiplied
    /// with, or of the whole bitmap without one or with an empty one. The parent is not told.
    void SelectColorRange(COLORREF crColor, int iColorTolerance);

    /// Selects the whole bitmap. The parent is not told.
    void SelectAll();

    /// Selects what is not selected; everything when nothing is.
    void InverseSelect();

    // ---- moving the selection; points are bitmap pixels

    int IsMovingSelection() const { return bMovingSelection; }

    /// Starts a move at a point.
    int StartMovingSelection(CPoint ptBmp);

    /// Shows the selection moved so that the start point is at ptBmp; repaints with bRedraw nonzero. Nothing unless a
    /// move is under way.
    int MovingSelectionRegion(CPoint ptBmp, int bRedraw);

    /// Ends the move there: mask and region are shifted for good, and what left the bitmap is lost. 0 when no move was
    /// under way.
    int EndMovingSelection(CPoint ptBmp);

    // ---- the tool's part of the view

    const wchar_t* GetToolName() override { return szToolName; }
    void SerializeToolSettings(std::vector<BYTE>& vData) const override;
    int UnserializeToolSettings(const std::vector<BYTE>& vData) override;
    int OnUnload() override;
    void Reset() override {}
    int OnPrePaint(CDC&, CRect&) override { return FALSE; }
    int OnPostPaint(CDC& dc, CRect& rcView) override;
    int OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message) override;
    int OnTimer(UINT_PTR) override { return FALSE; }
    int OnLButtonDown(UINT nFlags, CPoint point) override;
    int OnLButtonUp(UINT nFlags, CPoint point) override;
    int OnLButtonDblClk(UINT nFlags, CPoint point) override;
    int OnMouseMove(UINT nFlags, CPoint point) override;
    int OnMouseWheel(UINT, short, CPoint) override { return FALSE; }
    int OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags) override;
    int OnKeyUp(UINT, UINT, UINT) override { return FALSE; }
    int OnSysKeyDown(UINT, UINT, UINT) override { return FALSE; }
    int OnSysKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags) override;
    int OnCaptureChanged(CWnd* pWnd) override;

protected:
    /// Ends a lasso or polygon: applied from three vertices on, dropped otherwise.
    void CloseSelection();

    /// Merges the drawn shape into the selection and tells the parent.
    void ApplySelection();

    /// Merges the view's scratch mask into its mask by the rule in force.
    void MergeSelectMask();

    /// Fills vMask with the area of similar colour around a window point, and pBounds unless NULL with its box. 0
    /// outside the bitmap (vMask stays), and for bitmaps of other than 24 and 32 bits.
    int CreateMagicWandMask(std::vector<BYTE>& vMask, const CPoint& ptSeed, BYTE byTolerance, RECT* pBounds);

    /// Draws the shape that is being drawn.
    void DrawSelectingBorder(CDC& dc, CRect& rcView);

private:
    void ForgetShape();
    CPoint ToBitmap(CPoint ptClient) const;
    CPoint ToWindow(CPoint ptBmp) const;
    bool IsInSelection(CPoint ptBmp) const;
    bool HasSelection() const;
    bool IsCloseToFirstVertex(CPoint ptClient) const;
    CRect ShapeBox() const;

    void StartShape(CPoint ptBmp);
    void FollowPointer(UINT nFlags, CPoint ptBmp);
    void DragCorner(UINT nFlags, CPoint ptBmp);
    bool DrawShapeTo(UINT nFlags, CPoint ptClient);
    void ClearByClick();
    void FinishShapeStep(UINT nFlags, CPoint ptClient);
    void AddPolygonVertex(UINT nFlags, CPoint ptClient);
    void StartPolygon(CPoint ptClient);
    void DropShape();
    void RefreshView(bool bAtOnce);

    bool TakeShape(CRgn& rgnShape);
    void TakePolygon(CRgn& rgnShape);
    bool TakeWand(CRgn& rgnShape);
    bool MergeColorRange(const std::vector<BYTE>& vShape);
    bool HasFeatheredShape() const;
    bool RasteriseShape(const CRgn& rgnShape);
    void MergeShape(CRgn& rgnShape);
    void NotifyApplied(bool bWasEmpty);

    void ForgetMove();
    void PutBack();
    void CommitMove(CPoint ptOffset);

    void DrawPolygon(CTwoPassOutline& outline, CDC& dc) const;
    void DrawLasso(CDC& dc) const;
    void DrawBox(CTwoPassOutline& outline, CDC& dc) const;
    void DrawLabels(CDC& dc, const CRect& rcShape) const;

protected:
    CArray<POINT, const POINT&> arrPoints; ///< Vertices, bitmap coordinates.
    POINT ptStart = POINT_UNSET;           ///< Corners of rectangle and ellipse, bitmap coordinates.
    POINT ptEnd = POINT_UNSET;
    emSelectMode eSelectMode = SM_NONE;
    emSelectMode eSelectingMode = SM_NONE;
    emOverlapMode eOverlapMode = OM_NEW;
    emOverlapMode eSelectingOverlapMode = {};
    int iFeatherRadius = 0;
    int iTolerance = 50;
    BOOL bSelecting = FALSE; ///< A shape is being drawn and the mouse is captured.
    double dbCloseDistance = 10.0;
    CPoint ptDown{0, 0}; ///< Window point of the last press.
    CPoint ptMoveStart{0, 0};
    BOOL bMovingSelection = FALSE;
    CRgn rgnMoveOrig;
    CRgn rgnMoveOrigScaled;
};

} // namespace Pixtane::EmbeddedTool
