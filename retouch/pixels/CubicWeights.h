#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

/// The Catmull-Rom weights of the pixels before, at, after and second after a place, for 256 places from one pixel to
/// the next. 16384 is the whole, which the four come to exactly, and each stands there four times, once for every
/// channel.
struct CubicWeights
{
    static constexpr int STEP_BITS = 8;
    static constexpr int WHOLE = 1 << 14;

    alignas(64) std::array<std::array<std::int16_t, 16>, 1 << STEP_BITS> all = {};

    constexpr CubicWeights()
    {
        for (std::size_t i = 0; i < all.size(); ++i)
        {
            const double t = static_cast<double>(i) / static_cast<double>(all.size());
            const int iBefore = Rounded((-t * t * t + 2 * t * t - t) / 2);
            const int iAfter = Rounded((-3 * t * t * t + 4 * t * t + t) / 2);
            const int iSecond = Rounded((t * t * t - t * t) / 2);
            const std::array<int, 4> taps = {iBefore, WHOLE - iBefore - iAfter - iSecond, iAfter, iSecond};
            for (std::size_t j = 0; j < all[i].size(); ++j)
                all[i][j] = static_cast<std::int16_t>(taps[j / 4]);
        }
    }

private:
    static constexpr int Rounded(double d) { return static_cast<int>(d * WHOLE + (d < 0 ? -0.5 : 0.5)); }
};

inline constexpr CubicWeights CUBIC_WEIGHTS;
