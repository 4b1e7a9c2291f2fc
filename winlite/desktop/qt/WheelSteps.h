#pragma once

namespace winlite
{

/// Gathers the fine steps of high-resolution wheels and touchpads to whole notches.
class WheelSteps
{
public:
    /// Adds a turn in 120ths of a notch and returns the whole notches that are full now; the rest waits for more. A
    /// change of direction drops the rest.
    int Add(int iTurn);

private:
    int m_iRest = 0;
};

} // namespace winlite
