#include "hostlibs/ResizeKernels.h"
#include "platform/vorpix.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <limits>
#include <new>
#include <optional>

namespace Vorpix
{

namespace
{

/// An axis, or none where the size stays.
std::optional<ResizeAxis> AxisOf(size_t nSource, size_t nResult, RESIZE_ALGORITHM eAlgorithm)
{
    if (nSource == nResult)
        return std::nullopt;
    return ResizeAxis(static_cast<int>(nSource), static_cast<int>(nResult),
                      eAlgorithm == RESIZE_CUBIC ? ResizeAxis::Kernel::Cubic : ResizeAxis::Kernel::Linear);
}

/// A scaling with all memory it needs besides the result's.
class Scaling
{
public:
    Scaling(const ResizePlane& source, size_t nWidth, size_t nHeight, RESIZE_ALGORITHM eAlgorithm)
        : m_source(source), m_nWidth(nWidth), m_nHeight(nHeight),
          m_bHalves(eAlgorithm == RESIZE_LINEAR && source.nWidth == 2 * nWidth && source.nHeight == 2 * nHeight)
    {
        if (m_bHalves)
            return;
        m_down = AxisOf(source.nHeight, nHeight, eAlgorithm);
        m_across = AxisOf(source.nWidth, nWidth, eAlgorithm);
        m_nStride = (source.nWidth + RESIZE_STRIP - 1) / RESIZE_STRIP * RESIZE_STRIP;
        m_vRows.resize(m_across ? m_nStride * RESIZE_STRIP : 0);
        m_vColumns.resize(m_vRows.size());
    }

    void Run(uint8_t* pResult)
    {
        if (m_bHalves)
            for (size_t y = 0; y < m_nHeight; ++y)
                HalveRows(m_source.Row(2 * y), m_source.Row(2 * y + 1), pResult + y * m_nWidth, m_nWidth);
        else if (m_across)
            for (size_t y = 0; y < m_nHeight; y += RESIZE_STRIP)
                ScaleStrip(y, pResult + y * m_nWidth);
        else
            for (size_t y = 0; y < m_nHeight; ++y)
                ScaleDown(y, pResult + y * m_nWidth);
    }

private:
    void ScaleDown(size_t y, uint8_t* pRow) const
    {
        if (m_down)
            SumRows(m_source, *m_down, y, pRow);
        else
            std::memcpy(pRow, m_source.Row(y), m_source.nWidth);
    }

    void ScaleStrip(size_t y, uint8_t* pResult)
    {
        const size_t nRows = std::min(RESIZE_STRIP, m_nHeight - y);
        for (size_t i = 0; i < nRows; ++i)
            ScaleDown(y + i, &m_vRows[i * m_nStride]);
        RowsToColumns(m_vRows.data(), m_nStride, m_vColumns.data());
        SumColumns(m_vColumns.data(), *m_across, pResult, nRows);
    }

    ResizePlane m_source;
    size_t m_nWidth, m_nHeight;
    bool m_bHalves;
    size_t m_nStride = 0;
    std::optional<ResizeAxis> m_down, m_across;
    std::vector<uint8_t> m_vRows, m_vColumns;
};

/// Whether the bytes are, at least in part, a vector's own.
bool IsInside(const uint8_t* pBits, const std::vector<uint8_t>& vBytes)
{
    const std::less<> less;
    return !vBytes.empty() && !less(pBits, vBytes.data()) && less(pBits, vBytes.data() + vBytes.size());
}

bool IsValid(const unsigned char* pBits, size_t nBytes, const BITMAPINFOHEADER& header, int iWidth, int iHeight,
             RESIZE_ALGORITHM eAlgorithm)
{
    if (!pBits || header.biBitCount != 8 || header.biWidth <= 0 || header.biHeight <= 0)
        return false;
    return nBytes >= static_cast<uint64_t>(header.biWidth) * static_cast<uint64_t>(header.biHeight) && iWidth > 0 &&
           iHeight > 0 && static_cast<int64_t>(iWidth) * iHeight <= std::numeric_limits<int32_t>::max() &&
           (eAlgorithm == RESIZE_LINEAR || eAlgorithm == RESIZE_CUBIC);
}

} // namespace

bool Resize(const unsigned char* pBits, size_t nBytes, const BITMAPINFO& info, std::vector<unsigned char>& vResult,
            BITMAPINFO& infoResult, int iWidth, int iHeight, RESIZE_ALGORITHM eAlgorithm,
            void (*pfnProgress)(size_t, size_t))
try
{
    if (!IsValid(pBits, nBytes, info.bmiHeader, iWidth, iHeight, eAlgorithm))
        return false;
    const size_t nResult = static_cast<size_t>(iWidth) * static_cast<size_t>(iHeight);
    Scaling scaling({pBits, static_cast<size_t>(info.bmiHeader.biWidth), static_cast<size_t>(info.bmiHeader.biHeight)},
                    static_cast<size_t>(iWidth), static_cast<size_t>(iHeight), eAlgorithm);
    std::vector<unsigned char> vOther;
    std::vector<unsigned char>& vScaled = IsInside(pBits, vResult) ? vOther : vResult;
    vScaled.resize(nResult);
    scaling.Run(vScaled.data());
    if (&vScaled == &vOther)
        vResult.swap(vOther);
    infoResult = info;
    infoResult.bmiHeader.biWidth = iWidth;
    infoResult.bmiHeader.biHeight = iHeight;
    infoResult.bmiHeader.biSizeImage = static_cast<DWORD>(nResult);
    if (pfnProgress)
        pfnProgress(1, 1);
    return true;
}
catch (const std::bad_alloc&)
{
    return false;
}

} // namespace Vorpix
