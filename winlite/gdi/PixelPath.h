#pragma once

#include "base/Types.h"
#include "gdi/Steps.h"

namespace winlite
{

/// Pixels one after the other, running one way in x and one way in y: what a rectangle holds of them is one stretch,
/// which is found without a walk along the whole path.
class PixelPath
{
public:
    virtual std::int64_t Count() const = 0;

    /// The pixel of a step from 0 to Count.
    virtual POINT At(std::int64_t iStep) const = 0;

    /// The smallest rectangle that holds a stretch that is not empty.
    RECT BoxOf(const Steps& steps) const;

    /// The steps that lie in the rectangle.
    Steps StepsWithin(const RECT& rc) const;

protected:
    ~PixelPath() = default;
};

} // namespace winlite
