#include "platform/vorpix.h"
#include "selection/ScaleRgn.h"
#include "view/Log.h"
#include "view/Pixtane.h"

#include <algorithm>

namespace Pixtane
{

int CPixtane::UpdateSelection(const CRgn& rgn, const std::vector<BYTE>& vMask)
{
    if (!m_pBmpData)
        return 0;
    if (rgn.GetSafeHandle())
    {
        const bool bFits = !m_iSelectMaskSize || vMask.size() == static_cast<std::size_t>(m_iSelectMaskSize);
        if (!bFits)
        {
            QLWriteLog(QL_ERROR, MODULE_NAME, L"CPixtane::UpdateSelection", L"Invalid Mask Size.");
            return 0;
        }
        if (!m_rgnSelect.GetSafeHandle())
            m_rgnSelect.CreateRectRgn(0, 0, 0, 0);
        ::CombineRgn(m_rgnSelect, rgn, nullptr, RGN_COPY); // CopyRgn takes no const region.
        if (m_iSelectMaskSize)
            m_vSelectMask = vMask;
    }
    else
    {
        ClearSelection();
    }
    UpdateScaledRegion();
    UpdateSelectBorderMaskDC();
    if (m_hWnd)
    {
        Invalidate(FALSE);
        UpdateWindow();
    }
    return 1;
}

void CPixtane::ClearSelection()
{
    m_rgnSelect.DeleteObject();
    m_rgnSelectScaled.DeleteObject();
    const auto clear = [this](std::vector<BYTE>& vMask)
    { std::fill_n(vMask.begin(), std::clamp<std::ptrdiff_t>(m_iSelectMaskSize, 0, std::ssize(vMask)), BYTE{0}); };
    clear(m_vSelectMask);
    clear(m_vSelectMask_Cur);
    UpdateSelectBorderMaskDC();
}

void CPixtane::FeatherSelection(int iRadius)
{
    constexpr const wchar_t* FUNCTION = L"CPixtane::FeatherSelection";
    if (!m_rgnSelect.GetSafeHandle() || !m_iSelectMaskSize)
        return;
    CRect rcBox(0, 0, 0, 0);
    m_rgnSelect.GetRgnBox(&rcBox);
    if (!Vorpix::FeatherRegion(m_vSelectMask, rcBox, iRadius, m_iBmpWidth, m_iBmpHeight, nullptr, true))
    {
        QLWriteLog(QL_ERROR, MODULE_NAME, FUNCTION, L"Failed to call Vorpix::FeatherRegion");
        return;
    }
    if (!CreateRgnFromMask(m_rgnSelect, m_vSelectMask, m_iBmpWidth, m_iBmpHeight))
    {
        QLWriteLog(QL_ERROR, MODULE_NAME, FUNCTION, L"Failed to create region after feathering.");
        return;
    }
    UpdateScaledRegion();
    UpdateSelectBorderMaskDC();
    if (m_hWnd)
        Invalidate(FALSE);
}

int CPixtane::GetSelectRegion(CRgn& rgn) const
{
    if (!m_pBmpData)
        return 0;
    rgn.DeleteObject();
    CRect rcBox(0, 0, 0, 0);
    if (!m_rgnSelect.GetSafeHandle())
        return 0;
    m_rgnSelect.GetRgnBox(&rcBox);
    if (rcBox.IsRectNull())
        return 0;
    rgn.CreateRectRgn(0, 0, 0, 0);
    return ::CombineRgn(rgn, m_rgnSelect, nullptr, RGN_COPY) != ERROR;
}

int CPixtane::GetSelectMask(std::vector<BYTE>& vMask) const
{
    if (!m_pBmpData || m_bNoSelectMask)
        return 0;
    vMask = m_vSelectMask;
    return 1;
}

void CPixtane::UpdateScaledRegion()
{
    if (!m_bShowSelection)
        return;
    const float fZoom = static_cast<float>(m_dbZoom);
    if (m_rgnSelect.GetSafeHandle())
        ScaleRgn(m_rgnSelect, m_rgnSelectScaled, fZoom, fZoom, SCALE_KEEPS_BOX);
    else
        m_rgnSelectScaled.DeleteObject();
}

void CPixtane::FromBitmapToWnd(const CRgn& rgnSrc, CRgn& rgnDst)
{
    if (!rgnSrc.GetSafeHandle())
        return;
    rgnDst.DeleteObject();
    const float fZoom = static_cast<float>(m_dbZoom);
    if (ScaleRgn(rgnSrc, rgnDst, fZoom, fZoom, SCALE_FRACTION_ALIGNED))
        rgnDst.OffsetRgn(-m_ptDispPos.X, -m_ptDispPos.Y);
}

} // namespace Pixtane
