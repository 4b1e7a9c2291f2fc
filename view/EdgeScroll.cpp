#include "view/EdgeScroll.h"

#include "view/Rounding.h"

#include <algorithm>

namespace Pixtane
{

namespace
{

constexpr int EDGE = 20;

int StepAt(int iPoint, int iView)
{
    const long long llPoint = iPoint;
    if (iPoint < EDGE)
        return static_cast<int>(-std::min<long long>(EDGE - llPoint, EDGE));
    return static_cast<int>(std::clamp<long long>(llPoint - (static_cast<long long>(iView) - EDGE), 0, EDGE));
}

} // namespace

bool ScrollTowardsEdge(CPixtane& view, CPoint ptClient)
{
    CRect rcView;
    view.GetClientRect(&rcView);
    const CSize szStep(StepAt(ptClient.x, rcView.Width()), StepAt(ptClient.y, rcView.Height()));
    if (szStep == CSize(0, 0))
        return false; // The view would only repaint.
    const Gdiplus::Point ptBefore = view.ptDispPos();
    view.SetDispPosition(SaturatedSum(ptBefore.X, szStep.cx), SaturatedSum(ptBefore.Y, szStep.cy));
    return !view.ptDispPos().Equals(ptBefore);
}

} // namespace Pixtane
