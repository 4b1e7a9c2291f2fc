#pragma once

#include "pixels/PatchField.h"

/// The hole of a field filled with pieces of the picture as they are, which keep its grain where a mean of patches
/// would be smooth. The pieces meet where they differ least, each pixel taking its neighbour's piece while that makes
/// the seams less visible (the energy of V. Kwatra and others, Graphcut textures, 2003, brought down by iterated
/// conditional modes, J. Besag, 1986). Coordinates are those of the field's picture. Any thread.
class CPatchSeams
{
public:
    explicit CPatchSeams(CPatchField field);

    /// Blue, green and red of a pixel of the hole; of one near it, of what the pieces there would go on to.
    std::array<float, 3> ColourAt(int x, int y) const;

private:
    std::size_t Index(int x, int y) const
    {
        return static_cast<std::size_t>(y - m_hole.top) * static_cast<std::size_t>(m_hole.Width()) +
               static_cast<std::size_t>(x - m_hole.left);
    }
    void Cut();
    bool Improve(int x, int y);
    int Cost(int x, int y, const PixelOffset& piece) const;
    int SeamCost(int x, int y, const PixelOffset& piece, int xNear, int yNear) const;
    int Apart(int x, int y, const PixelOffset& one, const PixelOffset& other) const;

    CPatchField m_field;
    PixelRect m_hole;
    std::vector<PixelOffset> m_vPieces; ///< For each pixel of the hole's rectangle.
};
