#pragma once

#include <cstdint>

namespace winlite
{

/// The ellipse (u / a)^2 + (v / b)^2 = 1, computed exactly.
class EllipseCurve
{
public:
    /// Which points count as within: without or with those on the curve itself.
    enum class Curve
    {
        Excluded,
        Included,
    };

    /// Semi-axes from 1 to 2^31.
    EllipseCurve(std::int64_t a, std::int64_t b, Curve curve) : m_a(a), m_b(b), m_Curve(curve) {}

    /// The largest u for which (u, v) is within; -1 when there is none.
    std::int64_t ReachAt(std::int64_t v) const;

private:
    bool Holds(std::int64_t u, std::int64_t v) const;

    std::int64_t m_a;
    std::int64_t m_b;
    Curve m_Curve;
};

} // namespace winlite
