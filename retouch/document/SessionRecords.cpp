#include "document/SessionRecords.h"

#include <cstring>
#include <utility>

CSessionRecords::CSessionRecords(std::shared_ptr<const CLockedFile> pFile)
    : m_pFile(std::move(pFile)), m_iEnd(sizeof(SESSION_MAGIC) - 1)
{
    char szMagic[sizeof(SESSION_MAGIC)] = {};
    m_bGood = m_pFile && m_pFile->Read(0, szMagic, sizeof(SESSION_MAGIC) - 1) && std::strcmp(szMagic, SESSION_MAGIC) == 0;
}

bool CSessionRecords::Next()
{
    SessionHead head = {};
    m_bGood = m_bGood && m_pFile->Read(m_iEnd, reinterpret_cast<char*>(&head), sizeof(head)) && IsGoodHead(head);
    const std::uint64_t iSays = m_iEnd + sizeof(head);
    m_bGood = m_bGood && iSays <= m_pFile->Size() && head.nBytes <= m_pFile->Size() - iSays;
    if (!m_bGood)
        return false;
    m_Says.clear();
    if (IsChecked(head))
    {
        m_Says.resize(static_cast<qsizetype>(head.nBytes));
        m_bGood = m_pFile->Read(iSays, m_Says.data(), static_cast<std::size_t>(m_Says.size())) && IsWhole(head, m_Says);
    }
    m_iEnd = iSays + head.nBytes;
    m_eRecord = static_cast<SessionRecord>(head.uRecord);
    return m_bGood;
}
