#pragma once

#include "gdi/Region.h"

#include <vector>

namespace winlite
{

/// Finds the pixels of a polygon row by row. Pixel (x, y) is the point (x, y): what lies on a left or upper edge is
/// in, what lies on a right or lower one is out. Crossings are exact.
class PolygonScan
{
public:
    enum class Rule
    {
        Alternate, ///< In after every odd crossing from the left.
        Winding,   ///< In where upward and downward crossings do not balance.
    };

    /// The polygon is closed; its coordinates are within +-2^27.
    PolygonScan(std::span<const POINT> vPoints, Rule rule);

    Region Scan();

private:
    /// An edge between two rows, at its crossing with a row.
    struct Edge
    {
        int yTop;
        int yEnd;
        int iDirection; ///< 1 downwards, -1 upwards as the polygon runs.

        int xFirstPixel; ///< The first pixel right of the crossing or on it,
        int nOverstep;   ///< which lies nOverstep / (yEnd - yTop) further left.
        int xPerRow;     ///< What both change by from row to row: whole pixels,
        int nRest;       ///< and nRest / (yEnd - yTop) more.

        static Edge Between(POINT ptTop, POINT ptEnd, int iDirection);
        void StepDown();
    };

    void EnterEdges(int y);
    void AddSpans(int y);

    Rule m_Rule;
    std::vector<Edge> m_vEdges; ///< By top row.
    std::size_t m_iNextEdge = 0;
    std::vector<Edge> m_vActive; ///< Those that cross the row, from left to right.
    std::vector<RECT> m_vSpans;
};

} // namespace winlite
