#include "Images.h"
#include "platform/vorpix.h"

#include <climits>
#include <cmath>
#include <gtest/gtest.h>

TEST(Refusals, AreasAndMasksThatDoNotFitAreRefusedAndNothingIsWritten)
{
    struct Case
    {
        BITMAPINFO info = InfoOf(4, 4, 32);
        RECT rcArea = {0, 0, 4, 4};
        size_t nMask = 16, nBytes = 64;
        bool bBits = true;
        int iNumber = 1; ///< A tolerance or radius.
        double dNumber = 0.1;
        const char* pszRefusing = "AdjustHSV CreateRegionFromColor FeatherRegion"; ///< Who is called and refuses.
    } aCases[] = {
        {.info = InfoOf(4, 4, 16), .pszRefusing = "AdjustHSV CreateRegionFromColor"},
        {.info = InfoOf(0, 4, 32), .nMask = 0},
        {.info = InfoOf(-4, -4, 32)},
        {.info = InfoOf(INT_MAX, INT_MAX, 24)},
        {.rcArea = {3, 0, 1, 4}},
        {.rcArea = {4, 0, 8, 4}},
        {.rcArea = {0, INT_MIN, 4, 0}},
        {.rcArea = {2, 2, 2, 4}},
        {.nMask = 15},
        {.nBytes = 63, .pszRefusing = "AdjustHSV"},
        {.dNumber = NAN, .pszRefusing = "AdjustHSV"},
        {.dNumber = -INFINITY, .pszRefusing = "AdjustHSV"},
        {.bBits = false, .pszRefusing = "CreateRegionFromColor"},
        {.iNumber = -1, .pszRefusing = "CreateRegionFromColor"},
        {.rcArea = {8, 8, 9, 9}, .iNumber = 0, .pszRefusing = "FeatherRegion"},
    };
    using Bytes = std::vector<unsigned char>;
    for (Case& c : aCases)
    {
        SCOPED_TRACE(&c - aCases);
        const std::string strRefusing = c.pszRefusing;
        Bytes vBits(c.nBytes, 77), vMask(c.nMask, 77);
        Vorpix::tagPROCESS_REGION region = {c.rcArea, vMask};
        EXPECT_FALSE(strRefusing.find("Adjust") != std::string::npos &&
                     Vorpix::AdjustHSV(vBits, c.info, region, 0, c.dNumber, c.dNumber, nullptr, true));
        EXPECT_FALSE(strRefusing.find("Create") != std::string::npos &&
                     Vorpix::CreateRegionFromColor(c.bBits ? vBits.data() : nullptr, c.info, c.rcArea, vMask, 0,
                                                   c.iNumber, nullptr));
        EXPECT_FALSE(strRefusing.find("Feather") != std::string::npos &&
                     Vorpix::FeatherRegion(vMask, c.rcArea, c.iNumber, c.info.bmiHeader.biWidth,
                                           c.info.bmiHeader.biHeight, nullptr, true));
        EXPECT_EQ(vBits, Bytes(c.nBytes, 77));
        EXPECT_EQ(vMask, Bytes(c.nMask, 77));
    }
}
