#include "Canvas.h"

#include <new>

using winlite::Surface;

TEST(SurfaceTest, OverwritingKeepsOneColourOutsideOnly)
{
    const RECT vRects[] = {{1, 1, 3, 2}, {-3, 2, 9, 9}, {4, -1, 6, 2}, {7, 7, 9, 9}};
    for (const RECT& rc : vRects)
    {
        Surface surface(5, 4);
        surface.Fill(surface.Bounds(), 0xAABBCCDD);
        const winlite::Region rgnHole(rc);
        const std::uint32_t* pPixels = surface.PixelsForOverwrite(rc);
        for (int i = 0; i < 20; ++i)
        {
            const bool bOutside = !rgnHole.Contains({i % 5, i / 5});
            EXPECT_TRUE(!bOutside || pPixels[i] == 0xAABBCCDD) << testing::PrintToString(rc) << ": " << i;
        }
    }
}

TEST(SurfaceTest, DroppedSurfacesLeaveABoundedPool)
{
    constexpr std::size_t MOST_KEPT = std::size_t{128} << 20;
    const std::size_t nBefore = Surface::BytesInUse();
    {
        std::vector<std::unique_ptr<Surface>> vSurfaces;
        for (int i = 0; i < 12; ++i)
            vSurfaces.push_back(std::make_unique<Surface>(4096, 1024 + 64 * i));
        EXPECT_GE(Surface::BytesInUse(), nBefore + 12 * (std::size_t{16} << 20));
    }
    const std::size_t nKept = Surface::BytesInUse();
    EXPECT_LE(nKept, nBefore + MOST_KEPT);
    {
        const Surface surface(4096, 1024 + 64 * 11);
        EXPECT_EQ(Surface::BytesInUse(), nKept) << "a buffer of that size was in the pool";
        EXPECT_EQ(surface.Pixels()[0], 0u);
    }
    EXPECT_THROW(Surface(1 << 15, 1 << 15), std::bad_alloc);
}
