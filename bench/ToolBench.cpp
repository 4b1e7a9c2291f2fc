#include "bench/BenchView.h"
#include "bench/Suite.h"
#include "bench/Timing.h"
#include "pixels/Heal.h"
#include "pixels/RedEye.h"
#include "pixels/Straighten.h"
#include "tools/SpotRemover.h"
#include "user/Input.h"
#include "user/Window.h"

#include <cstring>
#include <memory>
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#include <opencv2/photo.hpp>
#include <string>
#include <vector>

namespace
{

/// A picture of a size, and another for what comes of it.
struct Pictures
{
    Pictures(int cx, int cy) : bitmap(cx, cy, 32), vResult(bitmap.vBits) {}
    PixelView Before()
    {
        return {bitmap.vBits.data(), bitmap.Width(), bitmap.Height(), std::ptrdiff_t{bitmap.Width()} * 4};
    }
    PixelView After() { return {vResult.data(), bitmap.Width(), bitmap.Height(), std::ptrdiff_t{bitmap.Width()} * 4}; }

    CBenchBitmap bitmap;
    std::vector<BYTE> vResult;
};

Work Blend(int iSize)
{
    const auto pPictures = std::make_shared<Pictures>(4 * iSize, 2 * iSize);
    return [=]
    {
        const Spot spot = {iSize, iSize, iSize};
        const PixelView picture = pPictures->Before();
        CSpotBlend(picture, spot, SourceAt(picture, PixelOffset{2 * iSize, 0})).Apply(pPictures->After(), {});
    };
}

/// The same disc over the same place.
Work SeamlessClone(int iSize)
{
    const Pictures pictures(4 * iSize, 2 * iSize);
    const cv::Mat whole(pictures.bitmap.Height(), pictures.bitmap.Width(), CV_8UC4,
                        const_cast<BYTE*>(pictures.bitmap.vBits.data()));
    cv::Mat picture;
    cv::cvtColor(whole, picture, cv::COLOR_BGRA2BGR);
    const cv::Mat source = picture(cv::Rect(3 * iSize - iSize / 2 - 1, iSize / 2 - 1, iSize + 2, iSize + 2)).clone();
    cv::Mat mask = cv::Mat::zeros(source.size(), CV_8UC1);
    cv::circle(mask, {iSize / 2 + 1, iSize / 2 + 1}, iSize / 2, 255, -1);
    const auto pResult = std::make_shared<cv::Mat>();
    return [=] { cv::seamlessClone(source, picture, mask, {iSize, iSize}, *pResult, cv::NORMAL_CLONE); };
}

Figure RedEyes()
{
    constexpr int SIDE = 200;
    Pictures pictures(SIDE, SIDE);
    for (int i = 0; i < SIDE * SIDE; ++i)
    {
        BYTE* const pPixel = pictures.bitmap.vBits.data() + std::ptrdiff_t{i} * 4;
        const int iX = i % SIDE - SIDE / 2;
        const int iY = i / SIDE - SIDE / 2;
        pPixel[2] = iX * iX + iY * iY < SIDE * SIDE / 9 ? 200 : pPixel[0];
        pPixel[0] = pPixel[1] = static_cast<BYTE>(pPixel[2] == 200 ? 30 : pPixel[0]);
    }
    return {MedianOf(
                20,
                [&] { std::memcpy(pictures.vResult.data(), pictures.bitmap.vBits.data(), pictures.vResult.size()); },
                [&]
                {
                    CProgress progress;
                    RemoveRedEye(pictures.After(), {}, {0, 0, SIDE, SIDE}, 60, progress);
                }),
            "a millisecond", 5};
}

CComparison Rotation()
{
    constexpr int CX = 6000;
    constexpr int CY = 4000;
    constexpr double DEGREES = 2.5;
    constexpr const char* PEER = "OpenCV warpAffine, cubic";
    const auto pPictures = std::make_shared<Pictures>(CX, CY);
    const auto pResult = std::make_shared<cv::Mat>(CY, CX, CV_8UC4);
    const auto ours = [=]
    {
        CProgress progress;
        Straighten(pPictures->Before(), pPictures->After(), DEGREES, progress);
    };
    const auto theirs = [=]
    {
        cv::setNumThreads(2);
        const cv::Mat picture(CY, CX, CV_8UC4, pPictures->bitmap.vBits.data());
        const cv::Mat turn = cv::getRotationMatrix2D({CX / 2.0F, CY / 2.0F}, DEGREES, 1);
        cv::warpAffine(picture, *pResult, turn, picture.size(), cv::INTER_CUBIC, cv::BORDER_REPLICATE);
        cv::setNumThreads(1);
    };
    return CComparison(ours).Beside(PEER, theirs).AtMost(1.1, {PEER});
}

/// A view of 1920 x 1080 in which a spot's outline follows the mouse.
struct SpotScene
{
    SpotScene() : bitmap(24), window(1920, 1080, bitmap, 1)
    {
        spot.SetSize(50);
        window.view.LoadEmbeddedTool(spot);
    }
    ~SpotScene() { window.view.UnloadEmbeddedTool(); }
    SpotScene(const SpotScene&) = delete;
    SpotScene& operator=(const SpotScene&) = delete;

    CBenchBitmap bitmap;
    CBenchView window;
    Pixtane::EmbeddedTool::SpotRemover spot;
    int iMoves = 0;
};

CComparison SpotOutline()
{
    constexpr const char* PAINT = "a cached paint";
    const auto pScene = std::make_shared<SpotScene>();
    const auto pPlain = std::make_shared<CBenchBitmap>(24);
    const auto pView = std::make_shared<CBenchView>(1920, 1080, *pPlain, 1);
    const auto move = [=]
    {
        const POINT pt = {400 + ++pScene->iMoves % 300, 500};
        winlite::QueuePointerMove(pScene->window.host.m_hWnd, pt);
        while (winlite::PumpOneMessage())
        {
        }
    };
    return CComparison(move).Beside(PAINT, [=, pKept = pPlain] { pView->Paint(); }).AtMost(1.3, {PAINT});
}

} // namespace

void AddToolBenchmarks(CSuite& suite)
{
    for (const int iSize : {50, 500})
    {
        suite.Add("HealBlend/" + std::to_string(iSize),
                  [=]
                  {
                      constexpr const char* PEER = "OpenCV seamlessClone";
                      return CComparison(Blend(iSize)).Beside(PEER, SeamlessClone(iSize)).AtMost(0.5, {PEER});
                  });
    }
    suite.AddFigure("RedEye/200", &RedEyes);
    suite.Add("Rotation/24MP", &Rotation);
    suite.Add("SpotOutline/1920x1080", &SpotOutline);
}
