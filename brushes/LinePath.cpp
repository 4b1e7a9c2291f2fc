#include "brushes/LinePath.h"

#include <cmath>

namespace Pixtane
{

namespace
{

int DirectionOf(long long llDistance) { return llDistance < 0 ? -1 : llDistance > 0 ? 1 : 0; }

/// A walk that lists each pixel it comes to, and knows when it has come to the end.
class CWalk
{
public:
    CWalk(const CPoint& ptFrom, const CPoint& ptTo, std::list<CPoint>& points)
        : m_pt(ptFrom), m_ptTo(ptTo), m_points(points)
    {
        m_points.assign(1, ptFrom);
    }

    bool IsAtEnd() const { return m_pt == m_ptTo; }
    const CPoint& At() const { return m_pt; }

    void StepX(int iStep)
    {
        m_pt.x += iStep;
        m_points.push_back(m_pt);
    }
    void StepY(int iStep)
    {
        m_pt.y += iStep;
        m_points.push_back(m_pt);
    }
    void GoStraight()
    {
        while (m_pt.x != m_ptTo.x)
            StepX(DirectionOf(static_cast<long long>(m_ptTo.x) - m_pt.x));
        while (m_pt.y != m_ptTo.y)
            StepY(DirectionOf(static_cast<long long>(m_ptTo.y) - m_pt.y));
    }

private:
    CPoint m_pt;
    CPoint m_ptTo;
    std::list<CPoint>& m_points;
};

} // namespace

void MakeLinePath(const CPoint& ptFrom, const CPoint& ptTo, std::list<CPoint>& points)
{
    CWalk walk(ptFrom, ptTo, points);
    const long long llWidth = static_cast<long long>(ptTo.x) - ptFrom.x;
    const long long llHeight = static_cast<long long>(ptTo.y) - ptFrom.y;
    if (llWidth != 0 && llHeight != 0)
    {
        const int iStepX = DirectionOf(llWidth);
        const int iStepY = DirectionOf(llHeight);
        const float fSlope = static_cast<float>(llHeight) / static_cast<float>(llWidth);
        const float fOrigin = static_cast<float>(ptFrom.y) - static_cast<float>(ptFrom.x) * fSlope;
        const bool bFlat = std::fabs(fSlope) <= 1;
        // How far the pixel is past the line in the direction of y.
        const auto past = [&]
        {
            return (static_cast<float>(walk.At().y) - (fSlope * static_cast<float>(walk.At().x) + fOrigin)) *
                   static_cast<float>(iStepY);
        };
        // The longer side leads. Once it has arrived, rounding may have left the shorter one a pixel off.
        while (!walk.IsAtEnd() && (bFlat ? walk.At().x != ptTo.x : walk.At().y != ptTo.y))
        {
            bFlat ? walk.StepX(iStepX) : walk.StepY(iStepY);
            if (walk.IsAtEnd())
                break;
            if (bFlat && past() < 0)
                walk.StepY(iStepY);
            else if (!bFlat && past() > 0)
                walk.StepX(iStepX);
        }
    }
    walk.GoStraight();
}

} // namespace Pixtane
