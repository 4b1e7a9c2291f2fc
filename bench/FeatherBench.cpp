#include "bench/Suite.h"
#include "hostlibs/ParallelFor.h"
#include "platform/vorpix.h"

#include <memory>
#include <opencv2/imgproc.hpp>

namespace
{

constexpr int WIDTH = 6000;
constexpr int HEIGHT = 4000;

/// A selection of many lumps with hard edges.
std::shared_ptr<std::vector<BYTE>> Lumps()
{
    const auto pMask = std::make_shared<std::vector<BYTE>>(static_cast<std::size_t>(WIDTH) * HEIGHT);
    cv::Mat image(HEIGHT, WIDTH, CV_8U, pMask->data());
    for (int i = 0; i < 40; ++i)
        cv::circle(image, {i * 733 % WIDTH, i * 541 % HEIGHT}, 150 + i * 97 % 500, 255, cv::FILLED);
    return pMask;
}

/// A selection in which nothing is even, so that no part of it can be passed over.
std::shared_ptr<std::vector<BYTE>> Noise()
{
    const auto pMask = std::make_shared<std::vector<BYTE>>(static_cast<std::size_t>(WIDTH) * HEIGHT);
    cv::Mat image(HEIGHT, WIDTH, CV_8U, pMask->data());
    cv::randu(image, 0, 256);
    return pMask;
}

/// Feathers a copy, because it happens in place.
Work Ours(int iRadius, std::size_t nThreads = 1, const std::shared_ptr<std::vector<BYTE>>& pSource = Lumps())
{
    const auto pMask = std::make_shared<std::vector<BYTE>>(*pSource);
    return [=]
    {
        SetParallelThreads(nThreads);
        std::copy(pSource->begin(), pSource->end(), pMask->begin());
        RECT rcBox = {0, 0, WIDTH, HEIGHT};
        Vorpix::FeatherRegion(*pMask, rcBox, iRadius, WIDTH, HEIGHT, nullptr, true);
    };
}

Work ThreeBoxes(int iRadius)
{
    const auto pSource = Lumps();
    const auto pDest = std::make_shared<cv::Mat>();
    return [=]
    {
        const cv::Mat image(HEIGHT, WIDTH, CV_8U, pSource->data());
        const cv::Size szBox(iRadius, iRadius);
        cv::blur(image, *pDest, szBox, {-1, -1}, cv::BORDER_REPLICATE);
        cv::blur(*pDest, *pDest, szBox, {-1, -1}, cv::BORDER_REPLICATE);
        cv::blur(*pDest, *pDest, szBox, {-1, -1}, cv::BORDER_REPLICATE);
    };
}

Work Gaussian(int iRadius)
{
    const auto pSource = Lumps();
    const auto pDest = std::make_shared<cv::Mat>();
    return [=]
    {
        const cv::Mat image(HEIGHT, WIDTH, CV_8U, pSource->data());
        cv::GaussianBlur(image, *pDest, {}, iRadius / 2.0, iRadius / 2.0, cv::BORDER_REPLICATE);
    };
}

CComparison Feather(int iRadius)
{
    constexpr const char* BOXES = "OpenCV, three boxes";
    constexpr const char* GAUSS = "OpenCV GaussianBlur";
    constexpr const char* SMALL = "Feather/r:5";
    CComparison comparison(Ours(iRadius));
    comparison.Beside(BOXES, ThreeBoxes(iRadius)).AtMost(0.6, {BOXES});
    if (iRadius == 5)
        comparison.Beside(GAUSS, Gaussian(iRadius)).AtMost(0.8, {GAUSS});
    if (iRadius == 100)
        comparison.Beside(SMALL, Ours(5)).AtMost(1.2, {SMALL});
    return comparison;
}

} // namespace

void AddFeatherBenchmarks(CSuite& suite)
{
    cv::setNumThreads(1);
    for (const int iRadius : {5, 20, 100})
        suite.Add("Feather/r:" + std::to_string(iRadius), [=] { return Feather(iRadius); });
    suite.Add("Feather/r:100/noise",
              []
              {
                  constexpr const char* SMALL = "Feather/r:5/noise";
                  return CComparison(Ours(100, 1, Noise())).Beside(SMALL, Ours(5, 1, Noise())).AtMost(1.2, {SMALL});
              });
    suite.Add("Feather/r:20/two threads",
              []
              {
                  constexpr const char* ONE = "one thread";
                  return CComparison(Ours(20, 2)).Beside(ONE, Ours(20)).AtMost(1 / 1.6, {ONE});
              });
}
