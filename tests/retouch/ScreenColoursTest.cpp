#include "document/ScreenColours.h"

#include <array>
#include <gtest/gtest.h>
#include <lcms2.h>
#include <random>
#include <vector>

namespace
{

QByteArray BytesOf(cmsHPROFILE pProfile)
{
    cmsUInt32Number nBytes = 0;
    cmsSaveProfileToMem(pProfile, nullptr, &nBytes);
    QByteArray bytes(static_cast<qsizetype>(nBytes), 0);
    cmsSaveProfileToMem(pProfile, bytes.data(), &nBytes);
    cmsCloseProfile(pProfile);
    return bytes;
}

/// Primaries further out than those of sRGB.
QByteArray WideProfile(double dGamma)
{
    const cmsCIExyY white = {0.3127, 0.3290, 1};
    const cmsCIExyYTRIPLE primaries = {{0.64, 0.33, 1}, {0.21, 0.71, 1}, {0.15, 0.06, 1}};
    cmsToneCurve* const pCurve = cmsBuildGamma(nullptr, dGamma);
    const std::array<cmsToneCurve*, 3> aCurves = {pCurve, pCurve, pCurve};
    const QByteArray bytes = BytesOf(cmsCreateRGBProfile(&white, &primaries, aCurves.data()));
    cmsFreeToneCurve(pCurve);
    return bytes;
}

QByteArray GreyProfile()
{
    cmsToneCurve* const pCurve = cmsBuildGamma(nullptr, 2.2);
    const QByteArray bytes = BytesOf(cmsCreateGrayProfile(cmsD50_xyY(), pCurve));
    cmsFreeToneCurve(pCurve);
    return bytes;
}

TEST(ScreenColoursTest, WideColoursBecomeThoseOfTheScreen)
{
    const auto pColours = CScreenColours::For(WideProfile(2.2));
    ASSERT_TRUE(pColours);
    // Linear light of the wide space in that of sRGB, for the same white: its red and blue are sRGB's, and its green is
    // beyond. Grey stays grey.
    constexpr int CX = 37;
    constexpr int CY = 9;
    std::mt19937 random(1);
    std::vector<std::uint32_t> vFrom(CX * CY);
    for (std::uint32_t& uPixel : vFrom)
        uPixel = static_cast<std::uint32_t>(random() % 256) * 0x10101;
    vFrom[0] = 0x00FF0000;
    vFrom[1] = 0x0000FF00;
    vFrom[2] = 0x000000FF;
    vFrom[3] = 0x00408040;
    std::vector<std::uint32_t> vTo(CX * CY);
    pColours->Convert(vFrom.data(), CX * 4, vTo.data(), CX * 4, CX, CY);
    const auto channel = [&](std::size_t i, int iShift) { return static_cast<int>(vTo[i] >> iShift & 255); };
    EXPECT_EQ(vTo[0], 0xFFFF0000U);
    EXPECT_EQ(vTo[1], 0xFF00FF00U) << "as green as the screen can";
    EXPECT_LT(channel(3, 16), 0x38) << "more green than the numbers say";
    EXPECT_NEAR(channel(3, 8), 0x81, 3);
    for (std::size_t i = 4; i < vTo.size(); ++i)
    {
        ASSERT_NEAR(channel(i, 0), static_cast<int>(vFrom[i] & 255), 9) << "gamma 2.2 is nearly sRGB's";
        ASSERT_NEAR(channel(i, 8), channel(i, 0), 1);
        ASSERT_NEAR(channel(i, 16), channel(i, 0), 1);
        ASSERT_EQ(vTo[i] >> 24, 255U);
    }
}

TEST(ScreenColoursTest, WhatIsScreenColourAlreadyOrNoProfileForPicturesIsLeftAlone)
{
    const QByteArray wide = WideProfile(1.8);
    const struct
    {
        const char* pszName;
        QByteArray profile;
        bool bUsable;
        bool bConverts;
    } CASES[] = {{"none", {}, false, false},
                 {"sRGB", BytesOf(cmsCreate_sRGBProfile()), true, false},
                 {"wide", wide, true, true},
                 {"Lab", BytesOf(cmsCreateLab4Profile(nullptr)), false, false},
                 {"grey", GreyProfile(), false, false},
                 {"cut off", wide.left(wide.size() / 2), false, false},
                 {"a head alone", wide.left(128), false, false},
                 {"noise", QByteArray(4000, '\x5A'), false, false},
                 {"huge", wide + QByteArray(17 << 20, 'x'), false, false}};
    for (const auto& test : CASES)
    {
        EXPECT_EQ(CScreenColours::IsUsable(test.profile), test.bUsable) << test.pszName;
        EXPECT_EQ(CScreenColours::For(test.profile) != nullptr, test.bConverts) << test.pszName;
    }
    // Damaged ones may be good for something or not: they do no harm.
    std::mt19937 random(3);
    for (int i = 0; i < 300; ++i)
    {
        QByteArray damaged = wide;
        for (int n = 0; n < 4; ++n)
            damaged[static_cast<qsizetype>(random() % static_cast<unsigned>(wide.size()))] =
                static_cast<char>(random());
        const auto pColours = CScreenColours::For(damaged);
        std::uint32_t uPixel = 0x123456;
        if (pColours)
            pColours->Convert(&uPixel, 4, &uPixel, 4, 1, 1);
    }
}

} // namespace
