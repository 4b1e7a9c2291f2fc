#include "bench/BenchView.h"
#include "bench/Suite.h"
#include "platform/vorpix.h"
#include "selection/RegionSelector.h"

#include <cstring>
#include <memory>
#include <opencv2/imgproc.hpp>

namespace
{

using Pixtane::EmbeddedTool::RegionSelector;

constexpr int WIDTH = 6000;
constexpr int HEIGHT = 4000;

struct COpenSelector : RegionSelector
{
    using RegionSelector::CreateMagicWandMask;
};

/// A view with a picture of which the middle is similar: all of it, or a disc with holes of 60 percent.
struct Scene
{
    explicit Scene(bool bUniform) : bitmap(WIDTH, HEIGHT, 32)
    {
        std::uint32_t uState = 3;
        for (int y = 0; y < HEIGHT; ++y)
        {
            for (int x = 0; x < WIDTH; ++x)
            {
                uState = uState * 1664525 + 1013904223;
                const double dx = (x - WIDTH / 2.0) / (WIDTH / 2.0);
                const double dy = (y - HEIGHT / 2.0) / (HEIGHT / 2.0);
                const bool bHole = !bUniform && (dx * dx + dy * dy > 1 || uState >> 29 == 0);
                const std::uint32_t uPixel = bHole ? 0xF0F0F0 : 0x404040 + (uState >> 28) * 0x010101;
                std::memcpy(&bitmap.vBits[(static_cast<std::size_t>(y) * WIDTH + x) * 4], &uPixel, 4);
            }
        }
        pWindow = std::make_unique<CBenchView>(1000, 700, bitmap, 0.1);
        pWindow->view.LoadEmbeddedTool(tool);
        const cv::Mat whole(HEIGHT, WIDTH, CV_8UC4, bitmap.vBits.data());
        cv::cvtColor(whole, threeChannels, cv::COLOR_BGRA2BGR);
    }
    ~Scene() { pWindow->view.UnloadEmbeddedTool(); }

    CPoint Middle()
    {
        CPoint pt(WIDTH / 2 + 1, HEIGHT / 2 + 1);
        pWindow->view.FromBitmapToWnd(pt);
        return pt;
    }

    CBenchBitmap bitmap;
    COpenSelector tool;
    std::unique_ptr<CBenchView> pWindow;
    std::vector<BYTE> vMask;
    cv::Mat threeChannels;
    cv::Mat floodMask = cv::Mat(HEIGHT + 2, WIDTH + 2, CV_8U);
};

CComparison Wand(bool bUniform)
{
    constexpr const char* FLOOD = "OpenCV floodFill";
    constexpr int TOLERANCE = 20;
    const auto pScene = std::make_shared<Scene>(bUniform);
    const auto fill = [=] { pScene->tool.CreateMagicWandMask(pScene->vMask, pScene->Middle(), TOLERANCE, nullptr); };
    const auto flood = [=]
    {
        const cv::Scalar range(TOLERANCE, TOLERANCE, TOLERANCE);
        pScene->floodMask = cv::Scalar(0);
        // Its rows begin at the bottom.
        cv::floodFill(pScene->threeChannels, pScene->floodMask, {WIDTH / 2 + 1, HEIGHT / 2 - 2}, {}, nullptr, range,
                      range, 4 | 255 << 8 | cv::FLOODFILL_FIXED_RANGE | cv::FLOODFILL_MASK_ONLY);
    };
    return CComparison(fill).Beside(FLOOD, flood).AtMost(0.5, {FLOOD});
}

CComparison ColorRange()
{
    constexpr const char* IN_RANGE = "OpenCV inRange";
    const auto pScene = std::make_shared<Scene>(false);
    pScene->vMask.resize(static_cast<std::size_t>(WIDTH) * HEIGHT);
    const auto pFound = std::make_shared<cv::Mat>();
    const auto range = [=]
    {
        RECT rcAll = {0, 0, WIDTH, HEIGHT};
        Vorpix::CreateRegionFromColor(pScene->bitmap.vBits.data(), pScene->bitmap.info, rcAll, pScene->vMask, 0x484848,
                                      10, nullptr);
    };
    const auto inRange = [=]
    {
        const cv::Mat whole(HEIGHT, WIDTH, CV_8UC4, pScene->bitmap.vBits.data());
        cv::inRange(whole, cv::Scalar(0x3E, 0x3E, 0x3E, 0), cv::Scalar(0x52, 0x52, 0x52, 255), *pFound);
    };
    return CComparison(range).Beside(IN_RANGE, inRange).AtMost(0.6, {IN_RANGE});
}

/// The selection and its inverse by turns: mask, region and outline.
CComparison Inverse()
{
    constexpr const char* COPY = "memcpy of as many bytes";
    const auto pScene = std::make_shared<Scene>(true);
    pScene->tool.SelectAll();
    const std::size_t nBytes = static_cast<std::size_t>(WIDTH) * HEIGHT;
    const auto pSource = std::make_shared<std::vector<BYTE>>(nBytes, BYTE{1});
    const auto pDest = std::make_shared<std::vector<BYTE>>(nBytes, BYTE{2});
    return CComparison([=] { pScene->tool.InverseSelect(); })
        .Beside(COPY, [=] { std::memcpy(pDest->data(), pSource->data(), nBytes); })
        .AtMost(1.3, {COPY});
}

} // namespace

void AddColourBenchmarks(CSuite& suite)
{
    suite.Add("Wand/60pct", [] { return Wand(false); });
    suite.Add("Wand/uniform", [] { return Wand(true); });
    suite.Add("ColorRange/32bit", &ColorRange);
    suite.Add("Inverse", &Inverse);
}
