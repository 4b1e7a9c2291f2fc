#include "bench/BenchView.h"
#include "bench/Suite.h"
#include "brushes/CloneStamp.h"
#include "brushes/DodgeBurn.h"
#include "brushes/EffectBrush.h"
#include "document/Document.h"
#include "pixels/Effects.h"
#include "platform/vorpix.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <fstream>
#include <random>
#include <unistd.h>

namespace
{

using namespace Pixtane::EmbeddedTool;
using Clock = std::chrono::steady_clock;

constexpr int PEN = 101;
constexpr int STEP = 10;
constexpr int POINTS = 5;
constexpr SIZE PHOTO = {6000, 4000};

void BlurRegion(std::vector<BYTE>& vBits, BITMAPINFO& bmi, Vorpix::tagPROCESS_REGION& region, void*)
{
    const std::ptrdiff_t nRow = std::ptrdiff_t{bmi.bmiHeader.biWidth} * 4;
    const CRect& rc = region.rcRegion;
    Blur({vBits.data() + nRow * (bmi.bmiHeader.biHeight - 1), bmi.bmiHeader.biWidth, bmi.bmiHeader.biHeight, -nRow},
         {rc.left, rc.top, rc.right, rc.bottom});
}

/// A clone stamp whose source lies to the right.
class CReadyStamp : public CloneStamp
{
public:
    CReadyStamp()
    {
        m_ptSource = CPoint(1000, 300);
        m_ptDestAnchor = CPoint(300, 300);
    }
};

/// A photo of 24 megapixels in a window, with a brush that has all it needs for a stroke.
template<class Brush>
struct Scene
{
    Scene() : bitmap(24), window(1920, 1080, bitmap, 1)
    {
        bitmap.info.bmiHeader.biSizeImage = static_cast<DWORD>(bitmap.vBits.size());
        window.view.SetBitmap(bitmap.info, bitmap.vBits.data());
        window.view.LoadEmbeddedTool(brush);
        brush.SetPen(Sketcher::SketchPen::COMPUTED, PEN, 50, 100);
        brush.UpdateBitmap();
    }
    ~Scene() { window.view.UnloadEmbeddedTool(); }

    /// Always far from the last batch, so that something is stamped.
    void Batch()
    {
        bLow = !bLow;
        std::list<CPoint> points;
        for (int n = 0; n <= POINTS; ++n)
            points.emplace_back(260 + n * STEP, bLow ? 600 : 250);
        brush.ProcessSketching(points);
    }

    CBenchBitmap bitmap;
    CBenchView window;
    Brush brush;
    bool bLow = false;
};

/// The parts of a batch: stamps, two copies of the rectangle, the change of its value.
class CParts
{
public:
    CParts() : m_bitmap(24), m_vCopy(static_cast<std::size_t>(m_rc.Width()) * m_rc.Height() * 4)
    {
        m_bitmap.info.bmiHeader.biSizeImage = static_cast<DWORD>(m_bitmap.vBits.size());
        m_coverage.bmiHeader = m_bitmap.info.bmiHeader;
        m_coverage.bmiHeader.biSizeImage /= 4;
        m_vCoverage.resize(m_coverage.bmiHeader.biSizeImage);
        m_pen.bmiHeader = m_coverage.bmiHeader;
        m_pen.bmiHeader.biWidth = m_pen.bmiHeader.biHeight = PEN;
        m_pen.bmiHeader.biSizeImage = PEN * PEN;
        Vorpix::CreateMask(m_vPen, m_pen, Vorpix::MASK_DISC, PEN, 0.5F);
        m_region.rcRegion = m_rc;
        m_region.vRegionMask.resize(m_vCoverage.size(), 255);
    }
    void Do()
    {
        for (int i = 0; i < POINTS * STEP / (PEN / 5); ++i)
            Vorpix::BitBlt(true, m_vCoverage.data(), m_coverage, m_rc.left + 20 * i, m_rc.top, m_vPen.data(), m_pen, 0,
                           0, PEN, PEN, Vorpix::BITBLT_STAMP, nullptr, 0, true, nullptr);
        Copy(true);
        Vorpix::AdjustHSV(m_bitmap.vBits, m_bitmap.info, m_region, 0, 0, 0.1F, nullptr, true);
        Copy(false);
    }

private:
    void Copy(bool bOut)
    {
        const std::size_t nBytes = static_cast<std::size_t>(m_rc.Width()) * 4;
        for (int y = m_rc.top; y < m_rc.bottom; ++y)
        {
            BYTE* const pPhoto = m_bitmap.vBits.data() +
                                 (static_cast<std::size_t>(y) * PHOTO.cx + static_cast<std::size_t>(m_rc.left)) * 4;
            BYTE* const pCopy = m_vCopy.data() + static_cast<std::size_t>(y - m_rc.top) * nBytes;
            std::memcpy(bOut ? pCopy : pPhoto, bOut ? pPhoto : pCopy, nBytes);
        }
    }

    CRect m_rc{210, 200, 210 + PEN + POINTS* STEP, 200 + PEN};
    CBenchBitmap m_bitmap;
    std::vector<BYTE> m_vCopy;
    BITMAPINFO m_coverage = {};
    std::vector<int> m_vCoverage;
    BITMAPINFO m_pen = {};
    std::vector<int> m_vPen;
    Vorpix::tagPROCESS_REGION m_region = {};
};

CComparison DodgeBatch()
{
    const auto pScene = std::make_shared<Scene<DodgeBurn>>();
    const auto pParts = std::make_shared<CParts>();
    return CComparison([=] { pScene->Batch(); })
        .Beside("stamps, two copies and AdjustHSV", [=] { pParts->Do(); })
        .AtMost(1.5, {"stamps, two copies and AdjustHSV"});
}

CComparison CloneBatch()
{
    const auto pScene = std::make_shared<Scene<CReadyStamp>>();
    return CComparison([=] { pScene->Batch(); });
}

CComparison EffectBatch()
{
    const auto pScene = std::make_shared<Scene<EffectBrush>>();
    GUID guid = {};
    pScene->brush.SetEffect(guid, nullptr, &BlurRegion);
    // A stroke takes its effect over when it begins; without a pointer that moves its workers only wait.
    pScene->window.view.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(900, 900));
    const auto pRegion = std::make_shared<Vorpix::tagPROCESS_REGION>();
    pRegion->rcRegion = CRect(210, 200, 210 + PEN + POINTS * STEP, 200 + PEN);
    const auto pBits = std::make_shared<CBenchBitmap>(24);
    return CComparison([=] { pScene->Batch(); })
        .Beside("the effect alone", [=] { BlurRegion(pBits->vBits, pBits->info, *pRegion, nullptr); })
        .Report({"the effect alone"});
}

/// Strokes that are put into a document, without a view.
class CStrokes
{
public:
    CStrokes() : m_vPainted(std::size_t{4} * PHOTO.cx * PHOTO.cy)
    {
        document.Replace(CPhoto(PHOTO.cx, PHOTO.cy), {});
        std::mt19937 random(1);
        for (int y = 0; y < PHOTO.cy; ++y)
            std::generate_n(document.Photo()->Row(y), PHOTO.cx * 4, [&] { return static_cast<BYTE>(random()); });
        std::memcpy(m_vPainted.data(), document.Photo()->Pixels(), m_vPainted.size());
    }
    /// Paints a stroke of 1500 pixels somewhere and commits it; the milliseconds of that a megapixel.
    double Commit()
    {
        constexpr int LENGTH = 1500;
        const int x = static_cast<int>(m_random() % (PHOTO.cx - LENGTH - PEN));
        const int y = static_cast<int>(m_random() % (PHOTO.cy - PEN));
        const CRect rc(x, y, x + LENGTH + PEN, y + PEN);
        for (int iRow = rc.top; iRow < rc.bottom; ++iRow)
        {
            BYTE* const pRow = m_vPainted.data() + static_cast<std::size_t>(PHOTO.cy - 1 - iRow) * PHOTO.cx * 4;
            std::for_each(pRow + rc.left * 4, pRow + rc.right * 4, [](BYTE& value) { value ^= 0x55; });
        }
        constexpr int TILE_ROWS = 64, TILE_COLUMNS = 64;
        const int nDown = (PHOTO.cy - 1 - rc.top) / TILE_ROWS - (PHOTO.cy - rc.bottom) / TILE_ROWS + 1;
        const int nAcross = (rc.right - 1) / TILE_COLUMNS - rc.left / TILE_COLUMNS + 1;
        const auto start = Clock::now();
        document.CommitArea(m_vPainted.data(), rc, "Stroke");
        const double dMs = std::chrono::duration<double, std::milli>(Clock::now() - start).count();
        return dMs / (nDown * nAcross * TILE_ROWS * TILE_COLUMNS / 1e6);
    }

    CDocument document;

private:
    std::vector<BYTE> m_vPainted;
    std::mt19937 m_random{2};
};

Figure StrokeCommit()
{
    CStrokes strokes;
    std::vector<double> vTimes(40);
    std::ranges::generate(vTimes, [&] { return strokes.Commit(); });
    std::ranges::sort(vTimes);
    return {vTimes[vTimes.size() / 2], "a millisecond a megapixel of tiles", 5};
}

std::size_t BytesResident()
{
    std::ifstream file("/proc/self/statm");
    std::size_t nPages = 0;
    file >> nPages >> nPages;
    return nPages * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

Figure MemoryOfStrokes()
{
    CStrokes strokes;
    const std::size_t nBefore = BytesResident();
    for (int i = 0; i < 100; ++i)
        strokes.Commit();
    return {static_cast<double>(BytesResident() - nBefore) / (1 << 20), "a megabyte", 512};
}

} // namespace

void AddBrushBenchmarks(CSuite& suite)
{
    suite.Add("Brush/Clone/24MP", &CloneBatch);
    suite.Add("Brush/Dodge/24MP", &DodgeBatch);
    suite.Add("Brush/Effect/24MP", &EffectBatch);
    suite.AddFigure("Retouch/StrokeCommit/24MP", &StrokeCommit);
    suite.AddFigure("Memory/Strokes/24MP", &MemoryOfStrokes);
}
