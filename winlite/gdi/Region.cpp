#include "gdi/Region.h"

#include "gdi/BandedRects.h"
#include "gdi/Gdi.h"
#include "gdi/RectMath.h"

#include <cassert>
#include <cstddef>
#include <new>
#include <utility>

namespace winlite
{

static_assert(sizeof(RECT) == sizeof(pixman_box32_t));
static_assert(offsetof(RECT, left) == offsetof(pixman_box32_t, x1) &&
              offsetof(RECT, top) == offsetof(pixman_box32_t, y1) &&
              offsetof(RECT, right) == offsetof(pixman_box32_t, x2) &&
              offsetof(RECT, bottom) == offsetof(pixman_box32_t, y2));

namespace
{

/// pixman's operations fail only for want of memory.
void Require(pixman_bool_t bDone)
{
    if (!bDone)
        throw std::bad_alloc();
}

// Older versions of pixman ask for a mutable region even to read it.
pixman_region32_t* ToRead(const pixman_region32_t& region) { return const_cast<pixman_region32_t*>(&region); }

pixman_box32_t BoxFromRect(const RECT& rc) { return {rc.left, rc.top, rc.right, rc.bottom}; }

} // namespace

Region::Region() { pixman_region32_init(&m_Region); }

Region::Region(const RECT& rc)
{
    pixman_region32_init(&m_Region);
    if (!HasArea(rc))
        return;
    m_Region.extents = BoxFromRect(rc);
    m_Region.data = nullptr;
}

Region::Region(const Region& other) : Region() { *this = other; }

Region::Region(Region&& other) noexcept : Region() { std::swap(m_Region, other.m_Region); }

Region& Region::operator=(const Region& other)
{
    if (this != &other)
        Require(pixman_region32_copy(&m_Region, ToRead(other.m_Region)));
    return *this;
}

Region& Region::operator=(Region&& other) noexcept
{
    std::swap(m_Region, other.m_Region);
    return *this;
}

Region::~Region() { pixman_region32_fini(&m_Region); }

Region Region::FromRects(std::span<const RECT> vRects)
{
    BandedRects banded(std::max<std::size_t>(vRects.size(), 1));
    for (const RECT& rc : vRects)
    {
        if (HasArea(rc) && !banded.Add(rc))
        {
            Region rgn;
            const auto* pBoxes = reinterpret_cast<const pixman_box32_t*>(vRects.data());
            Require(pixman_region32_init_rects(&rgn.m_Region, pBoxes, static_cast<int>(vRects.size())));
            return rgn;
        }
    }
    Region rgn(banded.Finish());
    assert(pixman_region32_selfcheck(&rgn.m_Region));
    return rgn;
}

bool Region::IsEmpty() const { return !pixman_region32_not_empty(ToRead(m_Region)); }

RECT Region::Box() const
{
    const pixman_box32_t& box = m_Region.extents;
    return IsEmpty() ? RECT{} : RECT{box.x1, box.y1, box.x2, box.y2};
}

std::span<const RECT> Region::Rects() const
{
    int nRects = 0;
    const pixman_box32_t* pBoxes = pixman_region32_rectangles(ToRead(m_Region), &nRects);
    return {reinterpret_cast<const RECT*>(pBoxes), static_cast<std::size_t>(nRects)};
}

int Region::Complexity() const
{
    const std::size_t nRects = Rects().size();
    return nRects == 0 ? NULLREGION : nRects == 1 ? SIMPLEREGION : COMPLEXREGION;
}

bool Region::Contains(POINT pt) const { return pixman_region32_contains_point(ToRead(m_Region), pt.x, pt.y, nullptr); }

bool Region::Intersects(const RECT& rc) const
{
    pixman_box32_t box = BoxFromRect(rc);
    return HasArea(rc) && pixman_region32_contains_rectangle(ToRead(m_Region), &box) != PIXMAN_REGION_OUT;
}

bool Region::operator==(const Region& other) const
{
    if (IsEmpty() || other.IsEmpty())
        return IsEmpty() == other.IsEmpty();
    return pixman_region32_equal(ToRead(m_Region), ToRead(other.m_Region));
}

Region& Region::operator&=(const Region& other)
{
    Require(pixman_region32_intersect(&m_Region, &m_Region, ToRead(other.m_Region)));
    return *this;
}

Region& Region::operator|=(const Region& other)
{
    Require(pixman_region32_union(&m_Region, &m_Region, ToRead(other.m_Region)));
    return *this;
}

Region& Region::operator^=(const Region& other)
{
    const Region rgnOnlyOther = other - *this;
    *this -= other;
    return *this |= rgnOnlyOther;
}

Region& Region::operator-=(const Region& other)
{
    Require(pixman_region32_subtract(&m_Region, &m_Region, ToRead(other.m_Region)));
    return *this;
}

Region& Region::operator&=(const RECT& rc) { return *this &= Region(rc); }
Region& Region::operator|=(const RECT& rc) { return *this |= Region(rc); }
Region& Region::operator-=(const RECT& rc) { return *this -= Region(rc); }

void Region::Offset(int dx, int dy)
{
    constexpr std::int64_t iLeast = std::numeric_limits<LONG>::min();
    constexpr std::int64_t iMost = std::numeric_limits<LONG>::max();
    const RECT rcStaysInRange = {Saturated(iLeast - dx), Saturated(iLeast - dy), Saturated(iMost - dx),
                                 Saturated(iMost - dy)};
    *this &= rcStaysInRange;
    pixman_region32_translate(&m_Region, dx, dy);
}

} // namespace winlite
