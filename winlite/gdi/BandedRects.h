#pragma once

#include "base/Types.h"

#include <memory>
#include <optional>
#include <pixman.h>

namespace winlite
{

/// Turns rectangles that arrive in y-x bands into a region's reduced list in one linear pass: runs of a band that touch
/// or overlap become one, and so do touching bands with the same x extents. It writes pixman's box array directly.
class BandedRects
{
public:
    /// Makes room for at most nMost rectangles, at least 1. Throws std::bad_alloc.
    explicit BandedRects(std::size_t nMost);

    /// Takes the next rectangle, which has area. FALSE when it does not continue the bands: it then reaches into rows
    /// above its own band, or stands left of its neighbour.
    bool Add(const RECT& rc);

    /// Hands over the region; nothing may be added afterwards.
    pixman_region32_t Finish();

private:
    struct Freer
    {
        void operator()(pixman_region32_data_t* pData) const;
    };

    pixman_box32_t* Boxes() const { return reinterpret_cast<pixman_box32_t*>(m_pData.get() + 1); }
    void Append(const RECT& rc);
    void CloseBand();
    bool ContinuesBandAbove() const;

    std::unique_ptr<pixman_region32_data_t, Freer> m_pData;
    std::size_t m_nBoxes = 0;
    std::size_t m_iBand = 0;                 ///< First box of the band that is being filled.
    std::optional<std::size_t> m_iBandAbove; ///< First box of the finished band before it.
    int m_iLeft = 0;
    int m_iRight = 0;
};

} // namespace winlite
