#include "platform/vorpix.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace
{

using Vorpix::FULL_WEIGHT;

/// The weight as declared, summed up along a pixel, on a scale of 1.
double MeanWeight(double dDistance, double dRadius, double dHardness)
{
    constexpr int POINTS = 2000;
    double dSum = 0;
    for (int i = 0; i < POINTS; ++i)
    {
        const double dAt = std::abs(dDistance - 0.5 + (i + 0.5) / POINTS);
        const double t = (dAt - dHardness * dRadius) / (dRadius - dHardness * dRadius);
        dSum += dAt <= dHardness * dRadius ? 1 : dAt >= dRadius ? 0 : 1 - 3 * t * t + 2 * t * t * t;
    }
    return dSum / POINTS;
}

} // namespace

TEST(CreateMask, FallsOffEvenlyFromAFullMiddleAtEverySize)
{
    for (int n = 1; n <= 501; n += n < 40 ? 1 : n % 2 ? 46 : 45)
        for (const float fHardness : {0.01f, 0.5f, 1.0f})
        {
            std::vector<int> vPen(7);
            BITMAPINFO info = {};
            ASSERT_TRUE(Vorpix::CreateMask(vPen, info, Vorpix::MASK_DISC, n, fHardness));
            ASSERT_EQ(vPen.size(), static_cast<size_t>(n) * n);
            ASSERT_TRUE(info.bmiHeader.biWidth == n && info.bmiHeader.biHeight == n && info.bmiHeader.biBitCount == 32);
            ASSERT_EQ(info.bmiHeader.biSizeImage, vPen.size());
            ASSERT_EQ(*std::ranges::max_element(vPen), FULL_WEIGHT);
            const double dMiddle = (n - 1) / 2.0, dNearest = n % 2 ? 0 : std::sqrt(0.5);
            const double dUnit = FULL_WEIGHT / MeanWeight(dNearest, n / 2.0, fHardness);
            for (int i = 0; i < n * n; ++i)
            {
                const int x = i % n, y = i / n;
                ASSERT_TRUE(vPen[i] == vPen[x * n + y] && vPen[i] == vPen[y * n + n - 1 - x]) << x << "," << y;
                if (y != x / 3) // Along a line that is no symmetry of the disc.
                    continue;
                const double dDistance = std::hypot(x - dMiddle, y - dMiddle);
                ASSERT_NEAR(vPen[i], dUnit * MeanWeight(dDistance, n / 2.0, fHardness), 40) << x << "," << y;
            }
        }
}

TEST(CreateMask, RefusesBadArgumentsAndWritesNothing)
{
    const struct
    {
        int iType, iSize;
        float fHardness;
    } aCases[] = {{1, 9, 1}, {0, 0, 1}, {0, -1, 1}, {0, 502, 1}, {0, 9, -0.01f}, {0, 9, 1.01f}, {0, 9, NAN}};
    for (const auto& test : aCases)
    {
        std::vector<int> vPen(3, 7);
        BITMAPINFO info = {};
        EXPECT_FALSE(Vorpix::CreateMask(vPen, info, Vorpix::emVXMaskType(test.iType), test.iSize, test.fHardness));
        EXPECT_TRUE(vPen == std::vector<int>(3, 7) && info.bmiHeader.biWidth == 0);
    }
}
