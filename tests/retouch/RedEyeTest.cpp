#include "pixels/RedEye.h"

#include <cmath>
#include <gtest/gtest.h>
#include <vector>

namespace
{

constexpr int CX = 160;
constexpr int CY = 80;

using Bytes = std::vector<std::uint8_t>;

PixelView ViewOf(Bytes& bytes) { return {bytes.data(), CX, CY, std::ptrdiff_t{CX} * 4}; }

void Paint(Bytes& bytes, double dX, double dY, double dRadius, int iRed, int iGreen, int iBlue)
{
    for (int y = 0; y < CY; ++y)
    {
        for (int x = 0; x < CX; ++x)
        {
            if (std::hypot(x - dX, y - dY) > dRadius)
                continue;
            std::uint8_t* const pPixel = ViewOf(bytes).Row(y) + x * 4;
            pPixel[0] = static_cast<std::uint8_t>(iBlue + x % 3);
            pPixel[1] = static_cast<std::uint8_t>(iGreen + y % 3);
            pPixel[2] = static_cast<std::uint8_t>(iRed + (x + y) % 3);
        }
    }
}

/// Skin with lips, a dark corner of the mouth, and two eyes: white, iris, red pupil, glint.
Bytes Face(bool bRed)
{
    Bytes bytes(std::size_t{CX} * CY * 4);
    Paint(bytes, 0, 0, 1000, 222, 172, 150);
    Paint(bytes, 80, 75, 12, 180, 92, 90);
    Paint(bytes, 66, 64, 5, 62, 20, 4);
    for (const int x : {45, 115})
    {
        Paint(bytes, x, 35, 20, 235, 232, 228);
        Paint(bytes, x, 35, 12, 90, 110, 130);
        Paint(bytes, x, 35, 8, bRed ? 200 : 24, 28, 30);
        Paint(bytes, x + 3, 32, 2, 250, 248, 246);
    }
    return bytes;
}

bool IsRedPupil(int x, int y)
{
    const double dEye = x < 80 ? 45 : 115;
    return std::hypot(x - dEye, y - 35) <= 8 && std::hypot(x - dEye - 3, y - 32) > 2;
}

TEST(RedEyeTest, TheRedGoesAndAllElseStays)
{
    const struct
    {
        const char* pszName;
        PixelRect rect;
        int iAmount;
        bool bLeft, bRight; ///< Eyes that lose their red.
    } CASES[] = {{"both eyes", {10, 5, 150, 70}, 100, true, true},
                 {"one eye", {20, 10, 70, 60}, 100, true, false},
                 {"an eye drawn tightly", {35, 25, 56, 46}, 100, true, false},
                 {"half of it", {80, 5, 150, 70}, 50, false, true},
                 {"none of it", {80, 5, 150, 70}, 0, false, false},
                 {"beyond the picture", {80, -20, 900, 70}, 100, false, true},
                 {"skin and lips", {60, 56, 100, 90}, 100, false, false},
                 {"beside the picture", {-50, 0, 0, 50}, 100, false, false}};
    for (const auto& test : CASES)
    {
        const Bytes before = Face(true);
        Bytes after = before;
        CProgress progress;
        EXPECT_TRUE(RemoveRedEye(ViewOf(after), {}, test.rect, test.iAmount, progress));
        for (int y = 0; y < CY; ++y)
        {
            for (int x = 0; x < CX; ++x)
            {
                const std::size_t i = (static_cast<std::size_t>(y) * CX + x) * 4;
                const int iMean = (after[i] + after[i + 1]) / 2;
                const bool bGoes = IsRedPupil(x, y) && (x < 80 ? test.bLeft : test.bRight);
                const int iExpected =
                    bGoes ? before[i + 2] + (iMean - before[i + 2]) * test.iAmount / 100 : before[i + 2];
                ASSERT_NEAR(after[i + 2], iExpected, bGoes ? 1 : 0) << test.pszName << " " << x << " " << y;
                ASSERT_EQ(after[i + 1], before[i + 1]) << test.pszName;
            }
        }
    }
}

TEST(RedEyeTest, WeightsLimitItAndWhatIsNotRedStays)
{
    const Bytes dark = Face(false);
    Bytes after = dark;
    CProgress progress;
    EXPECT_TRUE(RemoveRedEye(ViewOf(after), {}, {0, 0, CX, CY}, 100, progress));
    EXPECT_EQ(after, dark);
    const std::vector<std::uint8_t> vNothing(std::size_t{CX} * CY);
    Bytes red = Face(true);
    EXPECT_TRUE(RemoveRedEye(ViewOf(red), {vNothing.data(), CX}, {0, 0, CX, CY}, 100, progress));
    EXPECT_EQ(red, Face(true));
    progress.Cancel();
    EXPECT_FALSE(RemoveRedEye(ViewOf(red), {}, {0, 0, CX, CY}, 100, progress));
    EXPECT_EQ(red, Face(true));
}

} // namespace
