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
    m_Drawing = {};
    Update();
}

void CPresenter::ShowDrawing(Draw draw)
{
    m_Preview = {};
    m_Drawing = std::move(draw);
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
    m_Drawing = {};
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
    if (m_document.Photo() && !IsPhotoInView())
        return; // It comes again when the view has got it.
    const VisiblePart part = VisiblePartOf(m_view);
    const bool bClaimed = IsOriginalShown() || IsPreview() || (m_bTint && IsSelected());
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
    if (IsOriginalShown() ? IsReshaped() : m_Drawing != nullptr)
    {
        if (IsOriginalShown())
            DrawReshapedOriginal(cover);
        else
            m_Drawing(part, cover);
        return;
    }
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

bool CPresenter::IsPhotoInView() const
{
    return m_view.iBmpWidth() == m_document.Photo()->Width() && m_view.iBmpHeight() == m_document.Photo()->Height();
}

bool CPresenter::IsReshaped() const
{
    return m_document.Photo() && !m_document.Opened().HasSizeOf(m_document.History().Current().pixels);
}

/// As large as it fits into where the photo is, on a dark ground.
void CPresenter::DrawReshapedOriginal(PixelView cover)
{
    constexpr std::uint8_t GROUND = 60;
    const CTiledSnapshot::Area whole = m_document.Opened().Whole();
    const CSize szOriginal(static_cast<int>(whole.nBytes / 4), static_cast<int>(whole.nRows));
    const double dScale = std::min(1.0 * cover.cx / szOriginal.cx, 1.0 * cover.cy / szOriginal.cy);
    const CSize szShown(std::clamp(static_cast<int>(szOriginal.cx * dScale), 1, cover.cx),
                        std::clamp(static_cast<int>(szOriginal.cy * dScale), 1, cover.cy));
    const CPoint ptFirst((cover.cx - szShown.cx) / 2, (cover.cy - szShown.cy) / 2);
    const auto sampled = [](int i, int nShown, int nOriginal)
    { return static_cast<int>((2LL * i + 1) * nOriginal / (2LL * nShown)); };
    std::vector<int> vColumns;
    for (int x = 0; x < szShown.cx; ++x)
        vColumns.push_back(sampled(x, szShown.cx, szOriginal.cx));
    for (int y = 0; y < cover.cy; ++y)
        std::memset(cover.Row(y), GROUND, static_cast<std::size_t>(cover.cx) * 4);
    for (int y = 0; y < szShown.cy; ++y)
    {
        const auto iRow = static_cast<std::size_t>(szOriginal.cy - 1 - sampled(y, szShown.cy, szOriginal.cy));
        // Of a photo that has got another size every tile is kept.
        m_document.Opened().PickPixels(iRow, vColumns, nullptr, cover.Row(ptFirst.y + y) + 4 * ptFirst.x);
    }
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
