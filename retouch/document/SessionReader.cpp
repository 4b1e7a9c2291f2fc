#include "document/SessionReader.h"

#include "document/Message.h"
#include "document/SessionRecords.h"
#include "document/SessionTiles.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <map>
#include <QDataStream>
#include <QIODevice>
#include <utility>

namespace
{

constexpr std::uint64_t MOST_PIXELS_OF_A_SIDE = 1 << 20;
constexpr std::uint64_t MOST_BYTES_OF_A_PHOTO = std::uint64_t{16} << 30;

/// The states that there were at a time.
struct StateList
{
    bool bUnsaved = false;
    bool bWhole = false;
    std::string strPath;
    unsigned uSaved = 0;
    unsigned uCurrent = 0;
    std::vector<unsigned> vStates;
    std::uint64_t iEnd = 0; ///< Of its record.
};

std::optional<StateList> ReadList(const CSessionRecords& records)
{
    StateList list;
    QDataStream stream(records.Says());
    QByteArray path;
    stream >> list.bUnsaved >> list.bWhole >> path >> list.uSaved >> list.uCurrent;
    list.strPath = path.toStdString();
    while (!stream.atEnd() && stream.status() == QDataStream::Ok)
        stream >> list.vStates.emplace_back();
    list.iEnd = records.End();
    return stream.status() == QDataStream::Ok ? std::optional(list) : std::nullopt;
}

std::optional<SessionPhoto> ReadPhoto(CSessionRecords& records)
{
    if (!records.Next() || records.Record() != SessionRecord::Photo)
        return std::nullopt;
    QDataStream stream(records.Says());
    QByteArray path;
    qint64 nBytes = 0;
    quint64 uChecksum = 0;
    stream >> path >> nBytes >> uChecksum;
    if (stream.status() != QDataStream::Ok)
        return std::nullopt;
    return SessionPhoto{path.toStdString(), nBytes, uChecksum};
}

bool ReadSize(QDataStream& stream, CTiledSnapshot& picture)
{
    quint64 nRow = 0;
    quint64 nRows = 0;
    stream >> nRow >> nRows;
    if (stream.status() != QDataStream::Ok || nRow == 0 || nRow % 4 != 0 || nRows == 0 ||
        nRow / 4 > MOST_PIXELS_OF_A_SIDE || nRows > MOST_PIXELS_OF_A_SIDE || nRow * nRows > MOST_BYTES_OF_A_PHOTO)
        return false;
    picture = CTiledSnapshot(nRow, nRows);
    return true;
}

CPhoto PhotoOf(const CTiledSnapshot& pixels)
{
    CPhoto photo(static_cast<int>(pixels.Whole().nBytes / 4), static_cast<int>(pixels.Whole().nRows));
    pixels.Restore({photo.Pixels(), photo.ByteCount()});
    return photo;
}

/// All that a session's file says, as its records come.
class CRead
{
public:
    explicit CRead(std::shared_ptr<CLockedFile> pFile) : m_pFile(std::move(pFile))
    {
        CSessionRecords records(m_pFile);
        if (!ReadPhoto(records))
            return;
        while (records.Next() && Take(records))
            continue;
    }

    /// The work as of the last list whose pixels can be read.
    std::optional<RecoveredWork> Work(std::optional<CPhoto> original)
    {
        for (auto it = m_vLists.rbegin(); it != m_vLists.rend() && it->bUnsaved; ++it)
        {
            try
            {
                if (std::optional<RecoveredWork> work = WorkAt(*it, original))
                    return work;
            }
            catch (const CTile::Unreadable&)
            {
                continue; // What came before may be whole.
            }
        }
        return std::nullopt;
    }

private:
    bool Take(const CSessionRecords& records)
    {
        QDataStream stream(records.Says());
        switch (records.Record())
        {
        case SessionRecord::Tiles:
            return true;
        case SessionRecord::Opened:
            return ReadSize(stream, m_opened) && ReadTiles(stream.device()->readAll(), m_pFile, records.End(), m_opened);
        case SessionRecord::State:
            return TakeState(stream, records.End());
        case SessionRecord::List:
        {
            const std::optional<StateList> list = ReadList(records);
            if (list)
                m_vLists.push_back(*list);
            return list.has_value();
        }
        default:
            return false;
        }
    }

    bool TakeState(QDataStream& stream, std::uint64_t iEnd)
    {
        CHistory::State state;
        unsigned uBefore = 0;
        QByteArray about, pixels, mask, selected;
        stream >> state.uId >> uBefore >> about >> pixels >> mask >> selected;
        QDataStream aboutStream(about);
        QByteArray name;
        aboutStream >> name;
        state.strName = name.toStdString();
        if (stream.status() != QDataStream::Ok || !ReadSize(aboutStream, state.pixels))
            return false;
        aboutStream >> state.uPixels;
        const auto itBefore = m_States.find(uBefore);
        if (uBefore != 0 && itBefore == m_States.end())
            return false;
        const CHistory::State none;
        const CHistory::State& before = uBefore ? itBefore->second : none;
        if (before.pixels.HasSizeOf(state.pixels))
            state.pixels = before.pixels;
        const CTiledSnapshot::Area whole = state.pixels.Whole();
        const CTiledSnapshot unselected(whole.nBytes / 4, whole.nRows);
        const bool bMaskGoesOn = !before.vSelected.empty() && before.mask.HasSizeOf(unselected);
        state.mask = bMaskGoesOn ? before.mask : unselected;
        const bool bGood = ReadTiles(pixels, m_pFile, iEnd, state.pixels) && ReadTiles(mask, m_pFile, iEnd, state.mask) &&
                           TakeSelected(selected, state);
        m_States[state.uId] = std::move(state);
        return bGood;
    }

    static bool TakeSelected(const QByteArray& selected, CHistory::State& state)
    {
        state.vSelected.resize(static_cast<std::size_t>(selected.size()) / sizeof(RECT));
        if (!state.vSelected.empty())
            std::memcpy(state.vSelected.data(), selected.constData(), state.vSelected.size() * sizeof(RECT));
        const auto nWidth = static_cast<LONG>(state.pixels.Whole().nBytes / 4);
        const auto nHeight = static_cast<LONG>(state.pixels.Whole().nRows);
        if (state.vSelected.empty())
            state.mask = {};
        return (state.vSelected.empty() || state.mask.IsWhole()) &&
               std::ranges::all_of(state.vSelected,
                                   [=](const RECT& rc) {
                                       return rc.left >= 0 && rc.top >= 0 && rc.left < rc.right && rc.top < rc.bottom &&
                                              rc.right <= nWidth && rc.bottom <= nHeight;
                                   });
    }

    std::optional<RecoveredWork> WorkAt(const StateList& list, std::optional<CPhoto>& original) const
    {
        const auto itCurrent = std::ranges::find(list.vStates, list.uCurrent);
        if (itCurrent == list.vStates.end() || (list.bWhole ? !m_opened.IsWhole() : !original))
            return std::nullopt;
        if (list.bWhole)
            original = PhotoOf(m_opened);
        const CTiledSnapshot opened({original->Pixels(), original->ByteCount()}, original->RowBytes(), {});
        std::deque<CHistory::State> vStates;
        for (const unsigned uId : list.vStates)
        {
            const auto it = m_States.find(uId);
            if (it == m_States.end())
                return std::nullopt;
            CHistory::State& state = vStates.emplace_back(it->second);
            if (state.pixels.HasSizeOf(opened)) // Where nothing had changed it, it is as it was opened.
                state.pixels.Fill(opened.Beyond({}));
            if (!state.pixels.IsWhole())
                return std::nullopt;
        }
        const auto iCurrent = static_cast<std::size_t>(itCurrent - list.vStates.begin());
        CPhoto photo = PhotoOf(vStates[iCurrent].pixels);
        std::vector<BYTE> vMask(photo.ByteCount() / 4);
        if (!vStates[iCurrent].vSelected.empty())
            vStates[iCurrent].mask.Restore(vMask); // It must be readable, too.
        if (m_pFile->IsWritable())
            m_pFile->CutAt(list.iEnd);
        return RecoveredWork{std::move(photo), opened, std::move(vStates), iCurrent, list.uSaved, list.bWhole, m_pFile};
    }

    std::shared_ptr<CLockedFile> m_pFile;
    CTiledSnapshot m_opened;
    std::map<unsigned, CHistory::State> m_States;
    std::vector<StateList> m_vLists;
};

/// What there is to recover of a session; nothing when there is nothing.
std::optional<LostSession> WorkIn(const std::shared_ptr<const CLockedFile>& pFile)
{
    CSessionRecords records(pFile);
    const std::optional<SessionPhoto> photo = ReadPhoto(records);
    std::optional<StateList> last;
    while (photo && records.Next())
    {
        if (records.Record() == SessionRecord::List)
            last = ReadList(records);
    }
    if (!last || !last->bUnsaved)
        return std::nullopt;
    return LostSession{pFile->Path(), last->strPath, {photo->strPath, photo->nBytes, photo->uChecksum, last->bWhole}};
}

} // namespace

std::optional<LostSession> LostSessionOf(const std::string& strFile) { return WorkIn(CLockedFile::TakeOver(strFile)); }

std::vector<LostSession> FindLostSessions(const std::string& strFolder)
{
    std::vector<std::pair<std::filesystem::file_time_type, LostSession>> vFound;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(strFolder, error))
    {
        if (entry.path().extension() != ".session")
            continue;
        const auto pFile = CLockedFile::TakeOver(entry.path().string());
        if (!pFile)
            continue;
        if (const auto session = WorkIn(pFile))
            vFound.push_back({entry.last_write_time(error), *session});
        else
            pFile->Remove();
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
    std::optional<RecoveredWork> work;
    if (auto pFile = CLockedFile::TakeOver(strFile))
        work = CRead(std::move(pFile)).Work(std::move(original));
    if (!work)
        strError = Message(QT_TRANSLATE_NOOP("Program", "%1: what was kept of the work cannot be read"), {strFile});
    return work;
}
