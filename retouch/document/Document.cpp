#include "document/Document.h"

#include <cstring>

std::optional<CPhoto> CDocument::Replace(CPhoto photo, std::string strPath)
{
    ++m_uPhotos;
    m_bChanged = false;
    m_recovery.reset();
    m_original = CTiledSnapshot(photo.RowBytes(), static_cast<std::size_t>(photo.Height()));
    m_strPath = std::move(strPath);
    m_strOpened = photo.Origin().strPath;
    CHistory::State state;
    state.pixels = m_original;
    m_history.Reset(std::move(state));
    return std::exchange(m_photo, std::move(photo));
}

void CDocument::Saved(PhotoOrigin origin)
{
    ++m_uSaves;
    m_strPath = origin.strPath;
    m_photo->SetOrigin(std::move(origin));
    m_history.MarkSaved();
}

CPhoto CDocument::Resume(RecoveredWork& work)
{
    ++m_uPhotos;
    m_original = std::move(work.opened);
    m_history.Resume(std::move(work.vStates), work.iCurrent, work.uSaved);
    m_bChanged = true;
    m_recovery = Recovery{std::move(work.pFile), work.bWhole};
    work.photo.SetOrigin(m_photo->Origin());
    return std::exchange(*m_photo, std::move(work.photo));
}

CDocument::Pixels CDocument::PixelsAfter(CLargeBuffer changed)
{
    m_MakeRoom();
    Pixels pixels;
    const CTiledSnapshot& now = m_history.Current().pixels;
    pixels.change = now.Changed(m_photo->Pixels(), changed.Bytes().data(), now.Whole());
    pixels.buffer = std::move(changed);
    return pixels;
}

bool CDocument::Add(const CTiledSnapshot::Change& change, const std::string& strStep)
{
    m_original.Fill(change.vBefore);
    m_history.FillPixels(change.vBefore);
    CHistory::State state = m_history.Current();
    state.strName = strStep;
    state.pixels = change.after;
    const bool bStep = m_history.Add(std::move(state));
    m_bChanged = m_bChanged || bStep;
    return bStep;
}

bool CDocument::Commit(Pixels& pixels, const std::string& strStep)
{
    const bool bStep = Add(pixels.change, strStep); // Memory may run out here, and then nothing has changed.
    pixels.buffer = m_photo->ReplacePixels(std::move(pixels.buffer));
    return bStep;
}

CLargeBuffer CDocument::CopyArea(const CRect& rc)
{
    CLargeBuffer copy(m_photo->ByteCount());
    constexpr int TILE = CTiledSnapshot::TILE_SIDE;
    CRect rcTiles = rc;
    rcTiles.InflateRect(TILE, TILE);
    if (!rcTiles.IntersectRect(CRect(rcTiles), CRect(0, 0, m_photo->Width(), m_photo->Height())))
        return copy;
    const auto nBytes = static_cast<std::size_t>(rcTiles.Width()) * 4;
    const PixelView target = m_photo->ViewOf(copy);
    for (int y = rcTiles.top; y < rcTiles.bottom; ++y)
        std::memcpy(target.Row(y) + std::ptrdiff_t{rcTiles.left} * 4,
                    m_photo->Row(y) + std::ptrdiff_t{rcTiles.left} * 4, nBytes);
    return copy;
}

bool CDocument::CommitArea(const BYTE* pPixels, const CRect& rc, const std::string& strStep)
{
    CRect rcInside(0, 0, m_photo->Width(), m_photo->Height());
    if (!rcInside.IntersectRect(CRect(rcInside), rc))
        return false;
    const CTiledSnapshot::Area area = {
        static_cast<std::size_t>(m_photo->Height() - rcInside.bottom), static_cast<std::size_t>(rcInside.left) * 4,
        static_cast<std::size_t>(rcInside.Height()), static_cast<std::size_t>(rcInside.Width()) * 4};
    const CTiledSnapshot::Change change = m_history.Current().pixels.Changed(m_photo->Pixels(), pPixels, area);
    for (std::size_t y = area.iTop; y < area.iTop + area.nRows; ++y)
    {
        const std::size_t iByte = y * m_photo->RowBytes() + area.iLeft;
        std::memcpy(m_photo->Pixels() + iByte, pPixels + iByte, area.nBytes);
    }
    return Add(change, strStep);
}

CDocument::Shaped CDocument::ShapedTo(CPhoto photo)
{
    m_MakeRoom();
    photo.SetOrigin(m_photo->Origin());
    Shaped shaped = {std::move(photo), {}, {}};
    shaped.now = CTiledSnapshot({shaped.photo.Pixels(), shaped.photo.ByteCount()}, shaped.photo.RowBytes(), {});
    shaped.vBefore = m_history.Current().pixels.Missing(m_photo->Pixels());
    return shaped;
}

CPhoto CDocument::Commit(Shaped shaped, const std::string& strStep)
{
    // From here on every state has all of its tiles: the photo holds those of one size alone.
    m_original.Fill(shaped.vBefore);
    m_history.FillPixels(shaped.vBefore);
    CHistory::State state;
    state.strName = strStep;
    state.pixels = std::move(shaped.now);
    m_history.Add(std::move(state));
    m_bChanged = true;
    return std::exchange(*m_photo, std::move(shaped.photo));
}

bool CDocument::HasOtherSize(const CHistory::State& state) const
{
    const CTiledSnapshot photo(m_photo->RowBytes(), static_cast<std::size_t>(m_photo->Height()));
    return !photo.HasSizeOf(state.pixels);
}

CPhoto CDocument::RestorePhoto(const CHistory::State& state)
{
    CPhoto photo(static_cast<int>(state.pixels.Whole().nBytes / 4), static_cast<int>(state.pixels.Whole().nRows));
    photo.SetOrigin(m_photo->Origin());
    state.pixels.Restore({photo.Pixels(), photo.ByteCount()});
    return std::exchange(*m_photo, std::move(photo));
}

bool CDocument::Restore(const CHistory::State& state, const CTiledSnapshot& shown)
{
    if (state.pixels.IsSameAs(shown))
        return false;
    state.pixels.Restore({m_photo->Pixels(), m_photo->ByteCount()}, shown);
    return true;
}
