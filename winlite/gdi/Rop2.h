#pragma once

#include "gdi/Constants.h"

#include <cstdint>

namespace winlite
{

/// One of the sixteen ways (R2_...) to combine a pixel with a pen's pixel, bit by bit. For a given pen each of them
/// keeps, clears, sets or flips a bit, which is an AND and an XOR.
class Rop2
{
public:
    constexpr Rop2(int iMode, std::uint32_t uPen)
        : m_uXor(Outcome(iMode, 0, uPen)), m_uAnd(m_uXor ^ Outcome(iMode, 1, uPen))
    {
    }

    constexpr std::uint32_t operator()(std::uint32_t uPixel) const { return (uPixel & m_uAnd) ^ m_uXor; }

private:
    /// What becomes of pixel bits that are all iPixelBit. A mode less 1 is its own truth table: bit 2 P + D of it is
    /// the result for pen bit P and pixel bit D.
    static constexpr std::uint32_t Outcome(int iMode, int iPixelBit, std::uint32_t uPen)
    {
        const int iTable = (iMode - 1) >> iPixelBit;
        return (iTable & 1 ? ~uPen : 0) | (iTable & 4 ? uPen : 0);
    }

    std::uint32_t m_uXor;
    std::uint32_t m_uAnd;
};

} // namespace winlite
