#include "pixels/Membrane.h"

#include <algorithm>
#include <cstring>
#include <deque>
#include <utility>

namespace
{

constexpr int NUMBERS_OF_VALUE = 4;

void Add(float* pSum, const float* pValue, float fWeight)
{
    for (int i = 0; i < NUMBERS_OF_VALUE; ++i)
        pSum[i] += fWeight * pValue[i];
}

/// The mean of those that there were.
void TakeMean(const float* pSum, float* pValue)
{
    if (pSum[3] == 0)
        return;
    for (int i = 0; i < NUMBERS_OF_VALUE; ++i)
        pValue[i] = pSum[i] / pSum[3];
}

/// Moves a value to the mean of its neighbours, and on: successive over-relaxation.
void MakeMean(float* pValue, const float* pLeft, const float* pRight, const float* pAbove, const float* pBelow)
{
    constexpr float BEYOND = 1.8F;
    for (int i = 0; i < NUMBERS_OF_VALUE; ++i)
    {
        const float fMean = (pLeft[i] + pRight[i] + pAbove[i] + pBelow[i]) * 0.25F;
        pValue[i] += BEYOND * (fMean - pValue[i]);
    }
}

} // namespace

CMembrane::CMembrane(int cx, int cy, const std::vector<PixelRun>& vWanted) : m_fine(cx, cy)
{
    for (const PixelRun& run : vWanted)
        m_fine.vRows[static_cast<std::size_t>(run.y)] = run;
}

void CMembrane::Know(int x, int y, float fFirst, float fSecond, float fThird)
{
    const float aNumbers[] = {fFirst, fSecond, fThird, 1};
    std::memcpy(m_fine.At(x, y), aNumbers, sizeof(aNumbers));
}

CMembrane::Grid CMembrane::Coarser(const Grid& fine)
{
    Grid coarse((fine.cx + 1) / 2, (fine.cy + 1) / 2);
    // A square of four is wanted when all of it is that the grid has.
    for (int y = 0; y < coarse.cy; ++y)
    {
        const PixelRun& above = fine.vRows[static_cast<std::size_t>(2 * y)];
        const PixelRun& below = fine.vRows[static_cast<std::size_t>(std::min(2 * y + 1, fine.cy - 1))];
        const int iRight = std::min(above.right, below.right);
        coarse.vRows[static_cast<std::size_t>(y)] = {y, (std::max(above.left, below.left) + 1) / 2,
                                                     iRight == fine.cx ? coarse.cx : iRight / 2};
    }
    for (int y = 0; y < fine.cy; ++y)
    {
        for (int x = 0; x < fine.cx; ++x)
        {
            if (!fine.IsWanted(x, y))
                Add(coarse.At(x / 2, y / 2), fine.At(x, y), 1);
        }
    }
    for (int y = 0; y < coarse.cy; ++y)
    {
        for (int x = 0; x < coarse.cx; ++x)
        {
            TakeMean(coarse.At(x, y), coarse.At(x, y));
        }
    }
    return coarse;
}

void CMembrane::Guess(Grid& grid)
{
    float aSum[NUMBERS] = {};
    for (int y = 0; y < grid.cy; ++y)
    {
        for (int x = 0; x < grid.cx; ++x)
            Add(aSum, grid.At(x, y), grid.IsWanted(x, y) ? 0 : 1);
    }
    for (const PixelRun& row : grid.vRows)
    {
        for (int x = row.left; x < row.right; ++x)
            TakeMean(aSum, grid.At(x, row.y));
    }
}

void CMembrane::Guess(Grid& grid, const Grid& coarse)
{
    constexpr float NEAR = 0.75F;
    constexpr float FAR = 0.25F;
    for (const PixelRun& row : grid.vRows)
    {
        for (int x = row.left; x < row.right; ++x)
        {
            const int iBesideX = std::clamp(x / 2 + (x % 2 ? 1 : -1), 0, coarse.cx - 1);
            const int iBesideY = std::clamp(row.y / 2 + (row.y % 2 ? 1 : -1), 0, coarse.cy - 1);
            float aSum[NUMBERS] = {};
            Add(aSum, coarse.At(x / 2, row.y / 2), NEAR * NEAR);
            Add(aSum, coarse.At(iBesideX, row.y / 2), NEAR * FAR);
            Add(aSum, coarse.At(x / 2, iBesideY), NEAR * FAR);
            Add(aSum, coarse.At(iBesideX, iBesideY), FAR * FAR);
            TakeMean(aSum, grid.At(x, row.y));
        }
    }
}

void CMembrane::SmoothHalf(Grid& grid, int iColour)
{
    const auto nRow = static_cast<std::ptrdiff_t>(NUMBERS) * grid.cx;
    for (const PixelRun& row : grid.vRows)
    {
        // At the grid's edge a value is its own neighbour, and comes to be the mean of the others.
        const std::ptrdiff_t nAbove = row.y > 0 ? -nRow : 0;
        const std::ptrdiff_t nBelow = row.y < grid.cy - 1 ? nRow : 0;
        for (int x = row.left + (row.left + row.y + iColour) % 2; x < row.right; x += 2)
        {
            float* const pValue = grid.At(x, row.y);
            MakeMean(pValue, x > 0 ? pValue - NUMBERS : pValue, x < grid.cx - 1 ? pValue + NUMBERS : pValue,
                     pValue + nAbove, pValue + nBelow);
        }
    }
}

void CMembrane::Smooth(Grid& grid, int nTimes)
{
    for (int i = 0; i < nTimes; ++i)
    {
        SmoothHalf(grid, 0);
        SmoothHalf(grid, 1);
    }
}

void CMembrane::Solve()
{
    constexpr int COARSEST = 6;
    constexpr int FEWEST_TIMES = 16;
    constexpr int MOST_TIMES = 128;
    std::deque<Grid> coarse; // The finest of them first.
    const Grid* pCoarsest = &m_fine;
    while (std::min(pCoarsest->cx, pCoarsest->cy) > COARSEST)
        pCoarsest = &coarse.emplace_back(Coarser(*pCoarsest));
    coarse.push_front(std::move(m_fine));
    Guess(coarse.back());
    for (std::size_t i = coarse.size(); i-- > 0;)
    {
        if (i + 1 < coarse.size())
            Guess(coarse[i], coarse[i + 1]);
        Smooth(coarse[i], i + 1 < coarse.size() ? std::min(FEWEST_TIMES << i, MOST_TIMES) : MOST_TIMES);
    }
    m_fine = std::move(coarse.front());
}
