#include "pixels/Turn.h"

#include "pixels/Bands.h"

#include <algorithm>
#include <cstring>

namespace
{

/// Where a turned picture reads: at its top left pixel, and how many bytes further for the next to the right and below.
struct Path
{
    const std::uint8_t* pFirst;
    std::ptrdiff_t nRight;
    std::ptrdiff_t nDown;
};

Path PathOf(const std::uint8_t* pTop, PixelSize size, std::ptrdiff_t nPixel, std::ptrdiff_t nStride, Turn turn)
{
    const std::ptrdiff_t nLastColumn = (size.cx - 1) * nPixel;
    const std::ptrdiff_t nLastRow = (size.cy - 1) * nStride;
    switch (turn)
    {
    case Turn::Left:
        return {pTop + nLastColumn, nStride, -nPixel};
    case Turn::Right:
        return {pTop + nLastRow, -nStride, nPixel};
    case Turn::Around:
        return {pTop + nLastRow + nLastColumn, -nPixel, -nStride};
    case Turn::MirrorLeftRight:
        return {pTop + nLastColumn, -nPixel, nStride};
    case Turn::MirrorUpsideDown:
        return {pTop + nLastRow, nPixel, -nStride};
    }
    return {pTop, nPixel, nStride};
}

/// Fills a target of pixels of that many bytes from a path.
template<int PIXEL>
bool Follow(const Path& path, std::uint8_t* pTarget, std::ptrdiff_t nStride, PixelSize size, CProgress& progress)
{
    // Narrow columns: where neighbours to the right come from different rows, these stay in the cache for the next
    // row, which reads right beside.
    constexpr int COLUMNS = 16;
    return ForBands(size.cy, progress,
                    [&](int iFirst, int iEnd)
                    {
                        for (int iLeft = 0; iLeft < size.cx; iLeft += COLUMNS)
                        {
                            const int iRight = std::min(iLeft + COLUMNS, size.cx);
                            for (int y = iFirst; y < iEnd; ++y)
                            {
                                const std::uint8_t* const pFrom = path.pFirst + y * path.nDown;
                                std::uint8_t* const pTo = pTarget + y * nStride;
                                for (int x = iLeft; x < iRight; ++x)
                                    std::memcpy(pTo + std::ptrdiff_t{PIXEL} * x, pFrom + x * path.nRight, PIXEL);
                            }
                        }
                    });
}

} // namespace

PixelSize TurnedSize(PixelSize size, Turn turn)
{
    return turn == Turn::Left || turn == Turn::Right ? PixelSize{size.cy, size.cx} : size;
}

bool TurnPicture(const PixelView& source, const PixelView& target, Turn turn, CProgress& progress)
{
    constexpr int BYTES = 4;
    const Path path = PathOf(source.pTop, {source.cx, source.cy}, BYTES, source.nStride, turn);
    return Follow<BYTES>(path, target.pTop, target.nStride, {target.cx, target.cy}, progress);
}

bool TurnMask(const std::vector<std::uint8_t>& vSource, int iWidth, std::vector<std::uint8_t>& vTarget, Turn turn,
              CProgress& progress)
{
    vTarget.resize(vSource.size());
    if (vSource.empty())
        return true;
    const PixelSize size = {iWidth, static_cast<int>(std::ssize(vSource) / iWidth)};
    const PixelSize turned = TurnedSize(size, turn);
    return Follow<1>(PathOf(vSource.data(), size, 1, iWidth, turn), vTarget.data(), turned.cx, turned, progress);
}
