#include "pixels/PatchField.h"

#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <utility>

namespace
{

constexpr int SIDE = 2 * CPatchField::REACH + 1;

int RowDifference(const std::uint8_t* pOne, const std::uint8_t* pOther)
{
    int iSum = 0;
    for (int i = 0; i < SIDE * 4; ++i)
    {
        const int iDifference = pOne[i] - pOther[i];
        iSum += iDifference * iDifference;
    }
    return iSum;
}

} // namespace

CPatchField::CPatchField(const PixelView& picture, std::vector<std::uint8_t> vHole)
    : m_cx(picture.cx), m_cy(picture.cy), m_vPixels(vHole.size() * 4), m_vHole(std::move(vHole))
{
    for (int y = 0; y < m_cy; ++y)
        std::memcpy(m_vPixels.data() + Index(0, y) * 4, picture.Row(y), static_cast<std::size_t>(m_cx) * 4);
    FindSources();
    FindTargets();
    FindCertainty();
}

CPatchField CPatchField::Halved() const
{
    const int cx = m_cx / 2;
    const int cy = m_cy / 2;
    std::vector<std::uint8_t> vPixels(static_cast<std::size_t>(cx) * static_cast<std::size_t>(cy) * 4);
    std::vector<std::uint8_t> vHole(vPixels.size() / 4);
    for (int y = 0; y < cy; ++y)
    {
        for (int x = 0; x < cx; ++x)
        {
            std::array<int, 4> aSum = {};
            int nKnown = 0;
            for (const auto& [dx, dy] : {std::pair{0, 0}, {1, 0}, {0, 1}, {1, 1}})
            {
                const std::size_t iFine = Index(2 * x + dx, 2 * y + dy);
                if (m_vHole[iFine])
                    continue;
                ++nKnown;
                for (std::size_t i = 0; i < 4; ++i)
                    aSum[i] += m_vPixels[iFine * 4 + i];
            }
            const std::size_t iCoarse =
                static_cast<std::size_t>(y) * static_cast<std::size_t>(cx) + static_cast<std::size_t>(x);
            vHole[iCoarse] = nKnown == 0;
            for (std::size_t i = 0; i < 4 && nKnown; ++i)
                vPixels[iCoarse * 4 + i] = static_cast<std::uint8_t>((aSum[i] + nKnown / 2) / nKnown);
        }
    }
    return {PixelView{vPixels.data(), cx, cy, std::ptrdiff_t{cx} * 4}, std::move(vHole)};
}

void CPatchField::FindSources()
{
    // How many known pixels end at each one, along its row; then how many rows of enough of them.
    std::vector<int> vDown(static_cast<std::size_t>(m_cx));
    m_vIsSource.assign(m_vHole.size(), 0);
    for (int y = 0; y < m_cy; ++y)
    {
        int nAlong = 0;
        for (int x = 0; x < m_cx; ++x)
        {
            nAlong = m_vHole[Index(x, y)] ? 0 : nAlong + 1;
            int& nDown = vDown[static_cast<std::size_t>(x)];
            nDown = nAlong >= SIDE ? nDown + 1 : 0;
            if (nDown >= SIDE)
                m_vIsSource[Index(x - REACH, y - REACH)] = 1;
        }
    }
    for (int y = 0; y < m_cy; ++y)
    {
        for (int x = 0; x < m_cx; ++x)
        {
            if (!IsSource(x, y))
                continue;
            if (m_vSources.empty() || m_vSources.back().y != y || m_vSources.back().right != x)
                m_vSources.push_back({y, x, x});
            ++m_vSources.back().right;
        }
    }
}

void CPatchField::FindTargets()
{
    m_hole = {m_cx, m_cy, 0, 0};
    for (int y = 0; y < m_cy; ++y)
    {
        for (int x = 0; x < m_cx; ++x)
        {
            if (m_vHole[Index(x, y)])
                m_hole = {std::min(m_hole.left, x), std::min(m_hole.top, y), std::max(m_hole.right, x + 1),
                          std::max(m_hole.bottom, y + 1)};
        }
    }
    // Patches do not reach beyond the picture.
    m_targets = {std::max(m_hole.left - REACH, REACH), std::max(m_hole.top - REACH, REACH),
                 std::min(m_hole.right + REACH, m_cx - REACH), std::min(m_hole.bottom + REACH, m_cy - REACH)};
    if (m_targets.IsEmpty())
        m_targets = {};
    m_vMatches.resize(static_cast<std::size_t>(m_targets.Width()) * static_cast<std::size_t>(m_targets.Height()));
}

void CPatchField::FindCertainty()
{
    // Less with each pixel that the patch's middle is away from what is known.
    constexpr float EACH = 1 / 1.3F;
    const auto certaintyAt = [&](int x, int y) -> float
    {
        const bool bTarget = x >= m_targets.left && y >= m_targets.top && x < m_targets.right && y < m_targets.bottom;
        return bTarget ? m_vCertainty[MatchIndex(x, y)] : 1;
    };
    m_vCertainty.assign(m_vMatches.size(), 0);
    for (const int iStep : {1, -1})
    {
        for (int i = 0; i < static_cast<int>(m_vMatches.size()); ++i)
        {
            const int iPlace = iStep > 0 ? i : static_cast<int>(m_vMatches.size()) - 1 - i;
            const int x = m_targets.left + iPlace % m_targets.Width();
            const int y = m_targets.top + iPlace / m_targets.Width();
            float& fCertainty = m_vCertainty[static_cast<std::size_t>(iPlace)];
            const float fNear = std::max(certaintyAt(x - iStep, y), certaintyAt(x, y - iStep));
            fCertainty = m_vHole[Index(x, y)] ? std::max(fCertainty, EACH * fNear) : 1;
        }
    }
}

// ---- matches

PixelOffset CPatchField::AnySource(int x, int y)
{
    const PixelRun& run = m_vSources[m_random() % m_vSources.size()];
    const int iColumn = run.left + static_cast<int>(m_random() % static_cast<unsigned>(run.right - run.left));
    return {iColumn - x, run.y - y};
}

void CPatchField::Guess()
{
    Spread();
    for (int y = m_targets.top; y < m_targets.bottom; ++y)
    {
        for (int x = m_targets.left; x < m_targets.right; ++x)
            MatchAt(x, y).offset = AnySource(x, y);
    }
}

void CPatchField::Guess(const CPatchField& coarse)
{
    for (int y = m_targets.top; y < m_targets.bottom; ++y)
    {
        for (int x = m_targets.left; x < m_targets.right; ++x)
        {
            const int iCoarseX = std::clamp(x / 2, coarse.m_targets.left, coarse.m_targets.right - 1);
            const int iCoarseY = std::clamp(y / 2, coarse.m_targets.top, coarse.m_targets.bottom - 1);
            const PixelOffset& offset = coarse.MatchAt(iCoarseX, iCoarseY).offset;
            const PixelOffset doubled = {2 * offset.x, 2 * offset.y};
            MatchAt(x, y) = {IsSource(x + doubled.x, y + doubled.y) ? doubled : AnySource(x, y), 0};
        }
    }
    Vote();
}

int CPatchField::Difference(int x, int y, const PixelOffset& offset, int iMost) const
{
    int iSum = 0;
    for (int iRow = y - REACH; iRow <= y + REACH && iSum < iMost; ++iRow)
        iSum += RowDifference(At(x - REACH, iRow), At(x - REACH + offset.x, iRow + offset.y));
    return iSum;
}

void CPatchField::Try(int x, int y, const PixelOffset& offset)
{
    if (!IsSource(x + offset.x, y + offset.y))
        return;
    Match& match = MatchAt(x, y);
    const int iDifference = Difference(x, y, offset, match.iDifference);
    if (iDifference < match.iDifference)
        match = {offset, iDifference};
}

void CPatchField::Improve(int x, int y, int iStep, int nRandom)
{
    if (x - iStep >= m_targets.left && x - iStep < m_targets.right)
        Try(x, y, MatchAt(x - iStep, y).offset);
    if (y - iStep >= m_targets.top && y - iStep < m_targets.bottom)
        Try(x, y, MatchAt(x, y - iStep).offset);
    const PixelOffset best = MatchAt(x, y).offset;
    for (int iReach = 1 << nRandom; iReach > 1; iReach /= 2)
    {
        const auto away = [&]
        { return static_cast<int>(m_random() % static_cast<unsigned>(2 * iReach - 1)) - iReach + 1; };
        const int iAwayX = away();
        Try(x, y, {best.x + iAwayX, best.y + away()});
    }
}

void CPatchField::Search(int nRandom)
{
    for (int y = m_targets.top; y < m_targets.bottom; ++y)
    {
        for (int x = m_targets.left; x < m_targets.right; ++x)
            MatchAt(x, y).iDifference = Difference(x, y, MatchAt(x, y).offset, std::numeric_limits<int>::max());
    }
    for (int y = m_targets.top; y < m_targets.bottom; ++y)
    {
        for (int x = m_targets.left; x < m_targets.right; ++x)
            Improve(x, y, 1, nRandom);
    }
    for (int y = m_targets.bottom - 1; y >= m_targets.top; --y)
    {
        for (int x = m_targets.right - 1; x >= m_targets.left; --x)
            Improve(x, y, -1, nRandom);
    }
}

// ---- the hole

void CPatchField::Spread()
{
    std::vector<std::uint8_t> vLeft = m_vHole;
    for (bool bChanged = true; std::exchange(bChanged, false);)
    {
        const std::vector<std::uint8_t> vBefore = vLeft;
        for (int y = 0; y < m_cy; ++y)
        {
            for (int x = 0; x < m_cx; ++x)
            {
                if (!vBefore[Index(x, y)])
                    continue;
                std::array<int, 4> aSum = {};
                int nKnown = 0;
                for (int yNear = std::max(y - 1, 0); yNear <= std::min(y + 1, m_cy - 1); ++yNear)
                {
                    for (int xNear = std::max(x - 1, 0); xNear <= std::min(x + 1, m_cx - 1); ++xNear)
                    {
                        if (vBefore[Index(xNear, yNear)])
                            continue;
                        ++nKnown;
                        for (std::size_t i = 0; i < 4; ++i)
                            aSum[i] += At(xNear, yNear)[i];
                    }
                }
                for (std::size_t i = 0; i < 4 && nKnown; ++i)
                    m_vPixels[Index(x, y) * 4 + i] = static_cast<std::uint8_t>(aSum[i] / nKnown);
                vLeft[Index(x, y)] = nKnown == 0;
                bChanged = bChanged || nKnown;
            }
        }
    }
}

void CPatchField::Weigh()
{
    constexpr float LEAST_SPREAD = 4 * 3 * SIDE * SIDE;
    std::vector<int> vDifferences;
    for (const Match& match : m_vMatches)
        vDifferences.push_back(match.iDifference);
    const auto itUsual = vDifferences.begin() + static_cast<std::ptrdiff_t>(vDifferences.size() * 3 / 4);
    std::ranges::nth_element(vDifferences, itUsual);
    const float fSpread = std::max(static_cast<float>(*itUsual), LEAST_SPREAD);
    m_vWeights.resize(m_vMatches.size());
    for (std::size_t i = 0; i < m_vWeights.size(); ++i)
        m_vWeights[i] = m_vCertainty[i] * std::exp(-static_cast<float>(m_vMatches[i].iDifference) / fSpread);
}

void CPatchField::Vote()
{
    Weigh();
    for (int y = m_hole.top; y < m_hole.bottom; ++y)
    {
        for (int x = m_hole.left; x < m_hole.right; ++x)
        {
            if (!m_vHole[Index(x, y)])
                continue;
            const std::array<float, 4> said = Said(x, y);
            for (std::size_t i = 0; i < said.size(); ++i)
                m_vPixels[Index(x, y) * 4 + i] = static_cast<std::uint8_t>(std::lround(said[i]));
        }
    }
}

std::array<float, 4> CPatchField::Said(int x, int y) const
{
    std::array<float, 4> aSum = {};
    float fAll = 0;
    for (int yMiddle = std::max(y - REACH, m_targets.top); yMiddle <= std::min(y + REACH, m_targets.bottom - 1);
         ++yMiddle)
    {
        for (int xMiddle = std::max(x - REACH, m_targets.left); xMiddle <= std::min(x + REACH, m_targets.right - 1);
             ++xMiddle)
        {
            const PixelOffset& offset = MatchAt(xMiddle, yMiddle).offset;
            const float fWeight = m_vWeights[MatchIndex(xMiddle, yMiddle)];
            const std::uint8_t* const pSource = At(x + offset.x, y + offset.y);
            for (std::size_t i = 0; i < aSum.size(); ++i)
                aSum[i] += fWeight * static_cast<float>(pSource[i]);
            fAll += fWeight;
        }
    }
    for (float& fSum : aSum)
        fSum /= fAll;
    return aSum;
}
