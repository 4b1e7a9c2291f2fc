#pragma once

#include "Canvas.h"

/// A bottom-up DIB with its rows, of random bytes, in memory of exactly its size.
struct TestDib
{
    static BITMAPINFOHEADER Header(int cx, int cy, int iBits)
    {
        return {40, cx, cy, 1, static_cast<WORD>(iBits), BI_RGB, 0, 0, 0, 0, 0};
    }

    TestDib(Dice& dice, int cx, int cy, int iBits) : header(Header(cx, cy, iBits)), nStride((cx * iBits + 31) / 32 * 4)
    {
        vBits.resize(static_cast<std::size_t>(nStride * cy));
        for (BYTE& u : vBits)
            u = static_cast<BYTE>(dice.Roll(0, 255));
    }

    /// The pixel as a surface holds it, rows counted from the top.
    std::uint32_t Pixel(int x, int y) const
    {
        const int iBits = header.biBitCount;
        const BYTE* p = vBits.data() + (header.biHeight - 1 - y) * nStride + x * iBits / 8;
        if (iBits != 16)
            return p[0] | p[1] << 8 | p[2] << 16 | (iBits == 32 ? std::uint32_t{p[3]} << 24 : 0);
        const int u = p[0] | p[1] << 8;
        const auto Eight = [](int iFive) { return static_cast<std::uint32_t>(iFive << 3 | iFive >> 2); };
        return Eight(u >> 10 & 31) << 16 | Eight(u >> 5 & 31) << 8 | Eight(u & 31);
    }

    BITMAPINFOHEADER header;
    int nStride;
    std::vector<BYTE> vBits;
};
