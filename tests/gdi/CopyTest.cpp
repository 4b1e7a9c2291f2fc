#include "GdiPlusStarted.h"
#include "TestDib.h"

#include "gdi/DrawDib.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <optional>

using winlite::Region;

namespace
{

constexpr int SIZE_OF_DEST = 12;
constexpr std::uint32_t KEY = 0xFF00FF; // Magenta, the same as pixel and as COLORREF.

/// A pixel in the unit that rectangles are given in: eighths of a pixel, scaled by a quarter, are whole numbers of it.
constexpr int ONE = 32;

/// One axis of a copy: a start and a size on each side. A negative size includes the start and runs downwards.
struct Axis
{
    int iDest, nDest, iSource, nSource;

    Axis Pixels() const { return {iDest / ONE, nDest / ONE, iSource / ONE, nSource / ONE}; }
};

/// The ways to copy pixels, from a surface or a DIB.
enum class Way
{
    BitBlt, ///< These two leave out what lies beyond the source, and mirror.
    StretchBlt,
    TransparentBlt, ///< Only within the source.
    DrawDib,        ///< Leaves out what lies beyond.
    DrawImage,      ///< Repeats the source's edge, and takes parts of pixels.
};

int FloorOf(int iDividend, int iDivisor)
{
    return iDividend >= 0 ? iDividend / iDivisor : -((iDivisor - 1 - iDividend) / iDivisor);
}

/// The source pixel for each pixel of the destination: the one at the same share of the way as the middle of the
/// destination's pixel. A mirrored source is first cut to what there is.
std::vector<std::optional<int>> NearestPixels(const Axis& axis, int nSourcePixels, bool bRepeatEdge)
{
    const int nDest = std::abs(axis.nDest);
    const int nSource = std::abs(axis.nSource);
    const int iDestLow = axis.nDest < 0 ? axis.iDest - nDest + ONE : axis.iDest;
    const int iSourceLow = axis.nSource < 0 ? axis.iSource - nSource + ONE : axis.iSource;
    std::vector<int> vDests, vSources;
    for (int i = -3 * SIZE_OF_DEST; nSource > 0 && i < 3 * SIZE_OF_DEST; ++i)
    {
        const int iMiddle = i * ONE + ONE / 2 - iDestLow;
        const int iSource = nDest ? FloorOf(iSourceLow * nDest + iMiddle * nSource, ONE * nDest) : 0;
        if (iMiddle < 0 || iMiddle >= nDest || (!bRepeatEdge && (iSource < 0 || iSource >= nSourcePixels)))
            continue;
        vDests.push_back(axis.nDest < 0 && axis.nSource > 0 ? (2 * iDestLow + nDest) / ONE - 1 - i : i);
        vSources.push_back(std::clamp(iSource, 0, nSourcePixels - 1));
    }
    if (axis.nSource < 0 && axis.nDest > 0)
        std::ranges::reverse(vSources);
    std::vector<std::optional<int>> vResult(SIZE_OF_DEST);
    for (std::size_t i = 0; i < vDests.size(); ++i)
    {
        if (vDests[i] >= 0 && vDests[i] < SIZE_OF_DEST)
            vResult[static_cast<std::size_t>(vDests[i])] = vSources[i];
    }
    return vResult;
}

Axis RollAxis(Dice& dice, Way way, int nSourcePixels)
{
    const bool bScaled = way != Way::BitBlt && dice.Roll(0, 1) == 0;
    if (way == Way::DrawImage)
    {
        const auto Eighths = [&](int iLeast, int iMost) { return dice.Roll(iLeast, iMost) * ONE / 8; };
        const Axis axis = {Eighths(-24, 64), Eighths(0, 96), Eighths(-16, 80), 0};
        return {axis.iDest, axis.nDest, axis.iSource, bScaled ? axis.nDest * (1 << dice.Roll(0, 4)) / 4 : axis.nDest};
    }
    Axis axis = {dice.Roll(-4, 14), dice.Roll(0, 16), dice.Roll(-4, nSourcePixels + 4), 0};
    axis.nSource = bScaled ? dice.Roll(0, nSourcePixels + 4) : axis.nDest;
    if (way == Way::TransparentBlt)
    {
        axis.iSource = dice.Roll(0, nSourcePixels - 1);
        axis.nSource = dice.Roll(1, nSourcePixels - axis.iSource);
        axis.nDest = bScaled ? axis.nDest : axis.nSource;
    }
    const bool bMirrors = way == Way::BitBlt || way == Way::StretchBlt;
    if (bMirrors && dice.Roll(0, 2) == 0)
        axis.nDest = -axis.nDest;
    if (way == Way::BitBlt)
        axis.nSource = std::abs(axis.nDest);
    else if (bMirrors && dice.Roll(0, 2) == 0)
        axis.nSource = -axis.nSource;
    return {axis.iDest * ONE, axis.nDest * ONE, axis.iSource * ONE, axis.nSource * ONE};
}

class CopyTest : public GdiPlusStarted
{
protected:
    ~CopyTest() override { EXPECT_TRUE(DrawDibClose(m_hDrawDib)); }

    /// Copies, and tells whether that succeeded.
    bool Copy(Way way, HDC hDest, HDC hSource, TestDib& dib, const Axis& xUnits, const Axis& yUnits)
    {
        const auto Whole = [](int nSize, int nWhole) { return nSize == nWhole ? -1 : nSize; }; // means the same
        const Axis x = xUnits.Pixels(), y = yUnits.Pixels();
        const int cxDib = dib.header.biWidth, cyDib = dib.header.biHeight;
        switch (way)
        {
        case Way::BitBlt:
            return BitBlt(hDest, x.iDest, y.iDest, x.nDest, y.nDest, hSource, x.iSource, y.iSource, SRCCOPY);
        case Way::StretchBlt:
            return StretchBlt(hDest, x.iDest, y.iDest, x.nDest, y.nDest, hSource, x.iSource, y.iSource, x.nSource,
                              y.nSource, SRCCOPY);
        case Way::TransparentBlt:
            return TransparentBlt(hDest, x.iDest, y.iDest, x.nDest, y.nDest, hSource, x.iSource, y.iSource, x.nSource,
                                  y.nSource, KEY);
        case Way::DrawDib:
            return DrawDibDraw(m_hDrawDib, hDest, x.iDest, y.iDest, Whole(x.nDest, cxDib), Whole(y.nDest, cyDib),
                               &dib.header, dib.vBits.data(), x.iSource, y.iSource, Whole(x.nSource, cxDib),
                               Whole(y.nSource, cyDib), 0);
        case Way::DrawImage:
            break;
        }
        const BITMAPINFO info = {dib.header, {}};
        Gdiplus::Bitmap bitmap(&info, dib.vBits.data());
        const auto Part = [](int iUnits) { return static_cast<Gdiplus::REAL>(iUnits) / ONE; };
        return DrawNearest(hDest, &bitmap,
                           {Part(xUnits.iDest), Part(yUnits.iDest), Part(xUnits.nDest), Part(yUnits.nDest)},
                           {Part(xUnits.iSource), Part(yUnits.iSource), Part(xUnits.nSource), Part(yUnits.nSource)}) ==
               Gdiplus::Ok;
    }

    HDRAWDIB m_hDrawDib = DrawDibOpen();
};

} // namespace

TEST_F(CopyTest, EveryWayTakesTheNearestPixels)
{
    Dice dice;
    for (int iRound = 0; iRound < 12000; ++iRound)
    {
        const auto way = static_cast<Way>(iRound % 5);
        const bool bDib = way == Way::DrawDib || way == Way::DrawImage;
        TestDib dib(dice, dice.Roll(1, 15), dice.Roll(1, 15), 16 + 8 * dice.Roll(0, 2));
        Canvas dest(SIZE_OF_DEST, dice.Pixels(SIZE_OF_DEST * SIZE_OF_DEST), {dice.Roll(-3, 3), dice.Roll(-3, 3)});
        Canvas other(dib.header.biWidth, dice.Pixels(dib.header.biWidth * dib.header.biHeight), {1, -2});
        Canvas& source = !bDib && dice.Roll(0, 2) == 0 ? dest : other;
        std::uint32_t* const pSource = source.pSurface->PixelsForUpdate();
        const int cxSource = source.pSurface->Width();
        const int cySource = source.pSurface->Height();
        for (int i = 0; way == Way::TransparentBlt && i < cxSource * cySource; ++i)
            pSource[i] = dice.Roll(0, 1) ? (pSource[i] & 0xFF000000) | KEY : pSource[i]; // Top bytes do not count.
        if (dice.Roll(0, 1))
            dest.pDC->SetClip(dice.Region(SIZE_OF_DEST));
        const Picture before = dest.Pixels();
        const Picture pixels = source.Pixels();

        // Rolled on the surfaces; the calls are given logical coordinates.
        const Axis x = RollAxis(dice, way, cxSource);
        const Axis y = RollAxis(dice, way, cySource);
        const POINT ptDest = dest.pDC->Origin();
        const POINT ptSource = bDib ? POINT{} : source.pDC->Origin();
        Picture expected = before;
        const auto vColumns = NearestPixels(x, cxSource, way == Way::DrawImage);
        const auto vRows = NearestPixels(y, cySource, way == Way::DrawImage);
        for (int i = 0; i < SIZE_OF_DEST * SIZE_OF_DEST; ++i)
        {
            const auto iColumn = vColumns[static_cast<std::size_t>(i % SIZE_OF_DEST)];
            const auto iRow = vRows[static_cast<std::size_t>(i / SIZE_OF_DEST)];
            if (!iColumn || !iRow || !dest.pDC->Clip().Contains({i % SIZE_OF_DEST, i / SIZE_OF_DEST}))
                continue;
            const std::uint32_t uPixel =
                bDib ? dib.Pixel(*iColumn, *iRow) : pixels[static_cast<std::size_t>(*iRow * cxSource + *iColumn)];
            if (way != Way::TransparentBlt || (uPixel & 0xFFFFFF) != KEY)
                expected[static_cast<std::size_t>(i)] = uPixel;
        }
        ASSERT_TRUE(Copy(way, dest.hDC, source.hDC, dib,
                         {x.iDest - ptDest.x * ONE, x.nDest, x.iSource - ptSource.x * ONE, x.nSource},
                         {y.iDest - ptDest.y * ONE, y.nDest, y.iSource - ptSource.y * ONE, y.nSource}));
        ASSERT_EQ(dest.Pixels(), expected) << iRound << ", way " << iRound % 5;
        const Region rgnDamage = Region::FromRects(dest.vDamage);
        for (int i = 0; i < SIZE_OF_DEST * SIZE_OF_DEST; ++i)
            ASSERT_TRUE(expected[static_cast<std::size_t>(i)] == before[static_cast<std::size_t>(i)] ||
                        rgnDamage.Contains({i % SIZE_OF_DEST, i / SIZE_OF_DEST}))
                << iRound << ", way " << iRound % 5;
    }
}

TEST_F(CopyTest, HugeCoordinatesDoNotOverflow)
{
    constexpr int MOST = std::numeric_limits<int>::max();
    constexpr int LEAST = std::numeric_limits<int>::min();
    const int vValues[] = {LEAST, LEAST + 1, -2, -1, 0, 1, 2, MOST};
    Dice dice;
    const TestDib dib(dice, 3, 3, 24);
    const Canvas source(3, dice.Pixels(9));
    const Canvas dest(3, 3, {100, -100});
    for (const int i : vValues)
        for (const int n : vValues)
            for (const int iSource : vValues)
                for (const int nSource : vValues)
                {
                    EXPECT_TRUE(StretchBlt(dest.hDC, i, 0, n, 1, source.hDC, iSource, 0, nSource, 1, SRCCOPY));
                    EXPECT_TRUE(BitBlt(dest.hDC, i, iSource, n, nSource, source.hDC, nSource, n, SRCCOPY));
                    EXPECT_TRUE(DrawDibDraw(m_hDrawDib, dest.hDC, i, i, n, n, &dib.header, dib.vBits.data(), iSource,
                                            iSource, nSource, nSource, 0));
                }
    const Canvas wide(3, 1);
    StretchBlt(wide.hDC, LEAST / 2, 0, MOST, 1, source.hDC, 0, 0, 3, 1, SRCCOPY);
    EXPECT_EQ(wide.Pixels(), Picture(3, source.Pixels()[1]));
}

TEST_F(CopyTest, TransparentCopiesOfNegativeSizesAndFromOutsideAreRefused)
{
    const struct
    {
        int cx, cxSource, xSource;
        BOOL bResult;
    } vCases[] = {{-2, 2, 0, FALSE}, {2, -2, 3, FALSE}, {2, 2, 3, FALSE}, {2, 2, -1, FALSE},
                  {0, 2, 0, TRUE},   {2, 0, 9, TRUE},   {2, 2, 2, TRUE}};
    for (const auto& test : vCases)
    {
        const Canvas source(4, Picture(16, 7));
        const Canvas dest(4, 4);
        EXPECT_EQ(TransparentBlt(dest.hDC, 1, 1, test.cx, 2, source.hDC, test.xSource, 0, test.cxSource, 2, KEY),
                  test.bResult);
        EXPECT_EQ(dest.Pixels()[5], test.xSource == 2 ? 7u : 0u);
    }
}
