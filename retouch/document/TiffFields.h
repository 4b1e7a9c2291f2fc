#pragma once

#include <cstdint>
#include <optional>
#include <QByteArray>

/// The fields of a TIFF structure, as TIFF files and EXIF blocks hold them: read, and changed where they lie. What is
/// not named stays at its place byte for byte, since the notes of camera makers point into the block by offsets that
/// nobody else knows. Offsets and counts that lead outside find nothing and change nothing.
class CTiffFields
{
public:
    /// Takes the bytes from the byte order mark on.
    explicit CTiffFields(QByteArray bytes) : m_bytes(std::move(bytes)) {}

    /// Whether the bytes begin like a TIFF structure.
    bool IsValid() const;

    /// The offset of the first directory, and of the one after a directory; 0 for none.
    std::uint32_t MainDirectory() const { return IsValid() ? Read(4, 4) : 0; }
    std::uint32_t DirectoryAfter(std::uint32_t uDirectory) const { return Read(LinkAfter(uDirectory), 4); }
    void EndAfter(std::uint32_t uDirectory) { Write(LinkAfter(uDirectory), 4, 0); }

    /// A field that holds one number of 16 or 32 bits.
    std::optional<std::uint32_t> Number(std::uint32_t uDirectory, int iTag) const;
    /// Changes the number of such a field; a field that is not there is not made.
    void SetNumber(std::uint32_t uDirectory, int iTag, std::uint32_t uValue);
    bool Has(std::uint32_t uDirectory, int iTag) const { return EntryOf(uDirectory, iTag) > 0; }

    /// Sets a text of the main directory. What does not fit its old place goes to the end of the block.
    void SetText(int iTag, const QByteArray& text);

    /// Takes bytes away where they end the block, and makes them zero elsewhere.
    void Erase(std::uint32_t uOffset, std::uint32_t nBytes);

    const QByteArray& Bytes() const { return m_bytes; }

private:
    bool IsInside(qint64 iOffset, qint64 nBytes) const { return iOffset > 0 && iOffset + nBytes <= m_bytes.size(); }
    std::uint32_t Read(qint64 iOffset, int nBytes) const;
    void Write(qint64 iOffset, int nBytes, std::uint32_t uValue);
    qint64 EntryOf(std::uint32_t uDirectory, int iTag) const;
    qint64 LinkAfter(std::uint32_t uDirectory) const { return uDirectory + 2 + qint64{12} * Read(uDirectory, 2); }
    qint64 AddEntry(int iTag);
    qint64 EvenEnd();

    QByteArray m_bytes;
};
