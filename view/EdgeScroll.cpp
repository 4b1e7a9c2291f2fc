#include "view/EdgeScroll.h"

#include "platform/minmax.h"
#include "view/Rounding.h"

#include <algorithm>

namespace Pixtane
{

namespace
{

constexpr int EDGE = 20;

/// In a view narrower than both edges the right (or lower) one decides.
int StepAt(int iPoint, int iView)
{
    const long long llBeforeEnd = static_cast<long long>(iView) - EDGE;
    if (iPoint > llBeforeEnd)
        return static_cast<int>(std::min<long long>(iPoint - llBeforeEnd, EDGE));
    return static_cast<int>(std::clamp<long long>(static_cast<long long>(iPoint) - EDGE, -EDGE, 0));
}

} // namespace

CSize EdgeStep(CPixtane& view, CPoint ptClient)
{
    CRect rcView(0, 0, 0, 0);
    view.GetClientRect(&rcView);
    return {StepAt(ptClient.x, rcView.Width()), StepAt(ptClient.y, rcView.Height())};
}

bool ScrollBy(CPixtane& view, CSize szStep)
{
    const Gdiplus::Point ptBefore = view.ptDispPos();
    view.SetDispPosition(SaturatedSum(ptBefore.X, szStep.cx), SaturatedSum(ptBefore.Y, szStep.cy));
    return !view.ptDispPos().Equals(ptBefore);
}

} // namespace Pixtane
