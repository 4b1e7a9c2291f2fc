#pragma once

#include <cstdint>

/// The numbers of a feather in one direction: three boxes of iRadius pixels, then the small smoother that their
/// variance lacks.
///
/// The sum of three boxes is kept with three running sums: with x(n) the pixels of a line and r the radius,
///
///     d = x(n) - 3 x(n - r) + 3 x(n - 2r) - x(n - 3r),    a += d,    b += a,    c += b,
///
/// c is the threefold box sum ending at n, r * r * r times the mean. Since c(n) - c(n - 1) = b(n) and b(n) - b(n - 1) =
/// a(n), both smoothers come nearly for nothing: (c(n) + c(n - 1)) / 2 = c(n - 1) + b(n) / 2, and
/// (c(n) + 6 c(n - 1) + c(n - 2)) / 8 = c(n - 1) + a(n) / 8. All sums may wrap around; the result does not.
struct FeatherKernel
{
    static constexpr int MAX_RADIUS = 1 << 16;

    /// For a radius of 1 to MAX_RADIUS.
    explicit FeatherKernel(int iRadiusOfEdge);

    /// The level of a sum that half a unit was added to.
    unsigned char LevelOf(uint64_t nSum) const
    {
        return static_cast<unsigned char>((nSum << iLeft >> iRight) * uFactor >> 22);
    }

    int iRadius;
    /// How many pixels to either side have a weight.
    int iReach;
    /// What the sum is for a mean of 1.
    uint64_t nUnit;
    /// A shift to 15 bits and a factor of 16 bits in place of a division by nUnit.
    int iLeft, iRight;
    uint16_t uFactor;
};
