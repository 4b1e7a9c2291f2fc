// How well spots are removed: heal-quality [--crops FOLDER] PHOTO... paints spots at random places of each photo,
// removes them, and prints what is wrong in them beside the error of the best of 16 equal patches of the photo, shifted
// by the spot's own size. With a folder it writes pictures of half of the places, healed, and of as many that nobody
// touched.

#include "document/Photo.h"
#include "pixels/Heal.h"

#include <cmath>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <numbers>
#include <QImage>
#include <random>

namespace
{

constexpr int SPOTS = 20;
constexpr int LEAST_SIZE = 9;
constexpr int MOST_SIZE = 60;

PixelRect WholeOf(const PixelView& picture) { return {0, 0, picture.cx, picture.cy}; }

/// The root of the mean square of what two places of pictures differ by.
double Error(const PixelView& one, const PixelView& other, const Spot& spot, int iAwayX, int iAwayY)
{
    double dSum = 0;
    double dCount = 0;
    for (const PixelRun& run : spot.RunsWithin(WholeOf(one)))
    {
        for (int x = run.left; x < run.right; ++x, ++dCount)
        {
            for (int i = 0; i < 3; ++i)
            {
                const int iDifference = one.Row(run.y)[x * 4 + i] - other.Row(run.y + iAwayY)[(x + iAwayX) * 4 + i];
                dSum += iDifference * iDifference;
            }
        }
    }
    return std::sqrt(dSum / dCount / 3);
}

/// That of the best patch at the spot's own size from it.
double PatchError(const PixelView& picture, const Spot& spot)
{
    constexpr int DIRECTIONS = 16;
    double dLeast = 255;
    for (int i = 0; i < DIRECTIONS; ++i)
    {
        const double dAngle = 2 * std::numbers::pi * i / DIRECTIONS;
        const int iAwayX = static_cast<int>(std::lround(spot.iSize * std::cos(dAngle)));
        const int iAwayY = static_cast<int>(std::lround(spot.iSize * std::sin(dAngle)));
        const PixelRect box = spot.Box();
        const PixelRect there = {box.left + iAwayX, box.top + iAwayY, box.right + iAwayX, box.bottom + iAwayY};
        if (there.left >= 0 && there.top >= 0 && there.right <= picture.cx && there.bottom <= picture.cy)
            dLeast = std::min(dLeast, Error(picture, picture, spot, iAwayX, iAwayY));
    }
    return dLeast;
}

/// A blot of one colour that hides all of the spot.
void Paint(const PixelView& picture, const Spot& spot, std::mt19937& random)
{
    std::uint8_t aColour[4] = {};
    for (std::uint8_t& value : aColour)
        value = static_cast<std::uint8_t>(random() % 256);
    for (const PixelRun& run : spot.RunsWithin(WholeOf(picture)))
    {
        for (int x = run.left; x < run.right; ++x)
            std::memcpy(picture.Row(run.y) + std::ptrdiff_t{x} * 4, aColour, 4);
    }
}

Spot RandomSpot(const PixelView& picture, std::mt19937& random)
{
    const auto below = [&](int iMost) { return static_cast<int>(random() % static_cast<unsigned>(iMost)); };
    return {below(picture.cx), below(picture.cy), LEAST_SIZE + below(MOST_SIZE - LEAST_SIZE + 1)};
}

/// The place, enlarged so that pixels can be seen.
void WriteCrop(const PixelView& picture, const Spot& spot, const std::string& strPath)
{
    const PixelRect rect = spot.Grown(spot.iSize).Box().Within(picture);
    QImage image(rect.Width(), rect.Height(), QImage::Format_RGB32);
    for (int y = 0; y < rect.Height(); ++y)
        std::memcpy(image.scanLine(y), picture.Row(rect.top + y) + std::ptrdiff_t{rect.left} * 4,
                    static_cast<std::size_t>(rect.Width()) * 4);
    constexpr int ENLARGED = 480;
    image.scaled(ENLARGED, ENLARGED, Qt::KeepAspectRatio).save(QString::fromStdString(strPath));
}

} // namespace

int main(int nArguments, char** ppArguments)
{
    std::vector<std::string> vPhotos(ppArguments + 1, ppArguments + nArguments);
    std::string strCrops;
    if (vPhotos.size() > 1 && vPhotos[0] == "--crops")
    {
        strCrops = vPhotos[1];
        vPhotos.erase(vPhotos.begin(), vPhotos.begin() + 2);
    }
    std::mt19937 random(7);
    std::vector<bool> vHealed(vPhotos.size() * SPOTS / 2); // Of the places that are shown.
    std::fill_n(vHealed.begin(), vHealed.size() / 2, true);
    std::mt19937 order(8);
    std::shuffle(vHealed.begin(), vHealed.end(), order);
    std::vector<double> vRatios;
    for (const std::string& strPhoto : vPhotos)
    {
        std::string strError;
        std::optional<CPhoto> photo = CPhoto::Load(strPhoto, strError);
        if (!photo)
        {
            std::fprintf(stderr, "%s\n", strError.c_str());
            return 1;
        }
        const PixelView original = photo->View();
        for (int i = 0; i < SPOTS; ++i)
        {
            const Spot spot = RandomSpot(original, random);
            CLargeBuffer copy(photo->ByteCount());
            std::memcpy(copy.Data(), photo->Pixels(), photo->ByteCount());
            const PixelView healed = photo->ViewOf(copy);
            Paint(healed, spot, random);
            CProgress progress;
            HealSpot(healed, healed, {}, spot, progress);
            const double dError = Error(healed, original, spot, 0, 0);
            const double dPatch = PatchError(original, spot);
            vRatios.push_back(dError / std::max(dPatch, 1.0));
            std::printf("%-40s %5d %5d %3d  error %6.2f  patch %6.2f  ratio %5.2f\n", strPhoto.c_str(), spot.x, spot.y,
                        spot.iSize, dError, dPatch, vRatios.back());
            if (!strCrops.empty() && i % 2 == 0)
            {
                const bool bHealed = vHealed[vRatios.size() / 2];
                const std::string strName = strCrops + "/" + std::to_string(vRatios.size());
                WriteCrop(bHealed ? healed : original, spot, strName + ".png");
                std::ofstream(strCrops + "/key.txt", std::ios::app)
                    << strName << (bHealed ? " healed\n" : " untouched\n");
            }
        }
    }
    std::ranges::sort(vRatios);
    double dSum = 0;
    for (const double dRatio : vRatios)
        dSum += dRatio;
    const auto nWithin = std::ranges::count_if(vRatios, [](double dRatio) { return dRatio <= 1.5; });
    if (!vRatios.empty())
        std::printf("%zu spots: ratio mean %.2f, median %.2f, most %.2f; %td within 1.5\n", vRatios.size(),
                    dSum / static_cast<double>(vRatios.size()), vRatios[vRatios.size() / 2], vRatios.back(), nWithin);
}
