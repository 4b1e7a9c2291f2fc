#pragma once

#include "gdi/NearestScaler.h"

namespace winlite
{

/// A copy of the pixels that a block copy takes, for one within a single surface.
class SourceCopy
{
public:
    /// Copies the source pixels that the axes, which are not empty, name, and lets the axes name the copy's.
    SourceCopy(const Surface& source, NearestAxis& axisX, NearestAxis& axisY);

    const std::uint32_t* Pixels() const { return m_vPixels.data(); }
    std::ptrdiff_t Stride() const { return m_nStride; }

private:
    std::vector<std::uint32_t> m_vPixels;
    std::ptrdiff_t m_nStride;
};

} // namespace winlite
