#include "gdiplus/Outline.h"

#include "gdi/RectMath.h"

namespace winlite
{

namespace
{

/// The quotient rounded to nearest, halves down; the divisor is positive.
std::int64_t RoundedQuotient(std::int64_t iDividend, std::int64_t iDivisor)
{
    const std::int64_t iTwice = 2 * iDividend + iDivisor - 1;
    const std::int64_t iQuotient = iTwice / (2 * iDivisor);
    return iTwice % (2 * iDivisor) < 0 ? iQuotient - 1 : iQuotient;
}

RECT Run(LONG xFirst, LONG xLast, LONG y) { return {xFirst, y, xLast + 1, y + 1}; }

/// The steepness of the midpoint ellipse: squares of twice the half axes.
struct HalfAxes
{
    double dWidthSquared;
    double dHeightSquared;

    HalfAxes(int nWidth, int nHeight)
        : dWidthSquared(static_cast<double>(nWidth) * nWidth), dHeightSquared(static_cast<double>(nHeight) * nHeight)
    {
    }

    /// Whether the point, in half pixels from the centre, is strictly inside.
    bool Contains(double x, double y) const
    {
        return x * x * dHeightSquared + y * y * dWidthSquared < dWidthSquared * dHeightSquared;
    }

    /// Whether the arc's next step from there goes sideways rather than down.
    bool IsFlat(double x, double y) const { return dWidthSquared * (y - 1) > dHeightSquared * (x + 2); }
};

/// One row of a quarter of an ellipse: its pixels in half pixels from the centre. All numbers are even or all odd.
struct QuarterRow
{
    int xFirst;
    int xLast;
    int y;
};

/// The rows of the lower right quarter from the bottom up to the centre. Coordinates count in half pixels, so that
/// those of boxes with an even number of pixels are whole as well.
std::vector<QuarterRow> QuarterEllipse(int nWidth, int nHeight)
{
    const HalfAxes axes(nWidth, nHeight);
    std::vector<QuarterRow> vRows;
    QuarterRow row = {nWidth % 2, nWidth % 2, nHeight};
    while (axes.IsFlat(row.xLast, row.y))
    {
        if (axes.Contains(row.xLast + 2, row.y - 1))
        {
            row.xLast += 2;
            continue;
        }
        vRows.push_back(row);
        row = {row.xLast + 2, row.xLast + 2, row.y - 2};
    }
    for (; row.y >= 2; row = {row.xLast, row.xLast, row.y - 2})
    {
        vRows.push_back(row);
        if (axes.Contains(row.xLast + 1, row.y - 2))
            row.xLast += 2;
    }
    // In low ellipses the steps above end before the side is reached.
    row.xLast = nWidth;
    vRows.push_back(row);
    return vRows;
}

} // namespace

std::vector<RECT> LinePixels(POINT ptFirst, POINT ptLast, const RECT& rcClip)
{
    const bool bFlat = std::abs(ptLast.x - ptFirst.x) >= std::abs(ptLast.y - ptFirst.y);
    const auto along = bFlat ? &POINT::x : &POINT::y;
    const auto across = bFlat ? &POINT::y : &POINT::x;
    if (ptLast.*along < ptFirst.*along)
        std::swap(ptFirst, ptLast);
    const std::int64_t nSteps = std::max(ptLast.*along - ptFirst.*along, 1);
    const std::int64_t nAcross = ptLast.*across - ptFirst.*across;
    const LONG iBegin = std::max(ptFirst.*along, bFlat ? rcClip.left : rcClip.top);
    const LONG iEnd = std::min(ptLast.*along + 1, bFlat ? rcClip.right : rcClip.bottom);
    std::vector<RECT> vPixels;
    for (LONG i = iBegin; i < iEnd; ++i)
    {
        POINT pt;
        pt.*along = i;
        pt.*across = ptFirst.*across + static_cast<LONG>(RoundedQuotient((i - ptFirst.*along) * nAcross, nSteps));
        vPixels.push_back(Run(pt.x, pt.x, pt.y));
    }
    return vPixels;
}

std::vector<RECT> BorderPixels(const RECT& rc)
{
    std::vector<RECT> vPixels = {Run(rc.left, rc.right, rc.top)};
    if (rc.top + 1 < rc.bottom)
        vPixels.push_back({rc.left, rc.top + 1, rc.left + 1, rc.bottom});
    if (rc.top + 1 < rc.bottom && rc.left < rc.right)
        vPixels.push_back({rc.right, rc.top + 1, rc.right + 1, rc.bottom});
    if (rc.top < rc.bottom)
        vPixels.push_back(Run(rc.left, rc.right, rc.bottom));
    return vPixels;
}

std::vector<RECT> EllipsePixels(const RECT& rc)
{
    const LONG nWidth = rc.right - rc.left;
    const LONG nHeight = rc.bottom - rc.top;
    const std::vector<QuarterRow> vQuarter = QuarterEllipse(nWidth, nHeight);
    std::vector<RECT> vPixels;
    const auto addRow = [&](const QuarterRow& row, LONG y)
    {
        const LONG nInset = (nWidth - row.xLast) / 2;
        const LONG nPixels = (row.xLast - row.xFirst) / 2;
        const bool bJoined = row.xFirst <= 1;
        const LONG xLeftLast = bJoined ? rc.right - nInset : rc.left + nInset + nPixels;
        vPixels.push_back(Run(rc.left + nInset, xLeftLast, y));
        if (!bJoined)
            vPixels.push_back(Run(rc.right - nInset - nPixels, rc.right - nInset, y));
    };
    for (const QuarterRow& row : vQuarter)
        addRow(row, rc.top + (nHeight - row.y) / 2);
    // The middle row of an odd number of them is no mirror image.
    for (std::size_t i = vQuarter.size() - static_cast<std::size_t>(nHeight % 2 == 0); i-- > 0;)
        addRow(vQuarter[i], rc.bottom - (nHeight - vQuarter[i].y) / 2);
    return vPixels;
}

} // namespace winlite
