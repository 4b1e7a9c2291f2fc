#pragma once

#include "pixels/PixelRect.h"

#include <vector>

/// A copy of a rectangle of a picture and what lies around it, for work in place that reads its neighbours as they
/// were. Beyond the picture its edge pixels repeat. Any thread.
class CNeighbourhood
{
public:
    /// The rectangle must lie in the picture.
    CNeighbourhood(const PixelView& picture, const PixelRect& rect, int iAround);

    /// A pixel of 4 bytes by its place in the picture, at most iAround outside of the rectangle.
    const std::uint8_t* At(int x, int y) const
    {
        const auto iRow = static_cast<std::size_t>(y - m_iTop);
        return m_vPixels.data() +
               (iRow * static_cast<std::size_t>(m_nWidth) + static_cast<std::size_t>(x - m_iLeft)) * 4;
    }

private:
    int m_iLeft;
    int m_iTop;
    int m_nWidth;
    std::vector<std::uint8_t> m_vPixels;
};
