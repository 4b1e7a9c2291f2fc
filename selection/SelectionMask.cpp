#include "platform/minmax.h"
#include "platform/vorpix.h"
#include "selection/MaskRuns.h"
#include "selection/RegionRects.h"
#include "view/Log.h"
#include "view/OutOfMemory.h"
#include "view/Pixtane.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>

namespace Pixtane
{

namespace
{

/// Whether a mask of that size has that many bytes.
bool HasSize(const std::vector<BYTE>& vMask, int iWidth, int iHeight)
{
    return iWidth >= 1 && iHeight >= 1 &&
           static_cast<long long>(iWidth) * iHeight == static_cast<long long>(vMask.size());
}

/// Writes a mask from its first byte to its last, each byte once.
class CMaskFiller
{
public:
    CMaskFiller(std::vector<BYTE>& vMask, int iWidth) : m_vMask(vMask), m_iWidth(iWidth) {}
    ~CMaskFiller() { Fill(m_vMask.size(), 0); }
    CMaskFiller(const CMaskFiller&) = delete;
    CMaskFiller& operator=(const CMaskFiller&) = delete;

    /// The next run; all before it is not selected.
    void AddRun(int y, int iLeft, int iRight)
    {
        const std::size_t iRow = static_cast<std::size_t>(y) * m_iWidth;
        Fill(iRow + iLeft, 0);
        Fill(iRow + iRight, 255);
    }

private:
    void Fill(std::size_t iEnd, BYTE weight)
    {
        std::memset(m_vMask.data() + m_nDone, weight, iEnd - m_nDone);
        m_nDone = iEnd;
    }

    std::vector<BYTE>& m_vMask;
    int m_iWidth;
    std::size_t m_nDone = 0;
};

/// Fills the mask with a region's rectangles, which come in bands of rows.
void FillRects(std::span<const RECT> vRects, std::vector<BYTE>& vMask, int iWidth, int iHeight)
{
    CMaskFiller filler(vMask, iWidth);
    for (auto itBand = vRects.begin(); itBand != vRects.end();)
    {
        const auto itEnd =
            std::find_if(itBand, vRects.end(), [top = itBand->top](const RECT& rc) { return rc.top != top; });
        for (int y = std::max<int>(itBand->top, 0); y < std::min<int>(itBand->bottom, iHeight); ++y)
        {
            for (auto it = itBand; it != itEnd; ++it)
            {
                const int iLeft = std::clamp<int>(it->left, 0, iWidth);
                filler.AddRun(y, iLeft, std::clamp<int>(it->right, iLeft, iWidth));
            }
        }
        itBand = itEnd;
    }
}

std::size_t CountRuns(const std::vector<BYTE>& vMask, int iWidth, int iHeight)
{
    std::size_t nRuns = 0;
    for (int y = 0; y < iHeight; ++y)
        ForEachMaskRun(&vMask[static_cast<std::size_t>(y) * iWidth], iWidth, [&](int, int) { ++nRuns; });
    return nRuns;
}

/// One rectangle a run, rows from the top, and their box.
void WriteRuns(const std::vector<BYTE>& vMask, int iWidth, int iHeight, CRegionRects& rects)
{
    RECT rcBox = {iWidth, iHeight, 0, 0};
    auto itRect = rects.Rects().begin();
    for (int y = 0; y < iHeight; ++y)
    {
        const auto write = [&](int iFirst, int iEnd)
        {
            *itRect++ = {iFirst, y, iEnd, y + 1};
            rcBox = {std::min<LONG>(rcBox.left, iFirst), std::min<LONG>(rcBox.top, y),
                     std::max<LONG>(rcBox.right, iEnd), y + 1};
        };
        ForEachMaskRun(&vMask[static_cast<std::size_t>(y) * iWidth], iWidth, write);
    }
    rects.Box() = rcBox;
}

/// Moves a row's bytes to the right (or left where negative) within a mask, from row ySource to row y; the bytes that
/// nothing moves to become 0.
void MoveRow(BYTE* pMask, int iWidth, int y, int ySource, int iOffsetX)
{
    BYTE* const pRow = pMask + static_cast<std::ptrdiff_t>(y) * iWidth;
    const BYTE* const pSource = pMask + static_cast<std::ptrdiff_t>(ySource) * iWidth;
    const int nMoved = iWidth - std::abs(iOffsetX);
    std::memmove(pRow + std::max(iOffsetX, 0), pSource + std::max(-iOffsetX, 0), static_cast<std::size_t>(nMoved));
    std::memset(iOffsetX > 0 ? pRow : pRow + nMoved, 0, static_cast<std::size_t>(iWidth - nMoved));
}

} // namespace

int CPixtane::CreateSelectMask(const CRgn& rgn, std::vector<BYTE>& vMask, int iWidth, int iHeight, int iFeather)
try
{
    constexpr const wchar_t* FUNCTION = L"CPixtane::CreateSelectMask";
    const long long llSize = static_cast<long long>(iWidth) * iHeight;
    if (iWidth <= 0 || iHeight <= 0 || llSize > std::numeric_limits<int>::max())
    {
        QLWriteLog(QL_INFO, MODULE_NAME, FUNCTION, L"Invalid Mask Size.");
        return 0;
    }
    vMask.resize(static_cast<std::size_t>(llSize));
    if (!rgn.GetSafeHandle())
    {
        std::ranges::fill(vMask, BYTE{0});
        QLWriteLog(QL_INFO, MODULE_NAME, FUNCTION, L"No select region.");
        return 1;
    }
    CRect rcBox(0, 0, 0, 0);
    rgn.GetRgnBox(&rcBox);
    if (rcBox.IsRectEmpty())
    {
        std::ranges::fill(vMask, BYTE{0});
        QLWriteLog(QL_ERROR, MODULE_NAME, FUNCTION, L"Empty Region.");
        return 0;
    }
    const DWORD dwStart = ::GetTickCount();
    auto rects = CRegionRects::Read(rgn);
    if (!rects)
        throw std::bad_alloc();
    FillRects(rects->Rects(), vMask, iWidth, iHeight);
    if (iFeather > 0 && !Vorpix::FeatherRegion(vMask, rcBox, iFeather, iWidth, iHeight, nullptr, true))
        QLWriteLog(QL_ERROR, MODULE_NAME, FUNCTION, L"Failed to call Vorpix::FeatherRegion");
    QLWriteLog(QL_INFO, MODULE_NAME, FUNCTION, L"FeatherRadius = %d, Time cost: %dms\n", iFeather,
               static_cast<int>(::GetTickCount() - dwStart));
    return 1;
}
catch (...)
{
    RethrowUnlessOutOfMemory();
    std::ranges::fill(vMask, BYTE{0});
    QLWriteLog(QL_ERROR, MODULE_NAME, L"CPixtane::CreateSelectMask", L"Not enough memory.");
    return 0;
}

int CPixtane::CreateRgnFromMask(CRgn& rgn, const std::vector<BYTE>& vMask, int iWidth, int iHeight)
try
{
    if (!HasSize(vMask, iWidth, iHeight))
        return 0;
    rgn.DeleteObject();
    const std::size_t nRuns = CountRuns(vMask, iWidth, iHeight);
    if (nRuns == 0)
        return 0;
    CRegionRects rects(nRuns);
    WriteRuns(vMask, iWidth, iHeight, rects);
    if (!rects.CreateRegion(rgn))
        throw std::bad_alloc();
    return 1;
}
catch (...)
{
    RethrowUnlessOutOfMemory();
    QLWriteLog(QL_ERROR, MODULE_NAME, L"CPixtane::CreateRgnFromMask", L"Failed to call CreateFromData!");
    return 0;
}

int CPixtane::OffsetSelectMask(std::vector<BYTE>& vMask, int iWidth, int iHeight, int iOffsetX, int iOffsetY)
{
    if (!HasSize(vMask, iWidth, iHeight))
        return 0;
    if (std::abs(static_cast<long long>(iOffsetX)) > iWidth || std::abs(static_cast<long long>(iOffsetY)) > iHeight)
    {
        std::ranges::fill(vMask, BYTE{0});
        return 1;
    }
    const CWaitCursor wait;
    // In the order in which no row is written before it was moved.
    BYTE* const pMask = vMask.data();
    const int nMoved = iHeight - std::abs(iOffsetY);
    const int yFirst = std::max(iOffsetY, 0);
    for (int i = 0; i < nMoved; ++i)
    {
        const int y = iOffsetY > 0 ? yFirst + nMoved - 1 - i : yFirst + i;
        MoveRow(pMask, iWidth, y, y - iOffsetY, iOffsetX);
    }
    const auto nCleared = static_cast<std::size_t>(iHeight - nMoved) * iWidth;
    std::memset(iOffsetY > 0 ? pMask : pMask + static_cast<std::ptrdiff_t>(nMoved) * iWidth, 0, nCleared);
    return 1;
}

} // namespace Pixtane
