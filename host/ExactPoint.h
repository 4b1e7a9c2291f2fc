#pragma once

/// A place between pixels, exact enough that many zoom steps add up to no drift.
struct ExactPoint
{
    double x = 0;
    double y = 0;

    /// The middle of a pixel: what is under the pointer is under its middle.
    static ExactPoint MiddleOf(int iLeft, int iTop) { return {iLeft + 0.5, iTop + 0.5}; }

    bool operator==(const ExactPoint&) const = default;
};
