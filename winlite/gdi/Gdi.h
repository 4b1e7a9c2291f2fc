#pragma once

#include "gdi/Constants.h"

// The GDI functions that winlite offers, with Windows' names and behaviour. All of them belong to the user-interface
// thread; every failure is the function's own failure result, never an exception.

// ---- structures

struct RGBQUAD
{
    BYTE rgbBlue;
    BYTE rgbGreen;
    BYTE rgbRed;
    BYTE rgbReserved;
};

struct BITMAPINFOHEADER
{
    DWORD biSize;
    LONG biWidth;
    LONG biHeight;
    WORD biPlanes;
    WORD biBitCount;
    DWORD biCompression;
    DWORD biSizeImage;
    LONG biXPelsPerMeter;
    LONG biYPelsPerMeter;
    DWORD biClrUsed;
    DWORD biClrImportant;
};

struct BITMAPINFO
{
    BITMAPINFOHEADER bmiHeader;
    RGBQUAD bmiColors[1];
};
static_assert(sizeof(BITMAPINFO) == 44);

struct BITMAP
{
    LONG bmType;
    LONG bmWidth;
    LONG bmHeight;
    LONG bmWidthBytes;
    WORD bmPlanes;
    WORD bmBitsPixel;
    LPVOID bmBits;
};

struct RGNDATAHEADER
{
    DWORD dwSize;
    DWORD iType;
    DWORD nCount;
    DWORD nRgnSize;
    RECT rcBound;
};
static_assert(sizeof(RGNDATAHEADER) == 32);

struct RGNDATA
{
    RGNDATAHEADER rdh;
    char Buffer[1];
};

struct XFORM
{
    float eM11, eM12, eM21, eM22, eDx, eDy;
};

// ---- objects

/// A stock object (WHITE_BRUSH, BLACK_BRUSH, NULL_BRUSH, WHITE_PEN, BLACK_PEN, NULL_PEN); NULL for other numbers.
HGDIOBJ GetStockObject(int iObject);

/// A pen of one of the PS_ styles. A width of 0 or less counts as 1; wider pens draw solid. NULL for other styles and
/// for widths above 0x7FFF.
HPEN CreatePen(int iStyle, int iWidth, COLORREF cr);

/// A brush of one colour.
HBRUSH CreateSolidBrush(COLORREF cr);

/// A brush that repeats a copy of the bitmap from the brush origin; NULL without a bitmap.
HBRUSH CreatePatternBrush(HBITMAP hBitmap);

/// Deletes an object; FALSE for a bad handle and for a bitmap selected into a device context. A brush or pen that is
/// still selected is freed when it is selected out. TRUE, doing nothing, for stock objects.
BOOL DeleteObject(HGDIOBJ hObject);

/// Describes a bitmap as BITMAP; the bytes written, 0 on failure, the size needed when pBuffer is NULL. Other kinds of
/// object give 0.
int GetObject(HGDIOBJ hObject, int nBytes, LPVOID pBuffer);

/// Puts a bitmap (memory device contexts only, one at a time), brush or pen into the device context and returns the one
/// it replaces; NULL on failure. A region becomes the clip region, a copy of it, and its complexity is returned.
HGDIOBJ SelectObject(HDC hDC, HGDIOBJ hObject);

// ---- device contexts

/// A memory device context like the screen's, with a 1 x 1 monochrome bitmap selected. NULL for a bad handle other than
/// NULL.
HDC CreateCompatibleDC(HDC hDC);

/// Deletes a memory device context; FALSE for any other handle.
BOOL DeleteDC(HDC hDC);

COLORREF SetBkColor(HDC hDC, COLORREF cr);
COLORREF GetBkColor(HDC hDC);

/// Whether the gaps of dashed pens stay as they are (TRANSPARENT) or take the background colour (OPAQUE); the mode
/// before, 0 on failure.
int SetBkMode(HDC hDC, int iMode);
int GetBkMode(HDC hDC);

/// How pens, and the brushes of Rectangle and Ellipse, combine with what they are drawn on, bitwise on all 32 bits; the
/// mode before, 0 on failure.
int SetROP2(HDC hDC, int iRop2);
int GetROP2(HDC hDC);

/// Where pattern brushes begin, in logical coordinates; the origin before goes to pptOld unless NULL.
BOOL SetBrushOrgEx(HDC hDC, int x, int y, LPPOINT pptOld);

/// Limits drawing to a region (a copy of it is kept); a NULL region removes the limit. The complexity, or ERROR.
int SelectClipRgn(HDC hDC, HRGN hRgn);

// ---- bitmaps

/// A zeroed bitmap of the display's 32 bits. Like on Windows it is monochrome when the device context is a fresh memory
/// one, and the 1 x 1 monochrome stock bitmap when a side is 0. NULL for negative sizes, for 2 GiB and more, or when
/// memory is short.
/// Different from Windows: a monochrome bitmap keeps whole pixels when drawn on, and its bits cannot be read.
HBITMAP CreateCompatibleBitmap(HDC hDC, int cx, int cy);

/// A 32-bit bitmap with the pixels of a DIB of 16, 24 or 32 bits without colour table; NULL when the header is no such
/// DIB or nBytes is less than the header and its rows. For resources: bits follow the header directly.
HBITMAP CreateBitmapFromPackedDIB(const void* pDib, std::size_t nBytes);

/// Copies the bitmap's rows, top row first, bmWidthBytes each: at most nBytes (a negative number means all). The bytes
/// copied, or the size of all rows when pBits is NULL; 0 on failure.
LONG GetBitmapBits(HBITMAP hBitmap, LONG nBytes, LPVOID pBits);

// ---- drawing

/// Fills the half-open rectangle with the brush; an empty or inverted one nothing. Nonzero on success.
int FillRect(HDC hDC, const RECT* prc, HBRUSH hBrush);

/// The pixel as COLORREF; CLR_INVALID outside the clip region or the surface.
COLORREF GetPixel(HDC hDC, int x, int y);

/// Moves the current position, where the next LineTo begins, with its dashes at their start. The position before goes
/// to pptOld unless NULL.
BOOL MoveToEx(HDC hDC, int x, int y, LPPOINT pptOld);

/// Draws from the current position to just before the point, which becomes the current position. The pixels lie
/// nearest to the exact line, ties going to the smaller coordinate, and clipping changes neither them nor the dashes,
/// which run on from LineTo to LineTo. Different from Windows: pens wider than 1 have square ends and joints.
BOOL LineTo(HDC hDC, int x, int y);

/// Draws lines from each point to just before the next, with the dashes running on; the current position takes no part.
/// FALSE for fewer than two points.
BOOL Polyline(HDC hDC, const POINT* pPoints, int nPoints);

/// Outlines the box (put in order first) from its upper-right pixel to the left and on around, each pixel once, and
/// fills what is within; with a null pen, all but the box's last row and column. A 1 x 1 box draws nothing. FALSE when
/// a side does not fit 31 bits.
BOOL Rectangle(HDC hDC, int iLeft, int iTop, int iRight, int iBottom);

/// Outlines the ellipse that touches the sides of the box (put in order first), counter-clockwise from the right, each
/// pixel once, and fills what is within; with a null pen, the pixels of CreateEllipticRgn. Different from Windows: the
/// pixels are those of the midpoint ellipse, and a pen wider than 1 is drawn over the filling. FALSE when a side does
/// not fit 31 bits.
BOOL Ellipse(HDC hDC, int iLeft, int iTop, int iRight, int iBottom);

/// Copies pixels, all 32 bits, as if the source were copied first; what lies outside the source surface leaves the
/// destination as it is. Negative sizes mirror as in StretchBlt. Only SRCCOPY: FALSE for other operations.
BOOL BitBlt(HDC hDest, int x, int y, int cx, int cy, HDC hSrc, int xSrc, int ySrc, DWORD dwRop);

/// Copies, mirroring where one of the two sizes is negative (the start coordinate is then included and pixels run
/// towards smaller ones), and scaling where their absolute values differ: enlarging repeats pixels, shrinking drops
/// them. Only SRCCOPY: FALSE for other operations. Different from Windows: there is no stretch mode, where Windows
/// merges pixels by default; both sizes negative on an axis copies unmirrored.
BOOL StretchBlt(HDC hDest, int x, int y, int cx, int cy, HDC hSrc, int xSrc, int ySrc, int cxSrc, int cySrc,
                DWORD dwRop);

/// Copies the pixels, all 32 bits, whose colour is not crTransparent, as if the source were copied first; different
/// sizes repeat or drop pixels. FALSE, copying nothing, for negative sizes and for a source rectangle that is not
/// within its surface.
BOOL TransparentBlt(HDC hDest, int x, int y, int cx, int cy, HDC hSrc, int xSrc, int ySrc, int cxSrc, int cySrc,
                    UINT crTransparent);

// ---- regions: see also Region.h

/// A rectangle region; edges in the wrong order are swapped, equal edges make an empty region.
HRGN CreateRectRgn(int iLeft, int iTop, int iRight, int iBottom);
inline HRGN CreateRectRgnIndirect(const RECT* prc)
{
    return CreateRectRgn(prc->left, prc->top, prc->right, prc->bottom);
}
BOOL SetRectRgn(HRGN hRgn, int iLeft, int iTop, int iRight, int iBottom);

/// The pixels within a polygon, which is closed: those on a left or upper edge are in, on a right or lower one out.
/// NULL for fewer than two points, for other modes than ALTERNATE and WINDING, and for coordinates beyond +-2^27.
HRGN CreatePolygonRgn(const POINT* pPoints, int nPoints, int iMode);

/// The pixels whose centres lie in the ellipse that touches the sides of the box (put in order first), less its last
/// row and column. NULL when a side does not fit 31 bits or memory is short. Different from Windows: the exact ellipse.
HRGN CreateEllipticRgn(int iLeft, int iTop, int iRight, int iBottom);
inline HRGN CreateEllipticRgnIndirect(const RECT* prc)
{
    return CreateEllipticRgn(prc->left, prc->top, prc->right, prc->bottom);
}

/// Combines into an existing destination, which may be a source too; RGN_COPY looks at source 1 only. The complexity of
/// the result, or ERROR with the destination unchanged.
int CombineRgn(HRGN hDest, HRGN hSrc1, HRGN hSrc2, int iMode);

/// Moves the region; ERROR, and no move, when it would leave +-2^27.
int OffsetRgn(HRGN hRgn, int dx, int dy);

/// The bounding box, all 0 for an empty region; the complexity, or ERROR.
int GetRgnBox(HRGN hRgn, LPRECT prc);
BOOL PtInRegion(HRGN hRgn, int x, int y);

/// Whether any pixel of the rectangle (put in order first) is in the region.
BOOL RectInRegion(HRGN hRgn, const RECT* prc);
BOOL EqualRgn(HRGN hRgn1, HRGN hRgn2);

/// Fills pData with a header and the rectangles in y-x bands and returns the bytes needed; with a NULL buffer only
/// that; 0 when nBytes is too small or the handle is bad.
DWORD GetRegionData(HRGN hRgn, DWORD nBytes, RGNDATA* pData);

/// The union of the rectangles of pData, in any order; NULL when dwSize is not 32 or nBytes is less than the header
/// and the rectangles. Different from Windows: a transform is not supported, pxForm must be NULL.
HRGN ExtCreateRegion(const XFORM* pxForm, DWORD nBytes, const RGNDATA* pData);

/// Fills the region's pixels with the brush.
BOOL FillRgn(HDC hDC, HRGN hRgn, HBRUSH hBrush);
