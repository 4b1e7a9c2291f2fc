#include "view/Rounding.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace Pixtane;

TEST(RoundingTest, EachRuleOnBothSidesOfItsEdges)
{
    constexpr int MAX = std::numeric_limits<int>::max();
    constexpr int MIN = std::numeric_limits<int>::min();
    const struct
    {
        float fValue;
        int iTruncated, iFloor, iCeiling, iRounded;
    } vCases[] = {
        {0.0f, 0, 0, 0, 0},
        {0.5f, 0, 0, 1, 1},
        {-0.5f, 0, -1, 0, -1},
        {0.49f, 0, 0, 1, 0},
        {2.00005f, 2, 2, 2, 2}, // within 0.0001 of a whole number counts as that number
        {2.0002f, 2, 2, 3, 2},
        {-2.00005f, -2, -2, -2, -2},
        {-2.0002f, -2, -3, -2, -2},
        {-1.0f, -1, -1, -1, -1},
        {3000.0f, 3000, 3000, 3000, 3000}, // whole numbers are themselves, however large
        {-60001.0f, -60001, -60001, -60001, -60001},
        {3000.01f, 3000, 3000, 3001, 3000},
        {0.49999997f, 0, 0, 1, 0},
        {3e9f, MAX, MAX, MAX, MAX},
        {-3e9f, MIN, MIN, MIN, MIN},
        {INFINITY, MAX, MAX, MAX, MAX},
        {NAN, 0, 0, 0, 0},
    };
    for (const auto& c : vCases)
    {
        EXPECT_EQ(Truncate(c.fValue), c.iTruncated) << c.fValue;
        EXPECT_EQ(FloorLike(c.fValue), c.iFloor) << c.fValue;
        EXPECT_EQ(CeilingLike(c.fValue), c.iCeiling) << c.fValue;
        EXPECT_EQ(RoundHalfAway(c.fValue), c.iRounded) << c.fValue;
    }
}

TEST(RoundingTest, SumsStopAtTheLimits)
{
    EXPECT_EQ(SaturatedSum(2147483000, 1000), 2147483647);
    EXPECT_EQ(SaturatedSum(-2147483000, -1000), -2147483647 - 1);
    EXPECT_EQ(SaturatedSum(5, 9223372036854775807LL), 2147483647);
    EXPECT_EQ(SaturatedSum(-7, 3), -4);
}
