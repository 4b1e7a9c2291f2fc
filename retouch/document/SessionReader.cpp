#include "document/SessionReader.h"

#include "document/Message.h"
#include "document/TiledSnapshot.h"

#include <algorithm>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <lz4.h>
#include <QDataStream>
#include <sys/file.h>
#include <unistd.h>
#include <utility>

namespace
{

constexpr std::uint64_t MOST_PIXELS_OF_A_SIDE = 1 << 20;
constexpr std::uint64_t MOST_BYTES_OF_A_PHOTO = std::uint64_t{16} << 30;

/// Reads a session's records one after the other, as long as they are good.
class CRecords
{
public:
    explicit CRecords(const std::string& strFile) : m_file(strFile, std::ios::binary)
    {
        char szMagic[sizeof(SESSION_MAGIC)] = {};
        m_bGood = static_cast<bool>(m_file.read(szMagic, sizeof(SESSION_MAGIC) - 1)) &&
                  std::strcmp(szMagic, SESSION_MAGIC) == 0;
    }

    bool Next()
    {
        SessionHead head = {};
        m_bGood = m_bGood && m_file.read(reinterpret_cast<char*>(&head), sizeof(head)) && IsGoodHead(head);
        if (!m_bGood)
            return false;
        m_Says.resize(static_cast<qsizetype>(head.nBytes));
        m_file.read(m_Says.data(), m_Says.size());
        m_bGood = m_file.gcount() == m_Says.size() && IsWhole(head, m_Says);
        m_eRecord = static_cast<SessionRecord>(head.uRecord);
        return m_bGood;
    }

    SessionRecord Record() const { return m_eRecord; }
    const QByteArray& Says() const { return m_Says; }

private:
    std::ifstream m_file;
    bool m_bGood = false;
    SessionRecord m_eRecord = {};
    QByteArray m_Says;
};

std::optional<SessionPhoto> ReadPhoto(CRecords& records)
{
    if (!records.Next() || records.Record() != SessionRecord::Photo)
        return std::nullopt;
    QDataStream stream(records.Says());
    QByteArray path;
    qint64 nBytes = 0;
    quint64 uChecksum = 0;
    bool bWhole = false;
    stream >> path >> nBytes >> uChecksum >> bWhole;
    if (stream.status() != QDataStream::Ok)
        return std::nullopt;
    return SessionPhoto{path.toStdString(), nBytes, uChecksum, bWhole};
}

/// A picture that tiles come into.
struct Picture
{
    CTiledSnapshot tiles;
    std::vector<BYTE> vBytes;

    /// Takes the tiles of a record over; FALSE when it does not hold what it should.
    bool Take(QDataStream& stream)
    {
        while (!stream.atEnd())
        {
            quint32 iTile = 0;
            quint32 nBytes = 0;
            QByteArray block;
            stream >> iTile >> nBytes >> block;
            constexpr quint32 MOST = 4 * CTiledSnapshot::TILE_SIDE * CTiledSnapshot::TILE_SIDE;
            if (stream.status() != QDataStream::Ok || nBytes == 0 || nBytes > MOST)
                return false;
            std::vector<BYTE> vTile(nBytes);
            const int nRead = LZ4_decompress_safe(block.constData(), reinterpret_cast<char*>(vTile.data()),
                                                  static_cast<int>(block.size()), static_cast<int>(nBytes));
            if (nRead != static_cast<int>(nBytes) || !tiles.WriteTile(iTile, vTile, vBytes))
                return false;
        }
        return true;
    }
};

/// The work as its records come.
class CWork
{
public:
    explicit CWork(std::optional<CPhoto> original)
    {
        if (!original)
            return;
        Resize(original->RowBytes(), static_cast<std::uint64_t>(original->Height()));
        std::memcpy(m_photo.vBytes.data(), original->Pixels(), original->ByteCount());
    }

    /// FALSE for a record that does not fit to what came before.
    bool Take(const CRecords& records)
    {
        QDataStream stream(records.Says());
        switch (records.Record())
        {
        case SessionRecord::Size:
            return TakeSize(stream);
        case SessionRecord::Pixels:
            return m_photo.Take(stream);
        case SessionRecord::Mask:
            if (std::exchange(m_bMaskBegins, false))
                stream >> m_bSelected;
            return m_mask.Take(stream);
        default:
            return false;
        }
    }

    RecoveredWork Result(const std::string& strStep) const
    {
        const CTiledSnapshot::Area whole = m_photo.tiles.Whole();
        RecoveredWork work = {CPhoto(static_cast<int>(whole.nBytes / 4), static_cast<int>(whole.nRows)), {}, strStep};
        std::memcpy(work.photo.Pixels(), m_photo.vBytes.data(), m_photo.vBytes.size());
        if (m_bSelected)
            work.vMask = m_mask.vBytes;
        return work;
    }

private:
    bool TakeSize(QDataStream& stream)
    {
        quint64 nRow = 0;
        quint64 nRows = 0;
        stream >> nRow >> nRows;
        if (stream.status() != QDataStream::Ok || nRow == 0 || nRow % 4 != 0 || nRows == 0 ||
            nRow / 4 > MOST_PIXELS_OF_A_SIDE || nRows > MOST_PIXELS_OF_A_SIDE || nRow * nRows > MOST_BYTES_OF_A_PHOTO)
            return false;
        if (!m_photo.tiles.HasSizeOf(CTiledSnapshot(nRow, nRows)))
            Resize(nRow, nRows);
        m_bMaskBegins = true;
        return true;
    }

    void Resize(std::uint64_t nRow, std::uint64_t nRows)
    {
        m_photo = {CTiledSnapshot(nRow, nRows), std::vector<BYTE>(nRow * nRows)};
        m_mask = {CTiledSnapshot(nRow / 4, nRows), std::vector<BYTE>(nRow / 4 * nRows)};
    }

    Picture m_photo;
    Picture m_mask;
    bool m_bMaskBegins = false;
    bool m_bSelected = false;
};

/// Whether a file is held by a running program.
bool IsHeld(const std::string& strFile)
{
    const int iFile = ::open(strFile.c_str(), O_RDONLY | O_CLOEXEC);
    const bool bHeld = iFile >= 0 && ::flock(iFile, LOCK_EX | LOCK_NB) != 0;
    if (iFile >= 0)
        ::close(iFile);
    return bHeld;
}

/// What a session began with; nothing when no step of it is in the file.
std::optional<SessionPhoto> PhotoOfWork(const std::string& strFile)
{
    CRecords records(strFile);
    const std::optional<SessionPhoto> photo = ReadPhoto(records);
    while (photo && records.Next())
    {
        if (records.Record() == SessionRecord::Step)
            return photo;
    }
    return std::nullopt;
}

} // namespace

std::optional<LostSession> LostSessionOf(const std::string& strFile)
{
    const std::optional<SessionPhoto> photo = PhotoOfWork(strFile);
    return photo ? std::optional(LostSession{strFile, *photo}) : std::nullopt;
}

std::vector<LostSession> FindLostSessions(const std::string& strFolder)
{
    std::vector<std::pair<std::filesystem::file_time_type, LostSession>> vFound;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(strFolder, error))
    {
        const std::string strFile = entry.path().string();
        if (entry.path().extension() != ".session" || IsHeld(strFile))
            continue;
        if (const auto session = LostSessionOf(strFile))
            vFound.push_back({entry.last_write_time(error), *session});
        else
            std::filesystem::remove(entry.path(), error);
    }
    std::ranges::sort(vFound, [](const auto& one, const auto& other) { return one.first > other.first; });
    std::vector<LostSession> vSessions;
    for (auto& found : vFound)
        vSessions.push_back(std::move(found.second));
    return vSessions;
}

std::optional<RecoveredWork> RecoverWork(const std::string& strFile, std::optional<CPhoto> original,
                                         std::string& strError)
{
    // Steps that are not whole do not count: first the last one that is, then all up to it.
    int nSteps = 0;
    {
        CRecords records(strFile);
        while (records.Next())
            nSteps += records.Record() == SessionRecord::Step;
    }
    CRecords records(strFile);
    const std::optional<SessionPhoto> photo = ReadPhoto(records);
    CWork work(std::move(original));
    while (photo && nSteps > 0 && records.Next())
    {
        if (records.Record() == SessionRecord::Step)
        {
            if (--nSteps == 0)
                return work.Result(records.Says().toStdString());
        }
        else if (!work.Take(records))
        {
            break;
        }
    }
    strError = Message(QT_TRANSLATE_NOOP("Program", "%1: what was kept of the work cannot be read"), {strFile});
    return std::nullopt;
}
