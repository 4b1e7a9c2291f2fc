#pragma once

#include "pixels/HealSource.h"

#include <array>
#include <cstdint>
#include <random>
#include <vector>

/// A picture with a hole, and for each square patch that touches the hole the place of one like it that does not. It is
/// one level of FillSpot. Any thread, one at a time.
class CPatchField
{
public:
    static constexpr int REACH = 3; ///< A patch has so many pixels around its middle.

    /// The picture, whose hole may hold anything, and which pixels the hole has, row by row. All four bytes of a pixel
    /// count when patches are compared.
    CPatchField(const PixelView& picture, std::vector<std::uint8_t> vHole);

    /// Half the size: what is known of four pixels, and a hole where nothing is.
    CPatchField Halved() const;

    /// Whether there is a patch to take from.
    bool HasSources() const { return !m_vSources.empty() && !m_vMatches.empty(); }

    /// Begins with patches from anywhere, or with those of a field of half the size.
    void Guess();
    void Guess(const CPatchField& coarse);

    /// Looks for patches more alike: those that neighbours have found, and nRandom places around each (C. Barnes and
    /// others, PatchMatch, 2009).
    void Search(int nRandom);

    /// Fills the hole with the mean of what all patches say, by how alike they are and how close to what is known.
    void Vote();

    const PixelRect& Hole() const { return m_hole; } ///< All of it lies in this rectangle.
    bool IsHole(int x, int y) const { return IsInside(x, y) && m_vHole[Index(x, y)]; }
    bool IsKnown(int x, int y) const { return IsInside(x, y) && !m_vHole[Index(x, y)]; }

    /// The four bytes of a pixel; in the hole, as of the last vote.
    const std::uint8_t* At(int x, int y) const { return m_vPixels.data() + Index(x, y) * 4; }

    /// From a pixel of the hole to that of the patch most alike, or of the next patch where there is none about it.
    PixelOffset Best(int x, int y) const
    {
        return MatchAt(std::clamp(x, m_targets.left, m_targets.right - 1),
                       std::clamp(y, m_targets.top, m_targets.bottom - 1))
            .offset;
    }

private:
    struct Match
    {
        PixelOffset offset;
        int iDifference = 0;
    };

    std::size_t Index(int x, int y) const
    {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(m_cx) + static_cast<std::size_t>(x);
    }
    bool IsInside(int x, int y) const { return x >= 0 && y >= 0 && x < m_cx && y < m_cy; }
    bool IsSource(int x, int y) const { return IsInside(x, y) && m_vIsSource[Index(x, y)]; }
    std::size_t MatchIndex(int x, int y) const
    {
        return static_cast<std::size_t>(y - m_targets.top) * static_cast<std::size_t>(m_targets.Width()) +
               static_cast<std::size_t>(x - m_targets.left);
    }
    Match& MatchAt(int x, int y) { return m_vMatches[MatchIndex(x, y)]; }
    const Match& MatchAt(int x, int y) const { return m_vMatches[MatchIndex(x, y)]; }
    void FindSources();
    void FindTargets();
    void FindCertainty();
    void Spread();
    void Weigh();
    std::array<float, 4> Said(int x, int y) const;
    int Difference(int x, int y, const PixelOffset& offset, int iMost) const;
    void Try(int x, int y, const PixelOffset& offset);
    void Improve(int x, int y, int iStep, int nRandom);
    PixelOffset AnySource(int x, int y);

    int m_cx = 0;
    int m_cy = 0;
    std::vector<std::uint8_t> m_vPixels; ///< Row by row.
    std::vector<std::uint8_t> m_vHole;
    std::vector<std::uint8_t> m_vIsSource; ///< All of the patch about it is known.
    std::vector<PixelRun> m_vSources;
    PixelRect m_hole;
    PixelRect m_targets; ///< Patches in it are looked for.
    std::vector<Match> m_vMatches;
    std::vector<float> m_vCertainty; ///< How much a patch counts, by how close it is to what is known.
    std::vector<float> m_vWeights;   ///< How much it says in the vote.
    std::minstd_rand m_random{1};
};
