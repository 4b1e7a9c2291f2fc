#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <QByteArray>
#include <utility>

/// Turns the numbers of a photo with a colour profile into those of a screen, which is taken to be sRGB, by Little CMS:
/// relative colorimetric, with black point compensation. Any thread.
class CScreenColours
{
public:
    /// The transform for an ICC profile; NULL when none is needed, because the profile's colours are the screen's, and
    /// when the profile is empty, broken, or not for RGB pictures: IsUsable tells them apart.
    static std::shared_ptr<const CScreenColours> For(const QByteArray& profile);
    static bool IsUsable(const QByteArray& profile);

    /// Converts rows of pixels (0xAARRGGBB), whose strides are in bytes, on all cores. The alpha becomes 255.
    void Convert(const std::uint32_t* pFrom, std::ptrdiff_t nFromStride, std::uint32_t* pTo, std::ptrdiff_t nToStride,
                 int cx, int cy) const;

private:
    struct DeleteTransform
    {
        void operator()(void* pTransform) const;
    };
    using Transform = std::unique_ptr<void, DeleteTransform>; ///< Of Little CMS.

    explicit CScreenColours(Transform pTransform) : m_pTransform(std::move(pTransform)) {}
    static Transform TransformOf(const QByteArray& profile);
    bool ChangesAnything() const;

    Transform m_pTransform;
};
