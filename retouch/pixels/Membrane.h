#pragma once

#include "pixels/Spot.h"

#include <cstddef>
#include <vector>

/// Values of three channels on a grid, of which some are known and some are wanted: the wanted ones become as smooth as
/// they can, each the mean of its four neighbours (Laplace's equation; P. Pérez, M. Gangnet, A. Blake, Poisson image
/// editing, 2003). Where wanted ones reach the grid's edge nothing is asked of them there. It is solved from coarse
/// grids to fine ones (F. Bornemann, P. Deuflhard, The cascadic multigrid method, 1996). Any thread, one at a time.
class CMembrane
{
public:
    /// A grid of cx times cy, row by row, of which some values are wanted: at most one run in each row, and rows that
    /// follow each other.
    CMembrane(int cx, int cy, const std::vector<PixelRun>& vWanted);

    /// Says what a value is that is known. All eight neighbours of each wanted one in the grid must be known or wanted.
    void Know(int x, int y, float fFirst, float fSecond, float fThird);

    /// Finds those that are wanted.
    void Solve();

    /// The three channels of a value, and a fourth number that is nobody's concern.
    const float* At(int x, int y) const { return m_fine.At(x, y); }

private:
    /// Three channels, and whether there is a value: 1, otherwise all four are 0.
    static constexpr std::size_t NUMBERS = 4;

    struct Grid
    {
        Grid(int cxGrid, int cyGrid)
            : cx(cxGrid), cy(cyGrid), vRows(static_cast<std::size_t>(cyGrid)),
              vNumbers(static_cast<std::size_t>(cxGrid) * static_cast<std::size_t>(cyGrid) * NUMBERS)
        {
        }
        float* At(int x, int y)
        {
            return vNumbers.data() +
                   (static_cast<std::size_t>(y) * static_cast<std::size_t>(cx) + static_cast<std::size_t>(x)) * NUMBERS;
        }
        const float* At(int x, int y) const { return const_cast<Grid*>(this)->At(x, y); }
        bool IsWanted(int x, int y) const
        {
            const PixelRun& row = vRows[static_cast<std::size_t>(y)];
            return x >= row.left && x < row.right;
        }

        int cx;
        int cy;
        std::vector<PixelRun> vRows; ///< What is wanted in each row.
        std::vector<float> vNumbers;
    };

    static Grid Coarser(const Grid& fine);
    static void Guess(Grid& grid);
    static void Guess(Grid& grid, const Grid& coarse);
    static void Smooth(Grid& grid, int nTimes);
    static void SmoothHalf(Grid& grid, int iColour);

    Grid m_fine;
};
