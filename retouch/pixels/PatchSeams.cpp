#include "pixels/PatchSeams.h"

#include <utility>

namespace
{

constexpr std::pair<int, int> SIDES[] = {{-1, 0}, {1, 0}, {0, -1}, {0, 1}};

} // namespace

CPatchSeams::CPatchSeams(CPatchField field)
    : m_field(std::move(field)), m_hole(m_field.Hole()),
      m_vPieces(static_cast<std::size_t>(m_hole.Width()) * static_cast<std::size_t>(m_hole.Height()))
{
    for (int y = m_hole.top; y < m_hole.bottom; ++y)
    {
        for (int x = m_hole.left; x < m_hole.right; ++x)
            m_vPieces[Index(x, y)] = m_field.Best(x, y);
    }
    Cut();
}

void CPatchSeams::Cut()
{
    constexpr int MOST_TIMES = 30;
    bool bChanged = true;
    for (int iTime = 0; iTime < MOST_TIMES && std::exchange(bChanged, false); ++iTime)
    {
        // To and fro, so that no direction is preferred.
        const int nPixels = m_hole.Width() * m_hole.Height();
        for (int i = 0; i < nPixels; ++i)
        {
            const int iPlace = iTime % 2 ? nPixels - 1 - i : i;
            const int x = m_hole.left + iPlace % m_hole.Width();
            const int y = m_hole.top + iPlace / m_hole.Width();
            if (m_field.IsHole(x, y) && Improve(x, y))
                bChanged = true;
        }
    }
}

bool CPatchSeams::Improve(int x, int y)
{
    PixelOffset& piece = m_vPieces[Index(x, y)];
    const PixelOffset before = piece;
    int iLeast = -1; // Found out only where there is a choice.
    for (int yNear = y - 1; yNear <= y + 1; ++yNear)
    {
        for (int xNear = x - 1; xNear <= x + 1; ++xNear)
        {
            if (!m_field.IsHole(xNear, yNear))
                continue;
            const PixelOffset& other = m_vPieces[Index(xNear, yNear)];
            if (other == piece || !m_field.IsKnown(x + other.x, y + other.y))
                continue;
            if (iLeast < 0)
                iLeast = Cost(x, y, piece);
            const int iCost = Cost(x, y, other);
            if (iCost < iLeast)
            {
                iLeast = iCost;
                piece = other;
            }
        }
    }
    return piece != before;
}

int CPatchSeams::Cost(int x, int y, const PixelOffset& piece) const
{
    // What all patches say is no more than a hint: it is smoother than the picture.
    constexpr int OF_GUIDE = 2;
    int iCost = Apart(x, y, piece, {}) / OF_GUIDE;
    for (const auto& [dx, dy] : SIDES)
        iCost += SeamCost(x, y, piece, x + dx, y + dy);
    return iCost;
}

int CPatchSeams::SeamCost(int x, int y, const PixelOffset& piece, int xNear, int yNear) const
{
    constexpr int ANY_SEAM = 20;
    constexpr int UNKNOWN = 20000;
    const bool bGoesOn = m_field.IsKnown(xNear + piece.x, yNear + piece.y);
    if (m_field.IsKnown(xNear, yNear))
        return bGoesOn ? Apart(xNear, yNear, piece, {}) : 0;
    if (!m_field.IsHole(xNear, yNear))
        return 0;
    const PixelOffset& other = m_vPieces[Index(xNear, yNear)];
    if (other == piece)
        return 0;
    if (!bGoesOn || !m_field.IsKnown(x + other.x, y + other.y))
        return UNKNOWN;
    return ANY_SEAM + Apart(x, y, piece, other) + Apart(xNear, yNear, piece, other);
}

int CPatchSeams::Apart(int x, int y, const PixelOffset& one, const PixelOffset& other) const
{
    const std::uint8_t* const pOne = m_field.At(x + one.x, y + one.y);
    const std::uint8_t* const pOther = m_field.At(x + other.x, y + other.y);
    int iSum = 0;
    for (int i = 0; i < 3; ++i)
        iSum += (pOne[i] - pOther[i]) * (pOne[i] - pOther[i]);
    return iSum;
}

std::array<float, 3> CPatchSeams::ColourAt(int x, int y) const
{
    const int nNear = m_field.IsHole(x, y) ? 0 : 2;
    std::array<float, 3> aSum = {};
    float fCount = 0;
    for (int yNear = y - nNear; yNear <= y + nNear; ++yNear)
    {
        for (int xNear = x - nNear; xNear <= x + nNear; ++xNear)
        {
            if (!m_field.IsHole(xNear, yNear))
                continue;
            const PixelOffset& piece = m_vPieces[Index(xNear, yNear)];
            if (!m_field.IsKnown(x + piece.x, y + piece.y))
                continue;
            const std::uint8_t* const pPixel = m_field.At(x + piece.x, y + piece.y);
            for (std::size_t i = 0; i < aSum.size(); ++i)
                aSum[i] += static_cast<float>(pPixel[i]);
            ++fCount;
        }
    }
    for (std::size_t i = 0; i < aSum.size(); ++i)
        aSum[i] = fCount > 0 ? aSum[i] / fCount : static_cast<float>(m_field.At(x, y)[i]);
    return aSum;
}
