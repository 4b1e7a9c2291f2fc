#include "retouch/MaskDistance.h"
#include "retouch/NumberOf.h"
#include "retouch/RegionList.h"
#include "retouch/Retoucher.h"

#include <algorithm>

namespace
{

constexpr int MOST_PIXELS = 500;

} // namespace

bool CRetoucher::HasSelection()
{
    CRgn rgn;
    return View().GetSelectRegion(rgn);
}

CRect CRetoucher::SelectionBox()
{
    CRgn rgn;
    CRect rcBox;
    if (View().GetSelectRegion(rgn))
        rgn.GetRgnBox(&rcBox);
    return rcBox;
}

bool CRetoucher::SelectionChanged(const std::string& strName)
{
    if (!m_photo)
        return false;
    if (!HasSelection() && !m_history.Current().vSelected.empty())
        m_lastSelection = m_history.Current();
    UpdateTint();
    m_pick.reset();
    return AddStep(strName);
}

void CRetoucher::SelectMask(const std::vector<BYTE>& vMask, const std::string& strName)
{
    CRgn rgn;
    Pixtane::CPixtane::CreateRgnFromMask(rgn, vMask, m_photo->Width(), m_photo->Height());
    View().UpdateSelection(rgn, vMask);
    SelectionChanged(strName);
}

void CRetoucher::RestoreSelection(const CHistory::State& state)
{
    CRgn rgn;
    std::vector<BYTE> vMask(m_photo->ByteCount() / 4);
    if (!state.vSelected.empty())
    {
        MakeRegion(rgn, state.vSelected);
        state.mask.Restore(vMask);
    }
    View().UpdateSelection(rgn, vMask);
}

void CRetoucher::SelectAll()
{
    if (m_photo)
        SelectMask(std::vector<BYTE>(m_photo->ByteCount() / 4, 255), "Select All");
}

void CRetoucher::SelectNone()
{
    if (m_photo && HasSelection())
        SelectMask(std::vector<BYTE>(m_photo->ByteCount() / 4), "Deselect");
}

void CRetoucher::Reselect()
{
    if (!m_photo || m_lastSelection.vSelected.empty())
        return;
    RestoreSelection(m_lastSelection);
    SelectionChanged("Reselect");
}

bool CRetoucher::GrowOrShrink(const std::string& strPixels, bool bGrow, std::string& strError)
{
    const std::optional<int> iPixels = NumberOf(strPixels, 1, MOST_PIXELS, strError);
    if (!iPixels || !m_photo || !HasSelection())
        return iPixels.has_value();
    const CWaitCursor wait;
    std::vector<BYTE> vMask = View().vSelectMask();
    (bGrow ? GrowMask : ShrinkMask)(vMask, m_photo->Width(), *iPixels);
    SelectMask(vMask, bGrow ? "Grow Selection" : "Shrink Selection");
    return true;
}

bool CRetoucher::FeatherSelection(const std::string& strPixels, std::string& strError)
{
    const std::optional<int> iPixels = NumberOf(strPixels, 1, MOST_PIXELS, strError);
    if (!iPixels || !m_photo || !HasSelection())
        return iPixels.has_value();
    const CWaitCursor wait;
    View().FeatherSelection(*iPixels);
    SelectionChanged("Feather Selection");
    return true;
}

bool CRetoucher::SetFeather(const std::string& strPixels, std::string& strError)
{
    const std::optional<int> iPixels = NumberOf(strPixels, 0, MOST_PIXELS, strError);
    if (iPixels)
        m_selector.SetFeatherRadius(*iPixels);
    return iPixels.has_value();
}

// ---- how it is shown

void CRetoucher::HideOutline(bool bHide)
{
    m_bOutlineHidden = bHide;
    View().ShowSelection(!bHide);
}

void CRetoucher::StillOutline(bool bStill)
{
    using Pixtane::CPixtane;
    m_bOutlineStill = bStill;
    if (bStill)
        View().KillTimer(CPixtane::TIMER_DRAWSELECTBOX);
    else
        View().SetTimer(CPixtane::TIMER_DRAWSELECTBOX, CPixtane::TIMER_DRAWSELECTBOX_INTERVAL, nullptr);
}

void CRetoucher::Tint(bool bTint)
{
    m_bTinted = bTint;
    if (bTint)
        UpdateTint();
    else
        EndPreview();
}

void CRetoucher::UpdateTint()
{
    if (!m_bTinted || !m_photo)
        return;
    std::vector<BYTE> vTinted(m_photo->Pixels(), m_photo->Pixels() + m_photo->ByteCount());
    const std::vector<BYTE>& vMask = View().vSelectMask();
    const auto nWidth = static_cast<std::size_t>(m_photo->Width());
    const bool bSelection = HasSelection();
    for (std::size_t y = 0; bSelection && y < static_cast<std::size_t>(m_photo->Height()); ++y)
    {
        BYTE* pPixel = vTinted.data() + (m_photo->Height() - 1 - y) * nWidth * 4;
        for (const BYTE weight : std::span(vMask).subspan(y * nWidth, nWidth))
        {
            // Half red where nothing is selected.
            const int iTint = 255 - weight;
            pPixel[0] = static_cast<BYTE>(pPixel[0] - pPixel[0] * iTint / 510);
            pPixel[1] = static_cast<BYTE>(pPixel[1] - pPixel[1] * iTint / 510);
            pPixel[2] = static_cast<BYTE>(pPixel[2] + (255 - pPixel[2]) * iTint / 510);
            pPixel += 4;
        }
    }
    ShowCover(std::move(vTinted));
}
