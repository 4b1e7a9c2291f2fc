#include "brushes/LinePath.h"
#include "brushes/Sketcher.h"
#include "brushes/StrokeImage.h"
#include "platform/minmax.h"
#include "view/Log.h"
#include "view/OutOfMemory.h"
#include "view/Rounding.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

namespace Pixtane::EmbeddedTool
{

void Sketcher::CalcLinePoints(const CPoint& ptFrom, const CPoint& ptTo, std::list<CPoint>& points)
{
    MakeLinePath(ptFrom, ptTo, points);
}

void Sketcher::GetPenRectFromPoint(const CPoint& pt, CRect& rc)
{
    rc.SetRect(SaturatedSum(pt.x, -m_rcPen.left), SaturatedSum(pt.y, -m_rcPen.top),
               SaturatedSum(pt.x, m_rcPen.right + 1LL), SaturatedSum(pt.y, m_rcPen.bottom + 1LL));
}

/// False for a segment wholly to one side of all that can be stamped: a pointer far off the image makes long ones.
bool Sketcher::CanReach(CPoint ptFrom, CPoint ptTo) const
{
    CRect rcReach(m_rcStampArea);
    rcReach.OffsetRect(-m_szReach.cx, -m_szReach.cy);
    return std::max(ptFrom.x, ptTo.x) >= rcReach.left && std::min(ptFrom.x, ptTo.x) < rcReach.right &&
           std::max(ptFrom.y, ptTo.y) >= rcReach.top && std::min(ptFrom.y, ptTo.y) < rcReach.bottom;
}

int Sketcher::ProcessSketching(std::list<CPoint>& points)
{
    if (points.size() < 2)
        return TRUE;
    std::list<CPoint> path;
    CRect rcDirty(0, 0, 0, 0);
    while (points.size() > 1)
    {
        const CPoint ptFrom = points.front();
        points.pop_front();
        if (!CanReach(ptFrom, points.front()))
            continue;
        std::list<CPoint> segment;
        CalcLinePoints(ptFrom, points.front(), segment);
        path.splice(path.end(), segment);
        for (const CPoint& pt : {ptFrom, points.front()})
        {
            CRect rcPen(0, 0, 0, 0);
            GetPenRectFromPoint(pt, rcPen);
            rcDirty.UnionRect(rcDirty, rcPen);
        }
    }
    if (!path.empty() && !ProcessLineSegment(path, rcDirty))
        QLWriteLog(QL_INFO, MODULE_NAME, L"Sketcher::ProcessSketching", L"Failed to call ProcessLineSegment.");
    InvalidateView();
    return TRUE;
}

void Sketcher::ProcessSpecifiedPoint(const CPoint& pt)
{
    std::list<CPoint> points(1, pt);
    CRect rcDirty(0, 0, 0, 0);
    GetPenRectFromPoint(pt, rcDirty);
    ProcessLineSegment(points, rcDirty);
    InvalidateView();
}

bool Sketcher::IsTooCloseToLast(CPoint pt) const
{
    if (!IsSet(m_ptLastStamp))
        return false;
    const float fX = static_cast<float>(pt.x) - static_cast<float>(m_ptLastStamp.x);
    const float fY = static_cast<float>(pt.y) - static_cast<float>(m_ptLastStamp.y);
    return std::sqrt(fX * fX + fY * fY) < static_cast<float>(m_BuiltPen.iSize) / 5.0f;
}

void Sketcher::StampAt(CPoint pt)
{
    const CPoint ptCorner = pt - m_Pen.ptCenter;
    const int iSize = m_BuiltPen.iSize;
    Vorpix::BitBlt(true, m_vCoverage.data(), m_bmiCoverage, ptCorner.x, ptCorner.y, m_Pen.vMask.data(), m_bmiPenMask, 0,
                   0, iSize, iSize, Vorpix::BITBLT_STAMP, nullptr, 0, true, nullptr);
    CRect rcStamp(0, 0, 0, 0);
    GetPenRectFromPoint(pt, rcStamp);
    m_rcStamped.UnionRect(m_rcStamped, rcStamp);
}

int Sketcher::ProcessLineSegment(std::list<CPoint>& points, CRect&)
{
    bool bStamped = false;
    for (const CPoint& pt : points)
    {
        if (IsTooCloseToLast(pt) || !m_rcStampArea.PtInRect(pt))
            continue;
        StampAt(pt);
        m_ptLastStamp = pt;
        bStamped = true;
    }
    return bStamped;
}

bool Sketcher::IsCoverOurs() const
{
    // Resolution and reserved fields do not matter to the pixels, but nobody but another owner changes them.
    return !m_vBmpData.empty() && pView->vCoverBmpData().size() == m_vBmpData.size() &&
           std::memcmp(&pView->CoverBmpInfo(), &m_bmiBmp, sizeof(BITMAPINFOHEADER)) == 0;
}

/// What a brush does here is its host's, and may fail: the stroke goes on without it.
bool Sketcher::ChangePixels(const std::function<void()>& changePixels, const CSavedRect& saved)
{
    const std::size_t nBytes = m_vBmpData.size();
    bool bThrew = false;
    try
    {
        changePixels();
    }
    catch (CException* pException)
    {
        pException->Delete();
        bThrew = true;
    }
    catch (...)
    {
        bThrew = true;
    }
    m_bSpoiled = m_vBmpData.size() != nBytes;
    if (m_bSpoiled)
        m_vBmpData.resize(nBytes);
    else if (bThrew)
        saved.PutBack(m_vBmpData);
    if ((m_bSpoiled || bThrew) && !std::exchange(m_bToldOfFailure, true))
        QLWriteLog(QL_ERROR, MODULE_NAME, L"Sketcher::ProcessLineSegment", L"%s",
                   m_bSpoiled ? L"The effect has changed the bitmap's size." : L"The effect has failed.");
    return !m_bSpoiled && !bThrew;
}

int Sketcher::StampAndShow(std::list<CPoint>& points, const CRect& rcDirty, const std::function<void()>& changePixels)
try
{
    CRect rcUnused(rcDirty);
    if (m_bSpoiled || m_vBmpData.size() != m_bmiBmp.bmiHeader.biSizeImage ||
        !Sketcher::ProcessLineSegment(points, rcUnused))
        return TRUE;
    const CRect rcBitmap(0, 0, m_bmiBmp.bmiHeader.biWidth, m_bmiBmp.bmiHeader.biHeight);
    CRect rcChanged(0, 0, 0, 0);
    if (!rcChanged.IntersectRect(rcDirty, rcBitmap))
        return TRUE;
    const CSavedRect saved(m_vScratch, m_vBmpData, m_bmiBmp, rcChanged);
    m_ProcessRegion.rcRegion = rcChanged;
    m_ProcessRegion.vRegionMask.resize(m_bmiCoverage.bmiHeader.biSizeImage, 255);
    if (!ChangePixels(changePixels, saved))
        return FALSE;
    {
        const CSingleLock lock(&m_csBitmap, TRUE);
        if (IsCoverOurs())
        {
            std::vector<BYTE>& vCover = pView->vCoverBmpData();
            saved.PutBack(vCover);
            BlendRect(vCover, rcChanged, m_vBmpData, rcChanged.TopLeft(), m_bmiBmp, m_vCoverage);
        }
    }
    saved.PutBack(m_vBmpData);
    return TRUE;
}
catch (...)
{
    RethrowUnlessOutOfMemory();
    return FALSE;
}

} // namespace Pixtane::EmbeddedTool
