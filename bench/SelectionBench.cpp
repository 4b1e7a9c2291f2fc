#include "bench/BenchView.h"
#include "bench/Suite.h"
#include "platform/vorpix.h"
#include "selection/MaskMerge.h"
#include "selection/RegionSelector.h"
#include "selection/SelectionModifier.h"
#include "user/Input.h"
#include "user/Window.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstring>
#include <memory>
#include <numbers>
#include <pixman.h>

namespace
{

using Pixtane::CPixtane;
using Pixtane::EmbeddedTool::RegionSelector;
using Pixtane::EmbeddedTool::SelectionModifier;
using Mask = std::vector<BYTE>;

constexpr int WIDTH = 6000;
constexpr int HEIGHT = 4000;

/// A few big shapes with wavy edges: some 10,000 runs at 24 megapixels.
Mask LumpyMask(int cx = WIDTH, int cy = HEIGHT)
{
    constexpr struct
    {
        double dX, dY, dRadius;
    } SHAPES[] = {{0.2, 0.3, 0.24}, {0.5, 0.6, 0.35}, {0.8, 0.35, 0.3}, {0.3, 0.8, 0.15}, {0.75, 0.85, 0.1}};
    Mask vMask(static_cast<std::size_t>(cx) * cy);
    for (int y = 0; y < cy; ++y)
    {
        for (const auto& shape : SHAPES)
        {
            const double dy = (y - shape.dY * cy) / (shape.dRadius * cy);
            if (std::abs(dy) >= 1)
                continue;
            const double dWave = 1 + 0.05 * std::sin(y * 40 * std::numbers::pi / cy);
            const int iHalf = static_cast<int>(std::sqrt(1 - dy * dy) * shape.dRadius * cy * dWave);
            const int iCentre = static_cast<int>(shape.dX * cx);
            const int iLeft = std::max(iCentre - iHalf, 0);
            const int iRight = std::min(iCentre + iHalf, cx);
            if (iLeft < iRight)
                std::memset(&vMask[static_cast<std::size_t>(y) * cx + iLeft], 255,
                            static_cast<std::size_t>(iRight - iLeft));
        }
    }
    return vMask;
}

/// Half of all pixels at random.
Mask NoiseMask(int cx, int cy)
{
    Mask vMask(static_cast<std::size_t>(cx) * cy);
    std::uint32_t uState = 7;
    for (BYTE& byte : vMask)
    {
        uState = uState * 1664525 + 1013904223;
        byte = uState >> 31 ? 255 : 0;
    }
    return vMask;
}

double SecondsOf(const Work& work)
{
    double dLeast = 1e9;
    for (int i = 0; i < 5; ++i)
    {
        const auto start = std::chrono::steady_clock::now();
        work();
        dLeast = std::min(dLeast, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
    return dLeast;
}

// ---- conversions

Work RegionFromMask(const std::shared_ptr<Mask>& pMask, int cx, int cy)
{
    const auto pRgn = std::make_shared<CRgn>();
    return [=] { CPixtane::CreateRgnFromMask(*pRgn, *pMask, cx, cy); };
}

/// The same with pixman: bytes packed to bits, bits to a region.
Work PixmanRegion(const std::shared_ptr<Mask>& pMask, int cx, int cy)
{
    const int nStride = (cx + 31) / 32 * 4;
    const auto pBits = std::make_shared<std::vector<std::uint32_t>>(static_cast<std::size_t>(nStride / 4) * cy);
    return [=]
    {
        auto* pRow = reinterpret_cast<BYTE*>(pBits->data());
        for (int y = 0; y < cy; ++y, pRow += nStride)
        {
            const BYTE* pSource = &(*pMask)[static_cast<std::size_t>(y) * cx];
            for (int x = 0; x < cx; x += 8)
            {
                unsigned uByte = 0;
                for (int i = 0; i < 8 && x + i < cx; ++i)
                    uByte |= (pSource[x + i] != 0) << i;
                pRow[x / 8] = static_cast<BYTE>(uByte);
            }
        }
        pixman_image_t* pImage = pixman_image_create_bits(PIXMAN_a1, cx, cy, pBits->data(), nStride);
        pixman_region32_t region;
        pixman_region32_init_from_image(&region, pImage);
        pixman_region32_fini(&region);
        pixman_image_unref(pImage);
    };
}

CComparison CompareRegionFromMask(Mask vMask, int cx, int cy, double dMost)
{
    const auto pMask = std::make_shared<Mask>(std::move(vMask));
    return CComparison(RegionFromMask(pMask, cx, cy))
        .Beside("pixman, packed", PixmanRegion(pMask, cx, cy))
        .AtMost(dMost, {"pixman, packed"});
}

CComparison CompareMaskFromRegion()
{
    const auto pRgn = std::make_shared<CRgn>();
    CPixtane::CreateRgnFromMask(*pRgn, LumpyMask(), WIDTH, HEIGHT);
    const auto pMask = std::make_shared<Mask>();
    const auto pOther = std::make_shared<Mask>(static_cast<std::size_t>(WIDTH) * HEIGHT);
    return CComparison([=] { CPixtane::CreateSelectMask(*pRgn, *pMask, WIDTH, HEIGHT, 0); })
        .Beside("memset of the mask", [=] { std::memset(pOther->data(), 0, pOther->size()); })
        .AtMost(1.5, {"memset of the mask"});
}

/// Noise of 24 megapixels: some 6 million runs.
Figure NoiseToRegion()
{
    const auto pMask = std::make_shared<Mask>(NoiseMask(WIDTH, HEIGHT));
    return {SecondsOf(RegionFromMask(pMask, WIDTH, HEIGHT)), "a second", 0.5};
}

Figure NoiseZoomStep()
{
    CBenchBitmap bitmap(WIDTH, HEIGHT, 32);
    CBenchView window(1920, 1080, bitmap, 1);
    CRgn rgn;
    const Mask vMask = NoiseMask(WIDTH, HEIGHT);
    CPixtane::CreateRgnFromMask(rgn, vMask, WIDTH, HEIGHT);
    window.view.UpdateSelection(rgn, vMask);
    double dZoom = 0.5;
    return {SecondsOf([&] { window.view.SetZoom(dZoom = 1.1 - dZoom); }), "a second", 0.5};
}

// ---- masks

/// As many bytes as are read and written, moved by memcpy.
Work CopyMoving(std::size_t nReadAndWritten)
{
    const auto pSource = std::make_shared<Mask>(nReadAndWritten / 2, BYTE{1});
    const auto pDest = std::make_shared<Mask>(nReadAndWritten / 2, BYTE{2});
    return [=] { std::memcpy(pDest->data(), pSource->data(), pSource->size()); };
}

CComparison CompareMerge(void (*pMerge)(std::span<BYTE>, std::span<const BYTE>))
{
    constexpr const char* COPY = "memcpy of as many bytes";
    const auto pMask = std::make_shared<Mask>(LumpyMask());
    const auto pShape = std::make_shared<Mask>(NoiseMask(WIDTH, HEIGHT));
    return CComparison([=] { pMerge(*pMask, *pShape); })
        .Beside(COPY, CopyMoving(3 * pMask->size()))
        .AtMost(1.3, {COPY});
}

CComparison CompareOffset()
{
    constexpr const char* COPY = "memcpy of as many bytes";
    const auto pMask = std::make_shared<Mask>(LumpyMask());
    return CComparison([=] { CPixtane::OffsetSelectMask(*pMask, WIDTH, HEIGHT, 3, -2); })
        .Beside(COPY, CopyMoving(2 * pMask->size()))
        .AtMost(1.3, {COPY});
}

// ---- border and gestures

struct SelectedScene
{
    SelectedScene(int cx, int cy, const Mask& vMask = LumpyMask())
        : bitmap(WIDTH, HEIGHT, 32), window(cx, cy, bitmap, 0.75)
    {
        CRgn rgn;
        CPixtane::CreateRgnFromMask(rgn, vMask, WIDTH, HEIGHT);
        window.view.UpdateSelection(rgn, vMask);
    }
    CBenchBitmap bitmap;
    CBenchView window;
};

constexpr const char* COPY_4K = "memcpy 4K";

CComparison CompareBorderMask()
{
    const auto pScene = std::make_shared<SelectedScene>(3840, 2160);
    return CComparison([=] { pScene->window.view.UpdateSelectBorderMaskDC(); })
        .Beside(COPY_4K, CopyOf4K())
        .AtMost(6, {COPY_4K});
}

/// One tick of the animation, as the timer brings it.
CComparison CompareBorderDraw(const Mask& vMask)
{
    const auto pScene = std::make_shared<SelectedScene>(3840, 2160, vMask);
    return CComparison([=] { pScene->window.view.SendMessage(WM_TIMER, CPixtane::TIMER_DRAWSELECTBOX, 0); })
        .Beside(COPY_4K, CopyOf4K())
        .AtMost(5, {COPY_4K});
}

/// A rectangle is being drawn; the pointer moves on by a pixel.
CComparison CompareRectangleDrag()
{
    constexpr const char* CACHED = "a cached paint";
    const auto pScene = std::make_shared<SelectedScene>(1920, 1080);
    const auto pTool = std::make_shared<RegionSelector>();
    pTool->SetSelectMode(RegionSelector::SM_RECTANGLE);
    pTool->SetSelectOverlapMode(RegionSelector::OM_ADD);
    CPixtane& view = pScene->window.view;
    const auto pPlain = std::make_shared<SelectedScene>(1920, 1080);
    CRgn rgnNone;
    pPlain->window.view.UpdateSelection(rgnNone, {});
    const auto pTick = std::make_shared<int>(0);
    const auto drag = [=, &view]
    {
        // The tool and its drag exist only for as long as the comparison.
        if (!view.pEmbeddedTool())
        {
            view.LoadEmbeddedTool(*pTool);
            view.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(100, 100));
        }
        view.SendMessage(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(1500 + ++*pTick % 2, 800));
        static_cast<void>(pScene);
    };
    return CComparison(drag).Beside(CACHED, [=] { pPlain->window.Paint(); }).AtMost(2, {CACHED});
}

/// The release of a rectangle over most of 24 megapixels, feathered by 5.
CComparison CompareRelease()
{
    const auto pScene = std::make_shared<SelectedScene>(1920, 1080);
    const auto pTool = std::make_shared<RegionSelector>();
    pTool->SetSelectMode(RegionSelector::SM_RECTANGLE);
    pTool->SetSelectOverlapMode(RegionSelector::OM_ADD);
    pTool->SetFeatherRadius(5);
    CPixtane& view = pScene->window.view;
    view.SetZoom(0.25);
    const auto gesture = [=, &view]
    {
        view.LoadEmbeddedTool(*pTool);
        view.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(400, 100));
        view.SendMessage(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(1600, 900));
        view.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(1600, 900));
        view.UnloadEmbeddedTool();
        static_cast<void>(pScene);
    };
    const auto pMask = std::make_shared<Mask>(LumpyMask());
    const auto pShape = std::make_shared<Mask>();
    const auto pRgn = std::make_shared<CRgn>();
    pRgn->CreateRectRgn(600, 80, 5400, 3280);
    return CComparison(gesture)
        .Beside("rasterise", [=] { CPixtane::CreateSelectMask(*pRgn, *pShape, WIDTH, HEIGHT, 0); })
        .Beside("rasterise and feather", [=] { CPixtane::CreateSelectMask(*pRgn, *pShape, WIDTH, HEIGHT, 5); })
        .Beside("merge", [=] { Pixtane::AddMask(*pMask, *pMask); })
        .Beside("region", RegionFromMask(pMask, WIDTH, HEIGHT))
        .Report({"rasterise"})
        .Report({"rasterise and feather"})
        .Report({"merge"})
        .Report({"region"});
}

/// The right bottom corner of what is selected, in the window.
CPoint RightBottomOf(CPixtane& view)
{
    CRect rcScaled;
    view.rgnSelectScaled().GetRgnBox(&rcScaled);
    return {rcScaled.right - view.ptDispPos().X, rcScaled.bottom - view.ptDispPos().Y};
}

/// The selection's frame is being dragged by its right bottom handle, which moves on by a pixel.
CComparison CompareModifierDrag()
{
    constexpr const char* PARTS = "two cached paints and a border rebuild";
    const auto pScene = std::make_shared<SelectedScene>(1920, 1080);
    const auto pTool = std::make_shared<SelectionModifier>();
    CPixtane& view = pScene->window.view;
    view.SetZoom(0.25);
    const CPoint ptHandle = RightBottomOf(view);
    const auto pTick = std::make_shared<int>(0);
    const auto drag = [=, &view]
    {
        if (!view.pEmbeddedTool())
        {
            view.LoadEmbeddedTool(*pTool);
            view.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(ptHandle.x, ptHandle.y));
        }
        view.SendMessage(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(ptHandle.x - 100 - ++*pTick % 2, ptHandle.y - 100));
        static_cast<void>(pScene);
    };
    const auto pOther = std::make_shared<SelectedScene>(1920, 1080);
    pOther->window.view.SetZoom(0.25);
    const auto parts = [=]
    {
        pOther->window.Paint();
        pOther->window.Paint();
        pOther->window.view.UpdateSelectBorderMaskDC();
    };
    return CComparison(drag).Beside(PARTS, parts).AtMost(1, {PARTS});
}

/// The release of that handle: the selection of most of 24 megapixels becomes a tenth smaller, or, the next time, as
/// large as it was.
CComparison CompareModifierRelease()
{
    const auto pScene = std::make_shared<SelectedScene>(1920, 1080);
    const auto pTool = std::make_shared<SelectionModifier>();
    CPixtane& view = pScene->window.view;
    view.SetZoom(0.25);
    const auto pTick = std::make_shared<int>(0);
    const auto gesture = [=, &view]
    {
        if (!view.pEmbeddedTool())
            view.LoadEmbeddedTool(*pTool);
        const CPoint pt = RightBottomOf(view);
        const int iWay = ++*pTick % 2 ? -100 : 100;
        view.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(pt.x, pt.y));
        view.SendMessage(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(pt.x + iWay, pt.y + iWay));
        view.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(pt.x + iWay, pt.y + iWay));
        static_cast<void>(pScene);
    };
    const auto pMask = std::make_shared<Mask>(LumpyMask());
    const auto pOther = std::make_shared<Mask>(*pMask);
    const auto pResized = std::make_shared<Mask>();
    const auto resample = [=]
    {
        BITMAPINFO info = {};
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), WIDTH, HEIGHT, 1, 8, BI_RGB, 0, 0, 0, 0, 0};
        BITMAPINFO infoNew;
        Vorpix::Resize(pMask->data(), pMask->size(), info, *pResized, infoNew, WIDTH - 400, HEIGHT - 400,
                       Vorpix::RESIZE_LINEAR, nullptr);
    };
    const auto paste = [=]
    {
        std::ranges::fill(*pOther, BYTE{0});
        *pOther = *pMask;
    };
    return CComparison(gesture)
        .Beside("resample", resample)
        .Beside("clear and copy", paste)
        .Beside("region", RegionFromMask(pMask, WIDTH, HEIGHT))
        .Report({"resample"})
        .Report({"clear and copy"})
        .Report({"region"});
}

} // namespace

void AddSelectionBenchmarks(CSuite& suite)
{
    suite.Add("RegionFromMask/lumpy", [] { return CompareRegionFromMask(LumpyMask(), WIDTH, HEIGHT, 0.6); });
    suite.Add("RegionFromMask/noise/1MP", [] { return CompareRegionFromMask(NoiseMask(1200, 833), 1200, 833, 0.4); });
    suite.Add("MaskFromRegion/lumpy", &CompareMaskFromRegion);
    suite.AddFigure("RegionFromMask/noise/24MP", &NoiseToRegion);
    suite.AddFigure("ZoomStep/noise/24MP", &NoiseZoomStep);
    suite.Add("Merge/add", [] { return CompareMerge(&Pixtane::AddMask); });
    suite.Add("Merge/subtract", [] { return CompareMerge(&Pixtane::SubtractMask); });
    suite.Add("Merge/intersect", [] { return CompareMerge(&Pixtane::IntersectMask); });
    suite.Add("Offset", &CompareOffset);
    suite.Add("BorderMask/4K", &CompareBorderMask);
    suite.Add("BorderDraw/4K", [] { return CompareBorderDraw(LumpyMask()); });
    suite.Add("BorderDraw/4K/noise", [] { return CompareBorderDraw(NoiseMask(WIDTH, HEIGHT)); });
    suite.Add("Gesture/RectangleDrag/24MP", &CompareRectangleDrag);
    suite.Add("Gesture/RectangleRelease/24MP", &CompareRelease);
    suite.Add("Gesture/ModifierDrag/24MP", &CompareModifierDrag);
    suite.Add("Gesture/ModifierRelease/24MP", &CompareModifierRelease);
}
