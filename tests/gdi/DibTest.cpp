#include "Canvas.h"

#include "gdi/Dib.h"
#include "gdi/DrawDib.h"

#include <cstring>
#include <limits>

namespace
{

BITMAPINFOHEADER Header(int cx, int cy, int iBits)
{
    return {40, cx, cy, 1, static_cast<WORD>(iBits), BI_RGB, 0, 0, 0, 0, 0};
}

/// A bottom-up DIB with its rows in memory of exactly its size.
struct TestDib
{
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

class DibTest : public HandleTest
{
protected:
    ~DibTest() override { EXPECT_TRUE(DrawDibClose(m_hDrawDib) && !DrawDibClose(m_hDrawDib)); }

    HDRAWDIB m_hDrawDib = DrawDibOpen();
};

} // namespace

TEST_F(DibTest, OtherFormatsAndSizesAreRefused)
{
    const auto With = [](auto change)
    {
        BITMAPINFOHEADER header = Header(4, 4, 32);
        change(header);
        return header;
    };
    const struct
    {
        BITMAPINFOHEADER header;
        bool bTaken;
    } vCases[] = {
        {Header(4, 4, 24), true},
        {With([](auto& header) { header.biSizeImage = 1; }), true},
        {With([](auto& header) { header.biSize = 12; }), false},
        {With([](auto& header) { header.biCompression = 3; }), false},
        {With([](auto& header) { header.biClrUsed = 2; }), true}, // a hint, not a table of this format
        {Header(4, 4, 8), false},
        {Header(0, 4, 32), false},
        {Header(4, -4, 32), false},
        {Header(0x20000000, 1, 32), false},
        {Header(1, 0x7FFFFFFF, 16), false},
        {Header(0x8000, 0x4000, 32), false},
    };
    const std::vector<std::uint32_t> vBits(16);
    for (const auto& test : vCases)
    {
        Canvas canvas(4, 4);
        EXPECT_EQ(winlite::Dib::From(test.header, vBits.data()).has_value(), test.bTaken) << test.header.biWidth;
        EXPECT_EQ(DrawDibDraw(m_hDrawDib, canvas.hDC, 0, 0, 4, 4, &test.header, vBits.data(), 0, 0, 4, 4, 0),
                  test.bTaken);
        EXPECT_EQ(canvas.vDamage.empty(), !test.bTaken);
    }
    Canvas canvas(4, 4);
    const BITMAPINFOHEADER header = Header(4, 4, 32);
    EXPECT_FALSE(DrawDibDraw(nullptr, canvas.hDC, 0, 0, 4, 4, &header, vBits.data(), 0, 0, 4, 4, 0));
    EXPECT_FALSE(DrawDibDraw(m_hDrawDib, canvas.hDC, 0, 0, 4, 4, &header, nullptr, 0, 0, 4, 4, 0));
}

TEST_F(DibTest, RandomDrawsAgreeWithThePlainRule)
{
    constexpr int SIZE_OF_CANVAS = 20;
    Dice dice;
    for (int iRound = 0; iRound < 3000; ++iRound)
    {
        const TestDib dib(dice, dice.Roll(1, 15), dice.Roll(1, 15), 16 + 8 * (iRound % 3));
        Canvas canvas(SIZE_OF_CANVAS, SIZE_OF_CANVAS, {dice.Roll(-3, 3), dice.Roll(-3, 3)});
        canvas.pDC->SetClip(dice.Region(SIZE_OF_CANVAS));
        // Of a size of -1 all of the picture is drawn, as large as it is.
        const bool bWhole = iRound % 11 == 0;
        const RECT rcSource = bWhole ? RECT{0, 0, dib.header.biWidth, dib.header.biHeight} : dice.Rect(-4, 10, 18);
        const RECT rcDest = dice.Rect(-6, 15, 24);
        const int dxSrc = rcSource.right - rcSource.left;
        const int dySrc = rcSource.bottom - rcSource.top;
        const int dxDst = bWhole || iRound % 4 == 0 ? dxSrc : rcDest.right - rcDest.left;
        const int dyDst = bWhole || iRound % 4 == 0 ? dySrc : rcDest.bottom - rcDest.top;

        Picture expected(SIZE_OF_CANVAS * SIZE_OF_CANVAS);
        const winlite::Region rgnPicture(RECT{0, 0, dxSrc && dySrc ? dib.header.biWidth : 0, dib.header.biHeight});
        for (int y = 0; y < dyDst; ++y)
            for (int x = 0; x < dxDst; ++x)
            {
                const POINT ptSource = {rcSource.left + (2 * x + 1) * dxSrc / (2 * dxDst),
                                        rcSource.top + (2 * y + 1) * dySrc / (2 * dyDst)};
                const POINT ptDest = canvas.pDC->ToSurface(POINT{rcDest.left + x, rcDest.top + y});
                if (rgnPicture.Contains(ptSource) && canvas.pDC->Clip().Contains(ptDest))
                    expected[static_cast<std::size_t>(ptDest.y * SIZE_OF_CANVAS + ptDest.x)] =
                        dib.Pixel(ptSource.x, ptSource.y);
            }
        EXPECT_TRUE(DrawDibDraw(m_hDrawDib, canvas.hDC, rcDest.left, rcDest.top, bWhole ? -1 : dxDst,
                                bWhole ? -1 : dyDst, &dib.header, dib.vBits.data(), rcSource.left, rcSource.top,
                                bWhole ? -1 : dxSrc, bWhole ? -1 : dySrc, 0));
        ASSERT_EQ(canvas.Pixels(), expected) << iRound;
    }
}

TEST_F(DibTest, PackedDibsBecomeBitmaps)
{
    Dice dice;
    const TestDib dib(dice, 3, 2, 24);
    std::vector<BYTE> vPacked(1 + sizeof dib.header + dib.vBits.size()); // Begins at an odd address.
    std::memcpy(vPacked.data() + 1, &dib.header, sizeof dib.header);
    std::copy(dib.vBits.begin(), dib.vBits.end(), vPacked.begin() + 1 + sizeof dib.header);
    const HBITMAP hBitmap = CreateBitmapFromPackedDIB(vPacked.data() + 1, vPacked.size() - 1);
    Picture picture(6);
    EXPECT_EQ(GetBitmapBits(hBitmap, 24, picture.data()), 24);
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(picture[static_cast<std::size_t>(i)], dib.Pixel(i % 3, i / 3)) << i;
    EXPECT_TRUE(DeleteObject(hBitmap));
    EXPECT_EQ(CreateBitmapFromPackedDIB(vPacked.data() + 1, vPacked.size() - 2), nullptr);
    EXPECT_EQ(CreateBitmapFromPackedDIB(vPacked.data() + 1, 39), nullptr);
}

TEST_F(DibTest, HugeRectanglesDoNotOverflow)
{
    constexpr int MOST = std::numeric_limits<int>::max();
    constexpr int LEAST = std::numeric_limits<int>::min();
    Dice dice;
    const TestDib dib(dice, 3, 3, 24);
    Canvas canvas(4, 4, {5, -5});
    const int vValues[] = {LEAST, -2, 0, 1, MOST};
    for (const int iDest : vValues)
        for (const int nDest : vValues)
            for (const int iSource : vValues)
                for (const int nSource : vValues)
                    EXPECT_TRUE(DrawDibDraw(m_hDrawDib, canvas.hDC, iDest, iDest, nDest, nDest, &dib.header,
                                            dib.vBits.data(), iSource, iSource, nSource, nSource, 0));
}
