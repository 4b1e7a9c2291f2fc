#include "pixels/RedEye.h"

#include <cmath>
#include <vector>

namespace
{

enum Channel
{
    BLUE,
    GREEN,
    RED,
};

/// Skin and brown irises have about 1, lips up to 2, red pupils 3 and more.
constexpr float CERTAIN = 2.4F;
constexpr float POSSIBLE = 1.5F; ///< At a pupil's rim, where its red mixes with the iris.
constexpr float PLAIN = 1.1F;
constexpr float PALE = 0.6F;         ///< Inside a pupil, around its glint; white has a half.
constexpr int LEAST_DIFFERENCE = 55; ///< Shadows of skin and lips are brown, and darker.

float Redness(const std::uint8_t* pPixel)
{
    const auto fRed = static_cast<float>(pPixel[RED]);
    // The larger one alone: brown has little blue, too.
    const auto fOther = static_cast<float>(std::max(pPixel[GREEN], pPixel[BLUE]));
    constexpr float SMALL = 14; // Black is not red.
    return fRed * fRed / (2 * fOther * fOther + SMALL);
}

/// What red a pixel would have without the flash: that of grey, or of brown where green is stronger than blue.
float PlainRed(const std::uint8_t* pPixel)
{
    const int iGreen = pPixel[GREEN];
    const int iBlue = pPixel[BLUE];
    return iGreen > iBlue ? static_cast<float>(iGreen) : static_cast<float>(iGreen + iBlue) / 2;
}

bool IsCertain(const std::uint8_t* pPixel)
{
    return pPixel[RED] - std::max(pPixel[GREEN], pPixel[BLUE]) >= LEAST_DIFFERENCE && Redness(pPixel) >= CERTAIN;
}

/// Red pixels that hang together.
struct Spot
{
    int nPixels = 0;
    int nAtBorder = 0; ///< Of the rectangle.
    PixelRect box;     ///< In the rectangle.
};

/// The spots of a rectangle, as numbers of its pixels.
class CSpots
{
public:
    CSpots(const PixelView& picture, const PixelRect& rect)
        : m_nWidth(rect.Width()), m_nHeight(rect.Height()),
          m_vNumbers(static_cast<std::size_t>(m_nWidth) * static_cast<std::size_t>(m_nHeight), NONE)
    {
        for (int y = 0; y < m_nHeight; ++y)
        {
            const std::uint8_t* const pRow = picture.Row(rect.top + y) + std::ptrdiff_t{rect.left} * 4;
            for (int x = 0; x < m_nWidth; ++x)
            {
                if (IsCertain(pRow + std::ptrdiff_t{x} * 4))
                    NumberAt(x, y) = NEW;
            }
        }
        for (int y = 0; y < m_nHeight; ++y)
        {
            for (int x = 0; x < m_nWidth; ++x)
            {
                if (NumberAt(x, y) == NEW)
                    m_vSpots.push_back(Gather(x, y, static_cast<int>(m_vSpots.size())));
            }
        }
    }

    /// Those that may be pupils: round enough, whole, and neither dust nor a dress; of several the largest, and a
    /// second one of about its size.
    std::vector<PixelRect> Pupils() const
    {
        std::vector<const Spot*> vRound;
        for (const Spot& spot : m_vSpots)
        {
            if (IsRound(spot))
                vRound.push_back(&spot);
        }
        std::ranges::stable_sort(vRound, [](const Spot* p1, const Spot* p2) { return p1->nPixels > p2->nPixels; });
        constexpr int MOST_DIFFERENT = 4;
        std::vector<PixelRect> vBoxes;
        for (const Spot* const pSpot : vRound)
        {
            if (vBoxes.size() < 2 && pSpot->nPixels * MOST_DIFFERENT >= vRound.front()->nPixels)
                vBoxes.push_back(pSpot->box);
        }
        return vBoxes;
    }

private:
    static constexpr int NONE = -1;
    static constexpr int NEW = -2;

    int& NumberAt(int x, int y) { return m_vNumbers[static_cast<std::size_t>(y) * m_nWidth + x]; }

    Spot Gather(int xFirst, int yFirst, int iNumber)
    {
        Spot spot;
        spot.box = {xFirst, yFirst, xFirst + 1, yFirst + 1};
        std::vector<std::pair<int, int>> vOpen = {{xFirst, yFirst}};
        NumberAt(xFirst, yFirst) = iNumber;
        while (!vOpen.empty())
        {
            const auto [x, y] = vOpen.back();
            vOpen.pop_back();
            ++spot.nPixels;
            spot.nAtBorder += x == 0 || y == 0 || x == m_nWidth - 1 || y == m_nHeight - 1;
            spot.box = {std::min(spot.box.left, x), std::min(spot.box.top, y), std::max(spot.box.right, x + 1),
                        std::max(spot.box.bottom, y + 1)};
            for (const auto& [dx, dy] : {std::pair{-1, 0}, {1, 0}, {0, -1}, {0, 1}})
            {
                const bool bInside = x + dx >= 0 && x + dx < m_nWidth && y + dy >= 0 && y + dy < m_nHeight;
                if (bInside && NumberAt(x + dx, y + dy) == NEW)
                {
                    NumberAt(x + dx, y + dy) = iNumber;
                    vOpen.emplace_back(x + dx, y + dy);
                }
            }
        }
        return spot;
    }

    bool IsRound(const Spot& spot) const
    {
        constexpr int LEAST_PIXELS = 4;
        constexpr double LEAST_SHARE = 0.0003; // Of the rectangle.
        constexpr double MOST_SHARE = 0.7;
        constexpr double LEAST_FULL = 0.35; // A disc fills 0.79 of its box, with a large glint less.
        constexpr double MOST_LONG = 2.2;
        const double dWidth = spot.box.Width();
        const double dHeight = spot.box.Height();
        const double dArea = static_cast<double>(m_nWidth) * m_nHeight;
        return spot.nPixels >= LEAST_PIXELS && spot.nPixels >= LEAST_SHARE * dArea &&
               spot.nPixels <= MOST_SHARE * dArea && spot.nPixels >= LEAST_FULL * dWidth * dHeight &&
               dWidth <= MOST_LONG * dHeight && dHeight <= MOST_LONG * dWidth &&
               spot.nAtBorder <= std::sqrt(spot.nPixels) / 2;
    }

    int m_nWidth;
    int m_nHeight;
    std::vector<int> m_vNumbers;
    std::vector<Spot> m_vSpots;
};

/// An ellipse about the middle of a box: what a pixel's distance from its middle is, 1 on the rim.
class CEllipse
{
public:
    explicit CEllipse(const PixelRect& box)
        : m_fMiddleX(static_cast<float>(box.left + box.right - 1) / 2),
          m_fMiddleY(static_cast<float>(box.top + box.bottom - 1) / 2), m_fAcross(static_cast<float>(box.Width()) / 2),
          m_fDown(static_cast<float>(box.Height()) / 2)
    {
    }

    float DistanceOf(int x, int y) const
    {
        return std::hypot((static_cast<float>(x) - m_fMiddleX) / m_fAcross,
                          (static_cast<float>(y) - m_fMiddleY) / m_fDown);
    }

    /// What lies within a distance.
    PixelRect Within(float fDistance, const PixelView& picture) const
    {
        const float fAcross = m_fAcross * fDistance + 1;
        const float fDown = m_fDown * fDistance + 1;
        return PixelRect{static_cast<int>(m_fMiddleX - fAcross), static_cast<int>(m_fMiddleY - fDown),
                         static_cast<int>(m_fMiddleX + fAcross) + 2, static_cast<int>(m_fMiddleY + fDown) + 2}
            .Within(picture);
    }

private:
    float m_fMiddleX;
    float m_fMiddleY;
    float m_fAcross;
    float m_fDown;
};

/// Whether what surrounds a pupil is no longer red, as iris and white are and lips are not.
bool EndsAround(const PixelView& picture, const CEllipse& pupil)
{
    constexpr float FROM = 1.6F;
    constexpr float TO = 2.1F;
    constexpr int MOST_RED = 4; // One in so many.
    const PixelRect around = pupil.Within(TO, picture);
    int nAll = 0;
    int nRed = 0;
    for (int y = around.top; y < around.bottom; ++y)
    {
        for (int x = around.left; x < around.right; ++x)
        {
            const float fDistance = pupil.DistanceOf(x, y);
            if (fDistance < FROM || fDistance > TO)
                continue;
            ++nAll;
            nRed += Redness(picture.Row(y) + std::ptrdiff_t{x} * 4) > POSSIBLE;
        }
    }
    return nRed * MOST_RED <= nAll;
}

/// Takes red out of a pupil and, less and less, of its rim, where it mixes with the iris.
void Correct(const PixelView& picture, const MaskView& weights, const CEllipse& pupil, float fAmount)
{
    constexpr float RIM = 1.5F;
    const PixelRect around = pupil.Within(RIM, picture);
    for (int y = around.top; y < around.bottom; ++y)
    {
        const std::uint8_t* const pWeights = weights.Row(y);
        for (int x = around.left; x < around.right; ++x)
        {
            std::uint8_t* const pPixel = picture.Row(y) + std::ptrdiff_t{x} * 4;
            const float fInside = std::clamp((RIM - pupil.DistanceOf(x, y)) / (RIM - 1), 0.0F, 1.0F);
            const float fLeast = PALE + (1 - fInside) * 4 * (PLAIN - PALE);
            const float fSure =
                std::clamp((Redness(pPixel) - std::min(fLeast, PLAIN)) / (POSSIBLE - PLAIN), 0.0F, 1.0F);
            const float fPlain = PlainRed(pPixel);
            const auto fRed = static_cast<float>(pPixel[RED]);
            if (fRed <= fPlain)
                continue;
            const float fWeight = fInside * fSure * fAmount * (pWeights ? static_cast<float>(pWeights[x]) / 255 : 1.0F);
            pPixel[RED] = static_cast<std::uint8_t>(std::lround(fRed + fWeight * (fPlain - fRed)));
        }
    }
}

} // namespace

bool RemoveRedEye(PixelView picture, MaskView weights, PixelRect rect, int iAmount, CProgress& progress)
{
    const PixelRect inside = rect.Within(picture);
    if (inside.IsEmpty())
        return !progress.IsCancelled();
    const std::vector<PixelRect> vPupils = CSpots(picture, inside).Pupils();
    if (!progress.Report(1, 2))
        return false;
    for (const PixelRect& box : vPupils)
    {
        const CEllipse pupil(
            {box.left + inside.left, box.top + inside.top, box.right + inside.left, box.bottom + inside.top});
        if (EndsAround(picture, pupil))
            Correct(picture, weights, pupil, static_cast<float>(iAmount) / 100);
    }
    return true;
}
