#include "document/SessionJournal.h"

#include "document/Message.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <lz4.h>
#include <QDataStream>
#include <QIODevice>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace
{

constexpr std::uint64_t MOST_BYTES = std::uint64_t{4} << 30;

/// A file of that name that nobody else may read, locked; -1 when there is none to be had.
int LockedFile(const std::string& strPath)
{
    const int iFile = ::open(strPath.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (iFile >= 0 && ::flock(iFile, LOCK_EX | LOCK_NB) != 0)
    {
        ::close(iFile);
        return -1;
    }
    return iFile;
}

QByteArray Compressed(const CTiledSnapshot::Tile& tile)
{
    const int nBytes = static_cast<int>(tile.size());
    QByteArray block(LZ4_compressBound(nBytes), Qt::Uninitialized);
    block.resize(LZ4_compress_default(reinterpret_cast<const char*>(tile.data()), block.data(), nBytes,
                                      static_cast<int>(block.size())));
    return block;
}

} // namespace

CSessionJournal::CSessionJournal(std::string strFolder)
{
    std::error_code error;
    std::filesystem::create_directories(strFolder, error);
    ::chmod(strFolder.c_str(), S_IRWXU);
    // Another program, or another session of this one, may have taken a name.
    constexpr int TRIES = 100;
    for (int i = 0; i < TRIES && m_iFile < 0; ++i)
    {
        m_strPath = strFolder + "/" + std::to_string(::getpid()) + "-" + std::to_string(i) + ".session";
        m_iFile = LockedFile(m_strPath);
        if (m_iFile < 0 && errno != EEXIST)
            break;
    }
    if (m_iFile < 0)
        Fail(errno);
    else
        m_thread = std::thread([this] { Work(); });
}

CSessionJournal::~CSessionJournal()
{
    {
        const std::lock_guard lock(m_mutex);
        m_bEnding = true;
        m_vWaiting.clear();
    }
    m_changed.notify_all();
    if (m_thread.joinable())
        m_thread.join();
    if (m_iFile < 0)
        return;
    ::unlink(m_strPath.c_str());
    ::close(m_iFile);
}

// ---- the user-interface thread

void CSessionJournal::Begin(const std::string& strPath, bool bWhole)
{
    m_bWhole = bWhole;
    m_bBegun = false;
    m_pixels = {};
    m_mask = {};
    Entry entry;
    entry.photo = {.strPath = strPath, .bWhole = bWhole};
    Add(std::move(entry));
}

void CSessionJournal::Append(const std::string& strStep, const CTiledSnapshot& pixels, const CTiledSnapshot& mask,
                             bool bSelected)
{
    Entry entry;
    entry.vPixels = pixels.Beyond(m_pixels);
    entry.vMask = bSelected ? mask.Beyond(m_mask) : std::vector<CTiledSnapshot::KeptTile>();
    entry.bSelected = bSelected;
    entry.strStep = strStep;
    const CTiledSnapshot::Area whole = pixels.Whole();
    QDataStream(&entry.size, QIODevice::WriteOnly)
        << static_cast<quint64>(whole.nBytes) << static_cast<quint64>(whole.nRows);
    m_bBegun = true;
    m_pixels = pixels;
    m_mask = bSelected ? mask : CTiledSnapshot();
    Add(std::move(entry));
}

void CSessionJournal::Add(Entry entry)
{
    const std::lock_guard lock(m_mutex);
    if (m_bFailed)
        return;
    m_vWaiting.push_back(std::move(entry));
    m_changed.notify_all();
}

std::string CSessionJournal::TakeFailure()
{
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_strFailure, {});
}

void CSessionJournal::Flush()
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return (m_vWaiting.empty() && !m_bWriting) || m_bFailed; });
}

// ---- the thread

void CSessionJournal::Work()
{
    std::unique_lock lock(m_mutex);
    for (;;)
    {
        m_changed.wait(lock, [this] { return !m_vWaiting.empty() || m_bEnding; });
        if (m_bEnding)
            return;
        Entry entry = std::move(m_vWaiting.front());
        m_vWaiting.pop_front();
        m_bWriting = true;
        lock.unlock();
        Write(entry);
        entry = {};
        lock.lock();
        m_bWriting = false;
        m_changed.notify_all();
    }
}

void CSessionJournal::Write(Entry& entry)
{
    if (entry.photo)
    {
        if (::ftruncate(m_iFile, 0) != 0 || ::lseek(m_iFile, 0, SEEK_SET) != 0)
            return Fail(errno);
        m_nWritten = 0;
        IdentifyFile(*entry.photo);
        WriteBytes(SESSION_MAGIC, sizeof(SESSION_MAGIC) - 1);
        QByteArray says;
        QDataStream stream(&says, QIODevice::WriteOnly);
        stream << QByteArray::fromStdString(entry.photo->strPath) << static_cast<qint64>(entry.photo->nBytes)
               << static_cast<quint64>(entry.photo->uChecksum) << entry.photo->bWhole;
        WriteRecord(SessionRecord::Photo, says);
        return;
    }
    if (m_nWritten > MOST_BYTES)
        return Fail(EFBIG);
    WriteRecord(SessionRecord::Size, entry.size);
    WriteTiles(SessionRecord::Pixels, entry.vPixels, {});
    QByteArray selected;
    QDataStream(&selected, QIODevice::WriteOnly) << entry.bSelected;
    WriteTiles(SessionRecord::Mask, entry.vMask, selected);
    WriteRecord(SessionRecord::Step, QByteArray::fromStdString(entry.strStep));
}

void CSessionJournal::WriteTiles(SessionRecord record, const std::vector<CTiledSnapshot::KeptTile>& vTiles,
                                 const QByteArray& first)
{
    constexpr std::size_t AT_ONCE = 256; // Some megabytes: enough to be fast, little to hold.
    std::size_t i = 0;
    do
    {
        QByteArray says = i == 0 ? first : QByteArray();
        QDataStream stream(&says, QIODevice::WriteOnly | QIODevice::Append);
        for (const std::size_t iEnd = std::min(i + AT_ONCE, vTiles.size()); i < iEnd; ++i)
            stream << static_cast<quint32>(vTiles[i].iTile) << static_cast<quint32>(vTiles[i].pTile->size())
                   << Compressed(*vTiles[i].pTile);
        WriteRecord(record, says);
    } while (i < vTiles.size());
}

void CSessionJournal::WriteRecord(SessionRecord record, const QByteArray& says)
{
    const QByteArray bytes = RecordOf(record, says);
    WriteBytes(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

void CSessionJournal::WriteBytes(const char* pBytes, std::size_t nBytes)
{
    while (nBytes > 0 && !m_bFailed)
    {
        const ssize_t nDone = ::write(m_iFile, pBytes, nBytes);
        if (nDone < 0 && errno == EINTR)
            continue;
        if (nDone <= 0)
            return Fail(nDone < 0 ? errno : ENOSPC);
        pBytes += nDone;
        nBytes -= static_cast<std::size_t>(nDone);
        m_nWritten += static_cast<std::uint64_t>(nDone);
    }
}

void CSessionJournal::Fail(int iError)
{
    const std::lock_guard lock(m_mutex);
    if (m_bFailed.exchange(true))
        return;
    m_vWaiting.clear();
    m_strFailure = Message(QT_TRANSLATE_NOOP("Program", "the work cannot be kept for a recovery from here on: %1"),
                           {std::strerror(iError)});
    m_changed.notify_all();
}
