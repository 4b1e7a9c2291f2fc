#include "program/StrokeArea.h"

namespace
{

constexpr int CHANNELS = 4;
constexpr int FULL = 255;

void LimitRow(const BYTE* pWeights, BYTE* pPainted, const BYTE* pUnpainted, int nPixels)
{
    for (int i = 0; i < nPixels; ++i)
    {
        const int iWeight = pWeights[i];
        for (int iByte = i * CHANNELS; iByte < (i + 1) * CHANNELS && iWeight < FULL; ++iByte)
        {
            const int iMixed = pPainted[iByte] * iWeight + pUnpainted[iByte] * (FULL - iWeight);
            pPainted[iByte] = static_cast<BYTE>((iMixed + FULL / 2) / FULL);
        }
    }
}

} // namespace

void CStrokeArea::Begin(Pixtane::CPixtane& view)
{
    m_rcBox.SetRectEmpty();
    m_szBitmap = CSize(view.iBmpWidth(), view.iBmpHeight());
    CRgn rgn;
    const bool bSelected = view.GetSelectRegion(rgn);
    const std::vector<BYTE>& vMask = view.vSelectMask();
    if (bSelected && vMask.size() == static_cast<std::size_t>(m_szBitmap.cx) * m_szBitmap.cy)
        m_vWeights = vMask;
    else
        m_vWeights.clear();
}

void CStrokeArea::Limit(const CRect& rc, BYTE* pPainted, const BYTE* pUnpainted) const
{
    CRect rcInside(CPoint(0, 0), m_szBitmap);
    if (!rcInside.IntersectRect(CRect(rcInside), rc))
        return;
    for (int y = rcInside.top; y < rcInside.bottom; ++y)
    {
        const std::size_t iWeight = static_cast<std::size_t>(y) * m_szBitmap.cx + rcInside.left;
        const std::size_t iPixel = static_cast<std::size_t>(m_szBitmap.cy - 1 - y) * m_szBitmap.cx + rcInside.left;
        LimitRow(m_vWeights.data() + iWeight, pPainted + iPixel * CHANNELS, pUnpainted + iPixel * CHANNELS,
                 rcInside.Width());
    }
}
