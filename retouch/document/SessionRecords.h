#pragma once

#include "document/LockedFile.h"
#include "document/SessionFile.h"

#include <memory>

/// Reads a session's records one after the other, as long as they are good.
class CSessionRecords
{
public:
    explicit CSessionRecords(std::shared_ptr<const CLockedFile> pFile);

    /// Goes to the next one; FALSE when there is no good one.
    bool Next();

    SessionRecord Record() const { return m_eRecord; }

    /// What it says; nothing of tiles, which are read when they are needed.
    const QByteArray& Says() const { return m_Says; }

    /// Where it ends in the file.
    std::uint64_t End() const { return m_iEnd; }

private:
    std::shared_ptr<const CLockedFile> m_pFile;
    bool m_bGood = false;
    std::uint64_t m_iEnd = 0;
    SessionRecord m_eRecord = {};
    QByteArray m_Says;
};
