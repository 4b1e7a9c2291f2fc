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
    const int iDestLow = axis.nDest < 0 ? axis.iDest - nDest + 1 : axis.iDest;
    const int iSourceLow = axis.nSource < 0 ? axis.iSource - nSource + 1 : axis.iSource;
    std::vector<int> vDests;
    std::vector<int> vSources;
    for (int i = 0; i < nDest; ++i)
    {
        const int iSource = iSourceLow + (2 * i + 1) * nSource / (2 * nDest);
        if (iSource < 0 || iSource >= nSourcePixels)
            continue;
        vDests.push_back(axis.nDest < 0 && axis.nSource > 0 ? axis.iDest - i : iDestLow + i);
        vSources.push_back(iSource);
    }
    if (axis.nSource < 0 && axis.nDest > 0)
        std::reverse(vSources.begin(), vSources.end());
    std::vector<std::optional<int>> vResult(static_cast<std::size_t>(nDestPixels));
    for (std::size_t i = 0; i < vDests.size(); ++i)
        if (vDests[i] >= 0 && vDests[i] < nDestPixels)
            vResult[static_cast<std::size_t>(vDests[i])] = vSources[i];
    return vResult;
}

/// Copies pixel by pixel; dest and source are square pictures of one size.
Picture PlainCopy(Picture dest, const Picture& source, int nSize, const Axis& x, const Axis& y, const Region& rgnClip)
{
    const auto vColumns = PlainAxis(x, nSize, nSize);
    const auto vRows = PlainAxis(y, nSize, nSize);
    for (int i = 0; i < nSize * nSize; ++i)
    {
        const auto iColumn = vColumns[static_cast<std::size_t>(i % nSize)];
        const auto iRow = vRows[static_cast<std::size_t>(i / nSize)];
        if (iRow && iColumn && rgnClip.Contains({i % nSize, i / nSize}))
            dest[static_cast<std::size_t>(i)] = source[static_cast<std::size_t>(*iRow * nSize + *iColumn)];
    }
    return dest;
}

Axis RollAxis(Dice& dice, int nSize, bool bScale)
{
    Axis axis = {dice.Roll(-4, nSize + 4), dice.Roll(0, nSize + 4), dice.Roll(-4, nSize + 4), 0};
    axis.nSource = bScale ? dice.Roll(1, nSize + 4) : axis.nDest;
    if (dice.Roll(0, 2) == 0)
        axis.nDest = -axis.nDest;
    if (dice.Roll(0, 2) == 0)
        axis.nSource = -axis.nSource;
    return axis;
}

} // namespace

using BlitTest = HandleTest;

TEST_F(BlitTest, RandomCopiesAgreeWithThePlainRule)
{
    constexpr int SIZE = 12;
    Dice dice;
    for (int iRound = 0; iRound < 4000; ++iRound)
    {
        const Picture before = dice.Pixels(SIZE * SIZE);
        Canvas dest(SIZE, before);
        Canvas other(SIZE, dice.Pixels(SIZE * SIZE));
        Canvas& source = iRound % 3 == 0 ? dest : other;
        const Region rgnClip = iRound % 2 == 0 ? dice.Region(SIZE) : Region(dest.pSurface->Bounds());
        dest.pDC->SetClip(rgnClip);
        SetStretchBltMode(dest.hDC, COLORONCOLOR);
        const Axis x = RollAxis(dice, SIZE, iRound % 5 == 0);
        const Axis y = RollAxis(dice, SIZE, iRound % 7 == 0);
        const Picture expected = PlainCopy(before, source.Pixels(), SIZE, x, y, rgnClip);
        StretchBlt(dest.hDC, x.iDest, y.iDest, x.nDest, y.nDest, source.hDC, x.iSource, y.iSource, x.nSource, y.nSource,
                   SRCCOPY);
        ASSERT_EQ(dest.Pixels(), expected) << iRound;
        const Region rgnDamage = Region::FromRects(dest.vDamage);
        for (int i = 0; i < SIZE * SIZE; ++i)
            ASSERT_TRUE(expected[static_cast<std::size_t>(i)] == before[static_cast<std::size_t>(i)] ||
                        rgnDamage.Contains({i % SIZE, i / SIZE}))
                << iRound;
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
