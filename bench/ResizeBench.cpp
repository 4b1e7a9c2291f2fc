#include "bench/Suite.h"
#include "platform/vorpix.h"

#include <cstdio>
#include <libyuv.h>
#include <memory>
#include <opencv2/imgproc.hpp>

namespace
{

constexpr int WIDTH = 3000;
constexpr int HEIGHT = 2000;

struct Resizing
{
    explicit Resizing(double dScale) : cx(static_cast<int>(WIDTH * dScale)), cy(static_cast<int>(HEIGHT * dScale))
    {
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), WIDTH, HEIGHT, 1, 8, BI_RGB, 0, 0, 0, 0, 0};
        cv::circle(image, {WIDTH / 2, HEIGHT / 2}, HEIGHT / 3, 255, cv::FILLED);
        cv::blur(image, image, {31, 31});
    }
    int cx, cy;
    BITMAPINFO info = {};
    cv::Mat image = cv::Mat::zeros(HEIGHT, WIDTH, CV_8U);
    std::vector<unsigned char> vResized;
    cv::Mat resized;
};

Work Ours(const std::shared_ptr<Resizing>& p, Vorpix::RESIZE_ALGORITHM algorithm)
{
    return [=]
    {
        BITMAPINFO infoOut;
        Vorpix::Resize(p->image.data, static_cast<std::size_t>(WIDTH) * HEIGHT, p->info, p->vResized, infoOut, p->cx,
                       p->cy, algorithm, nullptr);
    };
}

CComparison Compare(double dScale, Vorpix::RESIZE_ALGORITHM algorithm, const char* pszName, int iInterpolation)
{
    const auto p = std::make_shared<Resizing>(dScale);
    CComparison comparison(Ours(p, algorithm));
    comparison.Beside(pszName,
                      [=] {
                          cv::resize(p->image, p->resized, {p->cx, p->cy}, 0, 0, iInterpolation);
                      })
        .AtMost(0.8, {pszName});
    if (dScale == 0.5)
    {
        constexpr const char* BOX = "libyuv box";
        const auto scale = [=]
        {
            p->resized.create(p->cy, p->cx, CV_8U);
            libyuv::ScalePlane(p->image.data, WIDTH, WIDTH, HEIGHT, p->resized.data, p->cx, p->cx, p->cy,
                               libyuv::kFilterBox);
        };
        comparison.Beside(BOX, scale).AtMost(1.1, {BOX});
    }
    return comparison;
}

} // namespace

void AddResizeBenchmarks(CSuite& suite)
{
    using enum Vorpix::RESIZE_ALGORITHM;
    suite.Add("MaskResize/smooth/1.5", [] { return Compare(1.5, RESIZE_LINEAR, "OpenCV LINEAR", cv::INTER_LINEAR); });
    suite.Add("MaskResize/smooth/0.5", [] { return Compare(0.5, RESIZE_LINEAR, "OpenCV AREA", cv::INTER_AREA); });
    suite.Add("MaskResize/smooth/0.37", [] { return Compare(1 / 2.7, RESIZE_LINEAR, "OpenCV AREA", cv::INTER_AREA); });
    suite.Add("MaskResize/sharp/1.5", [] { return Compare(1.5, RESIZE_CUBIC, "OpenCV CUBIC", cv::INTER_CUBIC); });
}
