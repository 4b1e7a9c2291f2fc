#include "document/Document.h"

std::optional<CPhoto> CDocument::Replace(CPhoto photo, std::string strPath)
{
    ++m_uPhotos;
    m_original.reset();
    m_strPath = std::move(strPath);
    m_history.Reset({});
    return std::exchange(m_photo, std::move(photo));
}

CDocument::Pixels CDocument::PixelsAfter(CLargeBuffer changed)
{
    Pixels pixels;
    const std::size_t nRow = m_photo->RowBytes();
    if (!m_original)
        pixels.original = CTiledSnapshot({m_photo->Pixels(), m_photo->ByteCount()}, nRow, {});
    pixels.now = CTiledSnapshot(changed.Bytes(), nRow, m_original ? m_history.Current().pixels : pixels.original);
    pixels.buffer = std::move(changed);
    return pixels;
}

bool CDocument::Commit(Pixels& pixels, const std::string& strStep)
{
    if (!m_original)
    {
        m_original = std::move(pixels.original);
        m_history.FillPixels(*m_original);
    }
    pixels.buffer = m_photo->ReplacePixels(std::move(pixels.buffer));
    CHistory::State state = m_history.Current();
    state.strName = strStep;
    state.pixels = std::move(pixels.now);
    return m_history.Add(std::move(state));
}

bool CDocument::Restore(const CHistory::State& state, const CTiledSnapshot& shown)
{
    if (!m_original || state.pixels.IsSameAs(shown))
        return false;
    state.pixels.Restore({m_photo->Pixels(), m_photo->ByteCount()});
    return true;
}
