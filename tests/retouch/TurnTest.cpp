#include "pixels/Turn.h"
#include "pixels/Average.h"
#include "pixels/Straighten.h"

#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <numbers>
#include <vector>

namespace
{

/// A picture of its own, top row first.
struct Picture
{
    Picture(int nWidth, int nHeight, int iLevel = 0)
        : cx(nWidth), cy(nHeight), vBytes(static_cast<std::size_t>(nWidth) * nHeight * 4)
    {
        std::memset(vBytes.data(), iLevel, vBytes.size());
    }
    PixelView View() { return {vBytes.data(), cx, cy, std::ptrdiff_t{cx} * 4}; }
    int At(int x, int y) { return View().Row(y)[x * 4]; }

    int cx, cy;
    std::vector<std::uint8_t> vBytes;
};

Picture Turned(Picture& before, Turn eTurn)
{
    const bool bQuarter = IsQuarterTurn(eTurn);
    Picture after(bQuarter ? before.cy : before.cx, bQuarter ? before.cx : before.cy);
    ForTurned(eTurn, before.cx, before.cy,
              [&](PixelPlace to, PixelPlace from)
              { std::memcpy(after.View().Row(to.y) + to.x * 4, before.View().Row(from.y) + from.x * 4, 4); });
    return after;
}

/// White below a line through the middle that falls to the right by so many degrees, smoothed over a pixel.
Picture Tilted(int cx, int cy, double dDegrees)
{
    Picture picture(cx, cy);
    const double dAngle = dDegrees * std::numbers::pi / 180;
    for (int y = 0; y < cy; ++y)
    {
        for (int x = 0; x < cx; ++x)
        {
            const double dBelow = (y - (cy - 1) / 2.0) * std::cos(dAngle) - (x - (cx - 1) / 2.0) * std::sin(dAngle);
            const int iLevel = static_cast<int>(std::lround(std::clamp(dBelow + 0.5, 0.0, 1.0) * 255));
            std::memset(picture.View().Row(y) + x * 4, iLevel, 4);
        }
    }
    return picture;
}

TEST(TurnTest, TurnsLoseNothingAndGoTheRightWay)
{
    Picture before(5, 3);
    for (std::size_t i = 0; i < before.vBytes.size(); ++i)
        before.vBytes[i] = static_cast<std::uint8_t>(i);
    const struct
    {
        Turn eTurn;
        int nTimes; ///< That come back to the beginning.
        int x, y;   ///< Where the pixel of the left upper corner goes.
    } CASES[] = {{Turn::Left, 4, 0, 4},
                 {Turn::Right, 4, 2, 0},
                 {Turn::Around, 2, 4, 2},
                 {Turn::Mirror, 2, 4, 0},
                 {Turn::Flip, 2, 0, 2}};
    for (const auto& test : CASES)
    {
        Picture after = Turned(before, test.eTurn);
        EXPECT_EQ(after.At(test.x, test.y), before.At(0, 0)) << static_cast<int>(test.eTurn);
        for (int n = 1; n < test.nTimes; ++n)
            after = Turned(after, test.eTurn);
        EXPECT_EQ(after.vBytes, before.vBytes) << static_cast<int>(test.eTurn);
    }
    // Rotating by right angles is the same.
    CProgress progress;
    Picture straight(3, 5);
    EXPECT_TRUE(Straighten(before.View(), straight.View(), 90, progress));
    EXPECT_EQ(straight.vBytes, Turned(before, Turn::Right).vBytes);
}

TEST(TurnTest, ATiltedEdgeBecomesLevelAndNothingDarkens)
{
    for (const double dFalls : {-11.3, -1.7, 0.6, 4.0, 80.5, 93.1})
    {
        Picture tilted = Tilted(301, 203, dFalls);
        const double dBack = dFalls < 45 ? -dFalls : 90 - dFalls;
        const PixelSize size = InscribedSize({301, 203}, dBack);
        Picture straight(size.cx, size.cy);
        CProgress progress;
        ASSERT_TRUE(Straighten(tilted.View(), straight.View(), dBack, progress));
        for (int i = 5; i < (dFalls < 45 ? size.cx : size.cy) - 5; ++i)
        {
            // The share of white along a line across the edge tells where that is.
            double dWhite = 0;
            const int nAcross = dFalls < 45 ? size.cy : size.cx;
            for (int j = 0; j < nAcross; ++j)
                dWhite += (dFalls < 45 ? straight.At(i, j) : straight.At(j, i)) / 255.0;
            EXPECT_NEAR(dWhite, nAcross / 2.0, 0.5) << dFalls << " at " << i;
        }
    }
    Picture even(40, 30, 93);
    Picture turned(40, 30);
    CProgress progress;
    EXPECT_TRUE(Straighten(even.View(), turned.View(), 33, progress));
    EXPECT_EQ(turned.vBytes, even.vBytes);
}

TEST(TurnTest, TheInscribedRectangleLiesInsideAndTouches)
{
    for (const PixelSize size : {PixelSize{400, 300}, {300, 400}, {1000, 10}, {1, 1}, {1, 500}})
    {
        for (const double dDegrees : {0.0, 0.5, -7.0, 30.0, 45.0, 61.0, 90.0, 178.0})
        {
            const PixelSize inside = InscribedSize(size, dDegrees);
            const double dAngle = dDegrees * std::numbers::pi / 180;
            const double dSin = std::abs(std::sin(dAngle)), dCos = std::abs(std::cos(dAngle));
            const double dAcross = inside.cx * dCos + inside.cy * dSin;
            const double dDown = inside.cx * dSin + inside.cy * dCos;
            const bool bSmallest = inside.cx == 1 || inside.cy == 1;
            EXPECT_TRUE(bSmallest || (dAcross <= size.cx + 0.01 && dDown <= size.cy + 0.01)) << dDegrees;
            EXPECT_TRUE(bSmallest || dAcross > size.cx - 3 || dDown > size.cy - 3) << dDegrees;
        }
    }
    Picture one(1, 1, 77), to(1, 1);
    CProgress progress;
    EXPECT_TRUE(Straighten(one.View(), to.View(), 12, progress));
    EXPECT_EQ(to.vBytes, one.vBytes);
    EXPECT_FALSE(Straighten(one.View(), to.View(), std::numeric_limits<double>::quiet_NaN(), progress));
    progress.Cancel();
    EXPECT_FALSE(Straighten(one.View(), to.View(), 12, progress));
}

TEST(TurnTest, TheAverageIsThatOfThePixelsThatAreThere)
{
    Picture picture(3, 3);
    for (int i = 0; i < 9; ++i)
        picture.vBytes[static_cast<std::size_t>(i) * 4 + 1] = static_cast<std::uint8_t>(10 * i);
    EXPECT_EQ(AverageColour(picture.View(), 1, 1, 1)[1], 40);
    EXPECT_EQ(AverageColour(picture.View(), 1, 1, 3)[1], 40);
    EXPECT_EQ(AverageColour(picture.View(), 0, 0, 3)[1], 20);
    EXPECT_EQ(AverageColour(picture.View(), 2, 2, 5)[1], 40);
}

} // namespace
