#include "pixels/Average.h"

#include "pixels/PixelRect.h"

std::array<std::uint8_t, 3> AverageColour(const PixelView& picture, int x, int y, int iSide)
{
    const int iAway = iSide / 2;
    const PixelRect square = PixelRect{x - iAway, y - iAway, x + iAway + 1, y + iAway + 1}.Within(picture);
    std::array<int, 3> vSums = {};
    for (int iRow = square.top; iRow < square.bottom; ++iRow)
    {
        for (int iByte = square.left * 4; iByte < square.right * 4; ++iByte)
        {
            if (iByte % 4 < 3)
                vSums[static_cast<std::size_t>(iByte % 4)] += picture.Row(iRow)[iByte];
        }
    }
    const int nPixels = std::max(square.Width() * square.Height(), 1);
    std::array<std::uint8_t, 3> vColour = {};
    for (std::size_t i = 0; i < vColour.size(); ++i)
        vColour[i] = static_cast<std::uint8_t>((vSums[i] + nPixels / 2) / nPixels);
    return vColour;
}
