#include "platform/vorpix.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <random>

namespace
{

struct Image
{
    Image(int cx, int cy, std::vector<unsigned char> vLevels = {}) : vBytes(std::move(vLevels))
    {
        info.bmiHeader.biWidth = cx;
        info.bmiHeader.biHeight = cy;
        info.bmiHeader.biBitCount = 8;
        vBytes.resize(static_cast<size_t>(cx) * cy);
    }
    int Width() const { return info.bmiHeader.biWidth; }
    int Height() const { return info.bmiHeader.biHeight; }
    bool ResizeTo(Image& result, int iWidth, int iHeight, int iAlgorithm) const
    {
        return Vorpix::Resize(vBytes.data(), vBytes.size(), info, result.vBytes, result.info, iWidth, iHeight,
                              static_cast<Vorpix::RESIZE_ALGORITHM>(iAlgorithm), nullptr);
    }

    BITMAPINFO info = {};
    std::vector<unsigned char> vBytes;
};

Image Noise(int iWidth, int iHeight)
{
    std::mt19937 random(iWidth * 1000 + iHeight);
    Image image(iWidth, iHeight);
    for (unsigned char& uByte : image.vBytes)
        uByte = static_cast<unsigned char>(random() % 3 ? random() : random() % 2 * 255);
    return image;
}

/// The kernel as declared: how much a source pixel counts for one of the result whose middle is dDistance away.
double Weight(int iAlgorithm, double dDistance, double dScale)
{
    const double d = std::abs(dDistance) / (iAlgorithm == 1 ? 1 : std::max(dScale, 1.0));
    if (iAlgorithm == 1 && dScale > 1)
        return std::clamp((1 + dScale) / 2 - d, 0.0, 1.0);
    if (iAlgorithm == 1)
        return std::max(1 - d, 0.0);
    return d < 1 ? 1.5 * d * d * d - 2.5 * d * d + 1 : d < 2 ? -0.5 * d * d * d + 2.5 * d * d - 4 * d + 2 : 0;
}

/// A line in full precision, its outermost pixels repeated.
std::vector<double> SlowLine(const std::vector<double>& vLine, int nResult, int iAlgorithm)
{
    const int nSource = static_cast<int>(vLine.size());
    const double dScale = static_cast<double>(nSource) / nResult;
    const int iReach = static_cast<int>(2 * dScale) + 3;
    std::vector<double> vResult;
    for (int i = 0; i < nResult; ++i)
    {
        const double dMiddle = (i + 0.5) * dScale - 0.5;
        double dSum = 0, dWeights = 0;
        for (int j = static_cast<int>(dMiddle) - iReach; j <= dMiddle + iReach; ++j)
        {
            const double dWeight = Weight(iAlgorithm, j - dMiddle, dScale);
            dWeights += dWeight;
            dSum += dWeight * vLine[std::clamp(j, 0, nSource - 1)];
        }
        vResult.push_back(std::clamp(dSum / dWeights, 0.0, 255.0));
    }
    return vResult;
}

std::vector<double> SlowResize(const Image& image, int iWidth, int iHeight, int iAlgorithm)
{
    std::vector<double> vResult(static_cast<size_t>(iWidth) * iHeight);
    std::vector<std::vector<double>> vColumns;
    for (int x = 0; x < image.Width(); ++x)
    {
        std::vector<double> vColumn;
        for (int y = 0; y < image.Height(); ++y)
            vColumn.push_back(image.vBytes[static_cast<size_t>(y) * image.Width() + x]);
        vColumns.push_back(SlowLine(vColumn, iHeight, iAlgorithm));
    }
    for (int y = 0; y < iHeight; ++y)
    {
        std::vector<double> vRow;
        for (const auto& vColumn : vColumns)
            vRow.push_back(vColumn[y]);
        std::ranges::copy(SlowLine(vRow, iWidth, iAlgorithm), vResult.begin() + static_cast<ptrdiff_t>(y) * iWidth);
    }
    return vResult;
}

constexpr int SIZES[][4] = {{1, 1, 1, 1},     {1, 1, 40, 3},    {40, 3, 1, 1},    {3, 5, 1, 2},     {2, 2, 3, 3},
                            {16, 16, 32, 32}, {33, 17, 50, 26}, {50, 26, 33, 17}, {64, 40, 32, 20}, {64, 40, 32, 41},
                            {90, 70, 33, 26}, {47, 31, 47, 60}, {47, 31, 99, 31}, {200, 9, 7, 90},  {9, 200, 90, 7},
                            {3000, 2, 2, 2},  {2, 3000, 1, 2},  {100, 51, 50, 17}};

} // namespace

TEST(Resize, AgreesWithTheKernelInFullPrecision)
{
    for (const auto& [cx, cy, cxNew, cyNew] : SIZES)
        for (const int iAlgorithm : {1, 2})
        {
            const Image image = Noise(cx, cy);
            Image result(1, 1);
            ASSERT_TRUE(image.ResizeTo(result, cxNew, cyNew, iAlgorithm));
            ASSERT_EQ(result.vBytes.size(), static_cast<size_t>(cxNew) * cyNew);
            ASSERT_EQ(result.info.bmiHeader.biWidth, cxNew);
            ASSERT_EQ(result.info.bmiHeader.biHeight, cyNew);
            ASSERT_EQ(result.info.bmiHeader.biBitCount, 8);
            ASSERT_EQ(result.info.bmiHeader.biSizeImage, result.vBytes.size());
            const std::vector<double> vExpected = SlowResize(image, cxNew, cyNew, iAlgorithm);
            // Half a level for each direction, the first of them spread by the second, and the weights' units.
            for (size_t i = 0; i < vExpected.size(); ++i)
                ASSERT_NEAR(result.vBytes[i], vExpected[i], 1.3)
                    << cx << "x" << cy << " to " << cxNew << "x" << cyNew << " by " << iAlgorithm << " at " << i;
        }
}

TEST(Resize, KeepsEvenImagesAndSizesThatStay)
{
    for (const auto& [cx, cy, cxNew, cyNew] : SIZES)
        for (const int iAlgorithm : {1, 2})
        {
            for (const int iLevel : {0, 1, 127, 254, 255})
            {
                const auto uLevel = static_cast<unsigned char>(iLevel);
                const Image even(cx, cy, std::vector<unsigned char>(static_cast<size_t>(cx) * cy, uLevel));
                Image result(1, 1);
                ASSERT_TRUE(even.ResizeTo(result, cxNew, cyNew, iAlgorithm));
                ASSERT_EQ(result.vBytes, std::vector<unsigned char>(result.vBytes.size(), uLevel));
            }
            const Image image = Noise(cx, cy);
            Image same(1, 1);
            ASSERT_TRUE(image.ResizeTo(same, cx, cy, iAlgorithm));
            ASSERT_EQ(same.vBytes, image.vBytes);
        }
}

TEST(Resize, RoundsAsDeclared)
{
    using Levels = std::vector<unsigned char>;
    const struct
    {
        Image source;
        int iWidth, iHeight, iAlgorithm;
        Levels vExpected;
    } aCases[] = {
        {{2, 2, {0, 1, 1, 0}}, 1, 1, 1, {1}},      // 1/2, once
        {{2, 2, {0, 0, 1, 0}}, 1, 1, 1, {0}},      // 1/4
        {{4, 1, {0, 1, 9, 10}}, 2, 1, 1, {1, 10}}, // halves upwards
        {{2, 1, {0, 100}}, 4, 1, 1, {0, 25, 75, 100}},
        {{3, 1, {0, 90, 210}}, 2, 1, 1, {30, 170}},     // a third of the middle one each
        {{2, 1, {0, 255}}, 4, 1, 2, {0, 52, 203, 255}}, // overshoots are cut off
        {{1, 3, {0, 255, 0}}, 1, 6, 2, {0, 58, 221, 221, 58, 0}},
    };
    for (const auto& test : aCases)
    {
        Image result(1, 1);
        ASSERT_TRUE(test.source.ResizeTo(result, test.iWidth, test.iHeight, test.iAlgorithm));
        EXPECT_EQ(result.vBytes, test.vExpected);
    }
}

TEST(Resize, WorksInPlace)
{
    Image image = Noise(40, 30), result(1, 1);
    ASSERT_TRUE(image.ResizeTo(result, 90, 80, 2));
    ASSERT_TRUE(image.ResizeTo(image, 90, 80, 2));
    EXPECT_EQ(image.vBytes, result.vBytes);
    EXPECT_EQ(image.Width(), 90);
}

TEST(Resize, RefusesBadArgumentsAndWritesNothing)
{
    const struct
    {
        int iSourceWidth, iSourceHeight, iBitsPixel, iWidth, iHeight, iAlgorithm;
        size_t nBytes = 16;
        bool bBits = true;
    } aCases[] = {
        {4, 4, 8, 2, 2, 0},
        {4, 4, 8, 2, 2, 3},
        {4, 4, 24, 2, 2, 1},
        {4, 4, 8, 0, 2, 1},
        {4, 4, 8, 2, -2, 1},
        {-4, -4, 8, 2, 2, 1},
        {0, 4, 8, 2, 2, 1},
        {4, 4, 8, 65536, 32768, 1},
        {4, 4, 8, 2, 2, 1, 15},
        {INT_MAX, INT_MAX, 8, 2, 2, 1},
        {4, 4, 8, 2, 2, 1, 16, false},
    };
    const unsigned char aBits[16] = {};
    for (const auto& test : aCases)
    {
        Image source(4, 4), result(1, 1, {77});
        source.info.bmiHeader.biWidth = test.iSourceWidth;
        source.info.bmiHeader.biHeight = test.iSourceHeight;
        source.info.bmiHeader.biBitCount = static_cast<WORD>(test.iBitsPixel);
        EXPECT_FALSE(Vorpix::Resize(test.bBits ? aBits : nullptr, test.nBytes, source.info, result.vBytes, result.info,
                                    test.iWidth, test.iHeight, static_cast<Vorpix::RESIZE_ALGORITHM>(test.iAlgorithm),
                                    nullptr));
        EXPECT_EQ(result.vBytes, std::vector<unsigned char>{77});
        EXPECT_EQ(result.Width(), 1);
    }
}
