#include "pixels/MaskDistance.h"

#include <algorithm>

namespace
{

// A step aside counts 3, one across 4: a distance that is nowhere more than a twelfth from the true one.
constexpr int ASIDE = 3;
constexpr int ACROSS = 4;
constexpr int FAR = 60000;

/// The distances of all pixels from those of one kind, in thirds of a pixel, as far as 16 bits tell.
class CDistances
{
public:
    CDistances(const std::vector<std::uint8_t>& vMask, int iWidth, bool bFromSelected)
        : m_cx(iWidth), m_cy(static_cast<int>(vMask.size()) / iWidth), m_vDistances(vMask.size())
    {
        std::ranges::transform(vMask, m_vDistances.begin(),
                               [=](std::uint8_t weight)
                               { return static_cast<std::uint16_t>((weight > 127) == bFromSelected ? 0 : FAR); });
    }

    /// Carries the distances over the whole mask, down and up again; FALSE when cancelled.
    bool Spread(CProgress& progress)
    {
        progress.SetStages(2);
        for (int y = 0; y < m_cy; ++y)
        {
            for (int x = 0; x < m_cx; ++x)
                Relax(x, y, -1);
            if (!progress.Report(static_cast<std::size_t>(y), static_cast<std::size_t>(m_cy)))
                return false;
        }
        progress.EndStage();
        for (int y = m_cy - 1; y >= 0; --y)
        {
            for (int x = m_cx - 1; x >= 0; --x)
                Relax(x, y, 1);
            if (!progress.Report(static_cast<std::size_t>(m_cy - 1 - y), static_cast<std::size_t>(m_cy)))
                return false;
        }
        return true;
    }

    bool IsWithin(std::size_t i, int iPixels) const { return m_vDistances[i] <= iPixels * ASIDE; }

private:
    int At(int x, int y) const
    {
        const bool bInside = x >= 0 && x < m_cx && y >= 0 && y < m_cy;
        return bInside ? m_vDistances[static_cast<std::size_t>(y) * m_cx + x] : FAR;
    }

    /// Comes nearer by way of the four neighbours that the pass has seen before.
    void Relax(int x, int y, int iSeen)
    {
        std::uint16_t& uDistance = m_vDistances[static_cast<std::size_t>(y) * m_cx + x];
        const int iNear = std::min({At(x + iSeen, y) + ASIDE, At(x, y + iSeen) + ASIDE, At(x - 1, y + iSeen) + ACROSS,
                                    At(x + 1, y + iSeen) + ACROSS});
        uDistance = static_cast<std::uint16_t>(std::min<int>(uDistance, iNear));
    }

    int m_cx, m_cy;
    std::vector<std::uint16_t> m_vDistances;
};

/// Sets what is near pixels of one kind to a weight.
bool SetNear(std::vector<std::uint8_t>& vMask, int iWidth, int iPixels, bool bSelected, CProgress& progress)
{
    CDistances distances(vMask, iWidth, bSelected);
    if (!distances.Spread(progress))
        return false;
    for (std::size_t i = 0; i < vMask.size(); ++i)
    {
        if (distances.IsWithin(i, iPixels))
            vMask[i] = bSelected ? 255 : 0;
    }
    return true;
}

} // namespace

bool GrowMask(std::vector<std::uint8_t>& vMask, int iWidth, int iPixels, CProgress& progress)
{
    return SetNear(vMask, iWidth, iPixels, true, progress);
}

bool ShrinkMask(std::vector<std::uint8_t>& vMask, int iWidth, int iPixels, CProgress& progress)
{
    return SetNear(vMask, iWidth, iPixels, false, progress);
}
