#include "pixels/Turn.h"

#include <algorithm>
#include <gtest/gtest.h>
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

TEST(TurnTest, CancelledWorkSaysSo)
{
    const Picture before = Noise({300, 200});
    Picture target(before.size);
    std::vector<std::uint8_t> mask;
    CProgress cancelled;
    cancelled.Cancel();
    EXPECT_FALSE(TurnPicture(before.View(), target.View(), Turn::Around, cancelled));
    EXPECT_FALSE(TurnMask(before.vBytes, 300, mask, Turn::Left, cancelled));
    EXPECT_EQ(target, Picture(before.size));
}

} // namespace
