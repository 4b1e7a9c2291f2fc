#pragma once

#include "platform/framework.h"

#include <cstddef>

inline BITMAPINFO InfoOf(int iWidth, int iHeight, int iBitsPixel)
{
    BITMAPINFO info = {};
    info.bmiHeader.biWidth = iWidth;
    info.bmiHeader.biHeight = iHeight;
    info.bmiHeader.biBitCount = static_cast<WORD>(iBitsPixel);
    return info;
}

inline size_t StrideOf(int iWidth, int iBitsPixel)
{
    return (static_cast<size_t>(iWidth) * iBitsPixel / 8 + 3) / 4 * 4;
}

/// Of a pixel's bytes, its row counted from the top.
inline size_t OffsetOf(const BITMAPINFO& info, int x, int y)
{
    return StrideOf(info.bmiHeader.biWidth, info.bmiHeader.biBitCount) * (info.bmiHeader.biHeight - 1 - y) +
           static_cast<size_t>(x) * info.bmiHeader.biBitCount / 8;
}
