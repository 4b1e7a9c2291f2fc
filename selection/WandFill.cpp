#include "selection/WandFill.h"

#include "platform/minmax.h"
#include "selection/WandRow.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <optional>
#include <utility>

namespace Pixtane
{

namespace
{

using Word = std::uint64_t;

/// What of the open bits hangs together with the seeds, which are some of them.
Word Spread(Word uSeeds, Word uOpen)
{
    // A sum carries from each seed to the end of its run; downwards a run is followed in doubling steps.
    Word uSpread = (uOpen & ~(uOpen + uSeeds)) | uSeeds;
    Word uPath = uOpen;
    for (int iStep = 1; iStep < 64; iStep *= 2)
    {
        uSpread |= uPath & uSpread >> iStep;
        uPath &= uPath >> iStep;
    }
    return uSpread;
}

/// A run of set bits that begins with the lowest bit, or ends with the highest.
Word RunAtBottom(Word uBits) { return uBits & (uBits ^ (uBits + 1)); }
Word RunAtTop(Word uBits)
{
    const int nOnes = std::countl_one(uBits);
    return nOnes == 64 ? ~Word{0} : ~(~Word{0} >> nOnes);
}

/// Where the first set bit of a row is, and where the last one ends. There must be one.
int FirstBit(const std::vector<Word>& vWords)
{
    const auto it = std::ranges::find_if(vWords, [](Word uWord) { return uWord != 0; });
    return static_cast<int>(it - vWords.begin()) * 64 + std::countr_zero(*it);
}
int EndOfBits(const std::vector<Word>& vWords)
{
    const auto it = std::find_if(vWords.rbegin(), vWords.rend(), [](Word uWord) { return uWord != 0; });
    return static_cast<int>(vWords.rend() - it) * 64 - std::countl_zero(*it);
}

/// The fill, 64 pixels at a time. A row is matched when it is come to; then its runs of matching pixels are filled
/// whole.
class CWandFill
{
public:
    CWandFill(const BITMAPINFOHEADER& header, const BYTE* pBits, const ColourRange& range)
        : m_pBits(pBits), m_nPixelBytes(header.biBitCount / 8), m_cx(header.biWidth), m_cy(header.biHeight),
          m_nWords((m_cx + 63) / 64), m_range(range), m_vOpen(static_cast<std::size_t>(m_nWords) * m_cy),
          m_vFilled(m_vOpen.size()), m_vKnown(static_cast<std::size_t>(m_cy))
    {
    }

    void Fill(CPoint ptSeed)
    {
        const int iWord = ptSeed.x / 64;
        Filled(ptSeed.y)[iWord] = Word{1} << ptSeed.x % 64;
        FillBeside(ptSeed.y, {ptSeed.y, iWord, iWord});
        while (!m_vSpans.empty())
        {
            const Span span = m_vSpans.back();
            m_vSpans.pop_back();
            for (const int y : {span.y - 1, span.y + 1})
            {
                if (y >= 0 && y < m_cy)
                    FillBeside(y, span);
            }
        }
    }

    /// Writes the mask, and gives the box of what was filled.
    CRect Write(BYTE* pMask)
    {
        CRect rcFilled(0, m_cy, 0, 0);
        std::vector<Word> vColumns(static_cast<std::size_t>(m_nWords));
        for (int y = 0; y < m_cy; ++y)
        {
            BYTE* const pRow = pMask + static_cast<std::size_t>(y) * m_cx;
            const Word* const pFilled = Filled(y);
            if (std::all_of(pFilled, pFilled + m_nWords, [](Word uWord) { return uWord == 0; }))
            {
                std::fill_n(pRow, m_cx, BYTE{0});
                continue;
            }
            WidenBits(pFilled, static_cast<std::size_t>(m_cx), pRow);
            std::transform(pFilled, pFilled + m_nWords, vColumns.begin(), vColumns.begin(), std::bit_or());
            rcFilled.top = std::min<int>(rcFilled.top, y);
            rcFilled.bottom = y + 1;
        }
        rcFilled.left = FirstBit(vColumns);
        rcFilled.right = EndOfBits(vColumns);
        return rcFilled;
    }

private:
    /// Words of a row in which pixels were filled.
    struct Span
    {
        int y, iFirst, iLast;
    };

    Word* Filled(int y) { return m_vFilled.data() + static_cast<std::ptrdiff_t>(y) * m_nWords; }

    /// The pixels of a row that match and are not filled.
    Word* Open(int y)
    {
        Word* const pOpen = m_vOpen.data() + static_cast<std::ptrdiff_t>(y) * m_nWords;
        if (!m_vKnown[static_cast<std::size_t>(y)])
        {
            m_vKnown[static_cast<std::size_t>(y)] = true;
            const std::size_t nStride = (static_cast<std::size_t>(m_cx) * m_nPixelBytes + 3) / 4 * 4;
            MatchPixels(m_pBits + static_cast<std::size_t>(m_cy - 1 - y) * nStride, m_nPixelBytes,
                        static_cast<std::size_t>(m_cx), m_range, pOpen);
        }
        return pOpen;
    }

    /// Fills the runs of a row that touch what is filled in the span's words, and remembers where it did.
    void FillBeside(int y, const Span& span)
    {
        const Word* const pFrom = Filled(span.y);
        Word* const pOpen = Open(y);
        Word* const pFilled = Filled(y);
        std::optional<Span> found;
        for (int i = span.iFirst; i <= span.iLast; ++i)
        {
            const Word uSeeds = pFrom[i] & pOpen[i];
            if (!uSeeds)
                continue;
            const Span filled = FillRuns(y, pOpen, pFilled, i, uSeeds);
            if (found && filled.iFirst > found->iLast + 1)
                m_vSpans.push_back(*std::exchange(found, std::nullopt));
            if (found)
                found = {y, std::min(found->iFirst, filled.iFirst), std::max(found->iLast, filled.iLast)};
            else
                found = filled;
        }
        if (found)
            m_vSpans.push_back(*found);
    }

    /// Fills the runs around the seeds in a word, on into its neighbours, and gives the words that this reached.
    Span FillRuns(int y, Word* pOpen, Word* pFilled, int iWord, Word uSeeds)
    {
        const auto take = [&](int i, Word uBits)
        {
            pOpen[i] &= ~uBits;
            pFilled[i] |= uBits;
        };
        const Word uSpread = Spread(uSeeds, pOpen[iWord]);
        take(iWord, uSpread);
        Span span = {y, iWord, iWord};
        if (uSpread >> 63)
        {
            Word uRun = ~Word{0};
            while (uRun == ~Word{0} && span.iLast + 1 < m_nWords && (uRun = RunAtBottom(pOpen[span.iLast + 1])))
                take(++span.iLast, uRun);
        }
        if (uSpread & 1)
        {
            Word uRun = ~Word{0};
            while (uRun == ~Word{0} && span.iFirst > 0 && (uRun = RunAtTop(pOpen[span.iFirst - 1])))
                take(--span.iFirst, uRun);
        }
        return span;
    }

    const BYTE* m_pBits;
    int m_nPixelBytes;
    int m_cx, m_cy;
    int m_nWords; ///< Of a row.
    ColourRange m_range;
    std::vector<Word> m_vOpen;
    std::vector<Word> m_vFilled;
    std::vector<bool> m_vKnown;
    std::vector<Span> m_vSpans;
};

} // namespace

CRect FillWand(std::vector<BYTE>& vMask, const BITMAPINFOHEADER& header, const BYTE* pBits, CPoint ptSeed,
               BYTE byTolerance)
{
    const std::size_t nPixelBytes = header.biBitCount / 8;
    const std::size_t nStride = (header.biWidth * nPixelBytes + 3) / 4 * 4;
    const BYTE* const pSeed = pBits + (header.biHeight - 1 - ptSeed.y) * nStride + ptSeed.x * nPixelBytes;
    CWandFill fill(header, pBits, ColourRange(pSeed, byTolerance));
    fill.Fill(ptSeed);
    vMask.resize(static_cast<std::size_t>(header.biWidth) * header.biHeight);
    return fill.Write(vMask.data());
}

} // namespace Pixtane
