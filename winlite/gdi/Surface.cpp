#include "gdi/Surface.h"

#include "gdi/PixelPool.h"
#include "gdi/RectMath.h"

#include <cassert>
#include <limits>
#include <new>

namespace winlite
{

namespace
{

std::size_t PixelCount(int cx, int cy)
{
    assert(cx >= 0 && cy >= 0);
    const std::int64_t nPixels = std::int64_t{cx} * cy;
    if (nPixels > std::numeric_limits<LONG>::max() / std::int64_t{sizeof(std::uint32_t)})
        throw std::bad_alloc();
    return static_cast<std::size_t>(nPixels);
}

} // namespace

Surface::Surface(int cx, int cy) : m_cx(cx), m_cy(cy), m_pPixels(PixelPool::Get().Take(PixelCount(cx, cy))) {}

Surface::~Surface() { PixelPool::Get().GiveBack(std::move(m_pPixels), PixelCount(m_cx, m_cy)); }

const std::uint32_t* Surface::Pixels() const
{
    MaterialiseOutside({});
    return m_pPixels.get();
}

std::uint32_t* Surface::PixelsForUpdate()
{
    MaterialiseOutside({});
    return m_pPixels.get();
}

std::uint32_t* Surface::PixelsForOverwrite(const RECT& rcWhole)
{
    MaterialiseOutside(rcWhole);
    return m_pPixels.get();
}

void Surface::Fill(const RECT& rc, std::uint32_t uPixel)
{
    const RECT rcFill = Intersection(rc, Bounds());
    if (!HasArea(rcFill) || (m_bOneColour && m_uColour == uPixel))
        return;
    if (rcFill.right - rcFill.left == m_cx && rcFill.bottom - rcFill.top == m_cy)
    {
        m_bOneColour = true;
        m_uColour = uPixel;
        return;
    }
    MaterialiseOutside(rcFill);
    FillPixels(rcFill, uPixel);
}

std::size_t Surface::BytesInUse() { return PixelPool::Get().BytesInUse(); }

void Surface::FillPixels(const RECT& rc, std::uint32_t uPixel) const
{
    const int cx = rc.right - rc.left;
    if (cx == m_cx)
    {
        std::fill_n(PixelAt(0, rc.top), Stride() * (rc.bottom - rc.top), uPixel);
        return;
    }
    for (int y = rc.top; y < rc.bottom; ++y)
        std::fill_n(PixelAt(rc.left, y), cx, uPixel);
}

void Surface::MaterialiseOutside(const RECT& rcHole) const
{
    if (!m_bOneColour)
        return;
    m_bOneColour = false;
    const RECT rcKept = Intersection(rcHole, Bounds());
    if (!HasArea(rcKept))
    {
        FillPixels(Bounds(), m_uColour);
        return;
    }
    FillPixels({0, 0, m_cx, rcKept.top}, m_uColour);
    FillPixels({0, rcKept.top, rcKept.left, rcKept.bottom}, m_uColour);
    FillPixels({rcKept.right, rcKept.top, m_cx, rcKept.bottom}, m_uColour);
    FillPixels({0, rcKept.bottom, m_cx, m_cy}, m_uColour);
}

} // namespace winlite
