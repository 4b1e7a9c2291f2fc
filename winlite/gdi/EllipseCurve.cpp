#include "gdi/EllipseCurve.h"

#include <cmath>

namespace winlite
{

namespace
{

// Products of four coordinates.
__extension__ using Int128 = __int128;

Int128 SquareOf(std::int64_t iOne, std::int64_t iOther)
{
    const Int128 iProduct = Int128{iOne} * iOther;
    return iProduct * iProduct;
}

} // namespace

std::int64_t EllipseCurve::ReachAt(std::int64_t v) const
{
    if (v > m_b || v < -m_b)
        return -1;
    // Floating point comes within a pixel or two, and the exact comparison corrects it.
    const double dShare = std::sqrt(static_cast<double>(m_b - v) * static_cast<double>(m_b + v));
    auto u = static_cast<std::int64_t>(static_cast<double>(m_a) * dShare / static_cast<double>(m_b));
    while (u >= 0 && !Holds(u, v))
        --u;
    while (u >= 0 && Holds(u + 1, v))
        ++u;
    return u;
}

bool EllipseCurve::Holds(std::int64_t u, std::int64_t v) const
{
    const Int128 iSum = SquareOf(u, m_b) + SquareOf(v, m_a);
    const Int128 iMost = SquareOf(m_a, m_b);
    return m_Curve == Curve::Included ? iSum <= iMost : iSum < iMost;
}

} // namespace winlite
