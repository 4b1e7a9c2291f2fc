#include "document/SessionJournal.h"

#include "document/Message.h"
#include "document/SessionTiles.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <new>
#include <QByteArray>
#include <QDataStream>
#include <QIODevice>
#include <utility>

namespace
{

constexpr std::uint64_t MOST_BYTES = std::uint64_t{8} << 30;

} // namespace

CSessionJournal::CSessionJournal(std::string strFolder) : m_strFolder(std::move(strFolder))
{
    m_pFile = CLockedFile::Make(m_strFolder);
    if (!m_pFile)
    {
        Fail(errno);
        return;
    }
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
    if (m_pFile)
        m_pFile->Remove();
}

// ---- the user-interface thread

void CSessionJournal::Begin(const std::string& strPath)
{
    if (m_bFailed)
        return;
    std::shared_ptr<CLockedFile> pFile = CLockedFile::Make(m_strFolder);
    if (!pFile)
        return Fail(errno);
    Begin(std::move(pFile), SessionPhoto{.strPath = strPath}, 0);
}

void CSessionJournal::GoOn(std::shared_ptr<CLockedFile> pFile, unsigned uLastId)
{
    Begin(std::move(pFile), std::nullopt, uLastId);
}

/// Tiles of the work before may still be read out of the old file, which has no name any more.
void CSessionJournal::Begin(std::shared_ptr<CLockedFile> pFile, std::optional<SessionPhoto> photo, unsigned uLastId)
{
    if (m_pFile)
        m_pFile->Remove();
    m_pFile = std::move(pFile);
    m_uLastId = uLastId;
    Entry entry;
    entry.pFile = m_pFile;
    entry.photo = std::move(photo);
    Add(std::move(entry));
}

void CSessionJournal::Append(const CHistory& history, const About& about, const CTiledSnapshot& opened,
                             std::vector<CTiledSnapshot::KeptTile> vOpened)
{
    Entry entry;
    const CTiledSnapshot::Area whole = opened.Whole();
    QDataStream(&entry.opened, QIODevice::WriteOnly)
        << static_cast<quint64>(whole.nBytes) << static_cast<quint64>(whole.nRows);
    entry.vOpened = std::move(vOpened);
    QDataStream list(&entry.list, QIODevice::WriteOnly);
    list << about.bUnsaved << about.bWhole << QByteArray::fromStdString(about.strPath) << history.SavedPixels()
         << history.Current().uId;
    const CHistory::State* pBefore = nullptr;
    for (const CHistory::State& state : history.States())
    {
        if (state.uId > m_uLastId)
            entry.vStates.push_back(TellFrom(pBefore, state, opened));
        list << state.uId;
        pBefore = &state;
    }
    m_uLastId = std::max(m_uLastId, pBefore->uId);
    for (const auto* pTiles : {&entry.vOpened})
        entry.nBytes += pTiles->size() * CTiledSnapshot::TILE_BYTES_AT_MOST;
    for (const NewState& state : entry.vStates)
        entry.nBytes += (state.vPixels.size() + state.vMask.size()) * CTiledSnapshot::TILE_BYTES_AT_MOST;
    Add(std::move(entry));
}

CSessionJournal::NewState CSessionJournal::TellFrom(const CHistory::State* pBefore, const CHistory::State& state,
                                                    const CTiledSnapshot& opened)
{
    NewState told;
    told.uId = state.uId;
    told.uBefore = pBefore ? pBefore->uId : 0;
    const CTiledSnapshot::Area whole = state.pixels.Whole();
    QDataStream about(&told.about, QIODevice::WriteOnly);
    about << QByteArray::fromStdString(state.strName) << static_cast<quint64>(whole.nBytes)
          << static_cast<quint64>(whole.nRows) << state.uPixels;
    const CTiledSnapshot none;
    // Where a first state is as the photo was opened it has nothing of its own.
    told.vPixels = state.pixels.Beyond(pBefore ? pBefore->pixels : opened);
    if (!state.vSelected.empty())
        told.vMask = state.mask.Beyond(pBefore && !pBefore->vSelected.empty() ? pBefore->mask : none);
    told.vSelected = state.vSelected;
    return told;
}

void CSessionJournal::Add(Entry entry)
{
    const std::lock_guard lock(m_mutex);
    if (m_bFailed)
        return;
    m_nWaiting += entry.nBytes;
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

std::size_t CSessionJournal::Waiting()
{
    const std::lock_guard lock(m_mutex);
    return m_bFailed ? 0 : m_nWaiting;
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
        const std::size_t nBytes = entry.nBytes;
        entry = {};
        lock.lock();
        m_nWaiting -= nBytes;
        m_bWriting = false;
        m_changed.notify_all();
    }
}

void CSessionJournal::Write(Entry& entry)
try
{
    if (entry.pFile)
    {
        m_pWritten = entry.pFile;
        if (!entry.photo)
            return;
        IdentifyFile(*entry.photo);
        if (const int iError = m_pWritten->Append(SESSION_MAGIC, sizeof(SESSION_MAGIC) - 1))
            return Fail(iError);
        QByteArray says;
        QDataStream stream(&says, QIODevice::WriteOnly);
        stream << QByteArray::fromStdString(entry.photo->strPath) << static_cast<qint64>(entry.photo->nBytes)
               << static_cast<quint64>(entry.photo->uChecksum);
        return WriteRecord(SessionRecord::Photo, says);
    }
    if (m_pWritten->Size() > MOST_BYTES)
        return Fail(EFBIG);
    if (!entry.vOpened.empty())
        WriteRecord(SessionRecord::Opened, entry.opened + WriteTiles(entry.vOpened, false));
    for (const NewState& state : entry.vStates)
    {
        QByteArray says;
        QDataStream stream(&says, QIODevice::WriteOnly);
        stream << state.uId << state.uBefore << state.about << WriteTiles(state.vPixels, true)
               << WriteTiles(state.vMask, true)
               << QByteArray::fromRawData(reinterpret_cast<const char*>(state.vSelected.data()),
                                          static_cast<qsizetype>(state.vSelected.size() * sizeof(RECT)));
        WriteRecord(SessionRecord::State, says);
    }
    WriteRecord(SessionRecord::List, entry.list);
}
catch (const CTile::Unreadable&) // Of a session that was recovered from a file that cannot be gone on with.
{
    Fail(EIO);
}
catch (const std::bad_alloc&)
{
    Fail(ENOMEM);
}

/// Returns where they are. With bLeave they leave the memory.
QByteArray CSessionJournal::WriteTiles(const std::vector<CTiledSnapshot::KeptTile>& vTiles, bool bLeave)
{
    constexpr std::size_t AT_ONCE = 256; // Some megabytes: enough to be fast, little to hold.
    std::vector<TilePlace> vPlaces(vTiles.size());
    for (std::size_t i = 0; i < vTiles.size(); i += AT_ONCE)
        WriteBlocks(vTiles, i, std::min(i + AT_ONCE, vTiles.size()), vPlaces);
    QByteArray told;
    QDataStream stream(&told, QIODevice::WriteOnly);
    for (std::size_t i = 0; i < vTiles.size() && !m_bFailed; ++i)
    {
        WritePlace(stream, vTiles[i].iTile, vPlaces[i]);
        if (bLeave && vPlaces[i].nBlock > 0)
            vTiles[i].pTile->Stored(m_pWritten, vPlaces[i]);
    }
    return told;
}

void CSessionJournal::WriteBlocks(const std::vector<CTiledSnapshot::KeptTile>& vTiles, std::size_t iFirst,
                                  std::size_t iEnd, std::vector<TilePlace>& vPlaces)
{
    QByteArray blocks;
    for (std::size_t i = iFirst; i < iEnd; ++i)
    {
        const CTile& tile = *vTiles[i].pTile;
        if (tile.File() == m_pWritten.get())
        {
            vPlaces[i] = tile.Place();
            continue;
        }
        if (tile.Size() == 1)
        {
            vPlaces[i] = PlaceOfOneValue(tile.Get()->front());
            continue;
        }
        const std::string block = tile.Compressed(vPlaces[i]);
        vPlaces[i].iFirst = m_pWritten->Size() + HEAD_BYTES + static_cast<std::uint64_t>(blocks.size());
        blocks.append(block.data(), static_cast<qsizetype>(block.size()));
    }
    if (!blocks.isEmpty())
        WriteRecord(SessionRecord::Tiles, blocks);
}

void CSessionJournal::WriteRecord(SessionRecord record, const QByteArray& says)
{
    const QByteArray bytes = RecordOf(record, says);
    if (const int iError =
            m_bFailed ? 0 : m_pWritten->Append(bytes.constData(), static_cast<std::size_t>(bytes.size())))
        Fail(iError);
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
