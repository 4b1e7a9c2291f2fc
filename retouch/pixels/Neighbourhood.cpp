#include "pixels/Neighbourhood.h"

#include <cstring>

CNeighbourhood::CNeighbourhood(const PixelView& picture, const PixelRect& rect, int iAround)
    : m_iLeft(rect.left - iAround), m_iTop(rect.top - iAround), m_nWidth(rect.Width() + 2 * iAround)
{
    const int nHeight = rect.Height() + 2 * iAround;
    m_vPixels.resize(static_cast<std::size_t>(m_nWidth) * static_cast<std::size_t>(nHeight) * 4);
    const int iFirst = std::max(m_iLeft, 0);
    const int iEnd = std::min(m_iLeft + m_nWidth, picture.cx);
    std::uint8_t* pTo = m_vPixels.data();
    for (int y = 0; y < nHeight; ++y)
    {
        const std::uint8_t* const pRow = picture.Row(std::clamp(m_iTop + y, 0, picture.cy - 1));
        for (int x = m_iLeft; x < iFirst; ++x, pTo += 4)
            std::memcpy(pTo, pRow, 4);
        const auto nInside = static_cast<std::size_t>(iEnd - iFirst) * 4;
        std::memcpy(pTo, pRow + std::ptrdiff_t{iFirst} * 4, nInside);
        pTo += nInside;
        for (int x = iEnd; x < m_iLeft + m_nWidth; ++x, pTo += 4)
            std::memcpy(pTo, pRow + (std::ptrdiff_t{picture.cx} - 1) * 4, 4);
    }
}
