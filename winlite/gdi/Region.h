#pragma once

#include "base/Types.h"

#include <pixman.h>
#include <span>

namespace winlite
{

/// Coordinates of regions that applications make and move: at least -2^27 and below 2^27.
constexpr std::int64_t REGION_COORDINATE_LIMIT = std::int64_t{1} << 27;

/// A set of pixels. It is kept as rectangles in y-x bands, over pixman's regions:
///
///     +--+  +----+      rectangles of one band share top and bottom, stand from left to right and neither touch nor
///     overlap; |  |  |    |      bands stand from top to bottom; two that touch and have the same x extents are one.
///     +--+--+----+
///        |  |           So one set of pixels has exactly one list of rectangles.
///        +--+
class Region
{
public:
    Region();
    explicit Region(const RECT& rc); ///< Empty when right <= left or bottom <= top.
    Region(const Region& other);
    Region(Region&& other) noexcept;
    Region& operator=(const Region& other);
    Region& operator=(Region&& other) noexcept;
    ~Region();

    /// The union of rectangles in any order, overlapping or not; those without area contribute nothing. Linear for
    /// rectangles that are already in y-x order.
    static Region FromRects(std::span<const RECT> vRects);

    bool IsEmpty() const;
    RECT Box() const; ///< (0, 0, 0, 0) when empty.
    std::span<const RECT> Rects() const;
    int Complexity() const; ///< NULLREGION, SIMPLEREGION or COMPLEXREGION.
    bool Contains(POINT pt) const;
    bool Intersects(const RECT& rc) const;
    bool operator==(const Region& other) const;

    Region& operator&=(const Region& other);
    Region& operator|=(const Region& other);
    Region& operator^=(const Region& other);
    Region& operator-=(const Region& other);
    Region& operator&=(const RECT& rc);
    Region& operator|=(const RECT& rc);
    Region& operator-=(const RECT& rc);

    /// Moves the set; pixels that would leave the range of coordinates are lost.
    void Offset(int dx, int dy);

private:
    explicit Region(const pixman_region32_t& regionOwned) : m_Region(regionOwned) {}

    pixman_region32_t m_Region;
};

inline Region operator&(Region a, const Region& b) { return a &= b; }
inline Region operator&(Region a, const RECT& rc) { return a &= rc; }
inline Region operator-(Region a, const Region& b) { return a -= b; }

} // namespace winlite
