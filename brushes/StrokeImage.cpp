#include "brushes/StrokeImage.h"

#include "platform/minmax.h"

#include <algorithm>
#include <cstring>

namespace Pixtane
{

namespace
{

/// Vorpix only reads the header of an image, although it asks for one that it could write to.
bool Blit(void* pDest, BITMAPINFO infoDest, CPoint ptDest, const void* pSource, const BITMAPINFO& infoSource,
          CPoint ptSource, CSize sz, const std::vector<int>* pWeights)
{
    return Vorpix::BitBlt(false, pDest, infoDest, ptDest.x, ptDest.y, pSource, infoSource, ptSource.x, ptSource.y,
                          sz.cx, sz.cy, Vorpix::BITBLT_COPY, pWeights ? pWeights->data() : nullptr,
                          pWeights ? pWeights->size() : 0, true, nullptr);
}

} // namespace

void CopyTwice(const BYTE* pSource, std::size_t nBytes, BYTE* pFirst, BYTE* pSecond)
{
    constexpr std::size_t STAYS_IN_CACHE = std::size_t{16} << 10;
    for (std::size_t n = 0; n < nBytes; n += STAYS_IN_CACHE)
    {
        const std::size_t nPart = std::min(STAYS_IN_CACHE, nBytes - n);
        std::memcpy(pFirst + n, pSource + n, nPart);
        std::memcpy(pSecond + n, pSource + n, nPart);
    }
}

void CopyRect(std::vector<BYTE>& vDest, const std::vector<BYTE>& vSource, const BITMAPINFO& info, const CRect& rc)
{
    Blit(vDest.data(), info, rc.TopLeft(), vSource.data(), info, rc.TopLeft(), rc.Size(), nullptr);
}

void BlendRect(std::vector<BYTE>& vDest, const CRect& rcDest, const std::vector<BYTE>& vSource, CPoint ptSource,
               const BITMAPINFO& info, const std::vector<int>& vWeights)
{
    Blit(vDest.data(), info, rcDest.TopLeft(), vSource.data(), info, ptSource, rcDest.Size(), &vWeights);
}

CSavedRect::CSavedRect(std::vector<BYTE>& vScratch, const std::vector<BYTE>& vImage, const BITMAPINFO& info,
                       const CRect& rc)
    : m_vScratch(vScratch), m_info(info), m_rc(rc), m_infoScratch(info)
{
    BITMAPINFOHEADER& header = m_infoScratch.bmiHeader;
    const int iRow = (header.biBitCount / 8 * rc.Width() + 3) / 4 * 4;
    header.biWidth = rc.Width();
    header.biHeight = rc.Height();
    header.biSizeImage = static_cast<DWORD>(iRow * rc.Height());
    m_vScratch.resize(header.biSizeImage);
    Blit(m_vScratch.data(), m_infoScratch, CPoint(0, 0), vImage.data(), info, rc.TopLeft(), rc.Size(), nullptr);
}

void CSavedRect::PutBack(std::vector<BYTE>& vImage) const
{
    Blit(vImage.data(), m_info, m_rc.TopLeft(), m_vScratch.data(), m_infoScratch, CPoint(0, 0), m_rc.Size(), nullptr);
}

void ClearCoverage(std::vector<int>& vCoverage, int iWidth, const CRect& rc)
{
    for (int y = rc.top; y < rc.bottom; ++y)
    {
        const auto itRow = vCoverage.begin() + static_cast<std::ptrdiff_t>(y) * iWidth;
        std::fill(itRow + rc.left, itRow + rc.right, 0);
    }
}

} // namespace Pixtane
