#include "gdi/SourceCopy.h"

#include <algorithm>

namespace winlite
{

SourceCopy::SourceCopy(const Surface& source, NearestAxis& axisX, NearestAxis& axisY)
{
    const auto [xLeast, xMost] = std::ranges::minmax(axisX.vSource);
    const auto [yLeast, yMost] = std::ranges::minmax(axisY.vSource);
    m_nStride = xMost + 1 - xLeast;
    m_vPixels.reserve(static_cast<std::size_t>(m_nStride * (yMost + 1 - yLeast)));
    for (int y = yLeast; y <= yMost; ++y)
    {
        const std::uint32_t* pRow = source.Pixels() + y * source.Stride() + xLeast;
        m_vPixels.insert(m_vPixels.end(), pRow, pRow + m_nStride);
    }
    for (int& iColumn : axisX.vSource)
        iColumn -= xLeast;
    for (int& iRow : axisY.vSource)
        iRow -= yLeast;
}

} // namespace winlite
