#pragma once

#include "platform/uxctrls.h"

#include <vector>

namespace Pixtane
{

/// A child window that shows a bitmap of the host, zoomed and scrolled.
///
/// The host keeps the pixels: the view holds a pointer to them until ClearBitmap or the next SetBitmap, and never
/// writes there. Three coordinate spaces occur: bitmap pixels (y from the top row as displayed), zoomed coordinates
/// (bitmap times zoom) and window coordinates (client pixels of the view: zoomed minus the display position).
/// Everything belongs to the thread that created the window. Operations return nonzero on success and leave everything
/// as it was on failure unless said otherwise.
///
/// Order of use: construct, Create, show the window, SetBitmap, any operations, destroy the window, destruct.
class AFX_EXT_CLASS CPixtane : public CUXWnd
{
    DECLARE_DYNAMIC(CPixtane)

public:
    class IEmbeddedTool;

    // Exported, as the constants of the tools are: each has its definition in a source.
    static const UINT MAX_TOOLNAME = 100;                 ///< Characters of a tool's name, its end included.
    static const UINT TIMER_DRAWSELECTBOX = 100;          ///< Id of the timer that animates the selection border.
    static const UINT TIMER_DRAWSELECTBOX_INTERVAL = 250; ///< Its period in milliseconds.
    static const UINT MAXREPEAT_DRAWSELECTBOX = 4;        ///< Number of phases of the animation.

    /// With bNoSelectMask nonzero the view keeps no per-pixel selection masks. Throws a wide text (const wchar_t*) when
    /// the border patterns cannot be made from the module's resources.
    explicit CPixtane(int bNoSelectMask = 0);
    ~CPixtane() override;

    /// Creates the child window, hidden, with its two scroll bars, hidden, and the border timer. crBackground is shown
    /// around the image. FALSE when the window cannot be created; throws a CResourceException* when a bar cannot.
    int Create(const RECT& rect, CWnd* pParentWnd, UINT nID, DWORD crBackground);

    // ---- the bitmap

    /// Attaches a bottom-up bitmap without colour table: info is copied, pData stays the host's, rows padded to 4 bytes
    /// and as many as the header's height says. Lays the view out at the zoom it had, repaints, and drops any
    /// selection. FALSE, with nothing changed, without a window or pixels, for sizes below 1, a biSizeImage that is no
    /// multiple of 4, or a bitmap whose pixel count, row length or byte count does not fit 31 bits. 16 (five bits a
    /// channel), 24 and 32 bits a pixel are drawn; others show the background. When memory is short it returns FALSE
    /// and the view is empty; so it is when an exception of a notification or a paint comes out of here.
    int SetBitmap(BITMAPINFO& info, BYTE* const pData);

    /// Tells that pixels or buffer changed. With an unchanged header the view only repaints: afresh for another buffer
    /// or when bContentChanged is nonzero, otherwise from its cached rendering. With another header it is SetBitmap.
    int UpdateBitmap(BITMAPINFO& info, BYTE* const pData, int bContentChanged);

    /// Copies the header into info and returns the host's pixels; NULL and a zeroed header when the view is empty.
    BYTE* GetBitmap(BITMAPINFO& info) const;

    /// Drops the bitmap and all that came from it; zoom, cover image, background and redraw lock stay.
    void ClearBitmap(int bRedraw);

    int iBmpWidth() const { return m_iBmpWidth; }
    int iBmpHeight() const { return m_iBmpHeight; }
    BITMAPINFO BmpInfo() { return m_BmpInfo; }
    BYTE* pBmpData() { return m_pBmpData; }

    /// The bitmap's rectangle in bitmap coordinates; without a handle when the view is empty.
    CRgn& rgnBitmap() { return m_rgnBitmap; }

    // ---- appearance

    /// Sets the colour around the image, repaints, and returns the colour before.
    DWORD SetBackgroundColor(DWORD cr);

    /// Suspends painting until UnlockRedraw, which repaints. Calls do not count: one unlock ends any number of locks.
    void LockRedraw() { m_bRedrawLocked = TRUE; }
    void UnlockRedraw();

    /// Allows or forbids the scroll bars.
    void ShowScrollBar(int bShow);

    HCURSOR GetDefCursor() const { return m_hDefCursor; }

    // ---- the tool

    /// Takes the loaded tool out, if there is one, and hands the view to another: its OnLoad decides. FALSE when it
    /// refuses, and inside a tool's OnLoad or OnUnload, where unloading does nothing either. The tool stays the host's
    /// and must be unloaded before it or the view goes.
    int LoadEmbeddedTool(IEmbeddedTool& tool);
    void UnloadEmbeddedTool();

    /// Calls the loaded tool's Reset.
    void ResetEmbeddedTool();
    IEmbeddedTool* pEmbeddedTool() const { return m_pEmbeddedTool; }

    /// Sends the parent a WM_NOTIFY of the view (view/Notifications.h) and returns its reply. With bPost nonzero it
    /// posts one instead and returns 0: the receiver then owns the NMHDR and frees it with delete.
    LRESULT NotifyParent(UINT code, int bPost);

    // ---- zoom and position

    /// Sets the zoom in display pixels per bitmap pixel, about the centre of the view area, and lays out and repaints.
    /// The smaller side of the zoomed image is kept at one display pixel at least; there is no upper limit. FALSE
    /// without a bitmap and for what is not a number.
    int SetZoom(double dbZoom);
    double dbZoom() const { return m_dbZoom; }
    double GetZoom() const { return m_dbZoom; }
    double dbLastZoom() const { return m_dbLastZoom; } ///< The zoom before the last SetZoom.

    /// Bitmap size times zoom.
    Gdiplus::SizeF ZoomedSize() const { return m_szZoomed; }

    /// Scrolls so that the zoomed coordinate (x, y) is at the client origin, limited to the image or centred where the
    /// image is smaller. FALSE without a bitmap, and, after a repaint, when the view is there already.
    int SetDispPosition(int x, int y);

    /// Scrolls by a distance in display pixels.
    void MoveImage(long dx, long dy);

    /// The zoomed coordinate at the client origin; negative where a small image is centred.
    Gdiplus::Point ptDispPos() const { return m_ptDispPos; }
    CRect rcDrawDest() const { return m_rcDrawDest; }        ///< Window rectangle the bitmap was last drawn into.
    Gdiplus::RectF rcDrawSrc() const { return m_rcDrawSrc; } ///< Bitmap rectangle last drawn.

    /// The view area: the client rectangle without the scroll bars shown.
    virtual void GetClientRect(LPRECT lpRect);

    /// The window point of a bitmap pixel's centre. Without a bitmap nothing happens, as in all conversions.
    void FromBitmapToWnd(POINT& pt);

    /// The bitmap pixel under a window point; may lie outside the bitmap.
    void FromWndToBitmap(POINT& pt);

    /// The exact bitmap position of a window point.
    void FromWndToBitmap(Gdiplus::PointF& pt);

    /// The last mouse point that no tool took, in window coordinates, or in bitmap pixels with bToBitmap nonzero.
    CPoint GetCursorPos(int bToBitmap);

    // ---- cover image and read-back

    /// Freezes the displayed picture: it is shown, unmoving, instead of the bitmap until ExitPreviewMode. FALSE without
    /// a bitmap, while a cover is shown, and while a tool keeps it.
    int EnterPreviewMode();
    void ExitPreviewMode();

    /// Shows the cover image in the bitmap's place: at rcCoverBmp in window coordinates, or, with bImageCoords nonzero,
    /// as an image of the bitmap's size that follows zoom and position. A cover without enough pixels shows the
    /// background.
    void ShowCoverImage(int bShow, int bImageCoords);

    std::vector<BYTE>& vCoverBmpData() { return m_vCoverBmpData; }
    BITMAPINFO& CoverBmpInfo() { return m_CoverBmpInfo; }
    CRect& rcCoverBmp() { return m_rcCoverBmp; }

    /// The displayed image area without margins and marks, as a bottom-up 32-bit bitmap, and its window rectangle.
    /// FALSE without a bitmap or when no pixel of it is displayed; vData may have changed its size then.
    int GetCurDisplayImage(RECT* pRect, std::vector<BYTE>& vData, BITMAPINFO& info);

    /// The colour on screen at a window point, or at the centre of a bitmap pixel, with everything drawn over the
    /// image; the background colour outside the view area, outside the bitmap, and without one.
    DWORD GetPixelRGBValue(const POINT& pt, int bWindowCoords);

    /// A tool whose workers write the cover's pixels lends the view the lock that guards them: the view holds it
    /// wherever it reads or replaces the cover outside a paint, for which the tool holds it itself from OnPrePaint to
    /// OnPostPaint. NULL ends that; the tool does so when it is unloaded.
    void LendCoverLock(CCriticalSection* pLock) { m_pcsCover = pLock; }

    /// While a tool keeps the cover, as a brush does during a stroke, EnterPreviewMode puts no other picture there.
    void KeepCover(bool bKeep) { m_bCoverKept = bKeep; }

    // ---- the selection (members implemented in selection/)

    /// Makes a mask of iWidth times iHeight bytes, top row first, 255 where the region is and 0 elsewhere, and feathers
    /// it by iFeather pixels when that is positive. What lies outside the mask is ignored; a region without a handle
    /// gives an empty mask. Returns 1; 0 for a size that is not positive or has more bytes than 31 bits tell, an empty
    /// region, and when memory is short.
    static int CreateSelectMask(const CRgn& rgn, std::vector<BYTE>& vMask, int iWidth, int iHeight, int iFeather);

    /// Makes the region of all mask bytes that are not 0. Returns 1; 0 for a mask of another size (rgn stays), and
    /// without such a byte (rgn is then without a handle).
    static int CreateRgnFromMask(CRgn& rgn, const std::vector<BYTE>& vMask, int iWidth, int iHeight);

    /// Shifts a mask; what comes in from outside is 0. Returns 1; 0 for a mask of another size.
    static int OffsetSelectMask(std::vector<BYTE>& vMask, int iWidth, int iHeight, int iOffsetX, int iOffsetY);

    /// Replaces the selection by a region and its mask of the bitmap's size, and repaints; a region without a handle
    /// clears it, whatever the mask. FALSE without a bitmap, and, with a log record, for a mask of another size (a view
    /// without masks takes any and keeps none).
    int UpdateSelection(const CRgn& rgn, const std::vector<BYTE>& vMask);

    /// Drops the selection; does not repaint.
    void ClearSelection();

    /// Makes the selection's edge soft and its region as large as the mask then is. Nothing without a selection or
    /// without masks.
    void FeatherSelection(int iRadius);

    /// Copies of the selection's region in bitmap coordinates (FALSE, and no handle, when nothing is selected), and of
    /// its mask (FALSE in a view without masks).
    int GetSelectRegion(CRgn& rgn) const;
    int GetSelectMask(std::vector<BYTE>& vMask) const;

    /// Shows or hides the selection's outline, and repaints when that changes it.
    void ShowSelection(int bShow);

    // A host or tool that changes the fields below itself calls these two afterwards, in this order, and invalidates.
    void UpdateScaledRegion();
    void UpdateSelectBorderMaskDC();

    /// A region of bitmap pixels in window coordinates; rgnDst stays when the source has no handle.
    void FromBitmapToWnd(const CRgn& rgnSrc, CRgn& rgnDst);

    CRgn& rgnSelect() { return m_rgnSelect; }             ///< Bitmap coordinates; without a handle nothing is selected.
    CRgn& rgnSelectScaled() { return m_rgnSelectScaled; } ///< Zoomed coordinates, while the outline is shown.
    int& iSelectMaskSize() { return m_iSelectMaskSize; }  ///< Bytes of each mask; 0 without masks.
    std::vector<BYTE>& vSelectMask() { return m_vSelectMask; } ///< A weight for each bitmap pixel, top row first.

    /// The shape that a selection tool is about to merge into the mask.
    std::vector<BYTE>& vSelectMask_Cur() { return m_vSelectMask_Cur; }

protected:
    /// Takes arrow keys for the view, also those on their way to a scroll bar, with the scroll flag as Ctrl says.
    int PreTranslateMessage(MSG* pMsg) override;
    virtual void OnPaint();
    virtual void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    virtual void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    BOOL OnEraseBkgnd(CDC* pDC);
    BOOL OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message);
    void OnTimer(UINT_PTR nIDEvent);
    void OnDestroy();
    void OnLButtonDown(UINT nFlags, CPoint point);
    void OnLButtonUp(UINT nFlags, CPoint point);
    void OnRButtonDown(UINT nFlags, CPoint point);
    void OnRButtonUp(UINT nFlags, CPoint point);
    void OnLButtonDblClk(UINT nFlags, CPoint point);
    void OnMouseMove(UINT nFlags, CPoint point);
    BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint pt);
    void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    void OnKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags);
    void OnSysKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    void OnSysKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags);
    void OnCaptureChanged(CWnd* pWnd);
    void OnSize(UINT nType, int cx, int cy);
    DECLARE_MESSAGE_MAP()

    /// Registers the window class and keeps its name.
    void RegisterWndClass();

    /// Decides the scroll bars, limits the display position, and sets the bars' scroll information.
    void UpdateUI();

    /// Lays the view out: bars, limits, centring; then repaints at once. Nothing while the main window is minimised.
    void UpdateDisplay();

    /// Draws the bitmap, from the cached rendering where it still holds, or the cover image, into dc for the view area.
    int DrawBitmap(CDC& dc, CRect& rcView);
    void ReleaseCachedBitmap();

    /// Draws the selection's outline with one of the patterns, 0 to 3.
    void DrawSelectBorder(CDC& dc, unsigned int uPhase);

private:
    struct DrawRects
    {
        CRect rcDest{0, 0, 0, 0};  ///< Whole pixels, for DrawDib.
        Gdiplus::RectF rcDestReal; ///< What they were rounded from, for GDI+.
        Gdiplus::RectF rcSrc;      ///< Bitmap coordinates.
    };

    void LoadPatterns();
    void ResetBitmapFields();
    bool IsAcceptable(const BITMAPINFO& info, const BYTE* pData) const;
    void ForgetSelectMasks();

    void HideScrollBars();
    void DecideScrollBars();
    bool DecideBar(CScrollBar& sb, BOOL& bShown, int iView, float fZoomed);
    void PlaceScrollBars();
    void ZoomAboutCentre(int cx, int cy);
    void LimitDispPos(int cx, int cy);
    void UpdateScrollInfo(CScrollBar& sb, float fZoomed, int iView, int iPos);
    bool ScrollTarget(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar, int& iTarget);

    /// Ends the notifications that were posted and not received: without the view's window nobody can tell whose they
    /// are.
    void DropPostedNotifications();

    bool SwallowsButtonUp();
    void ScrollByKey(UINT nChar);

    /// A key that the tool hears of whatever it answers.
    using KeyOperation = int (IEmbeddedTool::*)(UINT nChar, UINT nRepCnt, UINT nFlags);
    void ShowKeyToTool(KeyOperation pOperation, UINT nChar, UINT nRepCnt, UINT nFlags);

    DrawRects ComputeDrawRects(const CRect& rcView) const;
    void FillCorner(CDC& dc, const CRect& rcView);
    void PaintBackBuffer(CDC& dc, const CRect& rcWindow, CRect& rcView);
    BOOL DrawLiveBitmap(CDC& dc, const CRect& rcView, const DrawRects& rects);
    BOOL DrawCover(CDC& dc, const DrawRects& rects);
    void RebuildCache(CDC& dc, const CRect& rcView);
    void KeepSnapshot(CUXMemDC& dc);

    bool CreateSelectBorderMask(const CRect& rcClient);
    void DeleteSelectBorderMask();
    CRect MakeVisibleSelection(const CRect& rcClient, CRgn& rgnVisible);
    void EraseRunOnBorders(CRgn& rgnOutline, const CRect& rcClient, const CRect& rcBox);
    void DrawSelectBorderByMask(CDC& dc, unsigned int uPhase);
    bool StepSelectBorder();
    bool IsSelectionBeingDragged() const;

protected:
    // The order of the fields is part of the class's interface.
    CString m_strWndClass;
    HDRAWDIB m_hDrawDib = nullptr;
    int m_iBmpWidth = 0;
    int m_iBmpHeight = 0;
    BYTE* m_pBmpData = nullptr; ///< The host's pixels; NULL means that no bitmap is attached.
    BITMAPINFO m_BmpInfo = {};
    Gdiplus::Bitmap* m_pGdipBitmap = nullptr;
    CUXMemDC* m_pCachedDC = nullptr;
    BOOL m_bCacheDirty = TRUE;
    std::vector<BYTE> m_vCoverBmpData;
    BITMAPINFO m_CoverBmpInfo = {};
    CRect m_rcCoverBmp{0, 0, 0, 0};
    BOOL m_bShowCover = FALSE;
    BOOL m_bCoverImageCoords = FALSE;
    BOOL m_bRedrawLocked = FALSE;
    double m_dbZoom = 1.0;
    double m_dbLastZoom = 1.0;
    BOOL m_bZooming = FALSE;
    Gdiplus::SizeF m_szZoomed;
    Gdiplus::Point m_ptDispPos;
    CRect m_rcDrawDest{0, 0, 0, 0};
    Gdiplus::RectF m_rcDrawSrc;
    CRgn m_rgnBitmap;
    CPoint m_ptMouse{0, 0};
    BOOL m_bShowScrollBar = TRUE;
    BOOL m_bShowSelection = TRUE;
    CRgn m_rgnSelect;
    CRgn m_rgnSelectScaled;
    int m_bNoSelectMask;
    int m_iSelectMaskSize = 0;
    std::vector<BYTE> m_vSelectMask;
    std::vector<BYTE> m_vSelectMask_Cur;
    UINT m_uBorderPhase = 0;
    CBitmap m_bmpPattern[4];
    CBrush m_brPattern[4];
    CDC m_dcSelectBorderMask;
    HBITMAP m_hSelectBorderBmp = nullptr;
    COLORREF m_crBackground = 0;
    CScrollBar m_sbHorz;
    CScrollBar m_sbVert;
    BOOL m_bHScrollShown = FALSE;
    BOOL m_bVScrollShown = FALSE;
    IEmbeddedTool* m_pEmbeddedTool = nullptr;
    HCURSOR m_hDefCursor = nullptr;
    BOOL m_bDblClk = FALSE;

private:
    CCriticalSection* m_pcsCover = nullptr; ///< The loaded tool's.
    bool m_bCoverKept = false;
    bool m_bChangingTool = false; ///< A tool's OnLoad or OnUnload is running.
    CRgn m_rgnOutline;            ///< The border mask's outline, unless it is too ragged to be filled run by run.
    UINT m_uToolLoads = 0;        ///< Tells a tool that was loaded anew from the one before, the same object or not.
};

} // namespace Pixtane
