#include "Images.h"
#include "platform/vorpix.h"
#include "Targets.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <random>

namespace
{

using Vorpix::FULL_WEIGHT;

/// Pixels or weights, from one word for each on, and a call of BitBlt with them.
struct Images
{
    explicit Images(std::mt19937& random)
    {
        const auto size = [&] { return 1 + static_cast<int>(random() % 70); };
        const auto place = [&] { return random() % 40 ? size() - 30 : random() % 2 ? INT_MIN : INT_MAX; };
        const int iBits = random() % 2 ? 24 : 32;
        infoDest = InfoOf(size(), size() / 8 + 1, iBits);
        infoSource = InfoOf(size(), size() / 8 + 1, iBits);
        xDest = place(), yDest = place() / 4, xSource = place(), ySource = place() / 4;
        cx = random() % 9 ? size() : INT_MAX, cy = random() % 9 ? size() / 4 + 1 : INT_MAX;
        vDest.resize(infoDest.bmiHeader.biWidth * infoDest.bmiHeader.biHeight);
        vSource.resize(infoSource.bmiHeader.biWidth * infoSource.bmiHeader.biHeight);
        vWeights.resize(vSource.size());
        const int iMost = 1 << random() % 16;
        for (int& iWeight : vWeights)
            iWeight = random() % 9 ? static_cast<int>(random() % (iMost + 1)) : iMost;
        for (std::vector<int>* pWords : {&vDest, &vSource})
            for (int& iWord : *pWords)
                iWord = static_cast<int>(random());
    }

    bool Blt(bool bStamp, const int* pWeights, size_t nWeights)
    {
        return Vorpix::BitBlt(bStamp, vDest.data(), infoDest, xDest, yDest, vSource.data(), infoSource, xSource,
                              ySource, cx, cy, bStamp ? Vorpix::BITBLT_STAMP : Vorpix::BITBLT_COPY, pWeights, nWeights,
                              true, nullptr);
    }

    /// Whether a pixel is written, and the position of the source's pixel.
    bool IsWritten(int x, int y, int64_t& nFromX, int64_t& nFromY) const
    {
        nFromX = int64_t(x) - xDest + xSource, nFromY = int64_t(y) - yDest + ySource;
        return x >= xDest && y >= yDest && x < int64_t(xDest) + cx && y < int64_t(yDest) + cy && nFromX >= 0 &&
               nFromY >= 0 && nFromX < infoSource.bmiHeader.biWidth && nFromY < infoSource.bmiHeader.biHeight;
    }

    BITMAPINFO infoDest, infoSource;
    int xDest, yDest, xSource, ySource, cx, cy;
    std::vector<int> vDest, vSource, vWeights;
};

} // namespace

TEST(BitBlt, WritesByWeightWhatLiesInsideBothImages)
{
    const auto check = []
    {
        std::mt19937 random(5);
        for (int iTrial = 0; iTrial < 900; ++iTrial)
        {
            Images images(random);
            const bool bStamp = iTrial % 3 == 0, bWeighted = iTrial % 3 == 1;
            if (bStamp)
            {
                images.infoDest.bmiHeader.biBitCount = images.infoSource.bmiHeader.biBitCount = 32;
                images.vSource = images.vWeights;
                std::ranges::for_each(images.vDest, [](int& iCoverage) { iCoverage &= 2 * FULL_WEIGHT - 1; });
            }
            Images before = images;
            const double dMost = *std::ranges::max_element(images.vSource);
            ASSERT_TRUE(images.Blt(bStamp, bWeighted ? images.vWeights.data() : nullptr,
                                   bWeighted ? images.vWeights.size() : 0));
            const int iWidth = images.infoDest.bmiHeader.biWidth, iHeight = images.infoDest.bmiHeader.biHeight;
            for (int i = 0; i < iWidth * iHeight; ++i)
            {
                int64_t nFromX, nFromY;
                if (!images.IsWritten(i % iWidth, i / iWidth, nFromX, nFromY))
                    continue;
                const int64_t nFrom = nFromY * images.infoSource.bmiHeader.biWidth + nFromX;
                if (bStamp)
                {
                    const double dMore = std::max(dMost - before.vDest[i], 0.0) * images.vSource[nFrom];
                    ASSERT_NEAR(images.vDest[i], before.vDest[i] + dMore / std::max(dMost, 1.0), 0.5 + 1.0 / 64);
                    before.vDest[i] = images.vDest[i];
                }
                const double dPart = bWeighted ? images.vWeights[nFrom] / double(FULL_WEIGHT) : 1;
                for (int iByte = 0; !bStamp && iByte < images.infoDest.bmiHeader.biBitCount / 8; ++iByte)
                {
                    unsigned char& uLevel = reinterpret_cast<unsigned char*>(
                        before.vDest.data())[OffsetOf(images.infoDest, i % iWidth, i / iWidth) + iByte];
                    const int iTo = reinterpret_cast<const unsigned char*>(
                        images.vSource
                            .data())[OffsetOf(images.infoSource, static_cast<int>(nFromX), static_cast<int>(nFromY)) +
                                     iByte];
                    uLevel = static_cast<unsigned char>(std::floor(uLevel + (iTo - uLevel) * dPart + 0.5));
                }
            }
            ASSERT_TRUE(images.vDest == before.vDest) << "trial " << iTrial;
        }
    };
    OnEveryTarget(check);
}

TEST(BitBlt, RefusesBadArgumentsAndWritesNothing)
{
    struct Call
    {
        bool bStamp = false;
        int iFlag = 0, cx = 4, iBits = 32, iBitsSource = 32, iWidth = 4, iHeight = 4;
        bool bDest = true, bSource = true, bWeights = false;
        size_t nWeights = 0;
        int iLastWeight = FULL_WEIGHT;
    } aCases[] = {
        {.bDest = false},
        {.bSource = false},
        {.iBits = 24},
        {.iBits = 16, .iBitsSource = 16},
        {.iWidth = 0},
        {.iHeight = -4},
        {.iWidth = INT_MAX, .iHeight = INT_MAX},
        {.cx = 0},
        {.cx = INT_MIN},
        {.iFlag = 1},
        {.bWeights = true, .nWeights = 15},
        {.bWeights = true},
        {.nWeights = 16},
        {.bStamp = true},
        {.bStamp = true, .iFlag = 1, .bWeights = true, .nWeights = 16},
        {.bStamp = true, .iFlag = 1, .iBits = 24, .iBitsSource = 24},
        {.bStamp = true, .iFlag = 1, .iLastWeight = FULL_WEIGHT + 1},
        {.bStamp = true, .iFlag = 1, .iLastWeight = -1},
    };
    for (const Call& call : aCases)
    {
        std::vector<int> vSource(16, FULL_WEIGHT), vDest(16, 77);
        vSource.back() = call.iLastWeight;
        BITMAPINFO info = InfoOf(call.iWidth, call.iHeight, call.iBits);
        EXPECT_FALSE(Vorpix::BitBlt(call.bStamp, call.bDest ? vDest.data() : nullptr, info, 0, 0,
                                    call.bSource ? vSource.data() : nullptr, InfoOf(4, 4, call.iBitsSource), 0, 0,
                                    call.cx, 4, Vorpix::emBitBltFlag(call.iFlag),
                                    call.bWeights ? vSource.data() : nullptr, call.nWeights, true, nullptr))
            << "case " << &call - aCases;
        EXPECT_EQ(vDest, std::vector<int>(16, 77));
    }
}
