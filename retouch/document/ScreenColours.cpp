#include "document/ScreenColours.h"

#include "pixels/Bands.h"

#include <cstdlib>
#include <lcms2.h>
#include <vector>

namespace
{

constexpr qsizetype MOST_BYTES = 16 << 20; ///< Profiles have some hundred bytes, with tables a megabyte or two.

struct CloseProfile
{
    void operator()(void* pProfile) const { cmsCloseProfile(pProfile); }
};
using Profile = std::unique_ptr<void, CloseProfile>;

/// One for pictures in RGB; NULL for any other.
Profile OpenRgb(const QByteArray& profile)
{
    if (profile.isEmpty() || profile.size() > MOST_BYTES)
        return nullptr;
    Profile pProfile(cmsOpenProfileFromMem(profile.constData(), static_cast<cmsUInt32Number>(profile.size())));
    if (!pProfile || cmsGetColorSpace(pProfile.get()) != cmsSigRgbData)
        return nullptr;
    const cmsProfileClassSignature eClass = cmsGetDeviceClass(pProfile.get());
    const bool bOfPictures =
        eClass == cmsSigDisplayClass || eClass == cmsSigInputClass || eClass == cmsSigColorSpaceClass;
    return bOfPictures ? std::move(pProfile) : nullptr;
}

} // namespace

void CScreenColours::DeleteTransform::operator()(void* pTransform) const { cmsDeleteTransform(pTransform); }

CScreenColours::Transform CScreenColours::TransformOf(const QByteArray& profile)
{
    const Profile pPhoto = OpenRgb(profile);
    const Profile pScreen(cmsCreate_sRGBProfile());
    if (!pPhoto || !pScreen)
        return nullptr;
    // Without a cache it may be used on several threads at once.
    return Transform(cmsCreateTransform(pPhoto.get(), TYPE_BGRA_8, pScreen.get(), TYPE_BGRA_8,
                                        INTENT_RELATIVE_COLORIMETRIC,
                                        cmsFLAGS_BLACKPOINTCOMPENSATION | cmsFLAGS_NOCACHE));
}

std::shared_ptr<const CScreenColours> CScreenColours::For(const QByteArray& profile)
{
    Transform pTransform = TransformOf(profile);
    if (!pTransform)
        return nullptr;
    std::shared_ptr<const CScreenColours> pColours(new CScreenColours(std::move(pTransform)));
    return pColours->ChangesAnything() ? pColours : nullptr;
}

bool CScreenColours::IsUsable(const QByteArray& profile) { return TransformOf(profile) != nullptr; }

/// More of a colour than another rounding of it.
bool CScreenColours::ChangesAnything() const
{
    constexpr std::uint32_t STEP = 51;
    constexpr std::uint32_t STEPS = 6;
    for (std::uint32_t i = 0; i < STEPS * STEPS * STEPS; ++i)
    {
        const std::uint32_t uColour = (i / STEPS / STEPS << 16 | i / STEPS % STEPS << 8 | i % STEPS) * STEP;
        std::uint32_t uShown = 0;
        cmsDoTransform(m_pTransform.get(), &uColour, &uShown, 1);
        for (const int iShift : {0, 8, 16})
        {
            if (std::abs(static_cast<int>(uColour >> iShift & 255) - static_cast<int>(uShown >> iShift & 255)) > 1)
                return true;
        }
    }
    return false;
}

void CScreenColours::Convert(const std::uint32_t* pFrom, std::ptrdiff_t nFromStride, std::uint32_t* pTo,
                             std::ptrdiff_t nToStride, int cx, int cy) const
{
    constexpr std::uint32_t OPAQUE_ALPHA = 0xFF000000;
    CProgress progress;
    ForBands(cy, progress,
             [&](int iFirst, int iEnd)
             {
                 for (std::ptrdiff_t y = iFirst; y < iEnd; ++y)
                 {
                     const auto* const pRow = reinterpret_cast<const char*>(pFrom) + y * nFromStride;
                     auto* const pTarget =
                         reinterpret_cast<std::uint32_t*>(reinterpret_cast<char*>(pTo) + y * nToStride);
                     cmsDoTransform(m_pTransform.get(), pRow, pTarget, static_cast<cmsUInt32Number>(cx));
                     for (int x = 0; x < cx; ++x)
                         pTarget[x] |= OPAQUE_ALPHA;
                 }
             });
}
