#pragma once

#include "base/Types.h"

#include <cstdint>
#include <memory>

namespace winlite
{

/// A rectangle of 32-bit pixels, 0xAARRGGBB with AA unused, top row first. A surface of one colour is kept as that
/// colour alone until something else is written: clearing what is painted over anyway then costs nothing. Pixel memory
/// comes from a small pool, because every paint makes a surface of the view's size and drops it again. It is reserved
/// by the constructor, so that nothing fails later, but not touched before it is needed. Positions are pixels of the
/// surface. User-interface thread only.
class Surface
{
public:
    /// All pixels 0. Throws std::bad_alloc when the memory cannot be had or its bytes do not fit 31 bits.
    Surface(int cx, int cy);
    ~Surface();
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;

    int Width() const { return m_cx; }
    int Height() const { return m_cy; }
    RECT Bounds() const { return {0, 0, m_cx, m_cy}; }

    /// Pixels from one row to the next.
    std::ptrdiff_t Stride() const { return m_cx; }

    /// The first pixel, to read.
    const std::uint32_t* Pixels() const;

    /// The first pixel, to change some of them.
    std::uint32_t* PixelsForUpdate();

    /// The first pixel, for a caller that is about to write every pixel of rcWhole (clipped to the surface): what
    /// stands there now need not be kept, and what stands outside is.
    std::uint32_t* PixelsForOverwrite(const RECT& rcWhole);

    /// Sets every pixel of the rectangle (clipped to the surface).
    void Fill(const RECT& rc, std::uint32_t uPixel);

    /// How many bytes of pixel memory all surfaces hold now, and the pool with them.
    static std::size_t BytesInUse();

private:
    std::uint32_t* PixelAt(int x, int y) const { return m_pPixels.get() + y * Stride() + x; }
    void FillPixels(const RECT& rc, std::uint32_t uPixel) const;
    void MaterialiseOutside(const RECT& rcHole) const;

    int m_cx;
    int m_cy;
    std::unique_ptr<std::uint32_t[]> m_pPixels;
    mutable bool m_bOneColour =
        true; ///< The memory has no content yet. Reading gives it some, which no caller can see.
    std::uint32_t m_uColour = 0;
};

} // namespace winlite
