#include "gdi/PolygonScan.h"

#include <algorithm>

namespace winlite
{

PolygonScan::PolygonScan(std::span<const POINT> vPoints, Rule rule) : m_Rule(rule)
{
    m_vEdges.reserve(vPoints.size());
    for (std::size_t i = 0; i < vPoints.size(); ++i)
    {
        const POINT ptFrom = vPoints[i];
        const POINT ptTo = vPoints[i + 1 < vPoints.size() ? i + 1 : 0];
        if (ptFrom.y < ptTo.y)
            m_vEdges.push_back(Edge::Between(ptFrom, ptTo, 1));
        else if (ptFrom.y > ptTo.y)
            m_vEdges.push_back(Edge::Between(ptTo, ptFrom, -1));
    }
    std::ranges::sort(m_vEdges, {}, &Edge::yTop);
}

Region PolygonScan::Scan()
{
    int y = 0;
    while (!m_vActive.empty() || m_iNextEdge < m_vEdges.size())
    {
        if (m_vActive.empty())
            y = m_vEdges[m_iNextEdge].yTop;
        EnterEdges(y);
        AddSpans(y);
        ++y;
        std::erase_if(m_vActive, [y](const Edge& edge) { return edge.yEnd == y; });
        for (Edge& edge : m_vActive)
            edge.StepDown();
    }
    return Region::FromRects(m_vSpans);
}

void PolygonScan::EnterEdges(int y)
{
    for (; m_iNextEdge < m_vEdges.size() && m_vEdges[m_iNextEdge].yTop == y; ++m_iNextEdge)
        m_vActive.push_back(m_vEdges[m_iNextEdge]);
    // Crossings with the same first pixel have no pixel between them, so their order does not matter.
    if (!std::ranges::is_sorted(m_vActive, {}, &Edge::xFirstPixel))
        std::ranges::sort(m_vActive, {}, &Edge::xFirstPixel);
}

void PolygonScan::AddSpans(int y)
{
    int iWinding = 0;
    for (std::size_t i = 0; i + 1 < m_vActive.size(); ++i)
    {
        iWinding += m_Rule == Rule::Winding ? m_vActive[i].iDirection : 1 - 2 * iWinding;
        const int xEnd = m_vActive[i + 1].xFirstPixel;
        if (iWinding != 0 && m_vActive[i].xFirstPixel < xEnd)
            m_vSpans.push_back({m_vActive[i].xFirstPixel, y, xEnd, y + 1});
    }
}

PolygonScan::Edge PolygonScan::Edge::Between(POINT ptTop, POINT ptEnd, int iDirection)
{
    const int nRows = ptEnd.y - ptTop.y;
    const int dx = ptEnd.x - ptTop.x;
    const int nRest = (dx % nRows + nRows) % nRows;
    return {ptTop.y, ptEnd.y, iDirection, ptTop.x, 0, (dx - nRest) / nRows, nRest};
}

void PolygonScan::Edge::StepDown()
{
    xFirstPixel += xPerRow;
    nOverstep -= nRest;
    if (nOverstep >= 0)
        return;
    nOverstep += yEnd - yTop;
    ++xFirstPixel;
}

} // namespace winlite
