#include "program/Presenter.h"

#include "pixels/Bands.h"

#include <algorithm>
#include <cstring>

namespace
{

/// Half red where nothing is selected.
void Tint(std::uint8_t* pPixel, std::uint8_t weight)
{
    const int iTint = 255 - weight;
    pPixel[0] = static_cast<std::uint8_t>(pPixel[0] - pPixel[0] * iTint / 510);
    pPixel[1] = static_cast<std::uint8_t>(pPixel[1] - pPixel[1] * iTint / 510);
    pPixel[2] = static_cast<std::uint8_t>(pPixel[2] + (255 - pPixel[2]) * iTint / 510);
}

} // namespace

void CPresenter::ShowOriginal(bool bShow)
{
    m_bOriginal = bShow;
    Update();
}

void CPresenter::ShowPreview(Adjust adjust)
{
    m_Preview = std::move(adjust);
    Update();
}

void CPresenter::ShowTint(bool bShow)
{
    m_bTint = bShow;
    Update();
}

void CPresenter::Forget()
{
    m_bOriginal = false;
    m_Preview = {};
    m_bTint = false;
    Update();
}

bool CPresenter::IsSelected() const
{
    CRgn rgn;
    return m_view.GetSelectRegion(rgn);
}

void CPresenter::Update()
{
    if (m_IsPainting && m_IsPainting())
        return; // It comes again when the stroke has ended.
    const VisiblePart part = VisiblePartOf(m_view);
    const bool bClaimed = IsOriginalShown() || m_Preview || (m_bTint && IsSelected());
    if (bClaimed && !part.rcWindow.IsRectEmpty() && m_document.Photo())
    {
        Fill(part);
        m_bShown = true;
        m_view.ShowCoverImage(TRUE, FALSE);
    }
    else if (std::exchange(m_bShown, false))
    {
        m_view.ShowCoverImage(FALSE, FALSE);
        m_view.vCoverBmpData() = {};
    }
}

void CPresenter::Fill(const VisiblePart& part)
{
    BITMAPINFOHEADER& header = m_view.CoverBmpInfo().bmiHeader;
    header = {sizeof(BITMAPINFOHEADER), part.rcWindow.Width(), part.rcWindow.Height(), 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    const std::ptrdiff_t nRow = std::ptrdiff_t{part.rcWindow.Width()} * 4;
    header.biSizeImage = static_cast<DWORD>(nRow * part.rcWindow.Height());
    m_view.rcCoverBmp() = part.rcWindow;
    std::vector<BYTE>& vCover = m_view.vCoverBmpData();
    vCover.resize(header.biSizeImage);
    const PixelView cover = {vCover.data() + nRow * (header.biHeight - 1), header.biWidth, header.biHeight, -nRow};
    CProgress progress;
    ForBands(cover.cy, progress,
             [&](int iFirst, int iEnd)
             {
                 for (int y = iFirst; y < iEnd; ++y)
                     FillRow(part, y, cover);
             });
    if (IsOriginalShown() || !m_Preview)
        return;
    const std::vector<BYTE> vWeights = IsSelected() ? PickWeights(part) : std::vector<BYTE>();
    m_Preview(cover, {vWeights.empty() ? nullptr : vWeights.data(), cover.cx});
}

void CPresenter::FillRow(const VisiblePart& part, int y, PixelView pixels)
{
    const int iRow = part.vRows[static_cast<std::size_t>(y)];
    std::uint8_t* pPixel = pixels.Row(y);
    if (IsOriginalShown())
    {
        m_document.Original()->PickPixels(static_cast<std::size_t>(m_document.Photo()->Height() - 1 - iRow),
                                          part.vColumns, m_document.Photo()->Row(iRow), pPixel);
        return;
    }
    PickPhotoRow(part, iRow, pPixel);
    if (m_Preview)
        return;
    const BYTE* const pWeights = m_view.vSelectMask().data() + std::ptrdiff_t{iRow} * m_document.Photo()->Width();
    for (const int iColumn : part.vColumns)
    {
        Tint(pPixel, pWeights[iColumn]);
        pPixel += 4;
    }
}

void CPresenter::PickPhotoRow(const VisiblePart& part, int y, std::uint8_t* pPixel)
{
    const BYTE* const pRow = m_document.Photo()->Row(y);
    for (const int iColumn : part.vColumns)
    {
        std::memcpy(pPixel, pRow + std::ptrdiff_t{iColumn} * 4, 4);
        pPixel += 4;
    }
}

std::vector<BYTE> CPresenter::PickWeights(const VisiblePart& part) const
{
    std::vector<BYTE> vWeights;
    vWeights.reserve(part.vRows.size() * part.vColumns.size());
    for (const int iRow : part.vRows)
    {
        const BYTE* const pRow = m_view.vSelectMask().data() + std::ptrdiff_t{iRow} * m_view.iBmpWidth();
        for (const int iColumn : part.vColumns)
            vWeights.push_back(pRow[iColumn]);
    }
    return vWeights;
}
