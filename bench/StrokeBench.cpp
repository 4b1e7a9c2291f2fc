#include "bench/BenchView.h"
#include "bench/Suite.h"
#include "brushes/Sketcher.h"
#include "gdi/Surface.h"
#include "headless/HeadlessDesktop.h"
#include "user/Input.h"
#include "user/Window.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <unistd.h>

namespace
{

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point start) { return std::chrono::duration<double>(Clock::now() - start).count(); }

double Percentile(std::vector<double>& vTimes, double dPart)
{
    std::ranges::sort(vTimes);
    return vTimes[static_cast<std::size_t>(dPart * static_cast<double>(vTimes.size() - 1))];
}

/// A brush whose effect is black: all that remains is stamping and compositing.
class CBlackBrush : public Pixtane::EmbeddedTool::Sketcher
{
public:
    bool bEnded = false;

    const wchar_t* GetToolName() override { return L"black"; }
    int OnTimer(UINT_PTR) override { return 0; }
    int OnLButtonDown(UINT, CPoint point) override
    {
        if (CanStroke() && CaptureForStroke())
            StartSketching(BitmapPoint(point));
        return 0;
    }
    int OnLButtonUp(UINT nFlags, CPoint point) override
    {
        Finish();
        return Sketcher::OnLButtonUp(nFlags, point);
    }
    int OnCaptureChanged(CWnd*) override
    {
        Finish();
        return 0;
    }
    int OnLButtonDblClk(UINT, CPoint) override { return 0; }
    int OnMouseWheel(UINT, short, CPoint) override { return 0; }
    int OnKeyDown(UINT, UINT, UINT) override { return 0; }
    int OnKeyUp(UINT, UINT, UINT) override { return 0; }
    int OnSysKeyDown(UINT, UINT, UINT) override { return 0; }
    int OnSysKeyUp(UINT, UINT, UINT) override { return 0; }
    int ProcessLineSegment(std::list<CPoint>& points, CRect& rcDirty) override
    {
        return StampAndShow(points, rcDirty, [this] { Blacken(); });
    }

private:
    void Finish()
    {
        if (!m_bSketching)
            return;
        EndSketching();
        FinishStroke(0);
        bEnded = true;
    }
    void Blacken()
    {
        const CRect rc = m_ProcessRegion.rcRegion;
        const auto nRow = static_cast<std::size_t>(m_bmiBmp.bmiHeader.biWidth) * 4;
        for (int y = rc.top; y < rc.bottom; ++y)
            std::memset(m_vBmpData.data() + static_cast<std::size_t>(m_bmiBmp.bmiHeader.biHeight - 1 - y) * nRow +
                            static_cast<std::size_t>(rc.left) * 4,
                        0, static_cast<std::size_t>(rc.Width()) * 4);
    }
};

/// A photo in a window of a screen's size, with the brush loaded, and a pointer.
struct Scene
{
    Scene(int nMegapixels, int iPen) : bitmap(Grey(nMegapixels)), window(1920, 1080, bitmap, 1)
    {
        window.view.LoadEmbeddedTool(brush);
        brush.SetPen(CBlackBrush::SketchPen::COMPUTED, iPen, 50, 100);
        window.Paint();
    }
    static CBenchBitmap Grey(int nMegapixels)
    {
        CBenchBitmap grey(nMegapixels);
        grey.info.bmiHeader.biSizeImage = static_cast<DWORD>(grey.vBits.size());
        std::ranges::fill(grey.vBits, BYTE{0xA0});
        return grey;
    }
    ~Scene() { window.view.UnloadEmbeddedTool(); }

    static winlite::HeadlessDesktop& Desktop() { return static_cast<winlite::HeadlessDesktop&>(winlite::TheDesktop()); }
    void Button(bool bDown, POINT pt)
    {
        winlite::QueueButton(window.host.m_hWnd, winlite::MouseButton::Left, bDown, pt);
    }
    static void PumpAll()
    {
        while (winlite::PumpOneMessage())
        {
        }
    }
    /// Until the pixel is black on the window's surface.
    void PumpUntilBlack(POINT pt)
    {
        while (PumpAll(), window.view.GetPixelRGBValue(pt, TRUE) != 0)
            Desktop().WaitForWake(std::chrono::milliseconds(1));
    }
    void EndStroke(POINT pt)
    {
        Button(false, pt);
        PumpAll();
        Desktop().Advance(1000); // no double click
    }

    CBenchBitmap bitmap;
    CBenchView window;
    CBlackBrush brush;
};

constexpr POINT CENTRE = {900, 500};

/// From the press to the first dab on the screen, against copying the photo twice.
Figure FirstDab(double dPart, double dMost)
{
    Scene scene(24, 101);
    std::vector<BYTE> vFirst(scene.bitmap.vBits), vSecond(scene.bitmap.vBits);
    std::vector<double> vDabs, vCopies;
    for (int i = 0; i < 200; ++i)
    {
        auto start = Clock::now();
        std::memcpy(vFirst.data(), scene.bitmap.vBits.data(), vFirst.size());
        std::memcpy(vSecond.data(), scene.bitmap.vBits.data(), vSecond.size());
        vCopies.push_back(SecondsSince(start));
        start = Clock::now();
        scene.Button(true, CENTRE);
        scene.PumpUntilBlack(CENTRE);
        vDabs.push_back(SecondsSince(start));
        scene.EndStroke(CENTRE);
        scene.window.Paint();
    }
    return {Percentile(vDabs, dPart) / Percentile(vCopies, 0.5), "two copies of the photo", dMost};
}

/// Five points of a stroke, stamped and composited.
double BatchSeconds(int nMegapixels, int iPen, CSize szStep)
{
    Scene scene(nMegapixels, iPen);
    std::vector<double> vTimes;
    for (int i = 0; i < 60; ++i)
    {
        // Always far from the last stamp, so that something is stamped, and within the smallest photo.
        const CPoint ptFirst(260, i % 2 ? 250 : 600);
        std::list<CPoint> points;
        for (int n = 0; n < 6; ++n)
            points.emplace_back(ptFirst.x + n * szStep.cx, ptFirst.y + n * szStep.cy);
        const auto start = Clock::now();
        scene.brush.ProcessSketching(points);
        vTimes.push_back(SecondsSince(start));
    }
    return Percentile(vTimes, 0.5);
}

Figure BatchFigure(int iPen, double dMostMs)
{
    return {BatchSeconds(24, iPen, {10, 0}) * 1e3, "a millisecond", dMostMs};
}

/// What remains after the release when all was drawn before, beyond one copy of the photo.
Figure StrokeEnd()
{
    Scene scene(24, 101);
    std::vector<BYTE> vCopy(scene.bitmap.vBits);
    double dLeast = 1e9, dCopy = 1e9;
    for (int i = 0; i < 30; ++i)
    {
        auto start = Clock::now();
        std::memcpy(vCopy.data(), scene.bitmap.vBits.data(), vCopy.size());
        dCopy = std::min(dCopy, SecondsSince(start));
        scene.Button(true, CENTRE);
        scene.PumpUntilBlack(CENTRE);
        scene.brush.bEnded = false;
        scene.Button(false, CENTRE);
        start = Clock::now();
        while (!scene.brush.bEnded)
            winlite::PumpOneMessage();
        dLeast = std::min(dLeast, SecondsSince(start));
        scene.EndStroke(CENTRE);
    }
    return {(dLeast - dCopy) * 1e3, "a millisecond, beside one copy", 5};
}

/// From a move during a stroke to the changed pixel.
Figure MoveToPixel()
{
    Scene scene(24, 101);
    std::vector<double> vTimes;
    for (int iStroke = 0; iStroke < 10; ++iStroke)
    {
        POINT pt = {100, 60 + 100 * iStroke};
        scene.Button(true, pt);
        scene.PumpUntilBlack(pt);
        for (int i = 0; i < 20; ++i)
        {
            pt.x += 80;
            const auto start = Clock::now();
            winlite::QueuePointerMove(scene.window.host.m_hWnd, pt);
            scene.PumpUntilBlack(pt);
            vTimes.push_back(SecondsSince(start));
        }
        scene.EndStroke(pt);
    }
    return {Percentile(vTimes, 0.95) * 1e3, "a millisecond, p95", 25};
}

std::size_t BytesResident()
{
    std::ifstream file("/proc/self/statm");
    std::size_t nPages = 0;
    file >> nPages >> nPages;
    return nPages * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

/// The photo, the view's masks and what a stroke needs.
Figure MemoryOfABrush()
{
    const std::size_t nBefore = BytesResident();
    const std::size_t nSurfaces = winlite::Surface::BytesInUse();
    Scene scene(24, 501);
    CRgn rgn;
    rgn.CreateRectRgn(0, 0, 6000, 4000);
    std::vector<BYTE> vMask(scene.bitmap.vBits.size() / 4, 255);
    scene.window.view.UpdateSelection(rgn, vMask);
    std::vector<BYTE>().swap(vMask);
    scene.Button(true, CENTRE);
    scene.PumpUntilBlack(CENTRE);
    const double dBeside = static_cast<double>(winlite::Surface::BytesInUse() - nSurfaces) + 501.0 * 501 * 4;
    const double dUsed = static_cast<double>(BytesResident() - nBefore) - dBeside; // The dirty rectangle is extra, too.
    scene.EndStroke(CENTRE);
    return {dUsed / static_cast<double>(scene.bitmap.vBits.size()), "the photo's 32-bit size", 4.75};
}

long SwitchesOfAllThreads()
{
    long nSum = 0;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/task"))
    {
        if (entry.path().filename() == std::to_string(getpid()))
            continue;
        std::ifstream file(entry.path() / "status");
        for (std::string strLine; std::getline(file, strLine);)
        {
            if (strLine.starts_with("voluntary_ctxt_switches:"))
                nSum += std::stol(strLine.substr(strLine.find(':') + 1));
        }
    }
    return nSum;
}

/// How often the threads of a loaded brush that does not paint wake up in two seconds.
Figure IdleWakeUps()
{
    Scene scene(1, 101);
    scene.Button(true, CENTRE);
    scene.PumpUntilBlack(CENTRE);
    scene.EndStroke(CENTRE);
    const long nBefore = SwitchesOfAllThreads();
    ::Sleep(2000);
    return {static_cast<double>(SwitchesOfAllThreads() - nBefore), "a wake-up in two seconds", 0.5};
}

} // namespace

void AddStrokeBenchmarks(CSuite& suite)
{
    suite.AddFigure("Stroke/FirstDab/24MP/p50", [] { return FirstDab(0.5, 0); });
    suite.AddFigure("Stroke/FirstDab/24MP/p95", [] { return FirstDab(0.95, 1.3); });
    suite.AddFigure("Stroke/Batch/101/24MP", [] { return BatchFigure(101, 0.5); });
    suite.AddFigure("Stroke/Batch/501/24MP", [] { return BatchFigure(501, 3); });
    suite.AddFigure("Stroke/Batch/101/100MP",
                    []
                    {
                        const double dSmall = BatchSeconds(1, 101, {10, 0});
                        return Figure{BatchSeconds(100, 101, {10, 0}) / dSmall, "on 1MP", 3};
                    });
    suite.AddFigure("Stroke/Batch/101/24MP/diagonal",
                    [] {
                        return Figure{BatchSeconds(24, 101, {400, 400}) * 1e3, "a millisecond", 0};
                    });
    suite.AddFigure("Stroke/End/24MP", &StrokeEnd);
    suite.AddFigure("Stroke/Move/24MP", &MoveToPixel);
    suite.AddFigure("Stroke/Idle", &IdleWakeUps);
}

void AddStrokeMemory(CSuite& suite) { suite.AddFigure("Memory/Brush/24MP", &MemoryOfABrush); }
