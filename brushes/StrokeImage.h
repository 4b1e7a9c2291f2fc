#pragma once

#include "platform/vorpix.h"

#include <functional>
#include <vector>

namespace Pixtane
{

// The pixels of a stroke: plain functions on a bitmap's rows, without threads. Rectangles are bitmap pixels from the
// top left. Any thread, one at a time for the same pixels.

/// Copies bytes to two places, reading them from the memory once.
void CopyTwice(const BYTE* pSource, std::size_t nBytes, BYTE* pFirst, BYTE* pSecond);

/// Copies a rectangle between two images of the same size and format.
void CopyRect(std::vector<BYTE>& vDest, const std::vector<BYTE>& vSource, const BITMAPINFO& info, const CRect& rc);

/// Moves a rectangle of an image from the source's pixels at ptSource by the weights there.
void BlendRect(std::vector<BYTE>& vDest, const CRect& rcDest, const std::vector<BYTE>& vSource, CPoint ptSource,
               const BITMAPINFO& info, const std::vector<int>& vWeights);

/// The bytes that were in a rectangle of an image, to put them back where an effect has changed them.
class CSavedRect
{
public:
    /// Keeps the rectangle, which lies within the image, in vScratch. Throws what the memory throws.
    CSavedRect(std::vector<BYTE>& vScratch, const std::vector<BYTE>& vImage, const BITMAPINFO& info, const CRect& rc);

    void PutBack(std::vector<BYTE>& vImage) const;

private:
    std::vector<BYTE>& m_vScratch;
    const BITMAPINFO& m_info;
    CRect m_rc;
    BITMAPINFO m_infoScratch = {};
};

/// Sets the coverage of a rectangle of an image iWidth wide to 0.
void ClearCoverage(std::vector<int>& vCoverage, int iWidth, const CRect& rc);

} // namespace Pixtane
