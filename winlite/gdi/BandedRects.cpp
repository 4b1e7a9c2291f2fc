#include "gdi/BandedRects.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace winlite
{

namespace
{

std::size_t DataBytes(std::size_t nBoxes) { return sizeof(pixman_region32_data_t) + nBoxes * sizeof(pixman_box32_t); }

} // namespace

// pixman gives the array back with free.
void BandedRects::Freer::operator()(pixman_region32_data_t* pData) const { std::free(pData); }

BandedRects::BandedRects(std::size_t nMost)
    : m_pData(static_cast<pixman_region32_data_t*>(std::malloc(DataBytes(nMost))))
{
    if (!m_pData)
        throw std::bad_alloc();
}

bool BandedRects::Add(const RECT& rc)
{
    if (m_nBoxes == 0)
    {
        Append(rc);
        return true;
    }
    pixman_box32_t& boxLast = Boxes()[m_nBoxes - 1];
    if (rc.top >= boxLast.y2)
    {
        CloseBand();
        Append(rc);
        return true;
    }
    if (rc.top != boxLast.y1 || rc.bottom != boxLast.y2 || rc.left < boxLast.x1)
        return false;
    if (rc.left > boxLast.x2)
        Append(rc);
    else
        boxLast.x2 = std::max(boxLast.x2, rc.right);
    return true;
}

void BandedRects::Append(const RECT& rc) { Boxes()[m_nBoxes++] = {rc.left, rc.top, rc.right, rc.bottom}; }

void BandedRects::CloseBand()
{
    pixman_box32_t* pBoxes = Boxes();
    m_iLeft = m_iBandAbove ? std::min(m_iLeft, pBoxes[m_iBand].x1) : pBoxes[m_iBand].x1;
    m_iRight = m_iBandAbove ? std::max(m_iRight, pBoxes[m_nBoxes - 1].x2) : pBoxes[m_nBoxes - 1].x2;
    if (!ContinuesBandAbove())
    {
        m_iBandAbove = m_iBand;
        m_iBand = m_nBoxes;
        return;
    }
    const int iBottom = pBoxes[m_iBand].y2;
    m_nBoxes = m_iBand;
    for (std::size_t i = *m_iBandAbove; i < m_iBand; ++i)
        pBoxes[i].y2 = iBottom;
}

bool BandedRects::ContinuesBandAbove() const
{
    if (!m_iBandAbove || m_nBoxes - m_iBand != m_iBand - *m_iBandAbove)
        return false;
    const pixman_box32_t* pAbove = Boxes() + *m_iBandAbove;
    const pixman_box32_t* pBand = Boxes() + m_iBand;
    const pixman_box32_t* pEnd = Boxes() + m_nBoxes;
    return pAbove->y2 == pBand->y1 && std::equal(pBand, pEnd, pAbove,
                                                 [](const pixman_box32_t& box, const pixman_box32_t& boxAbove)
                                                 { return box.x1 == boxAbove.x1 && box.x2 == boxAbove.x2; });
}

pixman_region32_t BandedRects::Finish()
{
    pixman_region32_t region;
    pixman_region32_init(&region);
    if (m_nBoxes == 0)
        return region;
    CloseBand();
    region.extents = {m_iLeft, Boxes()[0].y1, m_iRight, Boxes()[m_nBoxes - 1].y2};
    region.data = nullptr; // A single rectangle is its extents alone.
    if (m_nBoxes == 1)
        return region;
    m_pData->size = static_cast<long>(m_nBoxes);
    m_pData->numRects = static_cast<long>(m_nBoxes);
    void* pShrunk = std::realloc(m_pData.get(), DataBytes(m_nBoxes));
    region.data = pShrunk ? static_cast<pixman_region32_data_t*>(pShrunk) : m_pData.get();
    static_cast<void>(m_pData.release());
    return region;
}

} // namespace winlite
