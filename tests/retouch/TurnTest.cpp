#include "pixels/Turn.h"
#include "pixels/Straighten.h"
#include "pixels/StraightenPreview.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <numbers>
#include <random>

namespace
{

/// A bottom-up picture that compares by its bytes.
struct Picture
{
    explicit Picture(PixelSize szPixels, std::uint8_t uValue = 0)
        : size(szPixels), vBytes(static_cast<std::size_t>(size.cx) * size.cy * 4, uValue)
    {
    }

    PixelView View() const
    {
        const std::ptrdiff_t nStride = std::ptrdiff_t{4} * size.cx;
        return {const_cast<std::uint8_t*>(vBytes.data()) + nStride * (size.cy - 1), size.cx, size.cy, -nStride};
    }
    std::uint8_t* At(int x, int y) const { return View().Row(y) + std::ptrdiff_t{4} * x; }
    bool operator==(const Picture&) const = default;

    PixelSize size;
    std::vector<std::uint8_t> vBytes;
};

Picture Noise(PixelSize size)
{
    Picture picture(size);
    std::mt19937 random(1);
    std::ranges::generate(picture.vBytes, [&] { return static_cast<std::uint8_t>(random()); });
    return picture;
}

Picture Turned(const Picture& source, Turn turn)
{
    Picture target(TurnedSize(source.size, turn));
    CProgress progress;
    EXPECT_TRUE(TurnPicture(source.View(), target.View(), turn, progress));
    return target;
}

Picture Straightened(const Picture& source, PixelSize size, double dAngle)
{
    Picture target(size);
    CProgress progress;
    EXPECT_TRUE(Straighten(source.View(), target.View(), dAngle, progress));
    return target;
}

const PixelSize SIZES[] = {{1, 1}, {1, 7}, {7, 1}, {2, 3}, {200, 131}, {70, 333}};

TEST(TurnTest, EveryPixelOfAPictureAndAMaskGoesToItsPlace)
{
    const struct
    {
        Turn turn;
        int nTimesToIdentity;
        PixelSize (*pFrom)(int x, int y, PixelSize source);
    } TURNS[] = {
        {Turn::Left, 4,
         [](int x, int y, PixelSize source) {
             return PixelSize{source.cx - 1 - y, x};
         }},
        {Turn::Right, 4,
         [](int x, int y, PixelSize source) {
             return PixelSize{y, source.cy - 1 - x};
         }},
        {Turn::Around, 2,
         [](int x, int y, PixelSize source) {
             return PixelSize{source.cx - 1 - x, source.cy - 1 - y};
         }},
        {Turn::MirrorLeftRight, 2,
         [](int x, int y, PixelSize source) {
             return PixelSize{source.cx - 1 - x, y};
         }},
        {Turn::MirrorUpsideDown, 2,
         [](int x, int y, PixelSize source) {
             return PixelSize{x, source.cy - 1 - y};
         }},
    };
    for (const auto& row : TURNS)
    {
        for (const PixelSize size : SIZES)
        {
            const Picture before = Noise(size);
            const Picture once = Turned(before, row.turn);
            const std::vector<std::uint8_t> mask(before.vBytes.begin(), before.vBytes.begin() + size.cx * size.cy);
            std::vector<std::uint8_t> turnedMask;
            CProgress progress;
            EXPECT_TRUE(TurnMask(mask, size.cx, turnedMask, row.turn, progress));
            for (int i = 0; i < size.cx * size.cy; ++i)
            {
                const PixelSize at = {i % once.size.cx, i / once.size.cx};
                const PixelSize from = row.pFrom(at.cx, at.cy, size);
                ASSERT_TRUE(std::equal(once.At(at.cx, at.cy), once.At(at.cx, at.cy) + 4, before.At(from.cx, from.cy)));
                ASSERT_EQ(turnedMask[static_cast<std::size_t>(i)],
                          mask[static_cast<std::size_t>(from.cy * size.cx + from.cx)]);
            }
            Picture again = once;
            for (int n = 1; n < row.nTimesToIdentity; ++n)
                again = Turned(again, row.turn);
            EXPECT_EQ(again, before);
        }
    }
}

TEST(TurnTest, RotatingByQuartersIsTheTurn)
{
    for (const PixelSize size : SIZES)
    {
        const Picture before = Noise(size);
        const PixelSize upright = TurnedSize(size, Turn::Left);
        EXPECT_EQ(Straightened(before, size, 0), before);
        EXPECT_EQ(Straightened(before, upright, 90), Turned(before, Turn::Right));
        EXPECT_EQ(Straightened(before, upright, -90 - 360e6), Turned(before, Turn::Left));
        EXPECT_EQ(Straightened(before, size, 540), Turned(before, Turn::Around));
        EXPECT_EQ(InscribedSize(size.cx, size.cy, -270), upright);
        EXPECT_EQ(InscribedSize(size.cx, size.cy, 180), size);
        for (const double dAngle : {-30.0, 0.01, 45.0, 89.0})
            EXPECT_EQ(Straightened(Picture(size, 201), size, dAngle), Picture(size, 201)) << dAngle;
    }
}

TEST(TurnTest, APreviewShowsWhatStraighteningMakes)
{
    const PixelSize size = {200, 131};
    Picture smooth(size);
    for (int i = 0; i < size.cx * size.cy; ++i)
        std::fill_n(smooth.At(i % size.cx, i / size.cx), 4, static_cast<std::uint8_t>(i % size.cx / 2 + i / size.cx));
    std::vector<int> vColumns;
    std::vector<int> vRows;
    for (int i = 3; i < size.cx; i += 2)
        vColumns.push_back(i);
    for (int i = 0; i < size.cy; ++i)
        vRows.push_back(i);
    for (const double dAngle : {-33.0, 0.4, 7.0, 90.0})
    {
        const Picture expected = Straightened(smooth, size, dAngle);
        const PixelSize kept = InscribedSize(size.cx, size.cy, dAngle);
        for (const bool bCrop : {false, true})
        {
            const Picture shown({static_cast<int>(vColumns.size()), size.cy});
            DrawStraightened(smooth.View(), shown.View(), {dAngle, bCrop}, {vColumns, vRows});
            for (int i = 0; i < shown.size.cx * shown.size.cy; ++i)
            {
                const PixelSize at = {vColumns[static_cast<std::size_t>(i % shown.size.cx)], i / shown.size.cx};
                const bool bKept = 2 * std::abs(at.cx - (size.cx - 1) / 2.0) < kept.cx - 2 &&
                                   2 * std::abs(at.cy - (size.cy - 1) / 2.0) < kept.cy - 2;
                const bool bCut = 2 * std::abs(at.cx - (size.cx - 1) / 2.0) > kept.cx + 2 ||
                                  2 * std::abs(at.cy - (size.cy - 1) / 2.0) > kept.cy + 2;
                const int iShown = *shown.At(i % shown.size.cx, i / shown.size.cx);
                const int iWhole = *expected.At(at.cx, at.cy);
                if (!bCrop || bKept || bCut)
                {
                    ASSERT_NEAR(iShown, bCrop && bCut ? iWhole / 4 : iWhole, 3) << dAngle;
                }
            }
        }
    }
}

/// Where the brightness passes the middle from the top down or from left to right, between pixels.
double EdgePlace(const Picture& picture, int iAcross, bool bLevel)
{
    const auto value = [&](int i) { return *(bLevel ? picture.At(iAcross, i) : picture.At(i, iAcross)); };
    int i = 1;
    while (value(i) < 128)
        ++i;
    return i - (value(i) - 127.5) / (value(i) - value(i - 1));
}

TEST(TurnTest, ATiltedEdgeComesOutStraight)
{
    constexpr PixelSize SIZE = {400, 300};
    for (const double dAngle : {0.7, 2.3, 5.0, 12.0, -0.7, -2.3, -5.0, -12.0})
    {
        for (const bool bLevel : {true, false})
        {
            // The angle by which the edge stands counter-clockwise, through a point beside the centre.
            const double dTilt = dAngle * std::numbers::pi / 180;
            Picture tilted(SIZE);
            for (int i = 0; i < SIZE.cx * SIZE.cy; ++i)
            {
                const double dRight = i % SIZE.cx - (SIZE.cx - 1) / 2.0;
                const double dDown = i / SIZE.cx - (SIZE.cy - 1) / 2.0;
                const double dBeyond = bLevel ? dDown * std::cos(dTilt) + dRight * std::sin(dTilt)
                                              : dRight * std::cos(dTilt) - dDown * std::sin(dTilt);
                const double dValue = std::clamp(0.5 + dBeyond - 20, 0.0, 1.0) * 255;
                std::fill_n(tilted.At(i % SIZE.cx, i / SIZE.cx), 4, static_cast<std::uint8_t>(dValue + 0.5));
            }
            for (const PixelSize size : {SIZE, InscribedSize(SIZE.cx, SIZE.cy, dAngle)})
            {
                const Picture straight = Straightened(tilted, size, dAngle);
                const int nLength = bLevel ? size.cx : size.cy;
                for (int i = nLength / 10; i < nLength * 9 / 10; ++i)
                    ASSERT_NEAR(EdgePlace(straight, i, bLevel), ((bLevel ? size.cy : size.cx) - 1) / 2.0 + 20, 0.15)
                        << dAngle << " " << bLevel << " " << i;
            }
        }
    }
}

TEST(TurnTest, TheInscribedRectangleTouchesWhatLiesAroundAndTakesNoneOfIt)
{
    constexpr int AROUND = 4;
    const PixelSize CASES[] = {{400, 300}, {300, 400}, {301, 301}, {500, 40}, {41, 500}};
    for (const PixelSize size : CASES)
    {
        Picture marked({size.cx + 2 * AROUND, size.cy + 2 * AROUND}, 255);
        for (int y = 0; y < size.cy; ++y)
            std::fill_n(marked.At(AROUND, AROUND + y), 4 * size.cx, std::uint8_t{0});
        for (const double dAngle : {0.0, 0.7, -3.0, 12.0, 30.0, 45.0, -60.0, 88.0, 135.0, 3605.0})
        {
            const PixelSize inner = InscribedSize(size.cx, size.cy, dAngle);
            const Picture inside = Straightened(marked, inner, dAngle);
            // Two pixels of small negative weight give a little in the corners.
            EXPECT_LE(std::ranges::max(inside.vBytes), 2) << size.cx << " " << size.cy << " " << dAngle;
            for (const PixelSize more : {PixelSize{inner.cx * 6 / 5, inner.cy}, PixelSize{inner.cx, inner.cy * 6 / 5}})
                EXPECT_GT(std::ranges::max(Straightened(marked, more, dAngle).vBytes), 20) << dAngle;
        }
    }
}

TEST(TurnTest, CancelledWorkAndAnglesThatAreNoneAreRefused)
{
    const Picture before = Noise({300, 200});
    Picture target(before.size);
    std::vector<std::uint8_t> mask;
    CProgress cancelled;
    cancelled.Cancel();
    EXPECT_FALSE(TurnPicture(before.View(), target.View(), Turn::Around, cancelled));
    EXPECT_FALSE(TurnMask(before.vBytes, 300, mask, Turn::Left, cancelled));
    EXPECT_FALSE(Straighten(before.View(), target.View(), 3, cancelled));
    for (const double dAngle : {std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
                                std::numeric_limits<double>::quiet_NaN()})
    {
        CProgress progress;
        EXPECT_FALSE(Straighten(before.View(), target.View(), dAngle, progress));
        EXPECT_EQ(InscribedSize(300, 200, dAngle), PixelSize{});
    }
    EXPECT_EQ(target, Picture(before.size));
}

} // namespace
