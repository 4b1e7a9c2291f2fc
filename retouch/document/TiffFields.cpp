#include "document/TiffFields.h"

namespace
{

constexpr int ENTRY_SIZE = 12; // Tag and type of two bytes each, count and value of four.
constexpr int TYPE_TEXT = 2;
constexpr int TYPE_SHORT = 3;
constexpr int TYPE_LONG = 4;

} // namespace

bool CTiffFields::IsValid() const
{
    return m_bytes.size() >= 8 && (m_bytes.startsWith("II") || m_bytes.startsWith("MM")) && Read(2, 2) == 42;
}

std::uint32_t CTiffFields::Read(qint64 iOffset, int nBytes) const
{
    if (!IsInside(iOffset, nBytes))
        return 0;
    std::uint32_t uValue = 0;
    for (int i = 0; i < nBytes; ++i)
        uValue = uValue << 8 | static_cast<std::uint8_t>(m_bytes[iOffset + (m_bytes[0] == 'M' ? i : nBytes - 1 - i)]);
    return uValue;
}

void CTiffFields::Write(qint64 iOffset, int nBytes, std::uint32_t uValue)
{
    if (!IsInside(iOffset, nBytes))
        return;
    for (int i = 0; i < nBytes; ++i, uValue >>= 8)
        m_bytes[iOffset + (m_bytes[0] == 'M' ? nBytes - 1 - i : i)] = static_cast<char>(uValue);
}

/// The offset of a field's entry; 0 for none.
qint64 CTiffFields::EntryOf(std::uint32_t uDirectory, int iTag) const
{
    const qint64 iEnd = LinkAfter(uDirectory);
    for (qint64 i = qint64{uDirectory} + 2; uDirectory > 0 && i < iEnd && IsInside(i, ENTRY_SIZE); i += ENTRY_SIZE)
    {
        if (Read(i, 2) == static_cast<std::uint32_t>(iTag))
            return i;
    }
    return 0;
}

std::optional<std::uint32_t> CTiffFields::Number(std::uint32_t uDirectory, int iTag) const
{
    const qint64 iEntry = EntryOf(uDirectory, iTag);
    const std::uint32_t uType = Read(iEntry + 2, 2);
    if (iEntry == 0 || (uType != TYPE_SHORT && uType != TYPE_LONG) || Read(iEntry + 4, 4) != 1)
        return std::nullopt;
    return Read(iEntry + 8, uType == TYPE_SHORT ? 2 : 4);
}

void CTiffFields::SetNumber(std::uint32_t uDirectory, int iTag, std::uint32_t uValue)
{
    if (!Number(uDirectory, iTag))
        return;
    const qint64 iEntry = EntryOf(uDirectory, iTag);
    if (uValue > 0xFFFF)
        Write(iEntry + 2, 2, TYPE_LONG); // The value's place has four bytes whatever the type.
    Write(iEntry + 8, Read(iEntry + 2, 2) == TYPE_SHORT ? 2 : 4, uValue);
}

void CTiffFields::SetText(int iTag, const QByteArray& text)
{
    const QByteArray ended = text + '\0';
    qint64 iEntry = EntryOf(MainDirectory(), iTag);
    const std::uint32_t nRoom = iEntry > 0 && Read(iEntry + 2, 2) == TYPE_TEXT ? Read(iEntry + 4, 4) : 0;
    if (iEntry == 0)
        iEntry = AddEntry(iTag);
    if (!IsInside(iEntry, ENTRY_SIZE))
        return;
    qint64 iPlace = nRoom > 4 ? Read(iEntry + 8, 4) : iEntry + 8;
    const bool bFits = ended.size() <= std::max<qint64>(nRoom, 4) && IsInside(iPlace, std::max<qint64>(nRoom, 4));
    if (!bFits)
    {
        iPlace = EvenEnd();
        m_bytes.resize(iPlace + ended.size());
        Write(iEntry + 8, 4, static_cast<std::uint32_t>(iPlace));
    }
    Write(iEntry + 2, 2, TYPE_TEXT);
    Write(iEntry + 4, 4, bFits && nRoom > 4 ? nRoom : static_cast<std::uint32_t>(ended.size()));
    m_bytes.replace(iPlace, ended.size(), ended);
    if (bFits && nRoom > ended.size())
        m_bytes.replace(iPlace + ended.size(), nRoom - ended.size(), QByteArray(nRoom - ended.size(), '\0'));
}

/// Makes an entry in the main directory, which moves to the end of the block; what its entries point to stays.
qint64 CTiffFields::AddEntry(int iTag)
{
    const std::uint32_t uOld = MainDirectory();
    const qint64 iLink = LinkAfter(uOld);
    if (!IsInside(uOld, 2) || !IsInside(iLink, 4))
        return 0;
    // Entries lie in the order of their tags.
    qint64 iNext = qint64{uOld} + 2;
    while (iNext < iLink && Read(iNext, 2) < static_cast<std::uint32_t>(iTag))
        iNext += ENTRY_SIZE;
    const QByteArray before = m_bytes.mid(uOld, iNext - uOld);
    const QByteArray after = m_bytes.mid(iNext, iLink + 4 - iNext);
    const qint64 iNew = EvenEnd();
    m_bytes += before + QByteArray(ENTRY_SIZE, '\0') + after;
    Write(4, 4, static_cast<std::uint32_t>(iNew));
    Write(iNew, 2, Read(uOld, 2) + 1);
    const qint64 iEntry = iNew + before.size();
    Write(iEntry, 2, iTag);
    return iEntry;
}

qint64 CTiffFields::EvenEnd()
{
    if (m_bytes.size() % 2 != 0)
        m_bytes += '\0';
    return m_bytes.size();
}

void CTiffFields::Erase(std::uint32_t uOffset, std::uint32_t nBytes)
{
    if (!IsInside(uOffset, nBytes))
        return;
    if (qint64{uOffset} + nBytes == m_bytes.size())
        m_bytes.truncate(uOffset);
    else
        m_bytes.replace(uOffset, nBytes, QByteArray(nBytes, '\0'));
}
