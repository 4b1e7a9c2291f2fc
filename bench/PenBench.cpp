#include "bench/BenchView.h"
#include "bench/Suite.h"
#include "platform/vorpix.h"

#include <algorithm>
#include <chrono>
#include <libyuv.h>
#include <memory>
#include <opencv2/imgproc.hpp>
#include <pixman.h>

namespace
{

constexpr int SIZE = 512;
constexpr int LARGEST_PEN = 501;

/// The shortest of many times, each of nTimes runs.
double SecondsOf(const Work& work, int nTimes)
{
    double dLeast = 1e9;
    for (int i = 0; i < 300; ++i)
    {
        const auto start = std::chrono::steady_clock::now();
        for (int n = 0; n < nTimes; ++n)
            work();
        dLeast = std::min(dLeast, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
    return dLeast / nTimes;
}

struct Pen
{
    explicit Pen(int iSize) { Vorpix::CreateMask(vWeights, info, Vorpix::MASK_DISC, iSize, 0.3f); }
    std::vector<int> vWeights;
    BITMAPINFO info = {};
};

BITMAPINFO CoverageOf(int cx, int cy)
{
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), cx, cy, 1, 32, BI_RGB, static_cast<DWORD>(cx * cy), 0, 0, 0, 0};
    return info;
}

/// Dabs in the middle of the coverage of a large photo.
Figure Stamp(int iSize)
{
    Pen pen(iSize);
    BITMAPINFO info = CoverageOf(6000, 4000);
    std::vector<int> vCoverage(info.bmiHeader.biSizeImage);
    const auto dab = [&]
    {
        Vorpix::BitBlt(true, vCoverage.data(), info, 3000, 2000, pen.vWeights.data(), pen.info, 0, 0, iSize, iSize,
                       Vorpix::BITBLT_STAMP, nullptr, 0, true, nullptr);
    };
    const double dNanoseconds = SecondsOf(dab, 1 + 20000 / (iSize * iSize)) * 1e9;
    return {dNanoseconds / (iSize * iSize), "a nanosecond a pixel", iSize == 101 ? 0.25 : 0};
}

Figure CreateLargestMask()
{
    return {SecondsOf([] { Pen pen(LARGEST_PEN); }, 1) * 1e3, "a millisecond", 2};
}

struct Scene
{
    explicit Scene(int iBits) : source(SIZE, SIZE, iBits), dest(SIZE, SIZE, iBits)
    {
        std::uint32_t uState = 5;
        for (CBenchBitmap* pBitmap : {&source, &dest})
            for (BYTE& byte : pBitmap->vBits)
                byte = static_cast<BYTE>((uState = uState * 1664525 + 1013904223) >> 24);
        vWeights.resize(SIZE * SIZE);
        vMask.resize(SIZE * SIZE);
        for (int i = 0; i < SIZE * SIZE; ++i)
        {
            uState = uState * 1664525 + 1013904223;
            vMask[i] = static_cast<BYTE>(std::clamp(uState >> 24, 1u, 254u));
            vWeights[i] = vMask[i] * 128;
        }
        region.rcRegion = {0, 0, SIZE, SIZE};
        region.vRegionMask.assign(SIZE * SIZE, 255);
    }
    CBenchBitmap source, dest;
    std::vector<int> vWeights;
    std::vector<BYTE> vMask;
    Vorpix::tagPROCESS_REGION region;
};

/// Pixels blended by a weight each, none of which is an end of its scale.
CComparison WeightedCopy(int iBits)
{
    const auto pScene = std::make_shared<Scene>(iBits);
    const auto copy = [=]
    {
        Vorpix::BitBlt(false, pScene->dest.vBits.data(), pScene->dest.info, 0, 0, pScene->source.vBits.data(),
                       pScene->source.info, 0, 0, SIZE, SIZE, Vorpix::BITBLT_COPY, pScene->vWeights.data(),
                       pScene->vWeights.size(), true, nullptr);
    };
    CComparison comparison(copy);
    if (iBits != 32)
        return comparison;
    constexpr const char* PIXMAN = "pixman OVER by a mask";
    constexpr const char* LIBYUV = "libyuv ARGBBlend";
    const auto imageOf = [](pixman_format_code_t eFormat, std::vector<BYTE>& vBits)
    {
        auto* const pBits = reinterpret_cast<std::uint32_t*>(vBits.data());
        const int iStride = SIZE * PIXMAN_FORMAT_BPP(eFormat) / 8;
        return std::shared_ptr<pixman_image_t>(pixman_image_create_bits(eFormat, SIZE, SIZE, pBits, iStride),
                                               &pixman_image_unref);
    };
    const auto pSource = imageOf(PIXMAN_x8r8g8b8, pScene->source.vBits);
    const auto pDest = imageOf(PIXMAN_x8r8g8b8, pScene->dest.vBits);
    const auto pMask = imageOf(PIXMAN_a8, pScene->vMask);
    const auto over = [=] {
        pixman_image_composite32(PIXMAN_OP_OVER, pSource.get(), pMask.get(), pDest.get(), 0, 0, 0, 0, 0, 0, SIZE, SIZE);
    };
    const auto blend = [=] // By the source's fourth byte.
    {
        libyuv::ARGBBlend(pScene->source.vBits.data(), SIZE * 4, pScene->dest.vBits.data(), SIZE * 4,
                          pScene->dest.vBits.data(), SIZE * 4, SIZE, SIZE);
    };
    return comparison.Beside(PIXMAN, over).Beside(LIBYUV, blend).AtMost(0.6, {PIXMAN, LIBYUV});
}

CComparison AdjustValue(int iBits)
{
    constexpr const char* ROUND_TRIP = "OpenCV, to HSV and back";
    const auto pScene = std::make_shared<Scene>(iBits);
    const auto pHsv = std::make_shared<cv::Mat>();
    double dStep = 0.1;
    const auto adjust = [=]() mutable
    {
        dStep = -dStep;
        Vorpix::AdjustHSV(pScene->dest.vBits, pScene->dest.info, pScene->region, 0, 0, dStep, nullptr, true);
    };
    const auto roundTrip = [=]
    {
        cv::Mat image(SIZE, SIZE, CV_8UC3, pScene->source.vBits.data());
        cv::cvtColor(image, *pHsv, cv::COLOR_BGR2HSV);
        cv::add(*pHsv, cv::Scalar(0, 0, 26), *pHsv);
        cv::cvtColor(*pHsv, image, cv::COLOR_HSV2BGR);
    };
    return CComparison(adjust).Beside(ROUND_TRIP, roundTrip).AtMost(0.25, {ROUND_TRIP});
}

} // namespace

void AddPenBenchmarks(CSuite& suite)
{
    for (const int iSize : {9, 101, LARGEST_PEN})
        suite.AddFigure("Stamp/" + std::to_string(iSize), [=] { return Stamp(iSize); });
    suite.AddFigure("CreateMask/501", &CreateLargestMask);
    suite.Add("WeightedCopy/512x512x32", [] { return WeightedCopy(32); });
    suite.Add("WeightedCopy/512x512x24", [] { return WeightedCopy(24); });
    suite.Add("AdjustHSV/512x512", [] { return AdjustValue(32); });
    suite.Add("AdjustHSV/512x512/24bit", [] { return AdjustValue(24); });
}
