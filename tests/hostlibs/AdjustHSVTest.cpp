#include "Images.h"
#include "platform/vorpix.h"
#include "Targets.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <random>

namespace
{

/// The new level of a channel, not rounded: its hue lies iSixths from red.
double Adjusted(const unsigned char* pPixel, int iSixths, double dHue, double dSaturation, double dValue)
{
    const double dBlue = pPixel[0], dGreen = pPixel[1], dRed = pPixel[2];
    const double dMost = std::max({dBlue, dGreen, dRed}), dChroma = dMost - std::min({dBlue, dGreen, dRed});
    const double dV = std::clamp(dMost + 255 * dValue, 0.0, 255.0);
    if (dChroma == 0)
        return dV;
    const double dTurn = dMost == dRed     ? (dGreen - dBlue) / dChroma
                         : dMost == dGreen ? 2 + (dBlue - dRed) / dChroma
                                           : 4 + (dRed - dGreen) / dChroma;
    const double dApart = std::abs(std::remainder(dTurn + 6 * dHue - iSixths, 6));
    const double dS = std::clamp(dChroma / dMost + dSaturation, 0.0, 1.0);
    return dV - dV * dS * std::clamp(dApart - 1, 0.0, 1.0);
}

} // namespace

TEST(AdjustHSV, MovesTheColoursOfTheRegionByTheWeightsOfItsMask)
{
    const struct
    {
        double dHue, dSaturation, dValue;
        RECT rcRegion;
    } aCases[] = {
        {0, 0, 0.1f, {0, 0, 1000, 1000}}, {0, 0, -0.1f, {3, 2, 40, 6}},     {0, 0, 1, {INT_MIN, 0, INT_MAX, 3}},
        {0, 0, -1e300, {1, 1, 60, 5}},    {0, 0, 0.003, {0, 0, 67, 9}},     {0, 0, 0, {0, 0, 67, 9}},
        {0.3, 0, 0, {0, 0, 67, 9}},       {-7.25, 0.2, 0.1, {0, 0, 67, 9}}, {0, -0.5, -0.1, {0, 0, 67, 9}},
        {0, 2, 0, {5, 0, 17, 9}},
    };
    const auto check = [&]
    {
        std::mt19937 random(8);
        for (const auto& test : aCases)
            for (const int iBits : {24, 32})
            {
                BITMAPINFO info = InfoOf(67, 9, iBits);
                std::vector<unsigned char> vBits(StrideOf(67, iBits) * 9);
                Vorpix::tagPROCESS_REGION region = {test.rcRegion, std::vector<unsigned char>(67 * 9, 255)};
                for (unsigned char& uByte : vBits)
                    uByte = static_cast<unsigned char>(random() % 5 ? random() : random() % 2 * 255);
                for (int i = 0; i < 67 * 9; ++i)
                {
                    if (i % 67 > 33)
                        region.vRegionMask[i] = static_cast<unsigned char>(random());
                    if (i % 10 == 0)
                        std::fill_n(&vBits[OffsetOf(info, i % 67, i / 67)], 3, i % 4 ? random() : 0);
                }
                std::vector<unsigned char> vExpected = vBits, vAdjusted = vBits;
                ASSERT_TRUE(Vorpix::AdjustHSV(vAdjusted, info, region, test.dHue, test.dSaturation, test.dValue,
                                              nullptr, true));
                for (int i = 0; i < 67 * 9; ++i)
                {
                    const CPoint pt(i % 67, i / 67);
                    if (!CRect(test.rcRegion).PtInRect(pt))
                        continue;
                    unsigned char* const pWas = &vExpected[OffsetOf(info, pt.x, pt.y)];
                    const unsigned char* const pIs = &vAdjusted[OffsetOf(info, pt.x, pt.y)];
                    for (int iByte = 0; iByte < 3; ++iByte)
                    {
                        const unsigned char uWas = vBits[pWas - vExpected.data() + iByte];
                        const double dNew = Adjusted(&vBits[pWas - vExpected.data()], 4 - 2 * iByte, test.dHue,
                                                     test.dSaturation, test.dValue);
                        ASSERT_NEAR(pIs[iByte], uWas + (dNew - uWas) * region.vRegionMask[i] / 255.0, 0.51) << i;
                        pWas[iByte] = pIs[iByte];
                    }
                }
                ASSERT_TRUE(vAdjusted == vExpected) << "written beside the region";
            }
    };
    OnEveryTarget(check);
}
