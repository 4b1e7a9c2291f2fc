#include "pixels/Spot.h"

#include <cmath>

namespace
{

void AddWithin(std::vector<PixelRun>& vRuns, PixelRun run, const PixelRect& rect)
{
    run.left = std::max(run.left, rect.left);
    run.right = std::min(run.right, rect.right);
    if (run.left < run.right)
        vRuns.push_back(run);
}

} // namespace

PixelRun Spot::Row(int iRow) const
{
    const PixelRect box = Box();
    // In half pixels: the circle has the diameter 2 iSize, and the middles of pixels are odd.
    const int iDown = 2 * (iRow - box.top) + 1 - iSize;
    const int iRest = iSize * iSize - iDown * iDown;
    if (iRest < 0)
        return {iRow, x, x};
    const auto nHalf = static_cast<int>(std::sqrt(static_cast<double>(iRest)));
    const int nOutside = (iSize - nHalf) / 2; // The first middle at 2 nOutside + 1 - iSize >= -nHalf.
    return {iRow, box.left + nOutside, box.right - nOutside};
}

std::vector<PixelRun> Spot::RunsWithin(const PixelRect& rect) const
{
    std::vector<PixelRun> vRuns;
    for (int iRow = std::max(Box().top, rect.top); iRow < std::min(Box().bottom, rect.bottom); ++iRow)
        AddWithin(vRuns, Row(iRow), rect);
    return vRuns;
}

std::vector<PixelRun> Spot::RingWithin(const PixelRect& rect, int nPixels) const
{
    const Spot grown = Grown(nPixels);
    std::vector<PixelRun> vRuns;
    for (int iRow = std::max(grown.Box().top, rect.top); iRow < std::min(grown.Box().bottom, rect.bottom); ++iRow)
    {
        const PixelRun outer = grown.Row(iRow);
        const PixelRun inner = Row(iRow);
        AddWithin(vRuns, {iRow, outer.left, std::min(outer.right, inner.left)}, rect);
        AddWithin(vRuns, {iRow, std::max(outer.left, inner.right), outer.right}, rect);
    }
    return vRuns;
}
