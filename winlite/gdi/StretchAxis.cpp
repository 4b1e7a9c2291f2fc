#include "gdi/StretchAxis.h"

#include "gdi/RectMath.h"

namespace winlite
{

StretchAxis::StretchAxis(const AxisSpan& dest, const AxisSpan& source, int nSourcePixels, int iClipFirst, int iClipEnd)
    : m_iDestLow(dest.Lowest()), m_nDest(dest.Length()), m_iSourceLow(source.Lowest()), m_nSource(source.Length()),
      m_bMirrorDest(dest.nSize < 0 && source.nSize > 0), m_bMirrorSource(source.nSize < 0 && dest.nSize > 0)
{
    if (m_nDest == 0 || m_nSource == 0)
        return;
    m_iStepFirst = FirstStepFrom(0);
    m_iStepEnd = FirstStepFrom(nSourcePixels);
    if (m_iStepFirst < m_iStepEnd)
        LimitTo(iClipFirst, iClipEnd);
}

int StretchAxis::SourceOf(int iPosition) const
{
    std::int64_t iStep = iPosition - m_iDestLow;
    if (m_bMirrorDest)
        iStep = m_nDest - 1 - iStep;
    if (m_bMirrorSource)
        iStep = m_iStepFirst + m_iStepEnd - 1 - iStep;
    return SourceOfStep(iStep);
}

NearestAxis StretchAxis::Nearest() const
{
    NearestAxis axis;
    axis.iFirst = m_iFirst;
    if (IsEmpty())
        return axis;
    axis.vSource.reserve(static_cast<std::size_t>(m_iEnd) - m_iFirst);
    for (int i = m_iFirst; i < m_iEnd; ++i)
        axis.vSource.push_back(SourceOf(i));
    return axis;
}

int StretchAxis::SourceOfStep(std::int64_t iStep) const
{
    // Sizes have at most 32 bits, so the products fit 64.
    return Saturated(m_iSourceLow + (2 * iStep + 1) * m_nSource / (2 * m_nDest));
}

std::int64_t StretchAxis::FirstStepFrom(std::int64_t iSource) const
{
    std::int64_t iFirst = 0;
    std::int64_t iEnd = m_nDest;
    while (iFirst < iEnd)
    {
        const std::int64_t iMiddle = (iFirst + iEnd) / 2;
        if (SourceOfStep(iMiddle) < iSource)
            iFirst = iMiddle + 1;
        else
            iEnd = iMiddle;
    }
    return iFirst;
}

void StretchAxis::LimitTo(int iClipFirst, int iClipEnd)
{
    const std::int64_t iFirstShown = m_bMirrorDest ? m_nDest - m_iStepEnd : m_iStepFirst;
    const std::int64_t nShown = m_iStepEnd - m_iStepFirst;
    const std::int64_t iFirst = m_iDestLow + iFirstShown;
    m_iFirst = std::max(Saturated(iFirst), iClipFirst);
    m_iEnd = std::min(Saturated(iFirst + nShown), iClipEnd);
}

} // namespace winlite
