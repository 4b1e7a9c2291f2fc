#pragma once

#include "view/Pixtane.h"

#include <functional>
#include <vector>

/// A bitmap of a host, with pixels that differ, and a shown host window with a view in it. Main thread.
class CBenchBitmap
{
public:
    /// Megapixels at 3:2, or an exact size.
    explicit CBenchBitmap(int nMegapixels, int iBitsPixel = 32);
    CBenchBitmap(int cx, int cy, int iBitsPixel);

    int Width() const { return info.bmiHeader.biWidth; }
    int Height() const { return info.bmiHeader.biHeight; }
    BITMAPINFO info = {};
    std::vector<BYTE> vBits;
};

class CBenchView
{
public:
    CBenchView(int cx, int cy, CBenchBitmap& bitmap, double dbZoom);
    ~CBenchView();
    CBenchView(const CBenchView&) = delete;
    CBenchView& operator=(const CBenchView&) = delete;

    /// From the paint message to the finished window surface.
    void Paint();

    /// The same with the bitmap drawn anew.
    void PaintFresh();

    CWnd host;
    Pixtane::CPixtane view;

private:
    CBenchBitmap& m_bitmap;
};

/// Copies as many bytes as a surface of 3840 x 2160 has.
std::function<void()> CopyOf4K();
