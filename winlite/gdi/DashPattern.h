#pragma once

#include "gdi/Constants.h"

#include <cstdint>

namespace winlite
{

/// The dashes of a pen style, along a line's pixels.
class DashPattern
{
public:
    /// Without gaps for PS_SOLID.
    constexpr explicit DashPattern(int iStyle) : m_uUnits(UnitsOf(iStyle)) {}

    constexpr bool IsOn(std::uint64_t nPosition) const
    {
        return m_uUnits >> (nPosition % PIXELS / PIXELS_PER_UNIT) & 1;
    }

private:
    // Every pattern repeats after 8 units of 3 pixels. Bit n tells whether unit n is drawn.
    static constexpr std::uint64_t PIXELS_PER_UNIT = 3;
    static constexpr std::uint64_t PIXELS = 8 * PIXELS_PER_UNIT;

    static constexpr unsigned UnitsOf(int iStyle)
    {
        switch (iStyle)
        {
        case PS_DASH:
            return 0b00111111;
        case PS_DOT:
            return 0b01010101;
        case PS_DASHDOT:
            return 0b00100111;
        case PS_DASHDOTDOT:
            return 0b01010111;
        default:
            return 0b11111111;
        }
    }

    unsigned m_uUnits;
};

} // namespace winlite
