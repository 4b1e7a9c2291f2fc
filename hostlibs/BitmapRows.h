#pragma once

#include "platform/framework.h"

#include <climits>
#include <cstdint>

/// How a bitmap of 24 or 32 bits a pixel lies in memory: rows padded to 4 bytes, the lowest one first.
struct BitmapRows
{
    explicit BitmapRows(const BITMAPINFO& info)
        : nWidth(info.bmiHeader.biWidth), nHeight(info.bmiHeader.biHeight), nPixelBytes(info.bmiHeader.biBitCount / 8),
          nStride((nWidth * nPixelBytes + 3) / 4 * 4),
          bValid((info.bmiHeader.biBitCount == 24 || info.bmiHeader.biBitCount == 32) && nWidth > 0 && nHeight > 0 &&
                 nWidth * nHeight <= INT_MAX)
    {
    }

    /// Of a pixel, whose row counts from the top.
    int64_t OffsetOf(int64_t x, int64_t y) const { return (nHeight - 1 - y) * nStride + x * nPixelBytes; }

    int64_t nWidth, nHeight, nPixelBytes, nStride;
    /// Whether the bit count is one of the two, and the size one that a bitmap can have.
    bool bValid;
};
