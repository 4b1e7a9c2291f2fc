#pragma once

#include "gdi/Gdi.h"

/// Opens a DrawDib context; never NULL. Nothing is kept in it here: it only pairs with DrawDibClose.
HDRAWDIB DrawDibOpen();

/// TRUE for a context that was open, which it closes.
BOOL DrawDibClose(HDRAWDIB hDrawDib);

/// Draws a part of a bottom-up DIB of 16 (five bits a channel), 24 or 32 bits without colour table, scaled to the
/// nearest pixel: destination pixel i takes source pixel floor((2i + 1) dxSrc / (2 dxDst)). The source rectangle counts
/// from the picture's upper left corner, and parts of it outside the picture are not drawn. Sizes of -1 mean the
/// picture's. 32-bit sources keep their unused byte. FALSE for a bad handle, a header of another format, a top-down
/// one, or one whose row length or byte count does not fit 31 bits; rows are taken to be there as the header's width
/// and height say, whatever biSizeImage says. TRUE, drawing nothing, for a destination without size. wFlags must be 0.
BOOL DrawDibDraw(HDRAWDIB hDrawDib, HDC hDC, int xDst, int yDst, int dxDst, int dyDst, const BITMAPINFOHEADER* pHeader,
                 const void* pBits, int xSrc, int ySrc, int dxSrc, int dySrc, UINT wFlags);
