#include "Canvas.h"

#include <new>

using winlite::Surface;

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
