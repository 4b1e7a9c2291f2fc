#include "brushes/Sketcher.h"

#include "brushes/StrokeImage.h"
#include "platform/minmax.h"
#include "view/DibSize.h"
#include "view/Log.h"
#include "view/OutOfMemory.h"
#include "view/ToolSettings.h"

#include "platform/minmax.h"

#include <algorithm>
#include <cstring>

namespace Pixtane::EmbeddedTool
{

namespace
{

template<class T>
void FreeMemory(std::vector<T>& v)
{
    std::vector<T>().swap(v);
}

constexpr UINT SETTINGS_VERSION = 1;
constexpr ToolSettingsLayout LAYOUTS[] = {{SETTINGS_VERSION, 4}};

} // namespace

Sketcher::Sketcher() = default;
Sketcher::~Sketcher() = default;

int Sketcher::OnLoad(CPixtane& view)
try
{
    IEmbeddedTool::OnLoad(view);
    view.LendCoverLock(&m_csBitmap);
    if (!StartSketchingThread())
        QLWriteLog(QL_ERROR, MODULE_NAME, L"Sketcher::OnLoad", L"Failed to start Sketching-thread.");
    if (!StartMouseTrackingThread())
        QLWriteLog(QL_ERROR, MODULE_NAME, L"Sketcher::OnLoad", L"Failed to start MouseTracking-thread.");
    if (!UpdateBitmap() || !TakeStrokeMemory())
        QLWriteLog(QL_ERROR, MODULE_NAME, L"Sketcher::OnLoad", L"Failed to update bitmap.");
    BuildPen();
    MeasurePen();
    return TRUE;
}
catch (...)
{
    RethrowUnlessOutOfMemory();
    LeaveView();
    return FALSE;
}

int Sketcher::OnUnload()
{
    LeavePaint();
    m_bUnloading = true; // The host may do anything when it hears of the end, but not begin another stroke.
    EndLostStroke();
    ReleaseMouse();
    LeaveView();
    m_bUnloading = false;
    return TRUE;
}

void Sketcher::LeaveView()
{
    StopSketchingThread();
    StopMouseTrackingThread();
    ForgetStroke();
    FreeMemory(m_vCoverage);
    FreeMemory(m_vBmpData);
    m_rcStamped.SetRectEmpty();
    FreeMemory(pView->vCoverBmpData());
    pView->LendCoverLock(nullptr);
    pView = nullptr;
}

void Sketcher::SerializeToolSettings(std::vector<BYTE>& vData) const
{
    WriteToolSettings(vData, SETTINGS_VERSION,
                      {static_cast<DWORD>(m_Pen.eStyle), static_cast<DWORD>(m_Pen.iSize),
                       static_cast<DWORD>(m_Pen.iHardness), static_cast<DWORD>(m_Pen.iStrength)});
}

int Sketcher::UnserializeToolSettings(const std::vector<BYTE>& vData)
{
    const auto blob = ReadToolSettings(vData, uSettingsVersion, LAYOUTS, L"Sketcher::UnserializeToolSettings");
    if (!blob)
        return FALSE;
    if (!blob->vSettings.empty())
        RestorePen(blob->vSettings);
    return TRUE;
}

// ---- the pixels

std::optional<std::size_t> Sketcher::RowBytes() const
{
    const BITMAPINFOHEADER header = pView->BmpInfo().bmiHeader;
    const std::optional<int> nRows = DibByteCount(header);
    if (!pView->pBmpData() || !nRows || header.biSizeImage < static_cast<DWORD>(*nRows))
        return std::nullopt;
    return static_cast<std::size_t>(*nRows);
}

int Sketcher::UpdateBitmap()
try
{
    if (!pView || m_bSketching)
        return FALSE;
    m_bmiBmp = pView->BmpInfo();
    m_vBmpData.resize(RowBytes() ? m_bmiBmp.bmiHeader.biSizeImage : 0);
    if (m_vBmpData.empty())
        return FALSE;
    // What the header promises beyond the rows is not the host's to be read.
    const CSingleLock lock(&m_csBitmap, TRUE);
    pView->vCoverBmpData().resize(m_vBmpData.size());
    pView->CoverBmpInfo() = m_bmiBmp;
    const std::size_t nRows = *RowBytes();
    CopyTwice(pView->pBmpData(), nRows, m_vBmpData.data(), pView->vCoverBmpData().data());
    std::fill(m_vBmpData.begin() + static_cast<std::ptrdiff_t>(nRows), m_vBmpData.end(), BYTE{0});
    std::fill(pView->vCoverBmpData().begin() + static_cast<std::ptrdiff_t>(nRows), pView->vCoverBmpData().end(),
              BYTE{0});
    UpdateStampArea();
    return TRUE;
}
catch (...)
{
    RethrowUnlessOutOfMemory();
    m_vBmpData.clear();
    return FALSE;
}

BYTE* Sketcher::GetBitmap(BITMAPINFO& bmi) const
{
    bmi = m_bmiBmp;
    const bool bReadable = !m_bSketching && !m_vBmpData.empty();
    return bReadable ? const_cast<BYTE*>(m_vBmpData.data()) : nullptr;
}

void Sketcher::UpdateStampArea()
{
    m_rcStampArea.SetRect(-m_rcPen.left, -m_rcPen.top, m_bmiBmp.bmiHeader.biWidth + m_rcPen.right,
                          m_bmiBmp.bmiHeader.biHeight + m_rcPen.bottom);
}

/// Reserving changes nothing that anybody sees, so that a stroke that is refused leaves everything as it was.
bool Sketcher::TakeStrokeMemory()
try
{
    const BITMAPINFO info = pView->BmpInfo();
    const BITMAPINFOHEADER& header = info.bmiHeader;
    if (!RowBytes() || (header.biBitCount != 24 && header.biBitCount != 32))
        return false;
    const auto nPixels = static_cast<std::size_t>(header.biWidth) * static_cast<std::size_t>(header.biHeight);
    const auto nPen = static_cast<std::size_t>(2 * m_BuiltPen.iSize); // A stamp with room to move.
    m_vBmpData.reserve(header.biSizeImage);
    m_ProcessRegion.vRegionMask.reserve(nPixels);
    m_vScratch.reserve(std::min(nPixels, nPen * nPen) * 4);
    {
        const CSingleLock lock(&m_csBitmap, TRUE);
        pView->vCoverBmpData().reserve(header.biSizeImage);
    }
    const BITMAPINFOHEADER& covered = m_bmiCoverage.bmiHeader;
    if (m_vCoverage.size() != nPixels || covered.biWidth != header.biWidth)
    {
        m_vCoverage.assign(nPixels, 0);
        m_rcStamped.SetRectEmpty();
    }
    m_bmiCoverage = info;
    m_bmiCoverage.bmiHeader.biBitCount = 32;
    m_bmiCoverage.bmiHeader.biSizeImage = static_cast<DWORD>(nPixels);
    return true;
}
catch (...)
{
    RethrowUnlessOutOfMemory();
    return false;
}

void Sketcher::ForgetStroke()
{
    FreeMemory(m_ProcessRegion.vRegionMask);
    FreeMemory(m_vScratch);
    m_lstPoints.clear();
    m_ptLastStamp = POINT_UNSET;
    m_ptStart = POINT_UNSET;
    m_bSketching = FALSE;
    pView->KeepCover(false);
}

} // namespace Pixtane::EmbeddedTool
