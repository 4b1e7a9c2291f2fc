#include "bench/BenchView.h"
#include "bench/Suite.h"

#include <memory>

namespace
{

constexpr int VIEW_4K_WIDTH = 3840;
constexpr int VIEW_4K_HEIGHT = 2160;
constexpr const char* COPY = "memcpy 4K";

struct Scene
{
    Scene(int cx, int cy, int nMegapixels, double dbZoom) : bitmap(nMegapixels), window(cx, cy, bitmap, dbZoom) {}
    CBenchBitmap bitmap;
    CBenchView window;
};

std::shared_ptr<Scene> Scene4K(double dbZoom)
{
    return std::make_shared<Scene>(VIEW_4K_WIDTH, VIEW_4K_HEIGHT, 24, dbZoom);
}

/// Fresh paints of a view that even one megapixel fills.
Work SmallView(int nMegapixels)
{
    const auto pScene = std::make_shared<Scene>(1000, 700, nMegapixels, 1);
    return [=] { pScene->window.PaintFresh(); };
}

} // namespace

void AddPaintBenchmarks(CSuite& suite)
{
    suite.Add("Paint/Cached/4K",
              []
              {
                  const auto pScene = Scene4K(1);
                  return CComparison([=] { pScene->window.Paint(); }).Beside(COPY, CopyOf4K()).AtMost(3.2, {COPY});
              });
    for (const double dbZoom : {0.25, 1.0, 2.5, 8.0})
    {
        char szName[64];
        std::snprintf(szName, sizeof(szName), "Paint/Fresh/Zoom:%g/4K", dbZoom);
        suite.Add(
            szName,
            [=]
            {
                const auto pScene = Scene4K(dbZoom);
                return CComparison([=] { pScene->window.PaintFresh(); }).Beside(COPY, CopyOf4K()).AtMost(5.2, {COPY});
            });
    }
    for (const int nMegapixels : {1, 24, 100})
    {
        suite.Add("Paint/Image:" + std::to_string(nMegapixels) + "MP",
                  [=]
                  {
                      constexpr const char* SMALL = "Paint/Image:6MP";
                      CComparison comparison(SmallView(nMegapixels));
                      comparison.Beside(SMALL, SmallView(6));
                      return nMegapixels == 100 ? comparison.AtMost(1.15, {SMALL}) : comparison.Report({SMALL});
                  });
    }
}
