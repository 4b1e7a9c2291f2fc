#include "program/StepKeeper.h"

std::string CStepKeeper::Follow()
{
    if (!m_document.Photo())
        return {};
    if (std::exchange(m_uPhotos, m_document.PhotoCount()) != m_document.PhotoCount())
    {
        m_uSaves = m_document.SaveCount();
        Begin(false);
        m_uRevision = m_document.History().Revision();
        if (m_document.IsUnsaved()) // It was recovered.
            Append();
    }
    if (std::exchange(m_uSaves, m_document.SaveCount()) != m_document.SaveCount())
        Begin(true);
    if (std::exchange(m_uRevision, m_document.History().Revision()) != m_document.History().Revision())
    {
        if (m_document.IsUnsaved())
            Append();
        else if (m_bAnything)
            Begin(m_bWhole); // It has been undone.
    }
    return m_journal.TakeFailure();
}

void CStepKeeper::Begin(bool bWhole)
{
    m_bWhole = bWhole;
    m_bAnything = false;
    m_journal.Begin(m_document.Path(), bWhole);
}

void CStepKeeper::Append()
{
    m_bAnything = true;
    const CHistory::State& state = m_document.History().Current();
    CTiledSnapshot pixels = state.pixels;
    if (m_journal.WantsWhole())
        pixels.Fill(pixels.Missing(m_document.Photo()->Pixels()));
    m_journal.Append(state.strName, pixels, state.mask, !state.vSelected.empty());
}
