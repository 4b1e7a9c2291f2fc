#include "pixels/HealSource.h"

#include "pixels/LargeBuffer.h"

#include <array>
#include <cmath>
#include <vector>

namespace
{

constexpr int CHANNELS = 3;

/// A part of the picture, or a reduced one, with the spot in it.
struct Level
{
    CLargeBuffer buffer; ///< Of a reduced one.
    PixelView view;
    Spot spot;
};

Level Halved(const Level& finer)
{
    const int cx = finer.view.cx / 2;
    const int cy = finer.view.cy / 2;
    Level level;
    level.buffer = CLargeBuffer(static_cast<std::size_t>(cx) * static_cast<std::size_t>(cy) * 4);
    level.view = {level.buffer.Data(), cx, cy, std::ptrdiff_t{cx} * 4};
    level.spot = {finer.spot.x / 2, finer.spot.y / 2, (finer.spot.iSize + 1) / 2};
    for (int y = 0; y < cy; ++y)
    {
        const std::uint8_t* pAbove = finer.view.Row(2 * y);
        const std::uint8_t* pBelow = finer.view.Row(2 * y + 1);
        std::uint8_t* const pRow = level.view.Row(y);
        for (int i = 0; i < cx * 4; ++i)
        {
            const int iLeft = i / 4 * 8 + i % 4;
            pRow[i] = static_cast<std::uint8_t>(
                (pAbove[iLeft] + pAbove[iLeft + 4] + pBelow[iLeft] + pBelow[iLeft + 4] + 2) / 4);
        }
    }
    return level;
}

/// Sums over pixels, for each channel.
struct Sums
{
    std::array<double, CHANNELS> aOf = {};
    std::array<double, CHANNELS> aOfSquares = {};
    double dCount = 0;

    double Mean(int iChannel) const { return aOf[iChannel] / dCount; }
    double Variance(int iChannel) const { return aOfSquares[iChannel] / dCount - Mean(iChannel) * Mean(iChannel); }
};

template<typename Value>
Sums SumsOver(const std::vector<PixelRun>& vRuns, const Value& valueAt)
{
    Sums sums;
    for (const PixelRun& run : vRuns)
    {
        std::array<int, CHANNELS> aOf = {};
        std::array<int, CHANNELS> aOfSquares = {};
        for (int x = run.left; x < run.right; ++x)
        {
            for (int i = 0; i < CHANNELS; ++i)
            {
                const int iValue = valueAt(x, run.y, i);
                aOf[i] += iValue;
                aOfSquares[i] += iValue * iValue;
            }
        }
        for (int i = 0; i < CHANNELS; ++i)
        {
            sums.aOf[i] += aOf[i];
            sums.aOfSquares[i] += aOfSquares[i];
        }
        sums.dCount += run.right - run.left;
    }
    return sums;
}

/// A place, and how badly it fits.
struct Candidate
{
    PixelOffset offset;
    double dCost;
};

/// Compares places of one level.
class CMatcher
{
public:
    explicit CMatcher(const Level& level)
        : m_view(level.view), m_spot(level.spot), m_whole{0, 0, m_view.cx, m_view.cy},
          m_nRing(std::max(2, m_spot.iSize / 4)), m_vInside(m_spot.RunsWithin(m_whole)),
          m_vRing(m_spot.RingWithin(m_whole, m_nRing)), m_reach(m_spot.Grown(m_nRing).Box().Within(m_view))
    {
        m_here = SumsOver(m_vRing, [this](int x, int y, int i) { return int{m_view.Row(y)[x * 4 + i]}; });
    }

    /// Whether the place is all there, and beside the spot.
    bool IsPossible(const PixelOffset& offset) const
    {
        const double dApart = m_spot.iSize + 1;
        return double{1} * offset.x * offset.x + double{1} * offset.y * offset.y >= dApart * dApart &&
               m_reach.left + offset.x >= 0 && m_reach.top + offset.y >= 0 && m_reach.right + offset.x <= m_view.cx &&
               m_reach.bottom + offset.y <= m_view.cy;
    }

    double Cost(const PixelOffset& offset) const
    {
        constexpr double OF_BRIGHTNESS = 0.15;
        constexpr double OF_CONTENT = 0.5;
        constexpr double OF_DISTANCE = 0.3;
        const std::ptrdiff_t nAway = offset.y * m_view.nStride + std::ptrdiff_t{offset.x} * 4;
        const auto there = [&](int x, int y, int i) { return int{m_view.Row(y)[nAway + x * 4 + i]}; };
        const Sums difference =
            SumsOver(m_vRing, [&](int x, int y, int i) { return there(x, y, i) - m_view.Row(y)[x * 4 + i]; });
        const Sums ring = SumsOver(m_vRing, there);
        const Sums inside = SumsOver(m_vInside, there);
        double dCost = 1;
        for (int i = 0; i < CHANNELS; ++i)
        {
            const double dAnnounced = std::max(ring.Variance(i), m_here.Variance(i));
            dCost += difference.Variance(i) + OF_BRIGHTNESS * difference.Mean(i) * difference.Mean(i) +
                     OF_CONTENT * std::max(0.0, inside.Variance(i) - dAnnounced);
        }
        const double dAway = std::hypot(offset.x, offset.y) / m_spot.iSize;
        return dCost * (1 + OF_DISTANCE * dAway / 3);
    }

private:
    PixelView m_view;
    Spot m_spot;
    PixelRect m_whole;
    int m_nRing;
    std::vector<PixelRun> m_vInside;
    std::vector<PixelRun> m_vRing;
    PixelRect m_reach; ///< What is compared, and taken.
    Sums m_here;
};

/// Keeps the best of all, none next to a better one.
class CBest
{
public:
    explicit CBest(std::size_t nMost) : m_nMost(nMost) {}

    void Offer(const Candidate& candidate)
    {
        if (m_vBest.size() == m_nMost && candidate.dCost >= m_vBest.back().dCost)
            return;
        const auto isNear = [&](const Candidate& other) {
            return std::abs(other.offset.x - candidate.offset.x) <= 1 &&
                   std::abs(other.offset.y - candidate.offset.y) <= 1;
        };
        const auto itNear = std::ranges::find_if(m_vBest, isNear);
        if (itNear != m_vBest.end())
        {
            if (itNear->dCost <= candidate.dCost)
                return;
            m_vBest.erase(itNear);
        }
        m_vBest.insert(std::ranges::upper_bound(m_vBest, candidate.dCost, {}, &Candidate::dCost), candidate);
        if (m_vBest.size() > m_nMost)
            m_vBest.pop_back();
    }

    const std::vector<Candidate>& All() const { return m_vBest; }

private:
    std::size_t m_nMost;
    std::vector<Candidate> m_vBest;
};

} // namespace

std::optional<PixelOffset> FindHealSource(const PixelView& picture, const Spot& spot, CProgress& progress)
{
    constexpr int AWAY_IN_SPOTS = 3;
    constexpr int AWAY_IN_PIXELS = 16;
    constexpr int SMALL = 12; // Compared at all places.
    constexpr std::size_t FOLLOWED = 24;

    const int nAway = AWAY_IN_SPOTS * spot.iSize + AWAY_IN_PIXELS;
    const PixelRect window = spot.Grown(nAway + spot.iSize / 4 + 2).Box().Within(picture);
    std::vector<Level> vLevels(1);
    vLevels[0].view = {picture.Row(window.top) + std::ptrdiff_t{window.left} * 4, window.Width(), window.Height(),
                       picture.nStride};
    vLevels[0].spot = {spot.x - window.left, spot.y - window.top, spot.iSize};
    while (vLevels.back().spot.iSize > SMALL)
        vLevels.push_back(Halved(vLevels.back()));

    CBest best(FOLLOWED);
    const CMatcher coarsest(vLevels.back());
    const int nReach = nAway >> (vLevels.size() - 1);
    for (int y = -nReach; y <= nReach; ++y)
    {
        for (int x = -nReach; x <= nReach; ++x)
        {
            if (coarsest.IsPossible({x, y}))
                best.Offer({{x, y}, coarsest.Cost({x, y})});
        }
        if (!progress.Report(static_cast<std::size_t>(y + nReach), static_cast<std::size_t>(4 * nReach)))
            return std::nullopt;
    }
    std::size_t nFollowed = FOLLOWED;
    for (std::size_t i = vLevels.size() - 1; i-- > 0;)
    {
        const CMatcher matcher(vLevels[i]);
        nFollowed = std::max<std::size_t>(nFollowed / 2, 2);
        CBest finer(nFollowed);
        for (const Candidate& candidate : best.All())
        {
            for (int y = -1; y <= 1; ++y)
            {
                for (int x = -1; x <= 1; ++x)
                {
                    const PixelOffset offset = {2 * candidate.offset.x + x, 2 * candidate.offset.y + y};
                    if (matcher.IsPossible(offset))
                        finer.Offer({offset, matcher.Cost(offset)});
                }
            }
        }
        best = finer;
        if (progress.IsCancelled())
            return std::nullopt;
    }
    return best.All().empty() ? std::nullopt : std::optional(best.All().front().offset);
}
