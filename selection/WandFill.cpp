#include "selection/WandFill.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace Pixtane
{

namespace
{

/// Pixels of a row from iFirst to iEnd, found from the row above or below.
struct Run
{
    int y, iFirst, iEnd;
};

/// A range of each channel, as the least value and how many lie above it.
struct ColourRange
{
    BYTE vLeast[3];
    BYTE vAbove[3];

    ColourRange(const BYTE* pColour, BYTE byTolerance)
    {
        for (int i = 0; i < 3; ++i)
        {
            vLeast[i] = static_cast<BYTE>(std::max(pColour[i] - byTolerance, 0));
            vAbove[i] = static_cast<BYTE>(std::min(pColour[i] + byTolerance, 255) - vLeast[i]);
        }
    }
};

/// What a mask's byte says while the fill goes on: a pixel that matches and is not filled yet, and one that is.
constexpr BYTE OPEN = 1;
constexpr BYTE FILLED = 255;
constexpr std::uint64_t EIGHT_OPEN = 0x0101010101010101;

/// Whether one of eight bytes is OPEN.
bool HasOpen(std::uint64_t uEight)
{
    const std::uint64_t uZeroWhereOpen = uEight ^ EIGHT_OPEN;
    return (uZeroWhereOpen - EIGHT_OPEN) & ~uZeroWhereOpen & EIGHT_OPEN << 7;
}

std::uint64_t EightAt(const BYTE* pBytes)
{
    std::uint64_t uEight;
    std::memcpy(&uEight, pBytes, sizeof(uEight));
    return uEight;
}

/// A byte for each pixel of a row, OPEN where its colour is in the range.
template<int BYTES>
void MatchRow(BYTE* pMatches, const BYTE* pPixels, int nPixels, const ColourRange& range)
{
    const BYTE b = range.vLeast[0], g = range.vLeast[1], r = range.vLeast[2];
    const BYTE bAbove = range.vAbove[0], gAbove = range.vAbove[1], rAbove = range.vAbove[2];
    for (int i = 0; i < nPixels; ++i)
    {
        const BYTE* const pPixel = pPixels + static_cast<std::ptrdiff_t>(i) * BYTES;
        pMatches[i] = (static_cast<BYTE>(pPixel[0] - b) <= bAbove) & (static_cast<BYTE>(pPixel[1] - g) <= gAbove) &
                      (static_cast<BYTE>(pPixel[2] - r) <= rAbove);
    }
}

/// The fill: the mask's rows are looked at as they are come to, and runs to go on from wait.
class CWandFill
{
public:
    CWandFill(std::vector<BYTE>& vMask, const BITMAPINFOHEADER& header, const BYTE* pBits, const ColourRange& range)
        : m_vMask(vMask), m_pBits(pBits), m_nPixelBytes(header.biBitCount / 8), m_cx(header.biWidth),
          m_cy(header.biHeight), m_range(range), m_vRowKnown(static_cast<std::size_t>(m_cy))
    {
    }

    CRect Fill(CPoint ptSeed)
    {
        CRect rcFilled(ptSeed.x, ptSeed.y, ptSeed.x, ptSeed.y);
        FillBeside({ptSeed.y, ptSeed.x, ptSeed.x + 1});
        while (!m_vRuns.empty())
        {
            const Run run = m_vRuns.back();
            m_vRuns.pop_back();
            rcFilled = CRect(std::min<int>(rcFilled.left, run.iFirst), std::min<int>(rcFilled.top, run.y),
                             std::max<int>(rcFilled.right, run.iEnd), std::max<int>(rcFilled.bottom, run.y + 1));
            for (const int y : {run.y - 1, run.y + 1})
            {
                if (y >= 0 && y < m_cy)
                    FillBeside({y, run.iFirst, run.iEnd});
            }
        }
        CloseRows();
        return rcFilled;
    }

private:
    BYTE* MaskRow(int y) { return m_vMask.data() + static_cast<std::size_t>(y) * m_cx; }

    BYTE* OpenRow(int y)
    {
        BYTE* const pOpen = MaskRow(y);
        if (!m_vRowKnown[static_cast<std::size_t>(y)])
        {
            m_vRowKnown[static_cast<std::size_t>(y)] = true;
            const std::size_t nStride = (static_cast<std::size_t>(m_cx) * m_nPixelBytes + 3) / 4 * 4;
            const BYTE* const pPixels = m_pBits + static_cast<std::size_t>(m_cy - 1 - y) * nStride;
            (m_nPixelBytes == 4 ? MatchRow<4> : MatchRow<3>)(pOpen, pPixels, m_cx, m_range);
        }
        return pOpen;
    }

    /// What matches and was not reached is not selected.
    void CloseRows()
    {
        for (int y = 0; y < m_cy; ++y)
        {
            if (!m_vRowKnown[static_cast<std::size_t>(y)])
                std::fill_n(MaskRow(y), m_cx, BYTE{0});
            else
                std::transform(MaskRow(y), MaskRow(y) + m_cx, MaskRow(y),
                               [](BYTE byte) { return byte == FILLED ? FILLED : BYTE{0}; });
        }
    }

    /// Fills the runs of open pixels that touch the span, and remembers them.
    void FillBeside(const Run& span)
    {
        BYTE* const pOpen = OpenRow(span.y);
        for (int x = span.iFirst; x < span.iEnd;)
        {
            if (x + 8 <= span.iEnd && !HasOpen(EightAt(pOpen + x)))
                x += 8;
            else if (pOpen[x] != OPEN)
                ++x;
            else
                x = FillRun(span.y, pOpen, x);
        }
    }

    /// Fills the whole run of open pixels around x, and gives its end.
    int FillRun(int y, BYTE* pOpen, int x)
    {
        int iFirst = x;
        while (iFirst > 0 && pOpen[iFirst - 1] == OPEN)
            --iFirst;
        int iEnd = x + 1;
        while (iEnd + 8 <= m_cx && EightAt(pOpen + iEnd) == EIGHT_OPEN)
            iEnd += 8;
        while (iEnd < m_cx && pOpen[iEnd] == OPEN)
            ++iEnd;
        std::memset(pOpen + iFirst, FILLED, static_cast<std::size_t>(iEnd - iFirst));
        m_vRuns.push_back({y, iFirst, iEnd});
        return iEnd;
    }

    std::vector<BYTE>& m_vMask;
    const BYTE* m_pBits;
    int m_nPixelBytes;
    int m_cx, m_cy;
    ColourRange m_range;
    std::vector<bool> m_vRowKnown;
    std::vector<Run> m_vRuns;
};

} // namespace

CRect FillWand(std::vector<BYTE>& vMask, const BITMAPINFOHEADER& header, const BYTE* pBits, CPoint ptSeed,
               BYTE byTolerance)
{
    // Rows that are come to are written whole, and only the others must be cleared.
    vMask.resize(static_cast<std::size_t>(header.biWidth) * header.biHeight);
    const std::size_t nPixelBytes = header.biBitCount / 8;
    const std::size_t nStride = (header.biWidth * nPixelBytes + 3) / 4 * 4;
    const BYTE* const pSeed = pBits + (header.biHeight - 1 - ptSeed.y) * nStride + ptSeed.x * nPixelBytes;
    return CWandFill(vMask, header, pBits, ColourRange(pSeed, byTolerance)).Fill(ptSeed);
}

} // namespace Pixtane
