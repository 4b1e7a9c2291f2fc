#pragma once

#include "gdi/Handles.h"
#include "support/Rects.h"

#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

/// A test that must leave as many handles as it found.
class HandleTest : public testing::Test
{
protected:
    ~HandleTest() override { EXPECT_EQ(winlite::OpenHandleCount(), m_nHandles); }

private:
    std::size_t m_nHandles = winlite::OpenHandleCount();
};

using Picture = std::vector<std::uint32_t>; ///< Row by row.

/// A surface with a device context like a window's on it, that notes the damage.
class Canvas
{
public:
    Canvas(int cx, int cy, POINT ptOrigin = {})
        : pSurface(std::make_shared<winlite::Surface>(cx, cy)),
          pDC(std::make_shared<winlite::DeviceContext>(pSurface, ptOrigin, winlite::Region(pSurface->Bounds()),
                                                       [this](const RECT& rc) { vDamage.push_back(rc); })),
          hDC(winlite::OpenTyped<HDC>(pDC))
    {
    }
    Canvas(int cx, const Picture& picture, POINT ptOrigin = {})
        : Canvas(cx, static_cast<int>(picture.size()) / cx, ptOrigin)
    {
        std::copy(picture.begin(), picture.end(), pSurface->PixelsForUpdate());
    }
    ~Canvas() { winlite::CloseHandleEntry(hDC); }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    Picture Pixels() const
    {
        const std::uint32_t* pPixels = pSurface->Pixels();
        return {pPixels, pPixels + pSurface->Width() * pSurface->Height()};
    }

    std::shared_ptr<winlite::Surface> pSurface;
    std::shared_ptr<winlite::DeviceContext> pDC;
    HDC hDC;
    std::vector<RECT> vDamage;
};

using Rows = std::vector<std::string>;

/// The canvas as text: pen #, brush +, background o, untouched a point, anything else a question mark.
inline Rows TextOf(const Canvas& canvas)
{
    Rows vRows;
    const Picture picture = canvas.Pixels();
    for (std::size_t i = 0; i < picture.size(); ++i)
    {
        if (i % static_cast<std::size_t>(canvas.pSurface->Width()) == 0)
            vRows.emplace_back();
        const std::uint32_t u = picture[i];
        vRows.back() += u == 0xC00000 ? '#' : u == 0x00C000 ? '+' : u == 0x0000C0 ? 'o' : u == 0 ? '.' : '?';
    }
    return vRows;
}

/// Numbers that are the same on every run.
class Dice
{
public:
    int Roll(int iLeast, int iMost)
    {
        return iLeast + static_cast<int>(m_Engine() % static_cast<unsigned>(iMost - iLeast + 1));
    }

    RECT Rect(int iLeast, int iMost, int iMostSize)
    {
        const int x = Roll(iLeast, iMost);
        const int y = Roll(iLeast, iMost);
        return {x, y, x + Roll(0, iMostSize), y + Roll(0, iMostSize)};
    }

    winlite::Region Region(int nSize)
    {
        std::vector<RECT> vRects(static_cast<std::size_t>(Roll(1, 4)));
        for (RECT& rc : vRects)
            rc = Rect(-2, nSize, nSize);
        return winlite::Region::FromRects(vRects);
    }

    Picture Pixels(int nPixels)
    {
        Picture picture(static_cast<std::size_t>(nPixels));
        for (std::uint32_t& uPixel : picture)
            uPixel = static_cast<std::uint32_t>(m_Engine());
        return picture;
    }

private:
    std::mt19937 m_Engine{20240607};
};
