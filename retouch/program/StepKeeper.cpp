#include "program/StepKeeper.h"

CStepKeeper::CStepKeeper(CDocument& document, const std::string& strFolder) : m_document(document), m_journal(strFolder)
{
    // When steps come faster than the file takes them, the memory must not pay for it.
    constexpr std::size_t MOST_WAITING = std::size_t{32} << 20;
    m_document.SetMakeRoom(
        [this]
        {
            if (m_journal.Waiting() > MOST_WAITING)
                m_journal.Flush();
        });
}

CStepKeeper::~CStepKeeper()
{
    m_document.SetMakeRoom([] {});
}

std::string CStepKeeper::Follow()
{
    if (!m_document.Photo())
        return {};
    const bool bOther = std::exchange(m_uPhotos, m_document.PhotoCount()) != m_document.PhotoCount();
    if (bOther)
        Begin();
    const bool bSaved = std::exchange(m_uSaves, m_document.SaveCount()) != m_document.SaveCount();
    if (bSaved)
    {
        m_bWhole = true;
        m_bWholeWritten = false;
    }
    const unsigned uRevision = m_document.History().Revision();
    const bool bChanged = std::exchange(m_uRevision, uRevision) != uRevision;
    if (bSaved || (bOther ? m_document.RecoveredFrom().has_value() : bChanged))
        Append();
    return m_journal.TakeFailure();
}

void CStepKeeper::Begin()
{
    m_uSaves = m_document.SaveCount();
    m_bWhole = false;
    const auto& recovery = m_document.RecoveredFrom();
    if (recovery)
        m_bWhole = recovery->bWhole;
    const bool bGoesOn = recovery && recovery->pFile->IsWritable();
    m_bWholeWritten = m_bWhole && bGoesOn;
    if (bGoesOn)
        m_journal.GoOn(recovery->pFile, m_document.History().LastId());
    else
        m_journal.Begin(m_document.OpenedPath());
}

void CStepKeeper::Append()
{
    CTiledSnapshot opened = m_document.Opened();
    std::vector<CTiledSnapshot::KeptTile> vOpened;
    if (m_bWhole && m_document.IsUnsaved() && !std::exchange(m_bWholeWritten, true))
    {
        if (opened.HasSizeOf(m_document.History().Current().pixels))
            opened.Fill(opened.Missing(m_document.Photo()->Pixels()));
        vOpened = opened.Beyond({});
    }
    m_journal.Append(m_document.History(), {m_document.Path(), m_document.IsUnsaved(), m_bWhole}, opened,
                     std::move(vOpened));
}
