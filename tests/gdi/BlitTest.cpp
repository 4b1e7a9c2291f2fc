#include "Canvas.h"

#include <cstdlib>
#include <limits>
#include <optional>

using winlite::Region;

namespace
{

struct Axis
{
    int iDest, nDest, iSource, nSource;
};

/// The source pixel for each destination pixel of one axis by the plain rule, step by step along the axis.
std::vector<std::optional<int>> PlainAxis(const Axis& axis, int nDestPixels, int nSourcePixels)
{
    const int nDest = std::abs(axis.nDest);
    const int nSource = std::abs(axis.nSource);
    const bool bMirrorSource = axis.nSource < 0 && axis.nDest > 0;
    const bool bMirrorDest = axis.nDest < 0 && axis.nSource > 0;
    const int iSourceLow = axis.nSource < 0 ? axis.iSource - nSource + 1 : axis.iSource;
    std::vector<int> vSteps;
    std::vector<int> vSources;
    for (int i = 0; i < nDest; ++i)
    {
        const int iSource = iSourceLow + (2 * i + 1) * nSource / (2 * nDest);
        if (iSource < 0 || iSource >= nSourcePixels)
            continue;
        vSteps.push_back(i);
        vSources.push_back(iSource);
    }
    if (bMirrorSource)
        std::reverse(vSources.begin(), vSources.end());
    std::vector<std::optional<int>> vResult(static_cast<std::size_t>(nDestPixels));
    const int iDestLow = axis.nDest < 0 ? axis.iDest - nDest + 1 : axis.iDest;
    for (std::size_t i = 0; i < vSteps.size(); ++i)
    {
        const int iDest = bMirrorDest ? axis.iDest - vSteps[i] : iDestLow + vSteps[i];
        if (iDest >= 0 && iDest < nDestPixels)
            vResult[static_cast<std::size_t>(iDest)] = vSources[i];
    }
    return vResult;
}

/// Copies pixel by pixel; dest and source are square pictures.
Picture PlainCopy(Picture dest, int nDest, const Picture& source, int nSource, const Axis& x, const Axis& y,
                  const Region& rgnClip)
{
    const auto vColumns = PlainAxis(x, nDest, nSource);
    const auto vRows = PlainAxis(y, nDest, nSource);
    for (std::size_t j = 0; j < vRows.size(); ++j)
        for (std::size_t i = 0; i < vColumns.size(); ++i)
        {
            const POINT pt = {static_cast<LONG>(i), static_cast<LONG>(j)};
            if (vRows[j] && vColumns[i] && rgnClip.Contains(pt))
                dest[j * nDest + i] = source[static_cast<std::size_t>(*vRows[j] * nSource + *vColumns[i])];
        }
    return dest;
}

Axis RollAxis(Dice& dice, int nSize, bool bScale)
{
    Axis axis = {dice.Roll(-4, nSize + 4), dice.Roll(1, nSize + 4), dice.Roll(-4, nSize + 4), 0};
    axis.nSource = bScale ? dice.Roll(1, nSize + 4) : axis.nDest;
    if (dice.Roll(0, 2) == 0)
        axis.nDest = -axis.nDest;
    if (dice.Roll(0, 2) == 0)
        axis.nSource = -axis.nSource;
    return axis;
}

} // namespace

class BlitTest : public HandleTest
{
};

TEST_F(BlitTest, MirroredCopies)
{
    constexpr std::uint32_t A = 0xA1000001, B = 0xB2000002, C = 0xC3000003, D = 0xD4000004;
    const struct
    {
        int x, y, cx, cy, xSrc, ySrc, cxSrc, cySrc;
        Picture expected;
    } vCases[] = {
        {0, 0, 2, 2, 0, 0, 2, 2, {A, B, C, D}},   {0, 0, 2, 2, 1, 0, -2, 2, {B, A, D, C}},
        {0, 0, 2, 2, 0, 1, 2, -2, {C, D, A, B}},  {1, 1, -2, -2, 0, 0, 2, 2, {D, C, B, A}},
        {0, 1, 2, -2, 0, 0, 2, 2, {C, D, A, B}},  {1, 1, -2, -2, 1, 1, -2, -2, {A, B, C, D}},
        {0, 0, 2, 2, 0, 1, -2, 2, {0, C, 0, 0}},  {0, 0, -2, 2, 0, 0, 2, 2, {A, 0, C, 0}},
        {0, 0, 2, 2, -1, -1, 2, 2, {0, 0, 0, A}}, {0, 0, 0, 2, 0, 0, 2, 2, {0, 0, 0, 0}},
    };
    Canvas source(2, {A, B, C, D});
    for (const auto& t : vCases)
    {
        Canvas dest(2, 2);
        EXPECT_TRUE(StretchBlt(dest.hDC, t.x, t.y, t.cx, t.cy, source.hDC, t.xSrc, t.ySrc, t.cxSrc, t.cySrc, SRCCOPY));
        EXPECT_EQ(dest.Pixels(), t.expected) << t.cx << ", " << t.cy << ", " << t.cxSrc << ", " << t.cySrc;
    }
}

TEST_F(BlitTest, AMirroredSourceIsCutBeforeItIsMirrored)
{
    Dice dice;
    const Picture pixels = dice.Pixels(64);
    Canvas source(8, pixels);
    Canvas dest(8, 8);
    StretchBlt(dest.hDC, 0, 0, 8, 8, source.hDC, 2, 2, -8, -8, SRCCOPY);
    EXPECT_EQ(dest.Pixels()[63], pixels[0]);
    EXPECT_EQ(dest.Pixels()[5 * 8 + 5], pixels[2 * 8 + 2]);
    EXPECT_EQ(dest.vDamage, (std::vector<RECT>{{5, 5, 8, 8}}));

    Canvas mirrored(8, 8);
    StretchBlt(mirrored.hDC, 2, 2, -8, -8, source.hDC, 0, 0, 8, 8, SRCCOPY);
    EXPECT_EQ(mirrored.Pixels()[2 * 8 + 2], pixels[0]);
    EXPECT_EQ(mirrored.Pixels()[0], pixels[2 * 8 + 2]);
}

TEST_F(BlitTest, RandomCopiesAgreeWithThePlainRule)
{
    constexpr int SIZE_OF_PICTURE = 12;
    Dice dice;
    for (int iRound = 0; iRound < 4000; ++iRound)
    {
        const Picture pixels = dice.Pixels(SIZE_OF_PICTURE * SIZE_OF_PICTURE);
        Canvas dest(SIZE_OF_PICTURE, dice.Pixels(SIZE_OF_PICTURE * SIZE_OF_PICTURE));
        Canvas other(SIZE_OF_PICTURE, pixels);
        Canvas& source = iRound % 3 == 0 ? dest : other;
        const Region rgnClip = iRound % 2 == 0 ? dice.Region(SIZE_OF_PICTURE) : Region(dest.pSurface->Bounds());
        dest.pDC->SetClip(rgnClip);
        SetStretchBltMode(dest.hDC, COLORONCOLOR);
        const Axis x = RollAxis(dice, SIZE_OF_PICTURE, iRound % 5 == 0);
        const Axis y = RollAxis(dice, SIZE_OF_PICTURE, iRound % 7 == 0);
        const Picture expected =
            PlainCopy(dest.Pixels(), SIZE_OF_PICTURE, source.Pixels(), SIZE_OF_PICTURE, x, y, rgnClip);
        StretchBlt(dest.hDC, x.iDest, y.iDest, x.nDest, y.nDest, source.hDC, x.iSource, y.iSource, x.nSource, y.nSource,
                   SRCCOPY);
        ASSERT_EQ(dest.Pixels(), expected) << iRound;
    }
}

TEST_F(BlitTest, ShrinkingDropsOrMerges)
{
    const struct
    {
        int cx, iMode;
        Picture expected;
    } vCases[] = {
        {2, BLACKONWHITE, {0x0F & 0x3C, 0xF0 & 0xCC}},
        {2, COLORONCOLOR, {0x3C, 0xCC}},
        {-2, BLACKONWHITE, {0xF0 & 0xCC, 0x0F & 0x3C}},
        {8, BLACKONWHITE, {0x0F, 0x0F, 0x3C, 0x3C, 0xF0, 0xF0, 0xCC, 0xCC}},
    };
    Canvas source(4, {0x0F, 0x3C, 0xF0, 0xCC});
    for (const auto& test : vCases)
    {
        const int cx = std::abs(test.cx);
        Canvas dest(cx, 1);
        ASSERT_NE(SetStretchBltMode(dest.hDC, test.iMode), 0);
        StretchBlt(dest.hDC, test.cx < 0 ? cx - 1 : 0, 0, test.cx, 1, source.hDC, 0, 0, 4, 1, SRCCOPY);
        EXPECT_EQ(dest.Pixels(), test.expected) << test.cx << ", " << test.iMode;
    }
    Canvas dest(3, 1); // The source begins outside, and its first pair has one pixel only.
    StretchBlt(dest.hDC, 0, 0, 3, 1, source.hDC, -1, 0, 6, 1, SRCCOPY);
    EXPECT_EQ(dest.Pixels(), (Picture{0x0F, 0x3C & 0xF0, 0xCC}));
    Canvas tower(1, {0x0F, 0x3C, 0xF0, 0xCC});
    StretchBlt(tower.hDC, 0, 0, 1, 2, tower.hDC, 0, 0, 1, 4, SRCCOPY);
    EXPECT_EQ(tower.Pixels(), (Picture{0x0C, 0xC0, 0xF0, 0xCC}));
}

TEST_F(BlitTest, HugeCoordinatesDoNotOverflow)
{
    constexpr int MOST = std::numeric_limits<int>::max();
    constexpr int LEAST = std::numeric_limits<int>::min();
    const int vValues[] = {LEAST, LEAST + 1, -1, 0, 2, MOST};
    Canvas source(3, Dice().Pixels(9));
    Canvas dest(3, 3, {100, -100});
    for (const int iStart : vValues)
        for (const int nSize : vValues)
            for (const int iSource : vValues)
                for (const int nSource : vValues)
                {
                    EXPECT_TRUE(StretchBlt(dest.hDC, iStart, 0, nSize, 1, source.hDC, iSource, 0, nSource, 1, SRCCOPY));
                    EXPECT_TRUE(BitBlt(dest.hDC, iStart, iSource, nSize, nSource, source.hDC, nSource, nSize, SRCCOPY));
                }
    Canvas wide(3, 1);
    SetStretchBltMode(wide.hDC, COLORONCOLOR);
    StretchBlt(wide.hDC, LEAST / 2, 0, MOST, 1, source.hDC, 0, 0, 3, 1, SRCCOPY);
    EXPECT_EQ(wide.Pixels(), Picture(3, source.Pixels()[1]));
}
