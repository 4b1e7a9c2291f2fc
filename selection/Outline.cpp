#include "selection/Outline.h"

#include "platform/minmax.h"
#include "selection/MaskRuns.h"

#include <algorithm>

namespace Pixtane
{

namespace
{

using Word = std::uint64_t;
constexpr int WORD_BITS = 64;

/// A bit for each pixel, rows of whole words; the bits beyond the width are 0.
class CBitPlane
{
public:
    CBitPlane(int cx, int cy)
        : m_nWords(static_cast<std::size_t>((cx + WORD_BITS - 1) / WORD_BITS)), m_vWords(m_nWords * cy)
    {
    }

    std::size_t Words() const { return m_nWords; }
    std::span<Word> Row(int y) { return std::span(m_vWords).subspan(m_nWords * y, m_nWords); }

    void SetRun(int y, int iFirst, int iEnd)
    {
        const std::span<Word> vRow = Row(y);
        const int iLast = iEnd - 1;
        const Word uFrom = ~Word{0} << iFirst % WORD_BITS;
        const Word uTo = ~Word{0} >> (WORD_BITS - 1 - iLast % WORD_BITS);
        const int iFirstWord = iFirst / WORD_BITS;
        const int iLastWord = iLast / WORD_BITS;
        if (iFirstWord == iLastWord)
        {
            vRow[iFirstWord] |= uFrom & uTo;
            return;
        }
        vRow[iFirstWord] |= uFrom;
        std::fill(vRow.begin() + iFirstWord + 1, vRow.begin() + iLastWord, ~Word{0});
        vRow[iLastWord] |= uTo;
    }

private:
    std::size_t m_nWords;
    std::vector<Word> m_vWords;
};

CBitPlane PlaneOf(std::span<const RECT> vInside, int cx, int cy)
{
    CBitPlane plane(cx, cy);
    for (const RECT& rc : vInside)
    {
        const int iLeft = std::max<int>(rc.left, 0);
        const int iRight = std::min<int>(rc.right, cx);
        if (iLeft >= iRight)
            continue;
        for (int y = std::max<int>(rc.top, 0); y < std::min<int>(rc.bottom, cy); ++y)
            plane.SetRun(y, iLeft, iRight);
    }
    return plane;
}

bool IsSet(std::span<const Word> vRow, int x) { return x >= 0 && vRow[x / WORD_BITS] >> x % WORD_BITS & 1; }

/// The first and last pixels of a row's runs.
void MarkRow(std::span<const Word> vInside, std::span<Word> vMarks, int cx)
{
    for (std::size_t i = 0; i < vInside.size(); ++i)
    {
        const Word uInside = vInside[i];
        const Word uFromLeft = uInside << 1 | (i > 0 ? vInside[i - 1] >> (WORD_BITS - 1) : 0);
        const Word uFromRight = uInside >> 1 | (i + 1 < vInside.size() ? vInside[i + 1] << (WORD_BITS - 1) : 0);
        vMarks[i] = uInside & ~(uFromLeft & uFromRight);
    }
    // The first of a run of two stands for the last of the line.
    if (IsSet(vInside, cx - 1) && IsSet(vInside, cx - 2) && !IsSet(vInside, cx - 3))
        vMarks[(cx - 1) / WORD_BITS] &= ~(Word{1} << (cx - 1) % WORD_BITS);
}

/// Adds the marks of the columns to those of the rows: vInside is what the rows left unmarked.
void MarkColumns(CBitPlane& inside, CBitPlane& marks, int cy)
{
    const std::vector<Word> vNone(inside.Words());
    const auto row = [&](int y) { return y >= 0 && y < cy ? std::span<const Word>(inside.Row(y)) : vNone; };
    for (int y = 0; y < cy; ++y)
    {
        const std::span<const Word> vThis = row(y), vAbove = row(y - 1), vBelow = row(y + 1), vSecondBelow = row(y + 2);
        const std::span<Word> vMarks = marks.Row(y);
        for (std::size_t i = 0; i < vMarks.size(); ++i)
        {
            // The top row is where columns end.
            const Word uKept = y == 0 ? vBelow[i] & ~vSecondBelow[i] : vAbove[i] & vBelow[i];
            vMarks[i] |= vThis[i] & ~uKept;
        }
    }
}

} // namespace

std::vector<RECT> OutlineRuns(std::span<const RECT> vInside, int cx, int cy)
{
    std::vector<RECT> vRuns;
    if (cx <= 0 || cy <= 0)
        return vRuns;
    CBitPlane inside = PlaneOf(vInside, cx, cy);
    CBitPlane marks(cx, cy);
    for (int y = 0; y < cy; ++y)
    {
        const std::span<Word> vRow = inside.Row(y);
        const std::span<Word> vMarks = marks.Row(y);
        if (cx > 1)
            MarkRow(vRow, vMarks, cx);
        std::ranges::transform(vRow, vMarks, vRow.begin(), [](Word uRow, Word uMarks) { return uRow & ~uMarks; });
    }
    if (cy > 1)
        MarkColumns(inside, marks, cy);
    for (int y = 0; y < cy; ++y)
    {
        const std::span<const Word> vMarks = marks.Row(y);
        ForEachRun(
            cx, [&](int iWord) { return vMarks[iWord]; },
            [&](int iFirst, int iEnd) {
                vRuns.push_back({iFirst, y, iEnd, y + 1});
            });
    }
    return vRuns;
}

} // namespace Pixtane
