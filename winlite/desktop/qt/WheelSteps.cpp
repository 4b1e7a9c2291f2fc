#include "qtdesktop/WheelSteps.h"

#include "user/User.h"

namespace winlite
{

int WheelSteps::Add(int iTurn)
{
    if ((iTurn > 0 && m_iRest < 0) || (iTurn < 0 && m_iRest > 0))
        m_iRest = 0;
    m_iRest += iTurn;
    const int nNotches = m_iRest / WHEEL_DELTA;
    m_iRest %= WHEEL_DELTA;
    return nNotches;
}

} // namespace winlite
