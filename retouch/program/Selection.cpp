#include "program/Selection.h"

#include "program/RegionList.h"

#include <algorithm>
#include <QtGlobal>

bool CSelection::IsThere() const
{
    CRgn rgn;
    return m_view.GetSelectRegion(rgn);
}

CRect CSelection::Box() const
{
    CRgn rgn;
    CRect rcBox(0, 0, 0, 0);
    if (m_view.GetSelectRegion(rgn))
        rgn.GetRgnBox(&rcBox);
    return rcBox;
}

bool CSelection::AddStep(const std::string& strStep)
{
    if (!m_document.Photo())
        return false;
    const CHistory::State& now = m_document.History().Current();
    if (!IsThere() && !now.vSelected.empty())
    {
        m_last.mask = now.mask;
        m_last.vSelected = now.vSelected;
    }
    m_presenter.Update();
    CHistory::State state;
    state.strName = strStep;
    state.pixels = now.pixels;
    CRgn rgn;
    if (m_view.GetSelectRegion(rgn))
    {
        state.vSelected = RectsOf(rgn);
        state.mask = CTiledSnapshot(Mask(), static_cast<std::size_t>(m_document.Photo()->Width()), now.mask);
    }
    return m_document.History().Add(std::move(state));
}

void CSelection::SelectMask(const std::vector<BYTE>& vMask, const std::string& strStep)
{
    CRgn rgn;
    Pixtane::CPixtane::CreateRgnFromMask(rgn, vMask, m_view.iBmpWidth(), m_view.iBmpHeight());
    m_view.UpdateSelection(rgn, vMask);
    AddStep(strStep);
}

void CSelection::CompleteStep(const std::vector<BYTE>& vMask)
{
    CRgn rgn;
    Pixtane::CPixtane::CreateRgnFromMask(rgn, vMask, m_view.iBmpWidth(), m_view.iBmpHeight());
    m_view.UpdateSelection(rgn, vMask);
    CTiledSnapshot mask;
    std::vector<RECT> vSelected;
    if (CRgn rgnNow; m_view.GetSelectRegion(rgnNow))
    {
        vSelected = RectsOf(rgnNow);
        mask = CTiledSnapshot(vMask, static_cast<std::size_t>(m_document.Photo()->Width()), {});
    }
    m_document.History().CompleteStep(std::move(mask), std::move(vSelected));
}

void CSelection::Restore(const CHistory::State& state)
{
    CRgn rgn;
    std::vector<BYTE> vMask(Mask().size());
    if (!state.vSelected.empty())
    {
        MakeRegion(rgn, state.vSelected);
        state.mask.Restore(vMask);
    }
    m_view.UpdateSelection(rgn, vMask);
}

void CSelection::Forget() { m_last = {}; }

void CSelection::SelectAll()
{
    SelectMask(std::vector<BYTE>(Mask().size(), 255), QT_TRANSLATE_NOOP("History", "Select All"));
}

void CSelection::SelectNone()
{
    if (IsThere())
        SelectMask(std::vector<BYTE>(Mask().size()), QT_TRANSLATE_NOOP("History", "Deselect"));
}

void CSelection::Invert()
{
    // Pixels that are selected in part stay outside the region, as they were inside it before.
    CRgn rgn;
    CRgn rgnSelected;
    rgn.CreateRectRgn(0, 0, m_view.iBmpWidth(), m_view.iBmpHeight());
    if (m_view.GetSelectRegion(rgnSelected))
        rgn.CombineRgn(&rgn, &rgnSelected, RGN_DIFF);
    std::vector<BYTE> vMask = Mask();
    if (rgnSelected.GetSafeHandle())
        std::ranges::transform(vMask, vMask.begin(), [](BYTE weight) { return static_cast<BYTE>(~weight); });
    else
        std::ranges::fill(vMask, BYTE{255});
    m_view.UpdateSelection(rgn, vMask);
    AddStep(QT_TRANSLATE_NOOP("History", "Invert Selection"));
}

void CSelection::Reselect()
{
    if (m_last.vSelected.empty())
        return;
    Restore(m_last);
    AddStep(QT_TRANSLATE_NOOP("History", "Reselect"));
}

// ---- how it is shown

void CSelection::HideOutline(bool bHide)
{
    m_bOutlineHidden = bHide;
    m_view.ShowSelection(!bHide);
}

void CSelection::HoldOutlineStill(bool bStill)
{
    using Pixtane::CPixtane;
    m_bOutlineStill = bStill;
    if (bStill)
        m_view.KillTimer(CPixtane::TIMER_DRAWSELECTBOX);
    else
        m_view.SetTimer(CPixtane::TIMER_DRAWSELECTBOX, CPixtane::TIMER_DRAWSELECTBOX_INTERVAL, nullptr);
}
