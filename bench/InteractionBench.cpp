#include "bench/BenchView.h"
#include "bench/Suite.h"
#include "user/Input.h"
#include "user/Window.h"

#include <memory>

namespace
{

struct Scene
{
    explicit Scene(int nMegapixels) : bitmap(nMegapixels), window(1000, 700, bitmap, 1) {}
    CBenchBitmap bitmap;
    CBenchView window;
    bool bFirst = true;
};

/// One change of the zoom with the layout, and nothing painted.
Work SetZoom(int nMegapixels)
{
    const auto pScene = std::make_shared<Scene>(nMegapixels);
    pScene->window.view.LockRedraw();
    return [=]
    {
        pScene->bFirst = !pScene->bFirst;
        pScene->window.view.SetZoom(pScene->bFirst ? 1.5 : 2.5);
    };
}

/// A move over the view, from the desktop's queue to the parent's notification.
Work MouseMove()
{
    const auto pScene = std::make_shared<Scene>(6);
    return [=]
    {
        pScene->bFirst = !pScene->bFirst;
        winlite::QueuePointerMove(pScene->window.host.m_hWnd, {pScene->bFirst ? 100 : 101, 100});
        while (winlite::PumpOneMessage())
        {
        }
    };
}

} // namespace

void AddInteractionBenchmarks(CSuite& suite)
{
    suite.Add("Layout/SetZoom/100MP",
              []
              {
                  constexpr const char* SMALL = "Layout/SetZoom/1MP";
                  return CComparison(SetZoom(100)).Beside(SMALL, SetZoom(1)).AtMost(1.15, {SMALL});
              });
    suite.Add("Input/MouseMove", [] { return CComparison(MouseMove()); });
}
